#pragma once
// What the controller needs of the map: moving it, pins, converting a point under the pointer,
// finding an address and following the user's position. The shell implements it with Marble;
// the tests with a fake.

#include "MapPin.h"
#include "MouseCursor.h"

#include <QString>

#include <optional>
#include <vector>

class MapView {
public:
    enum class MapType { Standard = 0, Satellite = 1, Hybrid = 2 };

    virtual ~MapView() = default;

    // The map control's left edge and width in the coordinates of its page (pixels).
    virtual int left() const = 0;
    virtual int width() const = 0;
    // The pointer over the map; the map may set its own while dragging, so it is set again
    // after every event that could have changed it.
    virtual void setMouseCursor(const MouseCursor& cursor) = 0;

    virtual MapCoordinate centerCoordinate() const = 0;
    // Moves the map and leaves the zoom alone.
    virtual void setCenterCoordinate(MapCoordinate centre) = 0;
    // Web-map zoom: 8.0 is about 611 m per pixel at the equator.
    virtual void setZoomLevel(double zoomLevel) = 0;
    virtual void setMapType(int type) = 0;
    virtual void setShowsScale(bool shown) = 0;
    virtual void setShowsCompass(bool shown) = 0;
    virtual void setShowsZoomControls(bool shown) = 0;
    // Whether dragging pans the map.
    virtual void setScrollEnabled(bool enabled) = 0;
    // Starts or stops following and showing the user's position.
    virtual void setShowsUserLocation(bool shown) = 0;
    // The user's position as the map knows it, none while there is no fix.
    virtual std::optional<MapCoordinate> userLocation() const = 0;
    // The coordinate under a point (pixels from the map's top left); none off the globe.
    virtual std::optional<MapCoordinate> convertPointToCoordinate(double x, double y) const = 0;
    // Geocodes free text and, on success, moves the map there; the move is reported later as a
    // region change. A text that names no place is reported later as Map_addressNotFound. No
    // result is returned.
    virtual void showAddress(const QString& text) = 0;
    virtual void addAnnotation(const MapPinRef& pin) = 0;
    // Removing a pin that is not on the map does nothing.
    virtual void removeAnnotation(const MapPinRef& pin) = 0;
    virtual void addAnnotations(const std::vector<MapPinRef>& pins) = 0;
    virtual void removeAnnotations(const std::vector<MapPinRef>& pins) = 0;
    // Changes the region so that every pin of the list is visible.
    virtual void showAnnotations(const std::vector<MapPinRef>& pins, bool animated) = 0;
};
