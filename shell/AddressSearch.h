#pragma once
// Finding a place by its name, as the map's address field asks: first among the places the map
// has loaded (the cities of the world that come with Marble's data), then, for a name that is
// none of them, on OpenStreetMap's Nominatim service when the map may go online.
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

#include <memory>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

namespace Marble {
class GeoDataContainer;
class MarbleModel;
} // namespace Marble

class AddressSearch : public QObject {
    Q_OBJECT

public:
    // The model must outlive the search: the places it has loaded are where names are looked up.
    explicit AddressSearch(Marble::MarbleModel* model, QObject* parent = nullptr);
    ~AddressSearch() override;

    // Looks the text up: the places loaded by the map first, then Nominatim unless the model
    // works offline. Answers once, later, by found or notFound; a newer find supersedes an older
    // one still running, which then never answers. Hardly blocks: the look-up among the places
    // runs on a worker thread, through a copy of them taken here, on the model's thread, when
    // the map's places have changed since the last copy (about 10 ms for the 23,000 named
    // places of the plain map); the look-up online runs on the network's own thread.
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

    // A place the map has loaded, as the worker sees it: Marble's models may be read only on the
    // thread that changes them, which adds and drops places as files load and the user moves.
    struct LoadedPlace {
        QString name;
        FoundPlace place;
    };
    using LoadedPlaces = std::shared_ptr<const QVector<LoadedPlace>>;

    LoadedPlaces loadedPlaces();
    static void copyPlaces(const Marble::GeoDataContainer& container, QVector<LoadedPlace>& places);
    static QVector<FoundPlace> placesNamed(const QVector<LoadedPlace>& places, const QString& text);
    void startOffline();
    void offlineDone(const Request& request, const QVector<FoundPlace>& places);
    void askOnline(const Request& request);
    void sendOnline();
    void onlineDone(QNetworkReply* reply, const Request& request);

    QPointer<Marble::MarbleModel> model;
    LoadedPlaces placesCopy; // none yet, or the map's places have changed since it was taken
    int placesBefore = 0;    // how many the last copy held, likely about as many as the next
    QThreadPool worker;
    Request latest;
    bool offlineRunning = false;

    QUrl onlineService;
    QNetworkAccessManager* network = nullptr;
    QTimer* onlineTurn = nullptr;
    QElapsedTimer sinceOnlineRequest;
    std::optional<Request> onlineWaiting;
};
