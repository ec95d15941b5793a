// The map of the real window, offscreen, as a user drives it: clicks that make locations,
// distances between clicks, pins recorded and clicked, the contextual menu, the map types, the
// pointer read-out, dragging and the wheel, and the floating message window. Every expected
// coordinate is the map's own conversion of the clicked pixel, and every expected distance
// GeographicLib's geodesic between those coordinates.

#include "coordinates/LatLon_UTM.h"
#include "locationbook/Window1.h"
#include "shell/AddressSearch.h"
#include "shell/MainMenuBar.h"
#include "shell/MainWindow.h"
#include "shell/MarbleMapView.h"
#include "shell/PinLayer.h"
#include "shell/UserPosition.h"
#include "support/NmeaPositionProvider.h"

#include <marble/MarbleMap.h>
#include <marble/MarbleModel.h>
#include <marble/PositionTracking.h>
#include <marble/ViewportParams.h>

#include <GeographicLib/Geodesic.hpp>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QVariantAnimation>
#include <QtTest>

#include <memory>

namespace {

void sendMouse(QWidget* target, QEvent::Type type, QPoint at, Qt::MouseButton button,
               Qt::MouseButtons held) {
    QMouseEvent event(type, at, target->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}
void press(QWidget* target, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    sendMouse(target, QEvent::MouseButtonPress, at, button, button);
}
void release(QWidget* target, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    sendMouse(target, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}
void moveTo(QWidget* target, QPoint at, Qt::MouseButtons held = Qt::NoButton) {
    sendMouse(target, QEvent::MouseMove, at, Qt::NoButton, held);
}

double geodesicMetres(MapCoordinate a, MapCoordinate b) {
    double metres = 0;
    GeographicLib::Geodesic::WGS84().Inverse(a.latitude, a.longitude, b.latitude, b.longitude,
                                             metres);
    return metres;
}

// Answers the next modal message box: keeps its text and closes it.
class MessageBoxCatcher : public QObject {
public:
    QString text;
    int caught = 0;
    MessageBoxCatcher() {
        auto* poll = new QTimer(this);
        connect(poll, &QTimer::timeout, this, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                text = box->text();
                ++caught;
                box->done(0);
            }
        });
        poll->start(10);
    }
};

// Chooses the entry of the next pop-up menu with that text, as the keyboard would.
void chooseFromNextMenu(const QString& entry) {
    auto* poll = new QTimer;
    QObject::connect(poll, &QTimer::timeout, poll, [poll, entry] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction* action : menu->actions())
            if (action->text() == entry) {
                menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
            }
        poll->deleteLater();
    });
    poll->start(10);
}

// Waits until everything queued or timed to run now has run: a zero timer started after them
// fires after them. The moment for a late second report or a late switch has then passed.
void letQueuedRun() {
    for (int round = 0; round < 2; ++round) {
        bool reached = false;
        QTimer::singleShot(0, [&reached] { reached = true; });
        QTRY_VERIFY(reached);
    }
}

bool near(const std::optional<MapCoordinate>& got, double latitude, double longitude,
          double tolerance = 1e-9) {
    return got && qAbs(got->latitude - latitude) <= tolerance &&
           qAbs(got->longitude - longitude) <= tolerance;
}

// A tile server of the test's own: answers every request with the status it is set to.
class StandInTileServer : public QTcpServer {
public:
    int status = 200;
    QByteArray contentType = "image/png";
    StandInTileServer() {
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                    if (!socket->readAll().contains("\r\n\r\n"))
                        return;
                    socket->write("HTTP/1.1 " + QByteArray::number(status) +
                                  " X\r\nContent-Type: " + contentType +
                                  "\r\nLocation: http://portal.invalid/login"
                                  "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
                    socket->disconnectFromHost();
                });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
        listen(QHostAddress::LocalHost);
    }
    QUrl tile(const char* path) const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/%2").arg(serverPort()).arg(path));
    }
};

} // namespace

class MapWidgetTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindow> window;
    MarbleMapView* map = nullptr;

    Window1& controller() { return window->controller(); }

    void typeAndReturn(QLineEdit* field, const QString& text) {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }
    void chooseMenuItem(const char* name) {
        QAction* action = window->mainMenuBar()->action(QString::fromLatin1(name));
        QVERIFY2(action, name);
        action->trigger();
    }
    void click(QPoint at) {
        press(map, at);
        release(map, at);
    }
    // Three recorded locations, shown all together on the map.
    void recordThreePlaces() {
        const char* const places[] = {"48.8566 2.3522", "51.5074 -0.1278", "41.9028 12.4964"};
        for (const char* place : places) {
            chooseMenuItem("FileNewLocation");
            typeAndReturn(window->textFieldDecDegrees(), QString::fromLatin1(place));
            QCOMPARE(window->searchButton()->text(), QStringLiteral("Record Entry"));
            QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        }
        QCOMPARE(controller().locations.size(), std::size_t(3));
        QCOMPARE(controller().Pins.size(), std::size_t(3));
        chooseMenuItem("MapShowAllLocations");
        QTRY_VERIFY(!map->isFlying());
    }
    // A picture of the widget with one pixel per logical pixel, whatever the screen's scale,
    // so that points in widget coordinates can be looked up in it.
    static QImage logicalShot(QWidget* w) {
        return w->grab().toImage().scaled(w->size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    }
    // The map's rectangle in the window's design coordinates.
    QRect inWindow(QWidget* w) const {
        return QRect(w->mapTo(window->centralWidget(), QPoint(0, 0)), w->size());
    }

private slots:
    void init() {
        window = std::make_unique<MainWindow>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QApplication::processEvents();
        map = window->map();
        QVERIFY(map);
    }
    void cleanup() {
        window.reset();
        map = nullptr;
    }

    void mapAndItsControlsStandWhereDesigned() {
        QCOMPARE(inWindow(map), QRect(32, 226, 737, 398));
        QCOMPARE(inWindow(window->rectangle1()), QRect(592, 226, 173, 20));
        QCOMPARE(inWindow(window->labelLatLon()), QRect(519, 226, 250, 20));
        QVERIFY(!window->labelLatLon()->isVisible());
        QVERIFY(window->labelLatLon()->alignment() & Qt::AlignRight);
        // The map's left edge is in the page's coordinates, as the read-out's are.
        QCOMPARE(map->left(), map->geometry().left());
        QCOMPARE(map->width(), 737);
        QCOMPARE(window->labelLatLon()->parentWidget(), map->parentWidget());
        QCOMPARE(window->rectangle1()->parentWidget(), map->parentWidget());

        QButtonGroup* types = window->segmentedControl1();
        QCOMPARE(types->buttons().size(), 3);
        const QString captions[] = {"Standard", "Satellite", "Hybrid"};
        for (int i = 0; i < 3; ++i) {
            QAbstractButton* button = types->button(i);
            QCOMPARE(button->text(), captions[i]);
            QCOMPARE(inWindow(button), QRect(40 + 73 * i, 593, 73, 24));
            QCOMPARE(button->isChecked(), i == 0);
        }
        QVERIFY(types->exclusive());
        // Offline, the standard look is Marble's plain map.
        QCOMPARE(map->themeId(), QStringLiteral("earth/plain/plain.dgml"));
        QCOMPARE(map->map()->projection(), Marble::Mercator);
        QVERIFY(map->zoomInButton()->isVisible());
        // The pointer over the map is the controller's scope, with its hot spot.
        const MouseCursor& curs = controller().curs;
        QVERIFY(curs.isSet());
        QCOMPARE(map->cursor().shape(), Qt::BitmapCursor);
        QCOMPARE(map->cursor().hotSpot(), QPoint(curs.hotSpotX, curs.hotSpotY));
        QCOMPARE(map->cursor().pixmap().size(),
                 window->pictures()->picture(curs.pictureName).size());
    }

    void twoClickDistanceWithItsFloatingWindow() {
        chooseMenuItem("MapDistanceBetweenClickedPts");
        QtMessageWindow* message = window->messageWindow();
        QWidget* floating = message->window();
        QVERIFY(floating && floating->isVisible());
        QCOMPARE(message->label()->text(),
                 QStringLiteral("Click two points on the map to get the distance."));
        QCOMPARE(floating->windowTitle(), QStringLiteral("Message"));
        QVERIFY(floating->windowFlags() & Qt::Tool);
        QVERIFY(!floating->isModal());
        QCOMPARE(floating->size(), QSize(286, 120));
        QCOMPARE(message->label()->geometry(), QRect(20, 20, 246, 43));
        QCOMPARE(message->cancelButton()->geometry(), QRect(20, 80, 80, 20));
        QCOMPARE(message->servedWindow(), &controller());
        // Inside the top right corner of the main window, 10 pixels in.
        QCOMPARE(floating->x(), window->frameGeometry().right() + 1 - 286 - 10);
        QVERIFY(!map->isScrollEnabled());

        // Cancel after one point of two ends the measurement.
        click(QPoint(300, 200));
        QCOMPARE(controller().mpt.size(), std::size_t(1));
        QTest::mouseClick(message->cancelButton(), Qt::LeftButton);
        QVERIFY(!controller().gettingDist2Points);
        QVERIFY(!message->window());

        chooseMenuItem("MapDistanceBetweenClickedPts");
        const QPoint first(200, 150), second(560, 300);
        const auto a = map->convertPointToCoordinate(first.x(), first.y());
        const auto b = map->convertPointToCoordinate(second.x(), second.y());
        QVERIFY(a && b);
        click(first);
        MessageBoxCatcher catcher;
        click(second); // the second press measures, in a modal box
        QTRY_COMPARE(catcher.caught, 1);
        QCOMPARE(catcher.text, QStringLiteral("Distance = ") +
                                   controller().unitFmt.stringFromDistance(geodesicMetres(*a, *b)));
        QVERIFY(!message->window()); // the instruction went when the measurement was made
        QVERIFY(map->isScrollEnabled());
    }

    void clickingAPinBringsItsLocationToTheForm() {
        recordThreePlaces();
        chooseMenuItem("FileNewLocation"); // the form empties
        QVERIFY(window->textFieldDecDegrees()->text().isEmpty());
        const MapPinRef london = controller().Pins[1];
        const auto tip = map->pointForCoordinate(london->coordinate);
        QVERIFY(tip);
        QVERIFY(map->rect().contains(tip->toPoint()));
        click(tip->toPoint());
        QCOMPARE(controller().selectedLoc, std::int64_t(1));
        QCOMPARE(controller().theLocation, controller().locations[1]);
        QCOMPARE(window->textFieldDecDegrees()->text(), controller().formatDD(-0.1278, 51.5074));
        QCOMPARE(map->pinLayer().selected(), london);

        // A click well away from every pin selects none.
        const auto paris = map->pointForCoordinate(controller().Pins[0]->coordinate);
        const auto rome = map->pointForCoordinate(controller().Pins[2]->coordinate);
        QPoint away(map->width() - 60, 40);
        for (const auto& p : {*tip, *paris, *rome})
            QVERIFY((QPointF(away) - p).manhattanLength() > 60);
        click(away);
        QVERIFY(!map->pinLayer().selected());
        QCOMPARE(controller().selectedLoc, std::int64_t(1));
    }

    void showAllFitsEveryPin_data() {
        QTest::addColumn<QPolygonF>("pins"); // x longitude, y latitude (degrees)
        QTest::addColumn<double>("leastZoom");
        QTest::newRow("Paris, London, Rome")
            << QPolygonF({{2.3522, 48.8566}, {-0.1278, 51.5074}, {12.4964, 41.9028}}) << 3.0;
        // Either side of the 180th meridian: the map looks across it at a close zoom, not at
        // the whole world between them.
        QTest::newRow("across the 180th meridian")
            << QPolygonF({{179.5, -17.0}, {-179.25, -17.0}, {178.75, -17.0}}) << 5.0;
        // Close in, as far as the plain look allows.
        QTest::newRow("one pin on the 180th meridian") << QPolygonF({{180, -17.0}}) << 9.0;
        QTest::newRow("around the globe") << QPolygonF({{-150, 0}, {-30, 10}, {90, -10}}) << 0.0;
    }
    void showAllFitsEveryPin() {
        QFETCH(QPolygonF, pins);
        QFETCH(double, leastZoom);
        std::vector<MapPinRef> shown;
        for (const QPointF& at : pins)
            shown.push_back(std::make_shared<MapPin>(MapPin{{at.y(), at.x()}, {}}));
        map->showAnnotations(shown, false);
        QVERIFY2(map->zoomLevel() >= leastZoom, qPrintable(QString::number(map->zoomLevel())));
        const QRect inside = map->rect().adjusted(10, 10, -10, -10);
        for (const MapPinRef& pin : shown) {
            const auto at = map->pointForCoordinate(pin->coordinate);
            QVERIFY(at && inside.contains(at->toPoint()));
        }
    }

    void pinsAreDrawnOnTheMapAndSavedAsAScreenshot() {
        recordThreePlaces();
        QTRY_COMPARE_WITH_TIMEOUT(map->pendingMapFiles(), 0, 10000);
        QApplication::processEvents();
        const QImage shot = logicalShot(map);
        // Offline the map is still a map: the middle of France is land, the Bay of Biscay sea.
        const QColor land = shot.pixelColor(map->pointForCoordinate({46.8, 2.4})->toPoint());
        const QColor sea = shot.pixelColor(map->pointForCoordinate({45.5, -4.5})->toPoint());
        QVERIFY2(land.lightness() > 200 && land.red() >= land.blue(), qPrintable(land.name()));
        QVERIFY2(sea.blue() > sea.red() + 20, qPrintable(sea.name()));
        // The head of each pin, 17 pixels above its tip, is pin red.
        for (const MapPinRef& pin : controller().Pins) {
            const QPointF tip = *map->pointForCoordinate(pin->coordinate);
            const QColor head =
                shot.pixelColor(QPoint(int(std::lround(tip.x())), int(std::lround(tip.y())) - 17));
            QVERIFY2(head.red() > 150 && head.green() < 110 && head.blue() < 110,
                     qPrintable(head.name()));
        }
        QDir().mkpath(GEOQUILL_SCREENSHOT_DIR);
        QVERIFY(window->grab().save(GEOQUILL_SCREENSHOT_DIR "/map-pins.png"));
    }

    void mapTypesChangeTheLookAndKeepThePlace() {
        // The imagery is tiled in the background after the first frame, with no dialog.
        QTRY_VERIFY_WITH_TIMEOUT(map->themes().isImageryReady(), 20000);
        controller().LoadMap(45.5, 9.25);
        QCOMPARE(map->zoomLevel(), 8.0);
        map->setZoomLevel(5); // wide enough to show coasts and borders
        const char* const looks[] = {"earth/geoquill-satellite/geoquill-satellite.dgml",
                                     "earth/geoquill-hybrid/geoquill-hybrid.dgml",
                                     "earth/plain/plain.dgml"};
        const int order[] = {1, 2, 0};
        for (int k = 0; k < 3; ++k) {
            const int type = order[k];
            QTest::mouseClick(window->segmentedControl1()->button(type), Qt::LeftButton);
            QCOMPARE(window->segmentedControl1()->checkedId(), type);
            QCOMPARE(map->mapType(), type);
            QCOMPARE(map->themeId(), QString::fromLatin1(looks[k]));
            QVERIFY(!QApplication::activeModalWidget());
            QVERIFY(qAbs(map->centerCoordinate().latitude - 45.5) < 1e-6);
            QVERIFY(qAbs(map->centerCoordinate().longitude - 9.25) < 1e-6);
            QCOMPARE(map->zoomLevel(), 5.0);
            // The look's own settings are overruled again after each change.
            QVERIFY(!map->map()->showGrid());
            QVERIFY(!map->map()->showOverviewMap());
            // Offline every look still shows a map, not a blank: many colours, kept to look at.
            QTRY_COMPARE_WITH_TIMEOUT(map->pendingMapFiles(), 0, 10000);
            const QImage shot = logicalShot(map);
            QSet<QRgb> colours;
            for (int y = 0; y < shot.height(); y += 7)
                for (int x = 0; x < shot.width(); x += 7)
                    colours.insert(shot.pixel(x, y));
            QVERIFY2(colours.size() > 40, qPrintable(QString::number(colours.size())));
            QDir().mkpath(GEOQUILL_SCREENSHOT_DIR);
            QVERIFY(
                shot.save(QStringLiteral(GEOQUILL_SCREENSHOT_DIR "/map-type-%1.png").arg(type)));
        }
    }

    void readOutFollowsThePointerInTheMapsCorner() {
        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(map, &enter);
        QVERIFY(window->labelLatLon()->isVisible());
        QVERIFY(window->rectangle1()->isVisible());
        const QPoint at(250, 180);
        moveTo(map, at);
        const auto here = map->convertPointToCoordinate(at.x(), at.y());
        QVERIFY(here);
        QCOMPARE(window->labelLatLon()->text(),
                 controller().coordinateText(here->latitude, here->longitude));
        // Right edges on the map's right edge, in the page's coordinates.
        const int mapRight = map->left() + map->width();
        QCOMPARE(window->labelLatLon()->x() + window->labelLatLon()->width(), mapRight);
        QCOMPARE(window->rectangle1()->x() + window->rectangle1()->width(), mapRight);
        // Every digit shows: the read-out grows to the left of its 200 pixels where it must,
        // and the panel behind it grows with it.
        const QLabel* label = window->labelLatLon();
        QVERIFY(label->width() >= 200);
        QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->width(),
                 qPrintable(label->text()));
        QCOMPARE(window->rectangle1()->geometry(), label->geometry());
        QDir().mkpath(GEOQUILL_SCREENSHOT_DIR);
        QVERIFY(window->grab().save(GEOQUILL_SCREENSHOT_DIR "/map-readout.png"));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(map, &leave);
        QVERIFY(!window->labelLatLon()->isVisible());
    }

    void contextualMenuMakesALocationWhereTheRightClickWas() {
        const QPoint at(333, 222);
        const auto here = map->convertPointToCoordinate(at.x(), at.y());
        QVERIFY(here);
        chooseFromNextMenu(QStringLiteral("New Location at Click"));
        press(map, at, Qt::RightButton); // the menu runs inside the press
        QVERIFY(controller().theLocation);
        // The focus moves to the label field, so the location is read back from the decimal
        // degrees as written: to their last decimal.
        QVERIFY(near(MapCoordinate{controller().theLocation->lat, controller().theLocation->lon},
                     here->latitude, here->longitude, 1e-6));
        QCOMPARE(window->textFieldDecDegrees()->text(),
                 controller().formatDD(here->longitude, here->latitude));
        QCOMPARE(window->searchButton()->text(), QStringLiteral("Record Entry"));
    }

    void draggingPansUnlessScrollingIsOffAndTheWheelZooms() {
        controller().LoadMap(45.5, 9.25);
        QApplication::processEvents();
        const QPoint from(300, 200), to(380, 240);
        const auto grabbed = map->convertPointToCoordinate(from.x(), from.y());
        QVERIFY(grabbed);

        map->setScrollEnabled(false);
        press(map, from);
        moveTo(map, (from + to) / 2, Qt::LeftButton);
        moveTo(map, to, Qt::LeftButton);
        release(map, to);
        QVERIFY(qAbs(map->centerCoordinate().latitude - 45.5) < 1e-9);
        QVERIFY(qAbs(map->centerCoordinate().longitude - 9.25) < 1e-9);

        map->setScrollEnabled(true);
        press(map, from);
        moveTo(map, (from + to) / 2, Qt::LeftButton);
        moveTo(map, to, Qt::LeftButton);
        release(map, to);
        // The grabbed place came along under the pointer, to within a pixel.
        const auto nowUnder = map->pointForCoordinate(*grabbed);
        QVERIFY(nowUnder);
        QVERIFY2((*nowUnder - QPointF(to)).manhattanLength() <= 1.5,
                 qPrintable(QStringLiteral("%1 %2").arg(nowUnder->x()).arg(nowUnder->y())));

        // The wheel zooms whether or not dragging pans, about the point under the pointer.
        map->setScrollEnabled(false);
        const double zoom = map->zoomLevel();
        const QPoint wheelAt(500, 120);
        const auto underWheel = map->convertPointToCoordinate(wheelAt.x(), wheelAt.y());
        QWheelEvent wheel(QPointF(wheelAt), QPointF(map->mapToGlobal(wheelAt)), QPoint(),
                          QPoint(0, 240), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(map, &wheel);
        QVERIFY(qAbs(map->zoomLevel() - (zoom + 1.0)) < 0.01);
        const auto stillUnder = map->pointForCoordinate(*underWheel);
        QVERIFY(stillUnder && (*stillUnder - QPointF(wheelAt)).manhattanLength() <= 1.5);
    }

    void showAllFliesToThePinsAndReportsOnceThere() {
        recordThreePlaces();
        const std::vector<MapPinRef> pins = controller().Pins;
        // Where a jump would end.
        map->showAnnotations(pins, false);
        const MapCoordinate end = map->centerCoordinate();
        const double endZoom = map->zoomLevel();

        int reports = 0;
        MarbleMapView::Events events;
        events.regionChanged = [&reports] { ++reports; };
        map->setEvents(events);
        map->setCenterCoordinate(MapCoordinate{-33.9, 151.2});
        map->setZoomLevel(3);
        QTRY_COMPARE(reports, 1);

        // The flight is driven by its own clock: half way, then left to finish.
        auto* flight = map->findChild<QVariantAnimation*>();
        QVERIFY(flight);
        map->showAnnotations(pins, true);
        QVERIFY(map->isFlying());
        flight->setCurrentTime(MarbleMapView::flightMilliseconds / 2);
        // On the way, with nothing reported yet.
        QVERIFY(map->isFlying());
        QVERIFY(std::abs(map->centerCoordinate().longitude - end.longitude) > 1.0);
        QVERIFY(std::abs(map->centerCoordinate().longitude - 151.2) > 1.0);
        QCOMPARE(reports, 1);
        QTRY_VERIFY(!map->isFlying());
        QTRY_COMPARE(reports, 2);
        QVERIFY(std::abs(map->centerCoordinate().latitude - end.latitude) < 1e-6);
        QVERIFY(std::abs(map->centerCoordinate().longitude - end.longitude) < 1e-6);
        QCOMPARE(map->zoomLevel(), endZoom);

        // A press on the way stops the map where it is.
        map->setCenterCoordinate(MapCoordinate{-33.9, 151.2});
        QTRY_COMPARE(reports, 3);
        map->showAnnotations(pins, true);
        flight->setCurrentTime(MarbleMapView::flightMilliseconds / 3);
        press(map, QPoint(100, 100));
        QVERIFY(!map->isFlying());
        const MapCoordinate stopped = map->centerCoordinate();
        letQueuedRun();
        QCOMPARE(map->centerCoordinate().longitude, stopped.longitude);
        QVERIFY(std::abs(stopped.longitude - end.longitude) > 1.0);
        release(map, QPoint(100, 100));
        QTRY_COMPARE(reports, 4);
    }

    void eachRegionChangeIsReportedOnce() {
        int reports = 0;
        MarbleMapView::Events events;
        // Only the count matters here; the window's own handlers are out of the way.
        events.regionChanged = [&reports] { ++reports; };
        map->setEvents(events);
        letQueuedRun();
        reports = 0;

        // A move and a zoom in one go: one change.
        map->setCenterCoordinate(MapCoordinate{40.0, -3.7});
        map->setZoomLevel(6);
        QTRY_COMPARE(reports, 1);
        letQueuedRun();
        QCOMPARE(reports, 1);

        // A drag of several moves: one change, once the button is up.
        press(map, QPoint(200, 200));
        for (int step = 1; step <= 6; ++step)
            moveTo(map, QPoint(200 + 15 * step, 200 + 5 * step), Qt::LeftButton);
        letQueuedRun();
        QCOMPARE(reports, 1);
        release(map, QPoint(290, 230));
        QTRY_COMPARE(reports, 2);
        letQueuedRun();
        QCOMPARE(reports, 2);

        // Three wheel notches in a row: one change after they settle.
        for (int notch = 0; notch < 3; ++notch) {
            QWheelEvent wheel(QPointF(300, 200), QPointF(map->mapToGlobal(QPoint(300, 200))),
                              QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(map, &wheel);
        }
        QTRY_COMPARE(reports, 3);
        // The notches' settling timer has fired (it made the report) and nothing is left.
        letQueuedRun();
        QCOMPARE(reports, 3);

        // A right press in the middle of a drag takes the left release away (to the menu):
        // the drag ends there, the map comes to rest and its change is reported.
        press(map, QPoint(200, 200));
        for (int step = 1; step <= 3; ++step)
            moveTo(map, QPoint(200 + 20 * step, 200), Qt::LeftButton);
        QTest::mousePress(map, Qt::RightButton, Qt::NoModifier, QPoint(260, 200));
        QTRY_COMPARE(reports, 4);
        QCOMPARE(map->map()->viewContext(), Marble::Still);
        moveTo(map, QPoint(100, 100)); // no button held: no more panning
        map->setCenterCoordinate(MapCoordinate{10.0, 10.0});
        QTRY_COMPARE(reports, 5);
    }

    void pinLayerProjectsAsMarbleDoes() {
        const Marble::ViewportParams& viewport = *map->map()->viewport();
        const MapCoordinate places[] = {
            {48.8566, 2.3522}, {-33.8688, 151.2093}, {64.1466, -21.9426}, {0.0, 179.9}};
        for (double zoom : {2.0, 4.0, 8.0}) {
            map->setZoomLevel(zoom);
            for (const MapCoordinate& centre : places) {
                map->setCenterCoordinate(centre);
                for (const MapCoordinate& place : places) {
                    qreal x = 0, y = 0;
                    const bool onScreen = viewport.screenCoordinates(
                        place.longitude * M_PI / 180, place.latitude * M_PI / 180, x, y);
                    const auto ours = map->pointForCoordinate(place);
                    QVERIFY(ours);
                    if (!onScreen)
                        continue;
                    QVERIFY2(qAbs(ours->x() - x) < 0.5 && qAbs(ours->y() - y) < 0.5,
                             qPrintable(QStringLiteral("zoom %1: (%2, %3) against (%4, %5)")
                                            .arg(zoom)
                                            .arg(ours->x())
                                            .arg(ours->y())
                                            .arg(x)
                                            .arg(y)));
                }
            }
        }
    }

    void hitTestFindsPinsByIdentity() {
        map->setZoomLevel(8);
        map->setCenterCoordinate(MapCoordinate{45.0, 7.0});
        // Two pins at one place: the later one is on top and is the one hit.
        auto first = std::make_shared<MapPin>();
        first->coordinate = MapCoordinate{45.0, 7.0};
        auto second = std::make_shared<MapPin>(*first);
        auto elsewhere = std::make_shared<MapPin>();
        elsewhere->coordinate = MapCoordinate{45.2, 7.4};
        map->addAnnotations({first, second, elsewhere});
        const Marble::ViewportParams& viewport = *map->map()->viewport();
        const QPointF tip = *map->pointForCoordinate(first->coordinate);
        QCOMPARE(map->pinLayer().pinAt(viewport, tip), second);
        // The head, above the tip, is part of the pin; a point beside it within reach too.
        QCOMPARE(map->pinLayer().pinAt(viewport, tip - QPointF(0, 17)), second);
        QCOMPARE(map->pinLayer().pinAt(viewport, tip + QPointF(PinLayer::reach - 0.5, 0)), second);
        QCOMPARE(map->pinLayer().pinAt(viewport, tip + QPointF(0, 2 * PinLayer::reach)), nullptr);
        const QPointF other = *map->pointForCoordinate(elsewhere->coordinate);
        QCOMPARE(map->pinLayer().pinAt(viewport, other), elsewhere);
        // A pin that is not on the map is no error to remove, and changes nothing.
        map->removeAnnotation(std::make_shared<MapPin>(*first));
        QCOMPARE(map->pinLayer().pins().size(), std::size_t(3));
        map->removeAnnotation(second);
        QCOMPARE(map->pinLayer().pinAt(viewport, tip), first);
        map->removeAnnotations({first, elsewhere});
        QVERIFY(map->pinLayer().pins().empty());
        QCOMPARE(map->pinLayer().pinAt(viewport, tip), nullptr);
    }

    void onlineLooksOnlyWhileTheirTileServerAnswers() {
        // Hidden, the map draws nothing and so downloads no tile from the real servers.
        window->hide();
        StandInTileServer openStreetMap, sentinel;
        QVERIFY(openStreetMap.isListening() && sentinel.isListening());
        MapThemes& themes = map->themes();
        themes.setProbeAddresses(openStreetMap.tile("0/0/0.png"), sentinel.tile("0/0/0.jpg"));
        themes.setProbing(true);
        QVERIFY(map->model()->workOffline());

        QTRY_VERIFY_WITH_TIMEOUT(themes.isImageryReady(), 20000); // tiled after the first frame

        // A captive portal answers every address with a redirect, or with its own page. Each
        // probe round is two requests: once both are answered, their verdict is in.
        std::unique_ptr<QSignalSpy> answeredSpy;
        for (int portal : {302, 200}) {
            openStreetMap.status = sentinel.status = portal;
            openStreetMap.contentType = sentinel.contentType = "text/html";
            themes.probe(true);
            if (!answeredSpy)
                answeredSpy = std::make_unique<QSignalSpy>(
                    themes.findChild<QNetworkAccessManager*>(), &QNetworkAccessManager::finished);
            QTRY_COMPARE(answeredSpy->count(), 2);
            answeredSpy->clear();
            QVERIFY(!themes.online());
            QCOMPARE(map->themeId(), QStringLiteral("earth/plain/plain.dgml"));
        }
        openStreetMap.status = 200;
        openStreetMap.contentType = sentinel.contentType = "image/png";

        sentinel.status = 404; // imagery not to be had, streets are
        QSignalSpy changed(&themes, &MapThemes::onlineChanged);
        themes.probe(true);
        QTRY_COMPARE(answeredSpy->count(), 2); // the second answer changes nothing
        QVERIFY(themes.online());
        QCOMPARE(changed.count(), 1);
        QVERIFY(!map->model()->workOffline());
        QCOMPARE(map->themeId(), QStringLiteral("earth/openstreetmap/openstreetmap.dgml"));
        map->setMapType(1);
        QCOMPARE(map->themeId(),
                 QStringLiteral("earth/geoquill-satellite/geoquill-satellite.dgml"));

        sentinel.status = 200;
        themes.probe(true);
        QTRY_COMPARE(
            map->themeId(),
            QStringLiteral("earth/geoquill-satellite-online/geoquill-satellite-online.dgml"));

        // The servers gone: back to the looks that need no network.
        openStreetMap.close();
        sentinel.status = 503;
        themes.probe(true);
        QTRY_VERIFY(!themes.online());
        QVERIFY(map->model()->workOffline());
        QCOMPARE(map->themeId(),
                 QStringLiteral("earth/geoquill-satellite/geoquill-satellite.dgml"));
        map->setMapType(0);
        QCOMPARE(map->themeId(), QStringLiteral("earth/plain/plain.dgml"));
    }

    void foundAddressBecomesTheLocationOnShow() {
        QTRY_COMPARE_WITH_TIMEOUT(map->pendingMapFiles(), 0, 10000); // the places to look in
        typeAndReturn(window->addressField(), QStringLiteral("Paris"));
        // Found among the map's own places, the map moves there, and the move brings the
        // place to the form under the address's name.
        QTRY_VERIFY_WITH_TIMEOUT(
            controller().theLocation && controller().theLocation->label == "Paris", 10000);
        QVERIFY(qAbs(controller().theLocation->lat - 48.86) < 0.1);
        QVERIFY(qAbs(controller().theLocation->lon - 2.35) < 0.1);
        QVERIFY(qAbs(map->centerCoordinate().latitude - controller().theLocation->lat) < 1e-5);
        QCOMPARE(window->searchButton()->text(), QStringLiteral("Record Entry"));
    }

    void unfoundAddressReachesTheWindow() {
        QTRY_COMPARE_WITH_TIMEOUT(map->pendingMapFiles(), 0, 10000);
        typeAndReturn(window->addressField(), QStringLiteral("Zzqxv Qwv"));
        QVERIFY(map->addressSearch());
        QSignalSpy notFound(map->addressSearch(), &AddressSearch::notFound);
        QVERIFY(notFound.wait(10000));
        // Out of the search mode, so a later pan makes no location under this text.
        QVERIFY(!controller().gettingAddressLoc);
        QVERIFY(!controller().theLocation);
        QCOMPARE(window->searchButton()->text(), QStringLiteral("Find Address"));
    }

    void userLocationComesToTheFormAndTheMap() {
        // A recorded walk from the Obelisco in Buenos Aires; its first fix, from its sentences:
        // 34 deg 36.2234' S, 58 deg 22.8956' W.
        const double fixLatitude = -(34 + 36.2234 / 60), fixLongitude = -(58 + 22.8956 / 60);
        NmeaPositionProvider walk(QStringLiteral(GEOQUILL_TEST_DATA_DIR "/obelisco.nmea"));
        map->userPosition()->useProvider(&walk);
        chooseMenuItem("MapShowUserLocation");
        QVERIFY(window->mainMenuBar()->action("MapShowUserLocation")->isChecked());
        QTRY_VERIFY_WITH_TIMEOUT(controller().theLocation->label == "Current Location", 10000);
        QVERIFY(qAbs(controller().theLocation->lat - fixLatitude) < 1e-5);
        QVERIFY(qAbs(controller().theLocation->lon - fixLongitude) < 1e-5);
        QVERIFY(qAbs(map->centerCoordinate().latitude - fixLatitude) < 1e-5);
        QCOMPARE(map->zoomLevel(), 8.0);
        // The map marks the user's position with a blue dot.
        QVERIFY(map->pinLayer().userMarker());
        const QPointF at = *map->pointForCoordinate(*map->pinLayer().userMarker());
        QApplication::processEvents();
        const QColor dot = logicalShot(map).pixelColor(at.toPoint() + QPoint(3, 3));
        QVERIFY2(dot.blue() > 180 && dot.red() < 90, qPrintable(dot.name()));
        // The position is a dot, not a trail: Marble's own track is not drawn.
        QVERIFY(!map->model()->positionTracking()->trackVisible());
        chooseMenuItem("MapShowUserLocation"); // and off again
        QVERIFY(!map->userLocation());
    }

    void pointsOffTheGlobeHaveNoCoordinate() {
        // Zoomed out until the Mercator map is shorter than the widget: above it is no place.
        map->setZoomLevel(0.5);
        map->setCenterCoordinate(MapCoordinate{0, 0});
        QVERIFY(!map->convertPointToCoordinate(map->width() / 2, 0));
        QVERIFY(map->convertPointToCoordinate(map->width() / 2, map->height() / 2));
        // ... and it is painted all the same, in one plain colour, not left with old pixels.
        const QImage shot = logicalShot(map);
        QCOMPARE(shot.pixelColor(1, 0), shot.pixelColor(map->width() / 2, 0));
        QCOMPARE(shot.pixelColor(1, 0).alpha(), 255);
        QVERIFY(shot.pixelColor(1, 0) != shot.pixelColor(map->width() / 2, map->height() / 2));
    }
};

int main(int argc, char** argv) {
    // The map's caches, tiles and looks go to folders of this run alone, and it stays offline.
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("data")).toLocal8Bit());
    qputenv("XDG_CACHE_HOME", home.filePath(QStringLiteral("cache")).toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    qputenv("GEOQUILL_MAP_OFFLINE", "1");
    QLocale::setDefault(QLocale::c());
    QApplication app(argc, argv);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); // the stand-in servers are here
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    MapWidgetTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MapWidgetTest.moc"
