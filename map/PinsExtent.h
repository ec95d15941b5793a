#pragma once
// The smallest stretch of the globe that holds a set of pins: a run of longitudes, which may
// cross the 180th meridian, and a band of latitudes. Pins at Fiji (178 E) and Samoa (172 W)
// span 10 degrees across the date line, not 350 the other way round.

#include "MapPin.h"

#include <optional>
#include <vector>

struct PinsExtent {
    // The run starts at west and goes east for span: the complement of the widest empty gap
    // between the pins' longitudes. One pin, or pins on one meridian, span 0.
    double west = 0;  // degrees, in [-180, 180); +180 is read as -180, the same meridian
    double span = 0;  // degrees, in [0, 360)
    double south = 0; // degrees
    double north = 0; // degrees

    // The middle of the run of longitudes (degrees, in [-180, 180)).
    double centreLongitude() const;

    // None when no pin has a finite coordinate; pins that are missing or not finite are passed.
    static std::optional<PinsExtent> of(const std::vector<MapPinRef>& pins);
};
