#include "MapThemes.h"

#include "map/MapThemeChoice.h"

#include <marble/MarbleDirs.h>
#include <marble/TileCreator.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTimer>

// The looks live in a static library, whose resource registration the linker would drop unless
// something refers to it; the macro must stand outside any namespace.
static void registerThemes() {
    Q_INIT_RESOURCE(themes);
}

namespace {

// A small tile every server has: the whole world at level 0.
const char* const defaultProbeAddress[] = {"https://a.tile.openstreetmap.org/0/0/0.png",
                                           "http://maps.kde.org/earth/sentinel2/0/0/0.jpg"};

// Tile folders Marble writes to under its local maps folder: downloads of the online looks
// and the Blue Marble tiles it makes from its own picture. They are a cache, so they live in
// the user's cache folder, reached through a link where Marble looks for them.
const char* const tileFolders[] = {"openstreetmap", "sentinel2", "bluemarble"};

QString cacheRoot() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/geoquill");
}

// A link at linkPath to target, replacing a link that points elsewhere; never a real folder.
bool ensureLink(const QString& target, const QString& linkPath) {
    const QFileInfo link(linkPath);
    if (link.isSymLink()) {
        if (link.symLinkTarget() == target)
            return true;
        QFile::remove(linkPath);
    } else if (link.exists()) {
        return false;
    }
    return QFile::link(target, linkPath);
}

// Only the plugins we name, so nothing else is loaded: no online layer can start
// downloading by itself, and the first frame comes sooner.
bool makePluginFolder() {
    const QString folder = cacheRoot() + QStringLiteral("/marble-plugins");
    if (!QDir().mkpath(folder))
        return false;
    const QDir system(Marble::MarbleDirs::pluginSystemPath());
    bool linked = false;
    for (const QString& name : MapThemes::pluginNames()) {
        const QString file = name + QStringLiteral(".so");
        if (!system.exists(file))
            continue;
        if (!ensureLink(system.absoluteFilePath(file), folder + QLatin1Char('/') + file))
            return false;
        linked = true;
    }
    if (linked)
        Marble::MarbleDirs::setMarblePluginPath(folder);
    return linked;
}

void linkTileFolders() {
    const QString maps = Marble::MarbleDirs::localPath() + QStringLiteral("/maps/earth/");
    QDir().mkpath(maps);
    for (const char* name : tileFolders) {
        const QString target = cacheRoot() + QStringLiteral("/tiles/") + QLatin1String(name);
        // A folder of the user's own (Marble used before) is left as it is.
        if (QDir().mkpath(target))
            ensureLink(target, maps + QLatin1String(name));
    }
}

// Written once every Blue Marble tile has been made: a run stopped half way (the program
// closed) leaves no mark, and the tiles are made again from the start next time.
QString imageryMark() {
    return Marble::MarbleDirs::localPath() +
           QStringLiteral("/maps/earth/bluemarble/.geoquill-tiles-complete");
}

void installOwnThemes() {
    registerThemes();
    for (const QString& name : MapThemeChoice::ownThemeNames()) {
        QFile source(QStringLiteral(":/themes/%1.dgml").arg(name));
        if (!source.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = source.readAll();
        const QString folder =
            Marble::MarbleDirs::localPath() + QStringLiteral("/maps/earth/") + name;
        const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".dgml");
        QFile installed(path);
        if (installed.open(QIODevice::ReadOnly) && installed.readAll() == text)
            continue;
        installed.close();
        QDir().mkpath(folder);
        QSaveFile out(path);
        if (out.open(QIODevice::WriteOnly)) {
            out.write(text);
            out.commit();
        }
    }
}

} // namespace

MapThemes::MapThemes(QObject* parent)
    : QObject(parent), probing(!qEnvironmentVariableIsSet("GEOQUILL_MAP_OFFLINE")),
      imageryReady(QFile::exists(imageryMark())) {
    setProbeAddresses(QUrl(QString::fromLatin1(defaultProbeAddress[0])),
                      QUrl(QString::fromLatin1(defaultProbeAddress[1])));
}

MapThemes::~MapThemes() {
    if (tiling) {
        tiling->cancelTileCreation();
        tiling->wait();
    }
}

void MapThemes::prepareImagery() {
    if (imageryReady || tiling)
        return;
    // The same source Marble's own Blue Marble look names; the tiles go to Marble's local maps
    // folder, which leads to our cache folder.
    tiling = new Marble::TileCreator(QStringLiteral("earth/bluemarble"),
                                     QStringLiteral("bluemarble.jpg"), QStringLiteral("false"));
    tiling->setParent(this);
    connect(tiling, &QThread::finished, this, [this] {
        const QString level0 = Marble::MarbleDirs::localPath() +
                               QStringLiteral("/maps/earth/bluemarble/0/000000/000000_000000.jpg");
        if (!QFile::exists(level0))
            return; // no picture to tile (marble-data missing): the plain map stands in
        QFile mark(imageryMark());
        mark.open(QIODevice::WriteOnly);
        imageryReady = true;
        emit imageryChanged();
    });
    tiling->start(QThread::LowPriority);
}

void MapThemes::setProbeAddresses(const QUrl& openStreetMap, const QUrl& sentinel2) {
    probeAddress[int(Source::OpenStreetMap)] = openStreetMap;
    probeAddress[int(Source::Sentinel2)] = sentinel2;
}

const QStringList& MapThemes::pluginNames() {
    static const QStringList names = {
        // Float items we show.
        QStringLiteral("CompassFloatItem"),
        QStringLiteral("MapScaleFloatItem"),
        // Readers of the files the looks are made of.
        QStringLiteral("Pn2Plugin"),
        QStringLiteral("PntPlugin"),
        QStringLiteral("CachePlugin"),
        QStringLiteral("KmlPlugin"),
        // The user's position.
        QStringLiteral("QtPositioningPositionProviderPlugin"),
        QStringLiteral("GpsdPositionProviderPlugin"),
    };
    return names;
}

void MapThemes::prepare() {
    static bool prepared = false;
    if (prepared)
        return;
    prepared = true;
    makePluginFolder();
    linkTileFolders();
    installOwnThemes();
}

QString MapThemes::themeFor(int mapType) const {
    return MapThemeChoice::themeFor(mapType, {reachable[int(Source::OpenStreetMap)],
                                              reachable[int(Source::Sentinel2)], imageryReady});
}

void MapThemes::probe(bool now) {
    if (!probing)
        return;
    const QDateTime time = QDateTime::currentDateTimeUtc();
    if (!now && lastProbe.isValid() && lastProbe.secsTo(time) < 60)
        return;
    lastProbe = time;
    ++probeRound;
    if (!network) {
        network = new QNetworkAccessManager(this);
        reprobe = new QTimer(this);
        reprobe->setInterval(3 * 60 * 1000);
        connect(reprobe, &QTimer::timeout, this, [this] { probe(true); });
        reprobe->start();
    }
    probeSource(Source::OpenStreetMap);
    probeSource(Source::Sentinel2);
}

void MapThemes::probeSource(Source source) {
    QNetworkRequest request(probeAddress[int(source)]);
    request.setTransferTimeout(5000);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("Geoquill/1.0.1 (map tile check)"));
    QNetworkReply* reply = network->head(request);
    const quint64 round = probeRound;
    connect(reply, &QNetworkReply::finished, this, [this, reply, source, round] {
        reply->deleteLater();
        if (round != probeRound)
            return; // a newer probe has been asked since: its answer counts
        // A tile, not a captive portal's redirect or page: the request follows no redirects,
        // so only the server's own image counts.
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const QString type = reply->header(QNetworkRequest::ContentTypeHeader).toString();
        const bool answered = reply->error() == QNetworkReply::NoError && status == 200 &&
                              type.startsWith(QLatin1String("image/"));
        if (answered == reachable[int(source)])
            return;
        reachable[int(source)] = answered;
        emit onlineChanged();
    });
}
