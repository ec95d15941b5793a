#pragma once
// The ten settings that steer how the three notations are written. The window holds them; the
// Format menu and the pop-up buttons change them.

#include <QString>

struct NotationSettings {
    // Construction values; the window's open event then sets the separators to ", ".
    QString DDseparator = QStringLiteral(",");
    bool DDshowHemiLet = false;  // hemisphere letters instead of a minus sign
    bool DDshowDegrSymb = false; // degree sign after each value
    QString DMSseparator = QStringLiteral(",");
    bool DMSshowHemiLet = true; // hemisphere letters instead of a minus sign
    bool DMSshowSymbols = true; // degree, minute and second signs
    QString UTMseparator = QStringLiteral(",");
    bool UTMshowEN = true;       // " E" and " N" after easting and northing
    bool UTMshowM = false;       // " m" after easting and northing
    bool UTMnegZoneSouth = true; // south: negative zone rather than a letter after the zone
};

// The mark of a missing value in the window's lat and lon: a value at or below it is not
// written.
constexpr double missingCoordinate = -9999.0;
