#pragma once
// A map that keeps what the controller asks of it: where it was moved, the pins on it, the
// switches, and answers pixel-to-coordinate conversions from a plain linear projection that a
// test can predict (1 pixel = 0.01 degree, (0, 0) at the given top-left corner).

#include "map/MapView.h"

#include <algorithm>
#include <vector>

class FakeMapView : public MapView {
public:
    int left() const override { return mapLeft; }
    int width() const override { return mapWidth; }
    void setMouseCursor(const MouseCursor& shown) override {
        cursor = shown;
        ++cursorSets;
    }
    MapCoordinate centerCoordinate() const override { return centre; }
    void setCenterCoordinate(MapCoordinate c) override {
        centre = c;
        centreMoves.push_back(c);
    }
    void setZoomLevel(double z) override { zoomLevel = z; }
    void setMapType(int type) override { mapType = type; }
    void setShowsScale(bool shown) override { showsScale = shown; }
    void setShowsCompass(bool shown) override { showsCompass = shown; }
    void setShowsZoomControls(bool shown) override { showsZoomControls = shown; }
    void setScrollEnabled(bool enabled) override { scrollEnabled = enabled; }
    void setShowsUserLocation(bool shown) override { showsUserLocation = shown; }
    std::optional<MapCoordinate> userLocation() const override { return userFix; }
    std::optional<MapCoordinate> convertPointToCoordinate(double x, double y) const override {
        const MapCoordinate c{topLeft.latitude - y * degreesPerPixel,
                              topLeft.longitude + x * degreesPerPixel};
        if (c.latitude < -90 || c.latitude > 90)
            return std::nullopt; // off the globe
        return c;
    }
    void showAddress(const QString& text) override { addressesShown.push_back(text); }
    void addAnnotation(const MapPinRef& pin) override { pins.push_back(pin); }
    void removeAnnotation(const MapPinRef& pin) override {
        pins.erase(std::remove(pins.begin(), pins.end(), pin), pins.end());
    }
    void addAnnotations(const std::vector<MapPinRef>& added) override {
        pins.insert(pins.end(), added.begin(), added.end());
    }
    void removeAnnotations(const std::vector<MapPinRef>& removed) override {
        for (const MapPinRef& pin : removed)
            removeAnnotation(pin);
    }
    void showAnnotations(const std::vector<MapPinRef>& shown, bool animated) override {
        annotationsShown = shown;
        lastShowAnimated = animated;
    }

    bool hasPin(const MapPinRef& pin) const {
        return std::find(pins.begin(), pins.end(), pin) != pins.end();
    }

    int mapLeft = 32, mapWidth = 737; // where the map stands in its page
    MouseCursor cursor;
    int cursorSets = 0;
    MapCoordinate centre{0, 0};
    std::vector<MapCoordinate> centreMoves;
    double zoomLevel = 0;
    int mapType = -1;
    bool showsScale = false, showsCompass = false, showsZoomControls = false;
    bool scrollEnabled = true, showsUserLocation = false;
    std::optional<MapCoordinate> userFix;
    MapCoordinate topLeft{50, 0};
    double degreesPerPixel = 0.01;
    std::vector<QString> addressesShown;
    std::vector<MapPinRef> pins; // on the map, in the order added
    std::vector<MapPinRef> annotationsShown;
    bool lastShowAnimated = false;
};
