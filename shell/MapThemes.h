#pragma once
// The map's looks, one per map type, in an offline and an online form, and what they need on
// disk before the first map is made.
//
//   type       offline (always there)                      online (tiles downloaded)
//   Standard   Marble's plain vector map                    OpenStreetMap
//   Satellite  Blue Marble imagery, tiled from Marble's     Sentinel-2 imagery
//              own picture
//   Hybrid     Blue Marble + Natural Earth coasts and       Sentinel-2 + the same overlays
//              borders + cities
//
// The map is never blank: it starts offline, and a look is only switched to its online form
// after its tile server has answered a probe. Whether the network is there is decided by that
// probe (one HEAD request per tile server, asynchronous, never blocking), not by Qt's bearer
// management, which can say "online" behind a captive portal and is slow to start.

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>

class QNetworkAccessManager;
class QTimer;
namespace Marble {
class TileCreator;
}

class MapThemes : public QObject {
    Q_OBJECT
public:
    enum class Source { OpenStreetMap = 0, Sentinel2 = 1 };

    explicit MapThemes(QObject* parent = nullptr);
    ~MapThemes() override;

    // Once per process, before the first Marble model is made: a plugin folder holding only the
    // plugins the map uses (nothing that would reach the network by itself, and a faster
    // start), the downloaded and generated tiles kept in the user's cache folder, and our own
    // looks copied where Marble finds them. Safe to call again.
    static void prepare();
    // The plugins the map and its helpers load, by file name without ".so".
    static const QStringList& pluginNames();

    // The theme for a map type (0 Standard, 1 Satellite, 2 Hybrid; others read as Standard),
    // online when its tile server answered. The offline imagery looks need the Blue Marble
    // tiles: until they are made, those types show the plain map.
    QString themeFor(int mapType) const;

    // The offline imagery is tiled from Marble's one Blue Marble picture the first time the
    // program runs. Marble would do that itself behind a modal progress dialog when the look is
    // first chosen; this does it in the background, once, and says when it is done.
    void prepareImagery();
    bool isImageryReady() const { return imageryReady; }
    // Whether any tile server answered: downloads (and online address look-ups) may happen.
    bool online() const { return reachable[0] || reachable[1]; }
    bool reachableSource(Source source) const { return reachable[int(source)]; }

    // Asks the tile servers, unless probing is off or (unless now) they were asked less than
    // a minute ago. The answer comes later by onlineChanged, and only when it changes. From
    // the first probe on they are asked again every few minutes, so a network that comes or
    // goes meanwhile is noticed.
    void probe(bool now = false);
    // Probing starts off when the environment says to stay offline (GEOQUILL_MAP_OFFLINE set).
    void setProbing(bool on) { probing = on; }
    // Where the probes go: a level-0 tile of each server unless set (tests use their own).
    void setProbeAddresses(const QUrl& openStreetMap, const QUrl& sentinel2);

signals:
    void onlineChanged();
    // The offline imagery tiles are there: the imagery looks can be shown.
    void imageryChanged();

private:
    void probeSource(Source source);

    bool reachable[2] = {false, false};
    bool probing = true;
    QUrl probeAddress[2];
    QNetworkAccessManager* network = nullptr;
    QDateTime lastProbe;
    QTimer* reprobe = nullptr;
    // Probes of one round count; answers of an older round are stale.
    quint64 probeRound = 0;
    bool imageryReady;
    Marble::TileCreator* tiling = nullptr;
};
