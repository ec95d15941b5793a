// Finding places by name among the places Marble loads with its plain map, and online against a
// Nominatim stand-in of the test's own on this machine; and the user's position replayed from a
// recorded NMEA log walking north from the Obelisco in Buenos Aires.

#include "shell/AddressSearch.h"
#include "shell/UserPosition.h"
#include "support/NmeaPositionProvider.h"

#include <marble/FileManager.h>
#include <marble/GeoDataAccuracy.h>
#include <marble/GeoDataCoordinates.h>
#include <marble/GeoDataDocument.h>
#include <marble/GeoDataPlacemark.h>
#include <marble/GeoDataTreeModel.h>
#include <marble/MarbleModel.h>
#include <marble/PluginManager.h>
#include <marble/PositionProviderPlugin.h>
#include <marble/PositionTracking.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QHash>
#include <QIcon>
#include <QNetworkProxy>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const int answerPatience = 10000; // milliseconds; an answer normally comes within a second

// The recorded log, its first two fixes worked out by hand from the sentences
// (ddmm.mmmm: degrees, then minutes):
//   $GPGGA,143000.00,3436.2234,S,05822.8956,W,...  and the RMC of the same second
//     latitude  34 + 36.2234 / 60 = 34 + 0.60372333 = 34.60372333 S -> -34.60372333
//     longitude 58 + 22.8956 / 60 = 58 + 0.38159333 = 58.38159333 W -> -58.38159333
//   $GPGGA,143001.00,3436.2226,S,05822.8956,W,...  one second and about 1.5 m further north
//     latitude  34 + 36.2226 / 60 = 34 + 0.60371    = 34.60371 S    -> -34.60371
const QString obeliscoLog = QStringLiteral(GEOQUILL_TEST_DATA_DIR "/obelisco.nmea");
const MapCoordinate obeliscoFirst{-34.60372333, -58.38159333};
const MapCoordinate obeliscoSecond{-34.60371, -58.38159333};

bool same(const std::optional<MapCoordinate>& got, const MapCoordinate& want) {
    return got && qAbs(got->latitude - want.latitude) < 1e-6 &&
           qAbs(got->longitude - want.longitude) < 1e-6;
}

// What came out of one AddressSearch, in order.
struct Answers {
    QList<std::optional<MapCoordinate>> got; // none: notFound

    explicit Answers(AddressSearch& search) {
        QObject::connect(&search, &AddressSearch::found, [this](double latitude, double longitude) {
            got.append(MapCoordinate{latitude, longitude});
        });
        QObject::connect(&search, &AddressSearch::notFound, [this] { got.append(std::nullopt); });
    }
    bool near(int i, double latitude, double longitude) const {
        return i < got.size() && got[i] && qAbs(got[i]->latitude - latitude) < 0.1 &&
               qAbs(got[i]->longitude - longitude) < 0.1;
    }
};

// A Nominatim of our own on the loopback interface: records what each request asked and how
// it named itself, and answers from a table of texts. It reads the query as a web server does,
// '+' as a space, so a text sent without its '+' and '&' encoded arrives changed.
class FakeNominatim : public QObject {
public:
    struct Asked {
        QString text;
        QString format;
        QByteArray userAgent;
        qint64 arrivedAt = 0; // milliseconds since the stand-in started
    };
    QList<Asked> asked;
    QHash<QString, QPair<int, QByteArray>> answers; // text -> HTTP status, body

    FakeNominatim() {
        clock.start();
        server.listen(QHostAddress::LocalHost);
        connect(&server, &QTcpServer::newConnection, this, &FakeNominatim::accept);
    }
    QUrl address() const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/search").arg(server.serverPort()));
    }

private:
    QTcpServer server;
    QElapsedTimer clock;
    QHash<QTcpSocket*, QByteArray> incoming;

    static QString formValue(const QByteArray& query, const QByteArray& key) {
        for (const QByteArray& pair : query.split('&')) {
            if (pair.startsWith(key + '=')) {
                QByteArray value = pair.mid(key.size() + 1);
                value.replace('+', ' ');
                return QUrl::fromPercentEncoding(value);
            }
        }
        return QString();
    }

    void accept() {
        while (QTcpSocket* socket = server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    }

    void read(QTcpSocket* socket) {
        QByteArray& buffer = incoming[socket];
        buffer += socket->readAll();
        const int end = buffer.indexOf("\r\n\r\n");
        if (end < 0) {
            return;
        }
        const QList<QByteArray> lines = buffer.left(end).split('\n');
        incoming.remove(socket);
        const QByteArray target = lines.first().split(' ').value(1);
        const QByteArray query = target.mid(target.indexOf('?') + 1);
        Asked request{formValue(query, "q"), formValue(query, "format"), QByteArray(),
                      clock.elapsed()};
        for (const QByteArray& line : lines.mid(1)) {
            const int colon = line.indexOf(':');
            if (line.left(colon).trimmed().toLower() == "user-agent") {
                request.userAgent = line.mid(colon + 1).trimmed();
            }
        }
        asked.append(request);
        const auto answer = answers.value(request.text, {200, QByteArray("[]")});
        socket->write("HTTP/1.1 " + QByteArray::number(answer.first) +
                      " Answer\r\nContent-Type: application/json\r\nContent-Length: " +
                      QByteArray::number(answer.second.size()) + "\r\nConnection: close\r\n\r\n" +
                      answer.second);
        socket->disconnectFromHost();
    }
};

// A provider that has a fix at once and fails when told to, as Qt Positioning does when the
// location service goes away.
class FailingProvider : public Marble::PositionProviderPlugin {
public:
    QString name() const override { return QStringLiteral("failing"); }
    QString nameId() const override { return QStringLiteral("failing"); }
    QString guiString() const override { return name(); }
    QString version() const override { return QStringLiteral("1"); }
    QString description() const override { return name(); }
    QString copyrightYears() const override { return QStringLiteral("2024"); }
    QVector<Marble::PluginAuthor> pluginAuthors() const override { return {}; }
    QIcon icon() const override { return QIcon(); }
    Marble::PositionProviderPlugin* newInstance() const override { return new FailingProvider; }
    void initialize() override { state = Marble::PositionProviderStatusAvailable; }
    bool isInitialized() const override { return true; }
    Marble::PositionProviderStatus status() const override { return state; }
    Marble::GeoDataCoordinates position() const override {
        // Greenwich, the Royal Observatory.
        return Marble::GeoDataCoordinates(-0.0015, 51.4778, 0, Marble::GeoDataCoordinates::Degree);
    }
    Marble::GeoDataAccuracy accuracy() const override { return Marble::GeoDataAccuracy(); }
    qreal speed() const override { return 0; }
    qreal direction() const override { return 0; }
    QDateTime timestamp() const override { return QDateTime(); }

    void fail() {
        state = Marble::PositionProviderStatusError;
        emit statusChanged(state);
    }

protected:
    Marble::PositionProviderStatus state = Marble::PositionProviderStatusUnavailable;
};

// A source that searches for a fix and gives up without one, as the system's location service
// does after a few seconds with no receiver (here after a tenth of a second).
class GivingUpProvider : public FailingProvider {
public:
    Marble::PositionProviderPlugin* newInstance() const override { return new GivingUpProvider; }
    void initialize() override {
        state = Marble::PositionProviderStatusAcquiring;
        QTimer::singleShot(100, this, [this] { fail(); });
    }
};

} // namespace

class AddressAndPositionTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<Marble::MarbleModel> model;

private slots:
    void initTestCase() {
        model = std::make_unique<Marble::MarbleModel>();
        model->setMapThemeId(QStringLiteral("earth/plain/plain.dgml"));
        // The plain map loads the cities of the world (cityplacemarks, over 20,000 places) and
        // a few thousand mountains, observatories and countries besides; past 20,000 the cities
        // are in.
        QTRY_VERIFY_WITH_TIMEOUT(model->placemarkModel()->rowCount() > 20000, 20000);
    }
    void init() { model->setWorkOffline(true); }
    void cleanupTestCase() { model.reset(); }

    // One find, offline or online, against the stand-in: what it answers and what it asked.
    void findAnswers_data() {
        QTest::addColumn<bool>("online");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("status"); // the stand-in's answer to the text
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("found");
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<int>("asked"); // requests that reached the stand-in
        const QByteArray none("[]");
        // Paris, France (Hotel de Ville), not Paris, Texas at 33.7 N, 95.6 W: Marble's places
        // carry their populations. A loaded place needs no request, even online.
        QTest::newRow("loaded") << false << "Paris" << 200 << none << true << 48.857 << 2.351 << 0;
        QTest::newRow("loaded, online")
            << true << "Paris" << 200 << none << true << 48.857 << 2.351 << 0;
        // Sydney, New South Wales, not Sydney, Nova Scotia at 46.1 N, 60.2 W.
        QTest::newRow("case and spaces")
            << false << "  sYDNEY " << 200 << none << true << -33.87 << 151.21 << 0;
        QTest::newRow("nonsense offline")
            << false << "Zzqxv Qwv" << 200 << none << false << 0.0 << 0.0 << 0;
        QTest::newRow("blank, online") << true << "   " << 200 << none << false << 0.0 << 0.0 << 0;
        // Read and ranked as NominatimReply and PlaceMatch do: the populous one.
        QTest::newRow("online, '&' and '+' sent encoded")
            << true << "Quillfield & Sons + Co" << 200
            << QByteArray(R"([{"lat":"52.1","lon":"-1.2","extratags":{"population":"48 000"}},
                {"lat":"-37.8136","lon":"144.9631","extratags":{"population":"1,250,000"}}])")
            << true << -37.8136 << 144.9631 << 1;
        // A server error is no answer, whatever its body holds.
        QTest::newRow("online, server error")
            << true << "Trouble Street" << 500 << QByteArray(R"([{"lat":"1","lon":"1"}])") << false
            << 0.0 << 0.0 << 1;
    }
    void findAnswers() {
        QFETCH(bool, online);
        QFETCH(QString, text);
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(bool, found);
        QFETCH(double, latitude);
        QFETCH(double, longitude);
        QFETCH(int, asked);
        model->setWorkOffline(!online);
        FakeNominatim nominatim;
        nominatim.answers.insert(text, {status, body});
        AddressSearch search(model.get());
        search.setOnlineService(nominatim.address());
        Answers answers(search);
        search.find(text);
        QTRY_COMPARE_WITH_TIMEOUT(answers.got.size(), 1, answerPatience);
        QCOMPARE(bool(answers.got[0]), found);
        if (found)
            QVERIFY(answers.near(0, latitude, longitude));
        QCOMPARE(nominatim.asked.size(), asked);
        for (const FakeNominatim::Asked& request : nominatim.asked) {
            QCOMPARE(request.text, text);
            QCOMPARE(request.format, QStringLiteral("jsonv2"));
            QVERIFY2(request.userAgent.startsWith("Geoquill"), request.userAgent.constData());
        }
    }

    void newerFindSupersedesOlder_data() {
        QTest::addColumn<QString>("older");
        QTest::addColumn<QString>("newer");
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::newRow("found over found") << "Paris"
                                          << "Sydney" << -33.87 << 151.21;
        QTest::newRow("found over not found") << "Zzqxv"
                                              << "Paris" << 48.857 << 2.351;
    }
    void newerFindSupersedesOlder() {
        QFETCH(QString, older);
        QFETCH(QString, newer);
        QFETCH(double, latitude);
        QFETCH(double, longitude);
        AddressSearch search(model.get());
        Answers answers(search);
        search.find(older);
        search.find(newer);
        QTRY_VERIFY_WITH_TIMEOUT(!answers.got.isEmpty(), answerPatience);
        // A last find whose answer comes after anything the first two could still send.
        search.find(QStringLiteral("Zzqxv"));
        QTRY_COMPARE_WITH_TIMEOUT(answers.got.size(), 2, answerPatience);
        QVERIFY(answers.near(0, latitude, longitude));
        QVERIFY(!answers.got[1]);
    }

    // Every map look finds the same places, also one that shows no place names.
    void everyLookFindsThePlaces_data() {
        QTest::addColumn<QString>("theme");
        QTest::newRow("with place names") << "earth/plain/plain.dgml";
        // A look of imagery alone, as the satellite map is: before, it found nothing.
        QTest::newRow("without place names") << "earth/behaim1492/behaim1492.dgml";
    }
    void everyLookFindsThePlaces() {
        QFETCH(QString, theme);
        Marble::MarbleModel map;
        map.setWorkOffline(true);
        map.setMapThemeId(theme);
        AddressSearch search(&map);
        Answers answers(search);
        search.find(QStringLiteral("Sydney"));
        QTRY_COMPARE_WITH_TIMEOUT(answers.got.size(), 1, answerPatience);
        QVERIFY(answers.near(0, -33.87, 151.21));
    }

    void nominatimGetsOnlyTheNewestText() {
        model->setWorkOffline(false);
        FakeNominatim nominatim;
        nominatim.answers.insert(QStringLiteral("First Road"), {200, R"([{"lat":"1","lon":"1"}])"});
        nominatim.answers.insert(QStringLiteral("Third Road"), {200, R"([{"lat":"3","lon":"3"}])"});
        AddressSearch search(model.get());
        search.setOnlineService(nominatim.address());
        Answers answers(search);
        search.find(QStringLiteral("First Road"));
        QTRY_COMPARE_WITH_TIMEOUT(answers.got.size(), 1, answerPatience);
        // Within the second after the first request: the second text is overtaken by the third
        // before its turn comes.
        search.find(QStringLiteral("Second Road"));
        search.find(QStringLiteral("Third Road"));
        QTRY_COMPARE_WITH_TIMEOUT(answers.got.size(), 2, answerPatience);
        QVERIFY(answers.near(0, 1, 1));
        QVERIFY(answers.near(1, 3, 3));
        QCOMPARE(nominatim.asked.size(), 2);
        QCOMPARE(nominatim.asked[1].text, QStringLiteral("Third Road"));
        // Nominatim's limit of one request a second, from one request's arrival to the next's.
        // The client waits a full second from sending one to sending the next; each then takes
        // a moment to reach the stand-in (the first perhaps a little longer, the client setting
        // up its network on it), and the stand-in's clock counts whole milliseconds: a hundredth
        // of a second of slack for those, no more, so a second cut short by a few hundredths is
        // caught.
        const qint64 spacing = nominatim.asked[1].arrivedAt - nominatim.asked[0].arrivedAt;
        QVERIFY2(spacing >= 990, qPrintable(QString::number(spacing)));
    }

    void replayedLogGivesItsFixes() {
        NmeaPositionProvider log(obeliscoLog);
        UserPosition user(model.get());
        user.useProvider(&log);
        QList<std::optional<MapCoordinate>> seen;
        connect(&user, &UserPosition::positionChanged, this, [&] { seen.append(user.position()); });

        user.setTracking(true);
        QTRY_VERIFY_WITH_TIMEOUT(!seen.isEmpty(), answerPatience);
        QVERIFY(same(seen[0], obeliscoFirst));
        const Marble::PositionProviderPlugin* running =
            model->positionTracking()->positionProviderPlugin();
        QVERIFY(running);
        QVERIFY(running != &log);

        // Starting again while tracking keeps the replay going rather than starting it over,
        // which would give the first fix a second time.
        user.setTracking(true);
        QCOMPARE(model->positionTracking()->positionProviderPlugin(), running);
        QTRY_VERIFY_WITH_TIMEOUT(seen.size() >= 2, answerPatience);
        QCOMPARE(seen.size(), 2);
        QVERIFY(same(seen[1], obeliscoSecond));
        QVERIFY(same(user.position(), obeliscoSecond));

        user.setTracking(false);
        QVERIFY(!user.position());
        QCOMPARE(seen.size(), 3);
        QVERIFY(!seen[2]);
        QTRY_VERIFY_WITH_TIMEOUT(!model->positionTracking()->positionProviderPlugin(),
                                 answerPatience);

        // A new start replays the log from its beginning.
        user.setTracking(true);
        QTRY_VERIFY_WITH_TIMEOUT(seen.size() >= 4, answerPatience);
        QVERIFY(same(seen[3], obeliscoFirst));
        user.setTracking(false);
        QTRY_VERIFY_WITH_TIMEOUT(!model->positionTracking()->positionProviderPlugin(),
                                 answerPatience);
    }

    void unreadableLogGivesNoPosition() {
        NmeaPositionProvider log(QStringLiteral(GEOQUILL_TEST_DATA_DIR "/no-such-log.nmea"));
        UserPosition user(model.get());
        user.useProvider(&log);
        QSignalSpy changes(&user, &UserPosition::positionChanged);
        user.setTracking(true);
        QCOMPARE(model->positionTracking()->status(), Marble::PositionProviderStatusError);
        QVERIFY(!model->positionTracking()->error().isEmpty());
        QVERIFY(!user.position());
        QCOMPARE(changes.count(), 0);
        user.setTracking(false);
        QTRY_VERIFY_WITH_TIMEOUT(!model->positionTracking()->positionProviderPlugin(),
                                 answerPatience);
    }

    void providersAreTriedInTurnUntilOneGivesAFix() {
        // The first gives up searching, the second has no source at all, the third replays.
        GivingUpProvider givingUp;
        NmeaPositionProvider missing(QStringLiteral(GEOQUILL_TEST_DATA_DIR "/no-such-log.nmea"));
        NmeaPositionProvider log(obeliscoLog);
        UserPosition user(model.get());
        user.useProviders({&givingUp, &missing, &log});
        QList<std::optional<MapCoordinate>> seen;
        connect(&user, &UserPosition::positionChanged, this, [&] { seen.append(user.position()); });

        user.setTracking(true);
        QVERIFY(
            dynamic_cast<GivingUpProvider*>(model->positionTracking()->positionProviderPlugin()));
        QTRY_VERIFY_WITH_TIMEOUT(!seen.isEmpty(), answerPatience);
        QVERIFY(same(seen[0], obeliscoFirst));
        QVERIFY(dynamic_cast<NmeaPositionProvider*>(
            model->positionTracking()->positionProviderPlugin()));
        user.setTracking(false);
        QTRY_VERIFY_WITH_TIMEOUT(!model->positionTracking()->positionProviderPlugin(),
                                 answerPatience);
    }

    void systemProvidersAreInstalledUnderTheirNames() {
        // The system's providers are found by Marble's names for them; a renamed plugin would
        // leave the user with no position and no word why.
        QStringList names;
        for (const Marble::PositionProviderPlugin* plugin :
             model->pluginManager()->positionProviderPlugins())
            names << plugin->nameId();
        for (const QString& name : UserPosition::systemProviderNames())
            QVERIFY2(names.contains(name), qPrintable(name + " among " + names.join(", ")));
    }

    void failingProviderDropsThePositionAndIsKept() {
        // Once a fix has come, a failure is the user's receiver going quiet, not a missing
        // source: the position is dropped and the next provider is not tried.
        FailingProvider failing;
        NmeaPositionProvider log(obeliscoLog);
        UserPosition user(model.get());
        user.useProviders({&failing, &log});
        QSignalSpy changes(&user, &UserPosition::positionChanged);
        user.setTracking(true);
        QCOMPARE(changes.count(), 1);
        QVERIFY(same(user.position(), MapCoordinate{51.4778, -0.0015}));
        auto* running =
            dynamic_cast<FailingProvider*>(model->positionTracking()->positionProviderPlugin());
        QVERIFY(running);
        running->fail();
        QCOMPARE(changes.count(), 2);
        QVERIFY(!user.position());
        // The switch to the next provider would be queued: let everything queued run.
        for (int round = 0; round < 2; ++round) {
            bool reached = false;
            QTimer::singleShot(0, [&reached] { reached = true; });
            QTRY_VERIFY(reached);
        }
        QCOMPARE(model->positionTracking()->positionProviderPlugin(), running);
        QCOMPARE(changes.count(), 2);
        user.setTracking(false);
        QCOMPARE(changes.count(), 2);
        QTRY_VERIFY_WITH_TIMEOUT(!model->positionTracking()->positionProviderPlugin(),
                                 answerPatience);
    }
};

int main(int argc, char** argv) {
    // Marble's caches and settings go to folders of this run's own.
    QTemporaryDir home;
    for (const char* name : {"XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME"}) {
        const QString path = home.path() + QLatin1Char('/') + QLatin1String(name);
        QDir().mkpath(path);
        qputenv(name, path.toLocal8Bit());
    }
    const QString runtime = home.path() + QStringLiteral("/runtime");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime.toLocal8Bit());

    QLocale::setDefault(QLocale::c());
    QApplication app(argc, argv);
    // The Nominatim stand-in is on this machine: no proxy between.
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    AddressAndPositionTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "AddressAndPositionTest.moc"
