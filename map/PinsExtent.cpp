#include "PinsExtent.h"

#include <algorithm>
#include <cmath>

namespace {

// One name for each meridian: -180 and +180 are the same line.
double wrapped(double longitude) { // degrees
    const double l = std::remainder(longitude, 360.0);
    return l >= 180.0 ? l - 360.0 : l;
}

} // namespace

double PinsExtent::centreLongitude() const {
    return wrapped(west + span / 2);
}

std::optional<PinsExtent> PinsExtent::of(const std::vector<MapPinRef>& pins) {
    std::vector<double> longitudes;
    longitudes.reserve(pins.size());
    PinsExtent extent{0, 0, 90, -90};
    for (const MapPinRef& pin : pins) {
        if (!pin || !std::isfinite(pin->coordinate.latitude) ||
            !std::isfinite(pin->coordinate.longitude))
            continue;
        longitudes.push_back(wrapped(pin->coordinate.longitude));
        extent.south = std::min(extent.south, pin->coordinate.latitude);
        extent.north = std::max(extent.north, pin->coordinate.latitude);
    }
    if (longitudes.empty())
        return std::nullopt;
    std::sort(longitudes.begin(), longitudes.end());
    // The gap across the 180th meridian first, then each gap between neighbours.
    double widestGap = longitudes.front() + 360.0 - longitudes.back();
    extent.west = longitudes.front();
    for (std::size_t i = 1; i < longitudes.size(); ++i) {
        const double gap = longitudes[i] - longitudes[i - 1];
        if (gap > widestGap) {
            widestGap = gap;
            extent.west = longitudes[i];
        }
    }
    extent.span = 360.0 - widestGap;
    return extent;
}
