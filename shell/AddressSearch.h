#pragma once
// Finding a place by its name, as the map's address field asks: first among the places that come
// with Marble's data (the cities of the world, capitals, mountains, regions), read from their own
// files so that every map look finds the same places, then, for a name that is none of them, on
// OpenStreetMap's Nominatim service when the map may go online.
//
// Text accepted: any; it is trimmed and its runs of spaces made single.
//   "Paris"          the largest of the places named Paris (Paris, France, not Paris, Texas)
//   "sydney"         case does not matter: Sydney, Australia
//   "San Francisco"  a name may go on after the text at a word's end: "Kansas" finds Kansas City
//   "Wien"           but not inside a word: Wiener Neustadt is not Wien, so Nominatim is asked
//   "10 Downing Street, London"  no place of the map's starts so: Nominatim
//   ""               nothing to look for: notFound

#include "map/FoundPlace.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QThreadPool>
#include <QUrl>
#include <QVector>

#include <optional>

class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

namespace Marble {
class GeoDataContainer;
class MarbleModel;
class PluginManager;
} // namespace Marble

class AddressSearch : public QObject {
    Q_OBJECT

public:
    // The model must outlive the search: its plug-ins read the place files, and it says whether
    // the map may go online.
    explicit AddressSearch(Marble::MarbleModel* model, QObject* parent = nullptr);
    ~AddressSearch() override;

    // Looks the text up: Marble's places first, then Nominatim unless the model works offline.
    // Answers once, later, by found or notFound; a newer find supersedes an older one still
    // running, which then never answers. Never blocks: the places are read from their files on
    // a worker thread at the first find, and looked up there; the look-up online runs on the
    // network's own thread.
    void find(const QString& text);

    // Where online look-ups go: Nominatim's search address unless set (tests run a server of
    // their own). At most one request a second goes there, the newest text waiting its turn.
    void setOnlineService(const QUrl& searchAddress);

signals:
    void found(double latitude, double longitude); // degrees
    void notFound();

private:
    struct Request {
        quint64 serial = 0;
        QString text;
    };

    struct LoadedPlace {
        QString name;
        FoundPlace place;
    };

    // On the worker thread: Marble's place files, read with its own parsers.
    static QVector<LoadedPlace> readPlaces(const Marble::PluginManager* plugins);
    static void copyPlaces(const Marble::GeoDataContainer& container, QVector<LoadedPlace>& places);
    static QVector<FoundPlace> placesNamed(const QVector<LoadedPlace>& places, const QString& text);
    void startOffline();
    void offlineDone(const Request& request, const QVector<FoundPlace>& places);
    void askOnline(const Request& request);
    void sendOnline();
    void onlineDone(QNetworkReply* reply, const Request& request);

    QPointer<Marble::MarbleModel> model;
    const Marble::PluginManager* plugins = nullptr;
    // Touched only by the worker, whose tasks run one at a time: read at the first find.
    std::optional<QVector<LoadedPlace>> knownPlaces;
    QThreadPool worker;
    Request latest;
    bool offlineRunning = false;

    QUrl onlineService;
    QNetworkAccessManager* network = nullptr;
    QTimer* onlineTurn = nullptr;
    QElapsedTimer sinceOnlineRequest;
    std::optional<Request> onlineWaiting;
};
