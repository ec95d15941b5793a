#include "MarbleMapView.h"

#include "AddressSearch.h"
#include "QtControlViews.h"
#include "UserPosition.h"
#include "map/MapThemeChoice.h"
#include "map/PinsExtent.h"

#include <marble/AbstractFloatItem.h>
#include <marble/FileManager.h>
#include <marble/GeoPainter.h>
#include <marble/MarbleMap.h>
#include <marble/MarbleModel.h>
#include <marble/RenderPlugin.h>
#include <marble/ViewportParams.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QToolButton>
#include <QVariantAnimation>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double degree = pi / 180.0;
const double maxMercator = pi; // Marble's Mercator map is as tall as it is wide
// Marble's zoom is 200 ln(radius); in Mercator the map is 4 radii wide and a web map
// 256 * 2^z pixels, so web zoom z is radius 64 * 2^z.
const double marbleZoomPerWebLevel = 200.0 * std::log(2.0);

double marbleZoomOfWebLevel(double webZoom) {
    return 200.0 * std::log(64.0 * std::exp2(webZoom));
}

double mercator(double latitude) { // radians
    const double limit = std::atan(std::sinh(maxMercator));
    return std::atanh(std::sin(std::clamp(latitude, -limit, limit)));
}

// The render plugins nobody asked for: drawn over the map, or made to reach the network.
const char* const hiddenPlugins[] = {"overviewmap",
                                     "license",
                                     "crosshairs",
                                     "coordinate-grid",
                                     "atmosphere",
                                     "stars",
                                     "navigation",
                                     "progress",
                                     "sun",
                                     "positionMarker",
                                     "speedometer",
                                     "GpsInfo",
                                     "elevationprofile",
                                     "elevationprofilemarker"};

void addMenuEntries(QMenu& menu, const PopupMenuItem& item,
                    std::vector<std::pair<QAction*, const PopupMenuItem*>>& entries) {
    for (const PopupMenuItem& child : item.children) {
        if (child.Text == QLatin1String("-")) {
            menu.addSeparator();
        } else if (!child.children.empty()) {
            addMenuEntries(*menu.addMenu(child.Text), child, entries);
        } else {
            QAction* action = menu.addAction(child.Text);
            action->setCheckable(child.HasCheckMark);
            action->setChecked(child.HasCheckMark);
            entries.emplace_back(action, &child);
        }
    }
}

} // namespace

MarbleMapView::MarbleMapView(ResourcePictures* namedPictures, QWidget* parent)
    : QWidget(parent), pictures(namedPictures) {
    MapThemes::prepare();
    marbleModel = std::make_unique<Marble::MarbleModel>();
    // Offline until a tile server has answered: the map shows at once, from local data.
    marbleModel->setWorkOffline(true);
    marbleMap = std::make_unique<Marble::MarbleMap>(marbleModel.get());
    marbleMap->setProjection(Marble::Mercator);
    marbleMap->setSize(size());
    marbleMap->addLayer(&pins);

    connect(marbleMap.get(), &Marble::MarbleMap::repaintNeeded, this, [this] { update(); });
    connect(marbleMap.get(), &Marble::MarbleMap::themeChanged, this,
            [this] { applyViewChoices(); });
    connect(marbleMap.get(), &Marble::MarbleMap::visibleLatLonAltBoxChanged, this,
            [this] { regionMayHaveChanged(); });
    connect(marbleMap.get(), &Marble::MarbleMap::viewContextChanged, this,
            [this](Marble::ViewContext context) {
                if (context == Marble::Still)
                    reportRegionWhenStill();
            });
    connect(&mapThemes, &MapThemes::imageryChanged, this, [this] { applyTheme(); });
    connect(&mapThemes, &MapThemes::onlineChanged, this, [this] {
        marbleModel->setWorkOffline(!mapThemes.online());
        applyTheme();
    });

    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setContextMenuPolicy(Qt::PreventContextMenu);

    // Show All flies to the pins rather than jumping, so the user sees where they are.
    flight = new QVariantAnimation(this);
    flight->setStartValue(0.0);
    flight->setEndValue(1.0);
    flight->setDuration(flightMilliseconds);
    flight->setEasingCurve(QEasingCurve::InOutCubic);
    connect(flight, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& progress) { flightStep(progress.toDouble()); });
    connect(flight, &QVariantAnimation::finished, this, [this] { setViewMoving(false); });

    wheelSettle = new QTimer(this);
    wheelSettle->setSingleShot(true);
    wheelSettle->setInterval(250);
    connect(wheelSettle, &QTimer::timeout, this, [this] {
        if (!(dragging && scrollEnabled)) // a drag still going on ends the move itself
            setViewMoving(false);
    });

    const auto makeZoomButton = [this](const QString& caption, const QString& tip, double by) {
        auto* button = new QToolButton(this);
        button->setText(caption);
        button->setToolTip(tip);
        button->setFixedSize(26, 26);
        button->setFocusPolicy(Qt::NoFocus);
        button->hide();
        connect(button, &QToolButton::clicked, this, [this, by] { zoomBy(by); });
        return button;
    };
    zoomIn = makeZoomButton(QStringLiteral("+"), QStringLiteral("Zoom in"), 1.0);
    zoomIn->setObjectName(QStringLiteral("MapZoomIn"));
    zoomOut = makeZoomButton(QString(QChar(0x2212)), QStringLiteral("Zoom out"), -1.0);
    zoomOut->setObjectName(QStringLiteral("MapZoomOut"));

    // Marble's licence float item stays hidden; the online tiles still say whose they are.
    attribution = new QLabel(this);
    attribution->setAttribute(Qt::WA_TransparentForMouseEvents);
    attribution->setStyleSheet(QStringLiteral(
        "QLabel { background: rgba(255, 255, 255, 170); color: #333; padding: 0 3px; }"));
    QFont small = attribution->font();
    small.setPixelSize(10);
    attribution->setFont(small);
    attribution->hide();

    applyTheme();
    // The whole world across the map until the controller moves it.
    setMarbleZoom(marbleZoomOfWebLevel(1.5));
    marbleMap->centerOn(0.0, 20.0);
}

MarbleMapView::~MarbleMapView() {
    // The helpers go while the model they work on is still there.
    delete search;
    delete position;
    marbleMap->removeLayer(&pins);
}

void MarbleMapView::setEvents(Events newEvents) {
    events = std::move(newEvents);
    pins.setLocationOnShow(events.locationOnShow);
}

// --- Where the map is ------------------------------------------------------------------------

MapCoordinate MarbleMapView::centerCoordinate() const {
    return MapCoordinate{marbleMap->centerLatitude(), marbleMap->centerLongitude()};
}

void MarbleMapView::setCenterCoordinate(MapCoordinate centre) {
    stopFlight();
    if (!std::isfinite(centre.latitude) || !std::isfinite(centre.longitude))
        return;
    marbleMap->centerOn(centre.longitude, centre.latitude);
    update();
}

double MarbleMapView::zoomLevel() const {
    return std::log2(marbleMap->radius() / 64.0);
}

void MarbleMapView::setZoomLevel(double level) {
    stopFlight();
    if (std::isfinite(level))
        setMarbleZoom(marbleZoomOfWebLevel(level));
}

void MarbleMapView::zoomBy(double levels) {
    stopFlight();
    setMarbleZoom(200.0 * std::log(double(marbleMap->radius())) + levels * marbleZoomPerWebLevel);
}

double MarbleMapView::clampedMarbleZoom(double marbleZoom) const {
    // The theme's limits, as MarbleWidget's setZoom keeps them: past them the look has no data.
    return std::clamp(marbleZoom, double(marbleMap->minimumZoom()),
                      double(marbleMap->maximumZoom()));
}

void MarbleMapView::setMarbleZoom(double marbleZoom) {
    const double zoom = clampedMarbleZoom(marbleZoom);
    const int radius = std::max(1, int(std::lround(std::exp(zoom / 200.0))));
    if (radius != marbleMap->radius()) {
        marbleMap->setRadius(radius);
        update();
    }
}

std::optional<MapCoordinate> MarbleMapView::convertPointToCoordinate(double x, double y) const {
    if (!std::isfinite(x) || !std::isfinite(y))
        return std::nullopt;
    qreal lon = 0, lat = 0;
    if (!marbleMap->geoCoordinates(int(std::lround(x)), int(std::lround(y)), lon, lat,
                                   Marble::GeoDataCoordinates::Degree))
        return std::nullopt;
    return MapCoordinate{lat, lon};
}

std::optional<QPointF> MarbleMapView::pointForCoordinate(MapCoordinate where) const {
    return PinLayer::screenPoint(*marbleMap->viewport(), where);
}

void MarbleMapView::panBy(QPointF fromCentre, double dx, double dy) {
    // Content follows the pointer: the centre moves the other way, in projected units.
    const double perPixel = pi / (2.0 * marbleMap->radius()); // radians per pixel
    const double lon = fromCentre.x() - dx * perPixel;
    const double y = std::clamp(fromCentre.y() + dy * perPixel, -maxMercator, maxMercator);
    const double lat = std::atan(std::sinh(y));
    marbleMap->centerOn(std::remainder(lon / degree, 360.0), lat / degree);
    update();
}

void MarbleMapView::keepPointUnder(MapCoordinate where, QPointF to) {
    const auto now = pointForCoordinate(where);
    if (!now)
        return;
    const QPointF centre(marbleMap->centerLongitude() * degree,
                         mercator(marbleMap->centerLatitude() * degree));
    panBy(centre, to.x() - now->x(), to.y() - now->y());
}

MarbleMapView::Place MarbleMapView::currentPlace() const {
    return Place{marbleMap->centerLongitude() * degree,
                 mercator(marbleMap->centerLatitude() * degree),
                 200.0 * std::log(double(marbleMap->radius()))};
}

void MarbleMapView::jumpTo(const Place& place) {
    setMarbleZoom(place.marbleZoom);
    const double y = std::clamp(place.mercatorY, -maxMercator, maxMercator);
    marbleMap->centerOn(std::remainder(place.longitude / degree, 360.0),
                        std::atan(std::sinh(y)) / degree);
    update();
}

void MarbleMapView::flyTo(const Place& target) {
    stopFlight();
    if (!isVisible()) { // nobody would see the flight
        jumpTo(target);
        return;
    }
    flightFrom = currentPlace();
    flightTo = target;
    // The short way round: a flight from Japan to Alaska crosses the Pacific.
    flightTo.longitude =
        flightFrom.longitude + std::remainder(target.longitude - flightFrom.longitude, 2 * pi);
    setViewMoving(true);
    flight->start();
}

void MarbleMapView::stopFlight() {
    if (flight->state() != QAbstractAnimation::Running)
        return;
    flight->stop();
    setViewMoving(false);
}

void MarbleMapView::flightStep(double progress) {
    const auto between = [progress](double from, double to) {
        return from + (to - from) * progress;
    };
    jumpTo(Place{between(flightFrom.longitude, flightTo.longitude),
                 between(flightFrom.mercatorY, flightTo.mercatorY),
                 between(flightFrom.marbleZoom, flightTo.marbleZoom)});
}

void MarbleMapView::showAnnotations(const std::vector<MapPinRef>& shown, bool animated) {
    const auto extent = PinsExtent::of(shown);
    if (!extent)
        return;                                // nothing to show: the map stays where it is
    const double span = extent->span * degree; // radians
    const double lowY = mercator(extent->south * degree), highY = mercator(extent->north * degree);
    // Room around the pins, above them for their heads, and for the band of the read-out and
    // the scale bar at the top.
    const double margin = 40, heads = 30, topBand = 30;
    const double usableWidth = std::max(1.0, QWidget::width() - 2 * margin);
    const double usableHeight = std::max(1.0, height() - 2 * margin - heads - topBand);
    double perRadian = std::numeric_limits<double>::infinity(); // pixels per projected radian
    if (span > 0)
        perRadian = usableWidth / span;
    if (highY > lowY)
        perRadian = std::min(perRadian, usableHeight / (highY - lowY));
    // One place alone (or several at one place): close in, as far as the look allows.
    const double radius = std::isfinite(perRadian) ? perRadian * pi / 2.0 : 64.0 * std::exp2(14);
    const double zoom = clampedMarbleZoom(200.0 * std::log(std::max(radius, 1.0)));
    const double pixelsPerRadian = 2.0 * std::lround(std::exp(zoom / 200.0)) / pi;
    const Place target{extent->centreLongitude() * degree,
                       (lowY + highY) / 2 + (heads + topBand) / 2 / pixelsPerRadian, zoom};
    if (animated)
        flyTo(target);
    else
        jumpTo(target);
}

// --- Looks and float items -------------------------------------------------------------------

int MarbleMapView::pendingMapFiles() const {
    return marbleModel->fileManager()->pendingFiles();
}

QString MarbleMapView::themeId() const {
    return marbleMap->mapThemeId();
}

void MarbleMapView::setMapType(int type) {
    currentType = type >= 0 && type <= 2 ? type : 0;
    mapThemes.probe(); // the network may have come since; the answer switches the look later
    applyTheme();
}

void MarbleMapView::applyTheme() {
    const QString theme = mapThemes.themeFor(currentType);
    if (theme == marbleMap->mapThemeId())
        return;
    // A new look keeps the place and, within its limits, the zoom.
    const qreal lon = marbleMap->centerLongitude(), lat = marbleMap->centerLatitude();
    const double zoom = 200.0 * std::log(double(marbleMap->radius()));
    marbleMap->setMapThemeId(theme);
    marbleMap->centerOn(lon, lat);
    setMarbleZoom(zoom);
    applyViewChoices();
    update();
}

void MarbleMapView::applyViewChoices() {
    // A new theme brings its own settings: put ours back.
    Marble::MarbleMap& m = *marbleMap;
    m.setShowOverviewMap(false);
    m.setShowCrosshairs(false);
    m.setShowGrid(false);
    m.setShowAtmosphere(false);
    m.setShowClouds(false);
    m.setShowSunShading(false);
    m.setShowCityLights(false);
    m.setShowFrameRate(false);
    for (Marble::RenderPlugin* plugin : m.renderPlugins())
        for (const char* hidden : hiddenPlugins)
            if (plugin->nameId() == QLatin1String(hidden))
                plugin->setVisible(false);
    if (Marble::AbstractFloatItem* scale = m.floatItem(QStringLiteral("scalebar"))) {
        scale->setEnabled(true);
        scale->setVisible(showsScale);
        // Top left, under the band of the pointer's read-out (which grows to the left as far
        // as its text needs); the map-type buttons sit at the bottom.
        scale->setPosition(QPointF(10.5, 28.5));
    }
    if (Marble::AbstractFloatItem* compass = m.floatItem(QStringLiteral("compass"))) {
        compass->setEnabled(true);
        compass->setVisible(showsCompass);
        compass->setPosition(QPointF(-10.5, 28.5)); // top right, under the pointer read-out
    }
    const QString credit = MapThemeChoice::attribution(m.mapThemeId());
    attribution->setText(credit);
    attribution->setVisible(!credit.isEmpty());
    placeOverlays();
    update();
}

void MarbleMapView::setShowsScale(bool shown) {
    showsScale = shown;
    applyViewChoices();
}

void MarbleMapView::setShowsCompass(bool shown) {
    showsCompass = shown;
    applyViewChoices();
}

void MarbleMapView::setShowsZoomControls(bool shown) {
    showsZoomControls = shown;
    zoomIn->setVisible(shown);
    zoomOut->setVisible(shown);
}

void MarbleMapView::placeOverlays() {
    const int w = QWidget::width(), h = height();
    attribution->adjustSize();
    attribution->move(w - attribution->width(), h - attribution->height());
    const int bottom = h - (attribution->isVisibleTo(this) ? attribution->height() : 0) - 8;
    zoomOut->move(w - zoomOut->width() - 8, bottom - zoomOut->height());
    zoomIn->move(w - zoomIn->width() - 8, zoomOut->y() - zoomIn->height());
}

// --- Pins, addresses, the user's position ----------------------------------------------------

void MarbleMapView::addAnnotation(const MapPinRef& pin) {
    pins.add(pin);
    update();
}

void MarbleMapView::removeAnnotation(const MapPinRef& pin) {
    pins.remove(pin);
    update();
}

void MarbleMapView::addAnnotations(const std::vector<MapPinRef>& added) {
    pins.add(added);
    update();
}

void MarbleMapView::removeAnnotations(const std::vector<MapPinRef>& removed) {
    pins.remove(removed);
    update();
}

void MarbleMapView::showAddress(const QString& text) {
    if (!search) {
        search = new AddressSearch(marbleModel.get(), this);
        connect(search, &AddressSearch::found, this, [this](double latitude, double longitude) {
            setCenterCoordinate(MapCoordinate{latitude, longitude});
        });
        connect(search, &AddressSearch::notFound, this, [this] {
            if (events.addressNotFound)
                events.addressNotFound();
        });
    }
    search->find(text);
}

UserPosition* MarbleMapView::userPosition() {
    if (!position) {
        position = new UserPosition(marbleModel.get(), this);
        connect(position, &UserPosition::positionChanged, this, [this] {
            pins.setUserPosition(position->position());
            update();
        });
    }
    return position;
}

void MarbleMapView::setShowsUserLocation(bool shown) {
    if (!position && !shown)
        return;
    userPosition()->setTracking(shown);
    pins.setUserPosition(position->position());
    update();
}

std::optional<MapCoordinate> MarbleMapView::userLocation() const {
    return position ? position->position() : std::nullopt;
}

// --- The pointer -----------------------------------------------------------------------------

void MarbleMapView::setMouseCursor(const MouseCursor& newCursor) {
    mapCursor = newCursor;
    applyCursor();
}

void MarbleMapView::applyCursor() {
    if (!mapCursor.isSet() || !pictures) {
        unsetCursor();
        return;
    }
    const QPixmap picture = pictures->picture(mapCursor.pictureName);
    if (picture.isNull()) {
        unsetCursor();
        return;
    }
    // The hot spot is in logical pixels, but Qt 5's X11 backend hands it to the X server
    // unscaled beside the picture's device pixels: there it is put at the same point of the
    // picture in device pixels (the middle of its logical pixel).
    int hotX = mapCursor.hotSpotX, hotY = mapCursor.hotSpotY;
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        const qreal ratio = picture.devicePixelRatio();
        hotX = static_cast<int>(std::floor((hotX + 0.5) * ratio));
        hotY = static_cast<int>(std::floor((hotY + 0.5) * ratio));
    }
    setCursor(QCursor(picture, hotX, hotY));
}

void MarbleMapView::mousePressEvent(QMouseEvent* event) {
    stopFlight(); // the user takes the map over
    const QPoint at = event->pos();
    endDrag(); // another press: the left release of a drag in progress will never come
    if (event->button() == Qt::RightButton) {
        if (events.mouseDown)
            events.mouseDown(at.x(), at.y(), true);
        openContextualMenu(at);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    leftDown = true;
    dragging = false;
    pressAt = at;
    pressCentre = QPointF(marbleMap->centerLongitude() * degree,
                          mercator(marbleMap->centerLatitude() * degree));
    // A press the controller has not dealt with gets no release.
    leftDown = !events.mouseDown || events.mouseDown(at.x(), at.y(), false);
    applyCursor();
}

void MarbleMapView::endDrag() {
    const bool wasMoving = dragging && scrollEnabled;
    leftDown = false;
    dragging = false;
    if (wasMoving)
        setViewMoving(false);
}

void MarbleMapView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->pos();
    if (leftDown && !(event->buttons() & Qt::LeftButton))
        endDrag(); // the release went elsewhere (a menu, another window)
    if (leftDown && (event->buttons() & Qt::LeftButton)) {
        if (!dragging && (at - pressAt).manhattanLength() >= QApplication::startDragDistance()) {
            dragging = true;
            if (scrollEnabled)
                setViewMoving(true);
        }
        if (dragging && scrollEnabled)
            panBy(pressCentre, at.x() - pressAt.x(), at.y() - pressAt.y());
    }
    if (events.mouseMove)
        events.mouseMove(at.x(), at.y());
    applyCursor();
}

void MarbleMapView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint at = event->pos();
    const bool wasDown = leftDown, wasDrag = dragging;
    endDrag();
    if (!wasDown)
        return;
    // The pin under a click is the one there before the controller hears of the release.
    const MapPinRef hit = wasDrag ? nullptr : pins.pinAt(*marbleMap->viewport(), at);
    if (events.mouseUp)
        events.mouseUp(at.x(), at.y());
    if (!wasDrag) {
        const MapPinRef chosen = hit && pins.contains(hit) ? hit : nullptr;
        if (chosen != pins.selected()) {
            pins.setSelected(chosen);
            update();
        }
        if (chosen && events.pinSelected)
            events.pinSelected(chosen);
    }
    applyCursor();
}

void MarbleMapView::wheelEvent(QWheelEvent* event) {
    event->accept();
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0)
        return;
    // Half a level a notch, about the point under the pointer.
    const QPointF at = event->position();
    const auto under = convertPointToCoordinate(at.x(), at.y());
    stopFlight();
    setViewMoving(true);
    zoomBy(notches * 0.5);
    if (under)
        keepPointUnder(*under, at);
    wheelSettle->start();
}

void MarbleMapView::keyPressEvent(QKeyEvent* event) {
    // The keyboard's way round the map: the arrows move the view an eighth of its size, plus and
    // minus zoom half a level about the middle.
    const double stepX = width() / 8.0, stepY = height() / 8.0;
    double dx = 0, dy = 0, zoom = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        dx = stepX;
        break;
    case Qt::Key_Right:
        dx = -stepX;
        break;
    case Qt::Key_Up:
        dy = stepY;
        break;
    case Qt::Key_Down:
        dy = -stepY;
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoom = 0.5;
        break;
    case Qt::Key_Minus:
        zoom = -0.5;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    stopFlight();
    setViewMoving(true);
    if (zoom != 0)
        zoomBy(zoom);
    else
        panBy(QPointF(marbleMap->centerLongitude() * degree,
                      mercator(marbleMap->centerLatitude() * degree)),
              dx, dy);
    wheelSettle->start();
}

void MarbleMapView::enterEvent(QEvent*) {
    if (events.mouseEnter)
        events.mouseEnter();
    applyCursor();
}

void MarbleMapView::leaveEvent(QEvent*) {
    if (events.mouseExit)
        events.mouseExit();
}

void MarbleMapView::openContextualMenu(QPoint at) {
    if (!events.constructContextualMenu)
        return;
    PopupMenuItem base;
    if (!events.constructContextualMenu(base, at.x(), at.y()) || base.children.empty())
        return;
    QMenu menu(this);
    std::vector<std::pair<QAction*, const PopupMenuItem*>> entries;
    addMenuEntries(menu, base, entries);
    QAction* chosen = menu.exec(mapToGlobal(at));
    for (const auto& [action, item] : entries)
        if (action == chosen && events.contextualMenuAction)
            events.contextualMenuAction(*item);
    applyCursor();
}

// --- Region changes --------------------------------------------------------------------------

void MarbleMapView::setViewMoving(bool moving) {
    marbleMap->setViewContext(moving ? Marble::Animation : Marble::Still);
}

void MarbleMapView::regionMayHaveChanged() {
    regionPending = true;
    if (marbleMap->viewContext() == Marble::Still)
        reportRegionWhenStill();
}

void MarbleMapView::reportRegionWhenStill() {
    // Marble reports many boxes for one gesture, and several for one call that moves and
    // zooms: the controller hears once, after the map has come to rest.
    if (!regionPending || regionReportQueued)
        return;
    regionReportQueued = true;
    QTimer::singleShot(0, this, [this] {
        regionReportQueued = false;
        if (!regionPending || marbleMap->viewContext() != Marble::Still)
            return;
        regionPending = false;
        if (events.regionChanged)
            events.regionChanged();
    });
}

// --- Painting --------------------------------------------------------------------------------

void MarbleMapView::paintEvent(QPaintEvent* event) {
    {
        // Beyond the Mercator map's poles Marble paints nothing, and the widget is opaque:
        // a zoomed-out map taller than the world would keep old pixels there.
        QPainter background(this);
        background.fillRect(event->rect(), QColor(0xd9, 0xdd, 0xe2));
    }
    {
        Marble::GeoPainter painter(this, marbleMap->viewport(), marbleMap->mapQuality());
        marbleMap->paint(painter, event->rect());
    }
    if (!firstFramePainted) {
        firstFramePainted = true;
        emit firstFrame();
        // Only now ask whether tiles can be had, and make the offline imagery: nothing delays
        // the first frame.
        QTimer::singleShot(0, this, [this] {
            mapThemes.probe();
            mapThemes.prepareImagery();
        });
    }
}

void MarbleMapView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    marbleMap->setSize(size());
    placeOverlays();
}

bool MarbleMapView::isFlying() const {
    return flight->state() == QAbstractAnimation::Running;
}
