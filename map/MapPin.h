#pragma once
// A pin on the map: a coordinate with the texts of its call-out. Pins are compared by identity.
// A recorded location's pin carries its numbers, written only when the call-out is shown: a
// million imported pins hold no text of their own.

#include <QString>

#include <memory>

// A position as the map takes it: latitude first.
struct MapCoordinate {
    double latitude = 0;  // degrees
    double longitude = 0; // degrees
};

class MapPin {
public:
    MapCoordinate coordinate;
    QString label;             // the location's label; empty for none
    bool numbered = false;     // the call-out also shows the coordinate's numbers
    bool latitudeFirst = true; // the order of those numbers when the pin was made

    // The call-out's first line: the label, or the numbers of a pin that has no label.
    QString title() const;
    // Its second line: the numbers under a label; empty otherwise.
    QString subtitle() const;
};

using MapPinRef = std::shared_ptr<MapPin>;

// A pair of numbers with "°" behind each and ", " between them, every digit of the doubles kept:
// "45.5°, 9.25°". latitudeFirst gives their order.
QString coordinateText(double lat, double lon, bool latitudeFirst);
