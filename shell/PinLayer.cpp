#include "PinLayer.h"

#include <marble/GeoPainter.h>
#include <marble/ViewportParams.h>

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double degree = pi / 180.0;
// Marble's Mercator map ends at the latitude whose projection is as tall as the map is wide.
const double maxLatitude = std::atan(std::sinh(pi)); // radians, about 85.05 degrees

// The pin picture: a round head on a short stem, the stem's tip on the coordinate. The canvas
// leaves room for the second pin drawn behind when one picture stands for several.
constexpr int canvasWidth = 24;
constexpr int canvasHeight = 30;
constexpr int tipX = 9;           // the tip's column in the canvas
constexpr int tipY = 29;          // the tip's row in the canvas
constexpr double headRise = 17.0; // from the tip up to the head's centre (pixels)
constexpr double headRadius = 7.5;
constexpr QPointF behindOffset(5.0, -3.0); // the second pin of a picture for several

// Pins whose tips fall in one cell this size are drawn as one picture.
constexpr double cellSize = 6.0;
// How far past the map's edges a tip may lie and still have part of its picture shown.
constexpr double marginLeft = tipX + 1;
constexpr double marginRight = canvasWidth - tipX + 1;
constexpr double marginTop = 2;
constexpr double marginBottom = tipY + 1;
// The hit test's buckets (pixels) and the reach of a picture around its tip.
constexpr double bucketSize = 32.0;
constexpr double hitLeft = tipX + PinLayer::reach;
constexpr double hitRight = canvasWidth - tipX + PinLayer::reach;
constexpr double hitUp = tipY + PinLayer::reach;
constexpr double hitDown = PinLayer::reach + 1;

double mercator(double latitude) { // radians in, Marble's projected ordinate out
    return std::atanh(std::sin(std::clamp(latitude, -maxLatitude, maxLatitude)));
}

// The longitude difference to the copy of the world nearest the centre.
double nearestTurn(double difference) {
    if (difference >= pi)
        return difference - 2 * pi;
    if (difference < -pi)
        return difference + 2 * pi;
    return difference;
}

QImage pinImage(const QColor& fill, bool several, qreal ratio) {
    QImage image(QSize(int(std::ceil(canvasWidth * ratio)), int(std::ceil(canvasHeight * ratio))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const auto drawPin = [&p](QPointF tip, const QColor& colour) {
        const QPointF head = tip - QPointF(0, headRise);
        QPainterPath shape;
        shape.addEllipse(head, headRadius, headRadius);
        QPainterPath stem;
        stem.moveTo(head + QPointF(-2.2, headRadius - 1));
        stem.lineTo(tip);
        stem.lineTo(head + QPointF(2.2, headRadius - 1));
        stem.closeSubpath();
        p.setPen(QPen(colour.darker(170), 1.2));
        p.setBrush(colour);
        p.drawPath(shape.united(stem));
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(255, 255, 255, 210));
        p.drawEllipse(head - QPointF(2, 2), 2.4, 2.4);
    };
    const QPointF tip(tipX + 0.5, tipY + 0.5);
    if (several)
        drawPin(tip + behindOffset, fill.lighter(130));
    drawPin(tip, fill);
    return image;
}

} // namespace

PinLayer::PinLayer() = default;
PinLayer::~PinLayer() = default;

QStringList PinLayer::renderPosition() const {
    // Above the map's own labels, below the float items.
    return {QStringLiteral("ALWAYS_ON_TOP")};
}

qreal PinLayer::zValue() const {
    return 10.0;
}

void PinLayer::add(const MapPinRef& pin) {
    if (!pin)
        return;
    refs.push_back(pin);
    const MapCoordinate& c = pin->coordinate;
    const bool usable = std::isfinite(c.latitude) && std::isfinite(c.longitude) &&
                        std::abs(c.latitude) <= 90 && std::abs(c.longitude) <= 540;
    double lon = usable ? std::remainder(c.longitude, 360.0) * degree : 0.0;
    longitudes.push_back(lon);
    mercatorY.push_back(usable ? mercator(c.latitude * degree) : std::nan(""));
    changed();
}

void PinLayer::add(const std::vector<MapPinRef>& added) {
    refs.reserve(refs.size() + added.size());
    longitudes.reserve(refs.capacity());
    mercatorY.reserve(refs.capacity());
    for (const MapPinRef& pin : added)
        add(pin);
}

void PinLayer::remove(const MapPinRef& pin) {
    if (!pin)
        return;
    for (std::size_t i = refs.size(); i-- > 0;) {
        if (refs[i] != pin)
            continue;
        refs.erase(refs.begin() + std::ptrdiff_t(i));
        longitudes.erase(longitudes.begin() + std::ptrdiff_t(i));
        mercatorY.erase(mercatorY.begin() + std::ptrdiff_t(i));
    }
    if (selectedPin == pin)
        selectedPin.reset();
    changed();
}

void PinLayer::remove(const std::vector<MapPinRef>& removed) {
    if (removed.empty() || refs.empty())
        return;
    // The usual case: the whole list the map was given earlier, still first and in order.
    if (removed.size() <= refs.size() && std::equal(removed.begin(), removed.end(), refs.begin())) {
        const auto n = std::ptrdiff_t(removed.size());
        if (selectedPin &&
            std::find(refs.begin(), refs.begin() + n, selectedPin) != refs.begin() + n)
            selectedPin.reset();
        refs.erase(refs.begin(), refs.begin() + n);
        longitudes.erase(longitudes.begin(), longitudes.begin() + n);
        mercatorY.erase(mercatorY.begin(), mercatorY.begin() + n);
        changed();
        return;
    }
    std::unordered_set<const MapPin*> gone;
    gone.reserve(removed.size());
    for (const MapPinRef& pin : removed)
        gone.insert(pin.get());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < refs.size(); ++i) {
        if (gone.count(refs[i].get()))
            continue;
        if (kept != i) {
            refs[kept] = std::move(refs[i]);
            longitudes[kept] = longitudes[i];
            mercatorY[kept] = mercatorY[i];
        }
        ++kept;
    }
    refs.resize(kept);
    longitudes.resize(kept);
    mercatorY.resize(kept);
    if (selectedPin && gone.count(selectedPin.get()))
        selectedPin.reset();
    changed();
}

bool PinLayer::contains(const MapPinRef& pin) const {
    return pin && std::find(refs.begin(), refs.end(), pin) != refs.end();
}

void PinLayer::setLocationOnShow(std::function<MapPinRef()> source) {
    locationOnShow = std::move(source);
}

PinLayer::View PinLayer::viewOf(const Marble::ViewportParams& viewport) {
    View v;
    v.centreLongitude = viewport.centerLongitude();
    v.centreLatitude = viewport.centerLatitude();
    v.radius = viewport.radius();
    v.width = viewport.width();
    v.height = viewport.height();
    return v;
}

std::optional<QPointF> PinLayer::screenPoint(const Marble::ViewportParams& viewport,
                                             MapCoordinate where) {
    if (!std::isfinite(where.latitude) || !std::isfinite(where.longitude) ||
        std::abs(where.latitude) > 90)
        return std::nullopt;
    const View v = viewOf(viewport);
    // Marble's Mercator: the map is 4 radii wide, its centre at the middle pixel.
    const double k = 2.0 * v.radius / pi;
    const double dx =
        nearestTurn(std::remainder(where.longitude, 360.0) * degree - v.centreLongitude);
    return QPointF(v.width / 2.0 + k * dx, v.height / 2.0 - k * (mercator(where.latitude * degree) -
                                                                 mercator(v.centreLatitude)));
}

void PinLayer::layout(const View& v) const {
    const MapPin* current = locationOnShow ? locationOnShow().get() : nullptr;
    if (v == laidOutView && generation == laidOutGeneration && current == laidOutCurrent)
        return;
    laidOutView = v;
    laidOutGeneration = generation;
    laidOutCurrent = current;
    placed.clear();

    const double k = 2.0 * v.radius / pi; // pixels per radian
    const double world = 4.0 * v.radius;  // the map's width (pixels)
    const double cx = v.width / 2.0, cy = v.height / 2.0;
    const double centreY = mercator(v.centreLatitude);
    const double left = -marginLeft, right = v.width + marginRight;
    const double top = -marginTop, bottom = v.height + marginBottom;
    const int columns = int((right - left) / cellSize) + 1;
    const int rows = int((bottom - top) / cellSize) + 1;
    const std::size_t cells = std::size_t(columns) * std::size_t(rows);
    cellPin.assign(cells, -1);
    cellCount.assign(cells, 0);
    cellX.resize(cells);
    cellY.resize(cells);
    std::vector<Placed> currentPlaced;
    // At the lowest zooms the world is narrower than the map and shows more than once.
    const bool repeats = world < right - left;

    const std::size_t n = refs.size();
    for (std::size_t i = 0; i < n; ++i) {
        const double y = cy - k * (mercatorY[i] - centreY);
        if (!(y >= top && y < bottom))
            continue; // off the map, or no usable coordinate
        double x = cx + k * nearestTurn(longitudes[i] - v.centreLongitude);
        if (repeats)
            while (x - world >= left)
                x -= world;
        for (; x < right; x += world) {
            if (x >= left) {
                if (refs[i].get() == current) {
                    currentPlaced.push_back(Placed{float(x), float(y), std::uint32_t(i), false});
                } else {
                    const std::size_t cell =
                        std::size_t(int((y - top) / cellSize)) * std::size_t(columns) +
                        std::size_t(int((x - left) / cellSize));
                    cellPin[cell] = std::int32_t(i); // the later pin of a crowd is on top
                    cellX[cell] = float(x);
                    cellY[cell] = float(y);
                    ++cellCount[cell];
                }
            }
            if (!repeats)
                break;
        }
    }
    // Row by row: pins lower on the screen are drawn over those above them.
    for (std::size_t cell = 0; cell < cells; ++cell)
        if (cellPin[cell] >= 0)
            placed.push_back(Placed{cellX[cell], cellY[cell], std::uint32_t(cellPin[cell]),
                                    cellCount[cell] > 1});
    placed.insert(placed.end(), currentPlaced.begin(), currentPlaced.end());
    buildHitGrid(v);
}

void PinLayer::buildHitGrid(const View& v) const {
    // Buckets over the area where a tip can be placed; each lists the pictures whose tips fall
    // in it, in drawing order.
    hitColumns = int((v.width + marginLeft + marginRight) / bucketSize) + 1;
    hitRows = int((v.height + marginTop + marginBottom) / bucketSize) + 1;
    const std::size_t buckets = std::size_t(hitColumns) * std::size_t(hitRows);
    hitStart.assign(buckets + 1, 0);
    const auto bucketOf = [&](const Placed& p) {
        const int column = std::clamp(int((p.x + marginLeft) / bucketSize), 0, hitColumns - 1);
        const int row = std::clamp(int((p.y + marginTop) / bucketSize), 0, hitRows - 1);
        return std::size_t(row) * std::size_t(hitColumns) + std::size_t(column);
    };
    for (const Placed& p : placed)
        ++hitStart[bucketOf(p) + 1];
    for (std::size_t b = 0; b < buckets; ++b)
        hitStart[b + 1] += hitStart[b];
    hitEntries.resize(placed.size());
    std::vector<std::uint32_t> next(hitStart.begin(), hitStart.end() - 1);
    for (std::size_t i = 0; i < placed.size(); ++i)
        hitEntries[next[bucketOf(placed[i])]++] = std::uint32_t(i);
}

MapPinRef PinLayer::pinAt(const Marble::ViewportParams& viewport, QPointF point) const {
    layout(viewOf(viewport));
    if (placed.empty())
        return nullptr;
    // The tips whose pictures could be within reach of the point.
    const auto column = [&](double x) {
        return std::clamp(int((x + marginLeft) / bucketSize), 0, hitColumns - 1);
    };
    const auto row = [&](double y) {
        return std::clamp(int((y + marginTop) / bucketSize), 0, hitRows - 1);
    };
    const int c0 = column(point.x() - hitRight), c1 = column(point.x() + hitLeft);
    const int r0 = row(point.y() - hitDown), r1 = row(point.y() + hitUp);
    double best = reach;
    std::int64_t bestIndex = -1;
    for (int r = r0; r <= r1; ++r) {
        for (int c = c0; c <= c1; ++c) {
            const std::size_t bucket = std::size_t(r) * std::size_t(hitColumns) + std::size_t(c);
            for (std::uint32_t e = hitStart[bucket]; e < hitStart[bucket + 1]; ++e) {
                const std::uint32_t index = hitEntries[e];
                const Placed& p = placed[index];
                const double dxTip = point.x() - p.x, dyTip = point.y() - p.y;
                const double dyHead = dyTip + headRise;
                const double toHead =
                    std::max(0.0, std::sqrt(dxTip * dxTip + dyHead * dyHead) - headRadius);
                const double toTip = std::sqrt(dxTip * dxTip + dyTip * dyTip);
                const double distance = std::min(toHead, toTip);
                // The nearest; between equals, the one drawn last (on top).
                if (distance < best || (distance == best && std::int64_t(index) > bestIndex)) {
                    best = distance;
                    bestIndex = index;
                }
            }
        }
    }
    if (bestIndex < 0)
        return nullptr;
    return refs[placed[std::size_t(bestIndex)].pin];
}

void PinLayer::ensurePictures(qreal ratio) {
    if (ratio == picturesRatio)
        return;
    picturesRatio = ratio;
    pinPicture = pinImage(QColor(0xd9, 0x30, 0x25), false, ratio);
    severalPicture = pinImage(QColor(0xd9, 0x30, 0x25), true, ratio);
    currentPicture = pinImage(QColor(0x2e, 0x8b, 0x57), false, ratio);
}

bool PinLayer::render(Marble::GeoPainter* painter, Marble::ViewportParams* viewport, const QString&,
                      Marble::GeoSceneLayer*) {
    if (!painter || !viewport)
        return false;
    layout(viewOf(*viewport));
    ensurePictures(painter->device() ? painter->device()->devicePixelRatioF() : 1.0);
    QPainter& p = *painter; // plain screen drawing: GeoPainter hides QPainter's overloads
    p.save();
    for (const Placed& pin : placed) {
        const QImage& picture = refs[pin.pin].get() == laidOutCurrent ? currentPicture
                                : pin.several                         ? severalPicture
                                                                      : pinPicture;
        p.drawImage(QPoint(int(std::lround(pin.x)) - tipX, int(std::lround(pin.y)) - tipY),
                    picture);
    }
    if (userPosition)
        if (const auto at = screenPoint(*viewport, *userPosition))
            drawUserMarker(p, *at);
    if (selectedPin)
        if (const auto tip = screenPoint(*viewport, selectedPin->coordinate)) {
            // The chosen pin comes to the top, with its call-out.
            const bool current = selectedPin.get() == laidOutCurrent;
            p.drawImage(
                QPoint(int(std::lround(tip->x())) - tipX, int(std::lround(tip->y())) - tipY),
                current ? currentPicture : pinPicture);
            drawCallOut(p, *tip, *selectedPin);
        }
    p.restore();
    return true;
}

void PinLayer::drawCallOut(QPainter& p, QPointF tip, const MapPin& pin) const {
    const QString title = pin.title();
    const QString subtitle = pin.subtitle();
    if (title.isEmpty())
        return;
    QFont titleFont = p.font();
    titleFont.setPixelSize(13);
    titleFont.setBold(true);
    QFont subtitleFont = titleFont;
    subtitleFont.setPixelSize(11);
    subtitleFont.setBold(false);
    const QFontMetrics titleMetrics(titleFont), subtitleMetrics(subtitleFont);
    const int pad = 6;
    const int width =
        std::max(titleMetrics.horizontalAdvance(title),
                 subtitle.isEmpty() ? 0 : subtitleMetrics.horizontalAdvance(subtitle)) +
        2 * pad;
    const int height =
        titleMetrics.height() + (subtitle.isEmpty() ? 0 : subtitleMetrics.height()) + 2 * pad;
    const double arrow = 6;
    const QRectF box(tip.x() - width / 2.0, tip.y() - headRise - headRadius - arrow - height - 1,
                     width, height);
    QPainterPath shape;
    shape.addRoundedRect(box, 5, 5);
    QPainterPath pointer;
    pointer.moveTo(tip.x() - arrow, box.bottom() - 1);
    pointer.lineTo(tip.x(), box.bottom() + arrow);
    pointer.lineTo(tip.x() + arrow, box.bottom() - 1);
    pointer.closeSubpath();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0, 0, 0, 90), 1));
    p.setBrush(QColor(255, 255, 255, 240));
    p.drawPath(shape.united(pointer));
    p.setPen(QColor(20, 20, 20));
    p.setFont(titleFont);
    p.drawText(QPointF(box.left() + pad, box.top() + pad + titleMetrics.ascent()), title);
    if (!subtitle.isEmpty()) {
        p.setPen(QColor(80, 80, 80));
        p.setFont(subtitleFont);
        p.drawText(QPointF(box.left() + pad,
                           box.top() + pad + titleMetrics.height() + subtitleMetrics.ascent()),
                   subtitle);
    }
}

void PinLayer::drawUserMarker(QPainter& p, QPointF at) const {
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(26, 115, 232, 60));
    p.drawEllipse(at, 15.0, 15.0);
    p.setPen(QPen(Qt::white, 2.5));
    p.setBrush(QColor(26, 115, 232));
    p.drawEllipse(at, 7.0, 7.0);
}
