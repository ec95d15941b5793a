#pragma once
// The pins on the map, drawn by a layer of our own rather than as Marble placemarks (which hide
// pins that overlap a label and are slow by the thousand): every pin of the map, the pin of the
// location on show in its own colour, a call-out with the title and subtitle of the selected
// pin, and the marker of the user's position.
//
// Pins are told apart by identity. Each pin's projected position is worked out once when it
// is added, so a frame costs two multiply-adds per pin. Where pins fall on the same few pixels
// (a low zoom over a dense list), one of them is drawn, marked as standing for several; the
// others are not drawn and not hit. The hit test looks only at the pins near the point, through
// a grid of the pins placed for the last frame.

#include "map/MapPin.h"

#include <marble/LayerInterface.h>

#include <QImage>
#include <QPointF>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace Marble {
class ViewportParams;
} // namespace Marble

class QPainter;

class PinLayer : public Marble::LayerInterface {
public:
    PinLayer();
    ~PinLayer() override;
    PinLayer(const PinLayer&) = delete;
    PinLayer& operator=(const PinLayer&) = delete;

    // Marble's layer.
    QStringList renderPosition() const override;
    qreal zValue() const override;
    bool render(Marble::GeoPainter* painter, Marble::ViewportParams* viewport,
                const QString& renderPos, Marble::GeoSceneLayer* layer) override;

    // A pin's coordinate is read when it is added; move a pin by removing and adding it.
    void add(const MapPinRef& pin);
    void add(const std::vector<MapPinRef>& added);
    // Removes every occurrence; a pin that is not here is no error.
    void remove(const MapPinRef& pin);
    void remove(const std::vector<MapPinRef>& removed);
    const std::vector<MapPinRef>& pins() const { return refs; }
    bool contains(const MapPinRef& pin) const;

    // The pin of the location on show, asked for at each frame: drawn in its own colour, above
    // the others and never left out where pins crowd.
    void setLocationOnShow(std::function<MapPinRef()> source);
    // The pin whose call-out is shown; null for none. A pin not on the map shows nothing.
    void setSelected(const MapPinRef& pin) { selectedPin = pin; }
    const MapPinRef& selected() const { return selectedPin; }
    // The user's position, none while there is no fix.
    void setUserPosition(std::optional<MapCoordinate> position) { userPosition = position; }
    const std::optional<MapCoordinate>& userMarker() const { return userPosition; }

    // The pin drawn under or nearest to a point (pixels from the map's top left) within a few
    // pixels of its picture, topmost first; null when none is that close.
    MapPinRef pinAt(const Marble::ViewportParams& viewport, QPointF point) const;
    // Where a coordinate falls on the screen (the pin's tip), in the copy of the world nearest
    // the centre; none beyond the poles of the projection.
    static std::optional<QPointF> screenPoint(const Marble::ViewportParams& viewport,
                                              MapCoordinate where);
    // How many pin pictures the last frame drew (each may stand for several pins).
    std::size_t drawnCount() const { return placed.size(); }

    // Reach of a click around a pin's picture (pixels).
    static constexpr double reach = 4.0;

private:
    struct View {
        double centreLongitude = 0; // radians
        double centreLatitude = 0;  // radians
        int radius = 0;
        int width = 0;
        int height = 0;
        bool operator==(const View& o) const {
            return centreLongitude == o.centreLongitude && centreLatitude == o.centreLatitude &&
                   radius == o.radius && width == o.width && height == o.height;
        }
    };
    // A pin picture placed on the screen: its tip, the pin, and whether it stands for several.
    struct Placed {
        float x = 0;
        float y = 0;
        std::uint32_t pin = 0;
        bool several = false;
    };

    static View viewOf(const Marble::ViewportParams& viewport);
    // Places the pictures for the view (cached until the view, the pins or the location on show
    // change) and fills the hit grid.
    void layout(const View& view) const;
    void buildHitGrid(const View& view) const;
    void ensurePictures(qreal devicePixelRatio);
    void drawCallOut(QPainter& painter, QPointF tip, const MapPin& pin) const;
    void drawUserMarker(QPainter& painter, QPointF at) const;
    void changed() { ++generation; }

    std::vector<MapPinRef> refs;
    std::vector<double> longitudes; // radians
    std::vector<double> mercatorY;  // atanh(sin(latitude)); NaN for an unusable coordinate
    std::uint64_t generation = 0;

    std::function<MapPinRef()> locationOnShow;
    MapPinRef selectedPin;
    std::optional<MapCoordinate> userPosition;

    // The last layout.
    mutable View laidOutView;
    mutable std::uint64_t laidOutGeneration = ~std::uint64_t(0);
    mutable const MapPin* laidOutCurrent = nullptr;
    mutable std::vector<Placed> placed; // drawing order: top of the screen first, current last
    mutable std::vector<std::int32_t> cellPin;
    mutable std::vector<std::uint32_t> cellCount;
    mutable std::vector<float> cellX, cellY;
    mutable std::vector<std::uint32_t> hitStart; // per bucket, into hitEntries
    mutable std::vector<std::uint32_t> hitEntries;
    mutable int hitColumns = 0, hitRows = 0;

    QImage pinPicture, severalPicture, currentPicture;
    qreal picturesRatio = 0;
};
