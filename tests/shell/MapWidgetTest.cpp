// What the map of the real window adds to the controller's rules (pinned in tests/map): the
// pointer and its read-out, map types, dragging and the wheel, flights and region changes,
// addresses, the user's position, the tile servers; then finding places by name and following
// the user's position from stand-in receivers.

#include "WidgetTest.h"
#include "shell/AddressSearch.h"
#include "shell/MarbleMapView.h"
#include "shell/UserPosition.h"
#include "support/FakePositionProvider.h"

#include <marble/MarbleMap.h>
#include <marble/MarbleModel.h>
#include <marble/PositionTracking.h>

namespace {

// The text a request to Nominatim asked for, read as a web server reads it: '+' as a space.
QString askedText(const QByteArray& request) {
    QByteArray form = request.split(' ').value(1);
    return QUrlQuery(QString::fromLatin1(form.mid(form.indexOf('?') + 1).replace('+', ' ')))
        .queryItemValue(QStringLiteral("q"), QUrl::FullyDecoded);
}

} // namespace

class MapWidgetTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MainWindow> window;
    MarbleMapView* map = nullptr;
    std::unique_ptr<Marble::MarbleModel> model;
    QList<std::optional<MapCoordinate>> answers; // none for notFound

    std::unique_ptr<AddressSearch> search(const QUrl& online = {},
                                          Marble::MarbleModel* on = nullptr) {
        auto made = std::make_unique<AddressSearch>(on ? on : model.get());
        made->setOnlineService(online);
        answers.clear();
        connect(made.get(), &AddressSearch::found, this, [this](double lat, double lon) {
            answers.append(MapCoordinate{lat, lon});
        });
        connect(made.get(), &AddressSearch::notFound, this,
                [this] { answers.append(std::nullopt); });
        return made;
    }
    bool lastAt(double latitude) const {
        return answers.last() && qAbs(answers.last()->latitude - latitude) < 0.1;
    }
    FakePositionProvider* running() const {
        return dynamic_cast<FakePositionProvider*>(
            model->positionTracking()->positionProviderPlugin());
    }

    Window1& controller() { return window->controller(); }
    void send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
        sendMouse(map, type, at, button, held);
    }
    void press(QPoint at, Qt::MouseButton b = Qt::LeftButton) {
        send(QEvent::MouseButtonPress, at, b, b);
    }
    void release(QPoint at) { send(QEvent::MouseButtonRelease, at, Qt::LeftButton, {}); }
    void moveTo(QPoint at, Qt::MouseButtons held = {}) {
        send(QEvent::MouseMove, at, Qt::NoButton, held);
    }
    void click(QPoint at) {
        press(at);
        release(at);
    }
    void wheel(QPoint at, int notches) {
        QWheelEvent turn(at, map->mapToGlobal(at), {}, {0, 120 * notches}, {}, {},
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(map, &turn);
    }
    bool within(std::optional<QPointF> point, QPointF expected, double pixels) {
        return point && (*point - expected).manhattanLength() <= pixels;
    }
    // One pixel per logical pixel, whatever the screen's scale.
    QImage shotOfMap(const QString& savedAs = {}) {
        if (!savedAs.isEmpty() && QDir().mkpath(GEOQUILL_SCREENSHOT_DIR))
            window->grab().save(QStringLiteral(GEOQUILL_SCREENSHOT_DIR "/") + savedAs);
        return map->grab().toImage().scaled(map->size(), Qt::IgnoreAspectRatio);
    }
    MapPinRef pin(double latitude, double longitude) {
        return std::make_shared<MapPin>(MapPin{{latitude, longitude}, {}});
    }

private slots:
    void initTestCase() {
        MapThemes::prepare(); // as the window would: the map's plugins only, before any model
        model = std::make_unique<Marble::MarbleModel>();
    }
    void cleanupTestCase() { model.reset(); }

    void init() {
        QVERIFY(window = openWindow());
        map = window->map();
    }
    void cleanup() { window.reset(); }

    void pointerAndItsReadOut() {
        // The pointer over the map is the controller's, with its hot spot.
        QCOMPARE(map->cursor().hotSpot(),
                 QPoint(controller().curs.hotSpotX, controller().curs.hotSpotY));
        // Marble's coordinate of the pixel, and our projection (where pins are drawn and hit)
        // back to the same pixel.
        const QPoint at(333, 222);
        const auto here = map->convertPointToCoordinate(at.x(), at.y());
        QVERIFY(within(map->pointForCoordinate(*here), at, 1));
        // The read-out, grown to the left as far as every digit needs, its panel with it.
        QEvent enter(QEvent::Enter), leave(QEvent::Leave);
        QApplication::sendEvent(map, &enter);
        moveTo(at);
        QLabel* label = window->labelLatLon();
        QVERIFY(label->isVisible() && window->rectangle1()->isVisible());
        QCOMPARE(label->text(), controller().coordinateText(here->latitude, here->longitude));
        QVERIFY(label->fontMetrics().horizontalAdvance(label->text()) <= label->width());
        QCOMPARE(window->rectangle1()->geometry(), label->geometry());
        QCOMPARE(label->geometry().right(), map->geometry().right());
        QApplication::sendEvent(map, &leave);
        QVERIFY(!label->isVisible());
    }

    void mapTypesChangeTheLookAndKeepThePlace() {
        QTRY_VERIFY_WITH_TIMEOUT(map->themes().isImageryReady(), 20000); // made in the background
        controller().LoadMap(45.5, 9.25);
        map->setZoomLevel(5);
        QStringList looks{map->themeId()};
        for (int type : {1, 2, 0}) {
            QTest::mouseClick(window->segmentedControl1()->button(type), Qt::LeftButton);
            QCOMPARE(map->mapType(), type);
            QCOMPARE(looks.contains(map->themeId()), type == 0); // each its own, then back
            looks << map->themeId();
            QVERIFY(!QApplication::activeModalWidget());
            QVERIFY(near(map->centerCoordinate(), {45.5, 9.25}, 1e-6) && map->zoomLevel() == 5);
            QVERIFY(!map->map()->showGrid() && !map->map()->showOverviewMap()); // not the look's
            // Offline every look still shows a map, not a blank: many colours.
            QTRY_COMPARE_WITH_TIMEOUT(map->pendingMapFiles(), 0, 10000);
            const QImage shot = shotOfMap(QStringLiteral("map-type-%1.png").arg(type));
            QVERIFY(shot.convertToFormat(QImage::Format_Indexed8).colorCount() > 40);
        }
    }

    void draggingPansUnlessScrollingIsOffAndTheWheelZooms() {
        controller().LoadMap(45.5, 9.25);
        const QPoint from(300, 200), to(380, 240), wheelAt(500, 120);
        const auto grabbed = map->convertPointToCoordinate(from.x(), from.y());
        for (bool scrolls : {false, true}) { // the place grabbed comes along under the pointer
            map->setScrollEnabled(scrolls);
            press(from);
            moveTo((from + to) / 2, Qt::LeftButton);
            moveTo(to, Qt::LeftButton);
            release(to);
            QVERIFY(within(map->pointForCoordinate(*grabbed), scrolls ? to : from, 1.5));
        }
        map->setScrollEnabled(false); // the wheel zooms all the same, about the point under it
        const double zoom = map->zoomLevel();
        const auto underWheel = map->convertPointToCoordinate(wheelAt.x(), wheelAt.y());
        wheel(wheelAt, 2);
        QVERIFY(qAbs(map->zoomLevel() - (zoom + 1.0)) < 0.01);
        QVERIFY(within(map->pointForCoordinate(*underWheel), wheelAt, 1.5));
    }

    void eachRegionChangeIsReportedOnceAtRest() {
        int reports = 0;
        MarbleMapView::Events events;
        events.regionChanged = [&reports] { ++reports; }; // the window's handlers out of the way
        map->setEvents(events);
        letQueuedRun();
        reports = 0;
        const auto reported = [&](int n) { // n so far, and nothing more comes of what is queued
            const bool came = QTest::qWaitFor([&] { return reports >= n; });
            letQueuedRun();
            return came && reports == n;
        };
        map->setCenterCoordinate({40.0, -3.7}); // a move and a zoom in one go
        map->setZoomLevel(6);
        QVERIFY(reported(1));
        press(QPoint(200, 200)); // a drag of several moves: once the button is up
        for (int step = 1; step <= 6; ++step)
            moveTo(QPoint(200 + 15 * step, 200 + 5 * step), Qt::LeftButton);
        QVERIFY(reported(1));
        release(QPoint(290, 230));
        QVERIFY(reported(2));
        for (int notch = 0; notch < 3; ++notch)
            wheel(QPoint(300, 200), 1);
        QVERIFY(reported(3));
        // A right press in a drag takes the left release away (to the menu): the drag ends.
        press(QPoint(200, 200));
        moveTo(QPoint(260, 200), Qt::LeftButton);
        QTest::mousePress(map, Qt::RightButton, Qt::NoModifier, QPoint(260, 200));
        QVERIFY(reported(4) && map->map()->viewContext() == Marble::Still);

        // Show All fits the pins, across the 180th meridian rather than round the world, flies
        // there (driven here by its own clock) and reports once there; a press stops it on the way.
        const std::vector<MapPinRef> pins{pin(-17, 179.5), pin(-16, -179.25)};
        map->showAnnotations(pins, false);
        QVERIFY2(map->zoomLevel() >= 5, qPrintable(QString::number(map->zoomLevel())));
        for (const MapPinRef& each : pins)
            QVERIFY(map->rect().contains(map->pointForCoordinate(each->coordinate)->toPoint()));
        const MapCoordinate end = map->centerCoordinate();
        for (bool pressOnTheWay : {false, true}) {
            map->setCenterCoordinate({-33.9, 151.2});
            letQueuedRun();
            const int before = reports;
            map->showAnnotations(pins, true);
            map->findChild<QVariantAnimation*>()->setCurrentTime(MarbleMapView::flightMilliseconds /
                                                                 2);
            QVERIFY(map->isFlying() && !near(map->centerCoordinate(), end, 1) && reports == before);
            if (pressOnTheWay)
                press(QPoint(100, 100));
            QVERIFY(reported(before + 1) && !map->isFlying());
            QCOMPARE(near(map->centerCoordinate(), end, 1e-6), !pressOnTheWay);
        }
    }

    // An address that names no place reaches the controller as such: no location is made.
    void addressNotFoundReachesTheController() {
        typeAndReturn(window->addressField(), QStringLiteral("Zzqxv Qwv"));
        QSignalSpy notFound(map->addressSearch(), &AddressSearch::notFound);
        QVERIFY(notFound.wait(10000));
        QVERIFY(!controller().gettingAddressLoc && !controller().theLocation);
    }

    void userLocationComesToTheFormAndTheMap() {
        const MapCoordinate obelisco{-34.6037, -58.3816};
        FakePositionProvider receiver(FakePositionProvider::FixAtOnce, obelisco);
        map->userPosition()->useProvider(&receiver);
        chooseMenuItem(*window, "MapShowUserLocation");
        QTRY_VERIFY(controller().theLocation &&
                    controller().theLocation->label == "Current Location");
        QVERIFY(
            near({controller().theLocation->lat, controller().theLocation->lon}, obelisco, 1e-5));
        // A blue dot, not Marble's trail.
        const QColor dot =
            shotOfMap().pixelColor(map->pointForCoordinate(obelisco)->toPoint() + QPoint(3, 3));
        QVERIFY2(dot.blue() > 180 && dot.red() < 90, qPrintable(dot.name()));
        QVERIFY(!map->model()->positionTracking()->trackVisible());
        chooseMenuItem(*window, "MapShowUserLocation");
        QVERIFY(!map->userLocation());
    }

    void pointsOffTheGlobeHaveNoCoordinateAndAreStillPainted() {
        map->setZoomLevel(0.5); // the Mercator map shorter than the widget
        map->setCenterCoordinate({0, 0});
        QVERIFY(!map->convertPointToCoordinate(map->width() / 2, 0));
        QImage screen(map->size(), QImage::Format_ARGB32); // what was on the screen before
        screen.fill(Qt::magenta);
        map->render(&screen);
        QVERIFY(screen.pixelColor(map->width() / 2, 0) != QColor(Qt::magenta));
    }

    void onlineLooksOnlyWhileTheirTileServerAnswers() {
        window->hide(); // drawing nothing, the map downloads no tile from the real servers
        StandInServer streets, imagery;
        MapThemes& themes = map->themes();
        themes.setProbeAddresses(streets.address(), imagery.address());
        themes.setProbing(true);
        QTRY_VERIFY_WITH_TIMEOUT(themes.isImageryReady(), 20000);
        const QString offline = map->themeId();
        std::unique_ptr<QSignalSpy> answered;
        const auto probe = [&](int streetStatus, int imageryStatus, const QByteArray& type) {
            streets.status = streetStatus;
            imagery.status = imageryStatus;
            streets.type = imagery.type = type;
            themes.probe(true);
            if (!answered) // the network comes with the first probe
                answered = std::make_unique<QSignalSpy>(themes.findChild<QNetworkAccessManager*>(),
                                                        &QNetworkAccessManager::finished);
            const bool both = QTest::qWaitFor([&] { return answered->count() == 2; }, 10000);
            answered->clear();
            return both && map->model()->workOffline() != themes.online();
        };
        // A captive portal answers every address with a redirect, or with its own page.
        QVERIFY(probe(302, 302, "text/html") && !themes.online());
        QVERIFY(probe(200, 200, "text/html") && !themes.online());
        QVERIFY(probe(200, 404, "image/png") && themes.online()); // streets, no imagery
        QVERIFY(map->themeId() != offline);
        streets.close(); // the servers gone: back to the looks that need no network
        QVERIFY(probe(200, 503, "image/png") && !themes.online());
        QCOMPARE(map->themeId(), offline);
    }

    void findAnswers_data() {
        QTest::addColumn<bool>("online");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("status");      // the stand-in's answer
        QTest::addColumn<double>("latitude"); // NaN: not found
        QTest::addColumn<int>("asked");       // requests that reached the stand-in
        const double none = qQNaN();
        // Paris, France, not Paris, Texas: the map's places carry their populations.
        QTest::newRow("loaded place, online: no request") << true << "Paris" << 200 << 48.857 << 0;
        QTest::newRow("no such place, offline") << false << "Zzqxv Qwv" << 200 << none << 0;
        QTest::newRow("blank, online") << true << "   " << 200 << none << 0;
        QTest::newRow("online, '&' and '+' sent encoded")
            << true << "Quillfield & Sons + Co" << 200 << -37.8136 << 1;
        QTest::newRow("online, a server error is no answer")
            << true << "Trouble Street" << 500 << none << 1;
    }
    void findAnswers() {
        QFETCH(bool, online);
        QFETCH(QString, text);
        QFETCH(int, status);
        QFETCH(double, latitude);
        QFETCH(int, asked);
        model->setWorkOffline(!online);
        StandInServer nominatim(status, R"([{"lat":"-37.8136","lon":"144.9631"}])");
        const auto finder = search(nominatim.address());
        finder->find(text);
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 1, 10000);
        QVERIFY(qIsNaN(latitude) ? !answers[0] : lastAt(latitude));
        QCOMPARE(nominatim.requests.size(), asked);
        for (const auto& [request, arrival] : nominatim.requests) {
            QCOMPARE(askedText(request), text);
            QVERIFY(request.contains("format=jsonv2") && request.contains("User-Agent: Geoquill"));
        }
    }

    // Every look finds the same places, also one that shows no place names (the satellite map);
    // a find overtaken at once by a newer one never answers.
    void everyLookFindsThePlaces_data() {
        QTest::addColumn<QString>("theme");
        QTest::newRow("with place names") << "earth/plain/plain.dgml";
        QTest::newRow("without place names") << "earth/behaim1492/behaim1492.dgml";
    }
    void everyLookFindsThePlaces() {
        QFETCH(QString, theme);
        Marble::MarbleModel look;
        look.setWorkOffline(true);
        look.setMapThemeId(theme);
        const auto finder = search({}, &look);
        finder->find(QStringLiteral("Paris"));
        finder->find(QStringLiteral("Sydney"));
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 1, 10000);
        finder->find(QStringLiteral("Zzqxv")); // answered after anything the first two could send
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 2, 10000);
        QVERIFY(answers[0] && qAbs(answers[0]->latitude + 33.87) < 0.1 && !answers[1]);
    }

    void nominatimGetsOnlyTheNewestTextOnceASecond() {
        model->setWorkOffline(false);
        StandInServer nominatim(200, "[]");
        const auto finder = search(nominatim.address());
        for (int road = 1; road <= 2; ++road) {
            finder->find(QStringLiteral("Road %1").arg(road));
            QTRY_COMPARE_WITH_TIMEOUT(answers.size(), road, 10000);
        }
        // Within the second after the second request: the third is overtaken before its turn.
        finder->find(QStringLiteral("Road 3"));
        finder->find(QStringLiteral("Road 4"));
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 3, 10000);
        QCOMPARE(nominatim.requests.size(), 3);
        QCOMPARE(askedText(nominatim.requests[2].first), QStringLiteral("Road 4"));
        // Nominatim's limit, once the network is set up (the first request takes longer on its
        // way): a fiftieth of a second of slack for the way and the clock, so that a timer
        // firing early, as coarse timers may by a twentieth, is caught.
        const qint64 spacing = nominatim.requests[2].second - nominatim.requests[1].second;
        QVERIFY2(spacing >= 980, qPrintable(QString::number(spacing)));
    }

    // The first provider gives up searching and the second has no source; the third is followed
    // fix by fix, and its failure after a fix is the receiver going quiet: the fourth is not tried.
    void providersAreTriedInTurnAndTheFirstWithAFixIsFollowed() {
        using Fake = FakePositionProvider;
        Fake givingUp(Fake::Searching), missing(Fake::NoSource), working(Fake::Searching),
            spare(Fake::FixAtOnce, {1, 1});
        UserPosition user(model.get());
        user.useProviders({&givingUp, &missing, &working, &spare});
        QList<std::optional<MapCoordinate>> seen;
        connect(&user, &UserPosition::positionChanged, this, [&] { seen.append(user.position()); });
        user.setTracking(true);
        QVERIFY(running() && running() != &givingUp); // an instance of its own
        running()->fail();
        QTRY_VERIFY(running() && running()->status() == Marble::PositionProviderStatusAcquiring);
        Fake* followed = running();
        followed->moveTo({-34.6037, -58.3816});
        user.setTracking(true); // again while tracking: the same provider goes on
        followed->moveTo({-34.6036, -58.3817});
        QVERIFY(running() == followed && seen.size() == 2);
        QVERIFY(seen[0] && seen[0]->latitude == -34.6037 && seen[0]->longitude == -58.3816);
        QVERIFY(seen[1] && seen[1]->latitude == -34.6036 && seen[1]->longitude == -58.3817);
        followed->fail();
        letQueuedRun();
        QVERIFY(running() == followed && seen.size() == 3 && !seen[2] && !user.position());
        user.setTracking(false);
        QTRY_VERIFY(!model->positionTracking()->positionProviderPlugin());
    }
};

GEOQUILL_WIDGET_TEST_MAIN(MapWidgetTest)

#include "MapWidgetTest.moc"
