#pragma once
// Reads the text of a notation field as a longitude and latitude. Each reader searches the
// text with its pattern (a match may start anywhere; what follows the last group is ignored),
// turns the groups into numbers by the leading-number rule and places the values.
//
// Decimal degrees:  (-?[0-9.,]+)°? *([ewnsEWNS])?,?;? +(-?[0-9.,]+)°? *([ewnsEWNS])?(.*)
//   "45.5 9.25", "45.00, 9.00", "9.25E 45.5N", "9.25 W, 45.5 S", "-33.85; 151.2"
//   not read: "45" (one value), "45,9" (no blank between the values)
// Degrees, minutes, seconds: the same shape with optional minutes and seconds per value,
//   (-?[0-9.,]+)°? *([0-9.,]*)'? *([0-9.,]*)"? *([ewnsEWNS])?,?;? + ...the same again...(.*)
//   "45° 30' 15.5\"N, 9° 10' 0\"E", "45°N, 9°E", "45 30 0 9 10 0"
//   "45 30 9 10" fills from the left: 45° 30' 9" and 10°
//   Typographic quotes count as plain ones. A minus sign before the degrees negates the whole
//   angle, so "-33 51 00.0" is -33.85, as the writer puts it.
// UTM: (-?[0-9.,]+) *m? *([enEN])?,?;? +(-?[0-9.,]+) *m? *([enEN])?,?;? +(-?[0-9]+) *([nsNS])?(.*)
//   "500000.0 E, 4982950.4 N 32", "4982950.4 N, 500000.0 E 32", "333471.8 m E, 6253018.2 m N 56 S"
//   not read: "500000 4982950 32" (easting and northing must carry their letters)
//
// Placing the two values (DD and DMS): a letter E/W makes a value the longitude and N/S the
// latitude, W and S making it negative whatever its sign; "E" and "N" never change a sign. A
// value without a letter is placed by its position and the order (latitude first or not). If
// no rule places a value the reading stops with that coordinate missing.
//
// The locale's minus sign, where it is not '-', is read as '-'; with a comma locale the comma
// is also a decimal separator (a trailing separator comma is ignored).

#include "coordinates/NumberText.h"

#include <QString>

class MessageBox;

struct ParsedPosition {
    double lon = -9999.0; // degrees; -9999 when no value was placed as the longitude
    double lat = -9999.0; // degrees; -9999 when no value was placed as the latitude
    // The pattern engine gave up (too many steps on a hostile text); errorText says why.
    bool searchFailed = false;
    QString errorText;

    bool complete() const { return lon != -9999.0 && lat != -9999.0; }
};

ParsedPosition parseDDText(const QString& text, bool latFirst, const NumberLocale& locale);
ParsedPosition parseDMSText(const QString& text, bool latFirst, const NumberLocale& locale);
// A bad zone (0, above 61) shows the inverse projection's two messages through messages.
ParsedPosition parseUTMText(const QString& text, const NumberLocale& locale, MessageBox& messages);
