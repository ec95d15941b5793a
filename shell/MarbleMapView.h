#pragma once
// The map of the window: Marble's map drawn in a widget of our own, behind the controller's
// MapView. Not Marble's MarbleWidget: that one always starts QtWebEngine processes (about
// 150 MB more, and a slower first frame) for an information bubble this window never shows.
// So this widget does the little of MarbleWidget it needs itself: dragging pans (unless
// scrolling is off), the wheel and the + / - buttons zoom, and Marble's scale bar and compass
// are drawn by the map as float items.
//
// Every press, release, move, entry and exit goes to the controller with the widget's own
// pixel coordinates; a right press opens the controller's contextual menu; a click on a pin
// selects it; and each change of the visible region is reported once, after the map has come
// to rest.

#include "MapThemes.h"
#include "PinLayer.h"
#include "locationbook/ControlViews.h"
#include "map/MapView.h"

#include <QPoint>
#include <QWidget>

#include <functional>
#include <memory>

namespace Marble {
class MarbleMap;
class MarbleModel;
} // namespace Marble

class AddressSearch;
class QLabel;
class QTimer;
class QVariantAnimation;
class QToolButton;
class ResourcePictures;
class UserPosition;

class MarbleMapView : public QWidget, public MapView {
    Q_OBJECT
public:
    // The controller's map events; any may be left empty.
    struct Events {
        // x, y: pixels from the map's top left. True: the press has been dealt with.
        std::function<bool(int x, int y, bool contextualClick)> mouseDown;
        std::function<void(int x, int y)> mouseUp;
        std::function<void(int x, int y)> mouseMove;
        std::function<void()> mouseEnter;
        std::function<void()> mouseExit;
        std::function<void(const MapPinRef& pin)> pinSelected;
        std::function<bool(PopupMenuItem& base, int x, int y)> constructContextualMenu;
        std::function<bool(const PopupMenuItem& item)> contextualMenuAction;
        std::function<void()> regionChanged;
        // The text given to showAddress names no place.
        std::function<void()> addressNotFound;
        // The pin of the location on show, drawn in its own colour.
        std::function<MapPinRef()> locationOnShow;
    };

    // pictures: where the pointer's pictures come from; must outlive the map.
    explicit MarbleMapView(ResourcePictures* pictures, QWidget* parent = nullptr);
    ~MarbleMapView() override;

    void setEvents(Events events);

    // --- MapView -----------------------------------------------------------------------------
    int left() const override { return x(); }
    int width() const override { return QWidget::width(); }
    void setMouseCursor(const MouseCursor& cursor) override;
    MapCoordinate centerCoordinate() const override;
    void setCenterCoordinate(MapCoordinate centre) override;
    void setZoomLevel(double zoomLevel) override;
    void setMapType(int type) override;
    void setShowsScale(bool shown) override;
    void setShowsCompass(bool shown) override;
    void setShowsZoomControls(bool shown) override;
    void setScrollEnabled(bool enabled) override { scrollEnabled = enabled; }
    void setShowsUserLocation(bool shown) override;
    std::optional<MapCoordinate> userLocation() const override;
    std::optional<MapCoordinate> convertPointToCoordinate(double x, double y) const override;
    void showAddress(const QString& text) override;
    void addAnnotation(const MapPinRef& pin) override;
    void removeAnnotation(const MapPinRef& pin) override;
    void addAnnotations(const std::vector<MapPinRef>& pins) override;
    void removeAnnotations(const std::vector<MapPinRef>& pins) override;
    void showAnnotations(const std::vector<MapPinRef>& pins, bool animated) override;

    // --- What the window, the tests and the benchmarks look at -------------------------------
    Marble::MarbleModel* model() const { return marbleModel.get(); }
    Marble::MarbleMap* map() const { return marbleMap.get(); }
    PinLayer& pinLayer() { return pins; }
    MapThemes& themes() { return mapThemes; }
    // The follower of the user's position, made on first use (a test can give it a provider).
    UserPosition* userPosition();
    AddressSearch* addressSearch() const { return search; }
    int mapType() const { return currentType; }
    // Files of the look (coasts, borders, places) still being read; they come in the background.
    int pendingMapFiles() const;
    QString themeId() const;
    bool isScrollEnabled() const { return scrollEnabled; }
    // Web-map zoom of the map as it is (8.0 about 611 m per pixel at the equator).
    double zoomLevel() const;
    // Where a coordinate is on the map (pixels from its top left), in the copy of the world
    // nearest the centre; none beyond the projection's poles.
    std::optional<QPointF> pointForCoordinate(MapCoordinate where) const;
    QToolButton* zoomInButton() const { return zoomIn; }
    QToolButton* zoomOutButton() const { return zoomOut; }
    // Zooms by web-map levels (negative: out), keeping the point at the map's centre.
    void zoomBy(double levels);
    // How long an animated move takes.
    static constexpr int flightMilliseconds = 600;
    bool isFlying() const;

signals:
    // The first frame of the map has been painted.
    void firstFrame();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    // Where the map looks: the centre's longitude (radians) and Mercator ordinate, and
    // Marble's zoom (200 ln radius).
    struct Place {
        double longitude, mercatorY, marbleZoom;
    };
    Place currentPlace() const;
    void jumpTo(const Place& place);
    // An animated move; any other move, press or wheel turn stops it where it is.
    void flyTo(const Place& target);
    void stopFlight();
    void flightStep(double progress);
    double clampedMarbleZoom(double marbleZoom) const;
    void applyTheme();
    void applyViewChoices();
    void setMarbleZoom(double marbleZoom);
    // Moves the map so that the coordinate under the pixel `from` comes under `to`.
    void keepPointUnder(MapCoordinate where, QPointF to);
    void panBy(QPointF fromCentre, double dx, double dy);
    // Ends a left-button drag: the map comes to rest and its region is reported.
    void endDrag();
    void regionMayHaveChanged();
    void reportRegionWhenStill();
    void setViewMoving(bool moving);
    void openContextualMenu(QPoint at);
    void placeOverlays();
    void applyCursor();

    ResourcePictures* pictures;
    std::unique_ptr<Marble::MarbleModel> marbleModel;
    std::unique_ptr<Marble::MarbleMap> marbleMap;
    PinLayer pins;
    MapThemes mapThemes;
    UserPosition* position = nullptr;
    AddressSearch* search = nullptr;
    Events events;

    int currentType = 0;
    bool showsScale = false, showsCompass = false, showsZoomControls = false;
    bool scrollEnabled = true;
    MouseCursor mapCursor; // the controller's pointer

    // A left press: where it was, the centre then (projected), and whether it has moved on.
    bool leftDown = false;
    bool dragging = false;
    QPoint pressAt;
    QPointF pressCentre; // radians of longitude, and Mercator ordinate, at the press

    bool regionPending = false;
    bool regionReportQueued = false;
    bool firstFramePainted = false;
    QTimer* wheelSettle = nullptr;
    QVariantAnimation* flight = nullptr;
    Place flightFrom{}, flightTo{};

    QToolButton* zoomIn = nullptr;
    QToolButton* zoomOut = nullptr;
    QLabel* attribution = nullptr;
};
