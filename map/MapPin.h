#pragma once
// A pin on the map: a coordinate with the texts of its call-out. Pins are compared by identity.

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
    QString title;
    QString subtitle;
};

using MapPinRef = std::shared_ptr<MapPin>;
