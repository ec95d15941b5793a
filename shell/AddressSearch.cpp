#include "AddressSearch.h"

#include "map/NominatimReply.h"
#include "map/PlaceMatch.h"

#include <marble/GeoDataContainer.h>
#include <marble/GeoDataCoordinates.h>
#include <marble/GeoDataDocument.h>
#include <marble/GeoDataPlacemark.h>
#include <marble/MarbleDirs.h>
#include <marble/MarbleModel.h>
#include <marble/ParsingRunnerManager.h>

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <memory>

namespace {

// Nominatim's usage policy: an application names itself and sends at most one request a second.
const QUrl nominatimSearch(QStringLiteral("https://nominatim.openstreetmap.org/search"));
const int onlineSpacing = 1000;   // milliseconds between two requests
const int onlinePatience = 15000; // milliseconds before a silent service counts as failed

QByteArray userAgent() {
    const QString version = QCoreApplication::applicationVersion();
    return QStringLiteral("Geoquill%1 (Qt %2)")
        .arg(version.isEmpty() ? QString() : QLatin1Char('/') + version,
             QString::fromLatin1(qVersion()))
        .toUtf8();
}

} // namespace

AddressSearch::AddressSearch(Marble::MarbleModel* mapModel, QObject* parent)
    : QObject(parent), model(mapModel), plugins(mapModel ? mapModel->pluginManager() : nullptr),
      onlineService(nominatimSearch) {
    // One look-up among the places at a time: a newer text waits for it and older ones drop.
    worker.setMaxThreadCount(1);
}

AddressSearch::~AddressSearch() {
    // The running look-up answers to this object; let it end first.
    worker.waitForDone();
}

void AddressSearch::setOnlineService(const QUrl& searchAddress) {
    onlineService = searchAddress;
}

void AddressSearch::find(const QString& text) {
    latest = {latest.serial + 1, text.simplified()};
    if (!offlineRunning) {
        startOffline();
    }
}

QVector<AddressSearch::LoadedPlace>
AddressSearch::readPlaces(const Marble::PluginManager* plugins) {
    QVector<LoadedPlace> read;
    if (!plugins)
        return read;
    // The files the standard look shows its names from; their order decides between two places
    // named alike and as populous, as it does among the map's own names.
    const char* const files[] = {"cityplacemarks", "baseplacemarks", "elevplacemarks",
                                 "otherplacemarks", "boundaryplacemarks"};
    Marble::ParsingRunnerManager parsing(plugins);
    for (const char* file : files) {
        const QString path = Marble::MarbleDirs::path(
            QStringLiteral("placemarks/%1.cache").arg(QLatin1String(file)));
        if (path.isEmpty())
            continue;
        const std::unique_ptr<Marble::GeoDataDocument> document(
            parsing.openFile(path, Marble::MapDocument));
        if (document)
            copyPlaces(*document, read);
    }
    return read;
}

// The places of a document in its order.
void AddressSearch::copyPlaces(const Marble::GeoDataContainer& container,
                               QVector<LoadedPlace>& places) {
    for (const Marble::GeoDataFeature* feature : container.featureList()) {
        const auto* placemark = Marble::geodata_cast<Marble::GeoDataPlacemark>(feature);
        if (!placemark) {
            if (const auto* inner = dynamic_cast<const Marble::GeoDataContainer*>(feature)) {
                copyPlaces(*inner, places);
            }
            continue;
        }
        // A nameless one (a stretch of coast, a border) is no text's place.
        const QString name = placemark->name();
        if (name.isEmpty()) {
            continue;
        }
        const Marble::GeoDataCoordinates where = placemark->coordinate();
        const double latitude = where.latitude(Marble::GeoDataCoordinates::Degree);
        const double longitude = where.longitude(Marble::GeoDataCoordinates::Degree);
        if (PlaceMatch::onEarth(latitude, longitude)) {
            places.append({name, {latitude, longitude, placemark->population()}});
        }
    }
}

// Runs on the worker thread, on a copy no other thread changes.
QVector<FoundPlace> AddressSearch::placesNamed(const QVector<LoadedPlace>& places,
                                               const QString& text) {
    QVector<FoundPlace> named;
    for (const LoadedPlace& loaded : places) {
        if (PlaceMatch::namesPlace(loaded.name, text)) {
            named.append(loaded.place);
        }
    }
    return named;
}

void AddressSearch::startOffline() {
    offlineRunning = true;
    const Request request = latest;
    worker.start([this, request] {
        if (!knownPlaces)
            knownPlaces = readPlaces(plugins);
        const QVector<FoundPlace> named = placesNamed(*knownPlaces, request.text);
        QMetaObject::invokeMethod(
            this, [this, request, named] { offlineDone(request, named); }, Qt::QueuedConnection);
    });
}

void AddressSearch::offlineDone(const Request& request, const QVector<FoundPlace>& places) {
    offlineRunning = false;
    if (request.serial != latest.serial) {
        startOffline();
        return;
    }
    if (const auto best = PlaceMatch::best(places)) {
        emit found(best->latitude, best->longitude);
    } else if (request.text.isEmpty() || !model || model->workOffline()) {
        emit notFound();
    } else {
        askOnline(request);
    }
}

void AddressSearch::askOnline(const Request& request) {
    onlineWaiting = request;
    if (!onlineTurn) {
        onlineTurn = new QTimer(this);
        onlineTurn->setSingleShot(true);
        connect(onlineTurn, &QTimer::timeout, this, &AddressSearch::sendOnline);
    }
    if (!onlineTurn->isActive()) {
        sendOnline();
    }
}

void AddressSearch::sendOnline() {
    if (!onlineWaiting) {
        return;
    }
    // Checked here rather than trusted to the timer, which may fire a little early.
    if (sinceOnlineRequest.isValid() && sinceOnlineRequest.elapsed() < onlineSpacing) {
        onlineTurn->start(static_cast<int>(onlineSpacing - sinceOnlineRequest.elapsed()));
        return;
    }
    const Request request = *onlineWaiting;
    onlineWaiting.reset();
    if (request.serial != latest.serial) {
        return;
    }
    if (!network) {
        network = new QNetworkAccessManager(this);
    }
    QUrl address = onlineService;
    // Percent-encoded by hand: QUrlQuery leaves '+' alone, which the service reads as a space.
    address.setQuery(QStringLiteral("format=jsonv2&limit=10&extratags=1&q=") +
                         QString::fromLatin1(QUrl::toPercentEncoding(request.text)),
                     QUrl::StrictMode);
    QNetworkRequest ask(address);
    ask.setHeader(QNetworkRequest::UserAgentHeader, userAgent());
    ask.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                     QNetworkRequest::NoLessSafeRedirectPolicy);
    ask.setTransferTimeout(onlinePatience);
    sinceOnlineRequest.start();
    QNetworkReply* reply = network->get(ask);
    connect(reply, &QNetworkReply::finished, this,
            [this, reply, request] { onlineDone(reply, request); });
}

void AddressSearch::onlineDone(QNetworkReply* reply, const Request& request) {
    reply->deleteLater();
    if (request.serial != latest.serial) {
        return;
    }
    const auto best = reply->error() == QNetworkReply::NoError
                          ? PlaceMatch::best(NominatimReply::places(reply->readAll()))
                          : std::nullopt;
    if (best) {
        emit found(best->latitude, best->longitude);
    } else {
        emit notFound();
    }
}
