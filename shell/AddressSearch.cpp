#include "AddressSearch.h"

#include <marble/GeoDataCoordinates.h>
#include <marble/GeoDataLatLonBox.h>
#include <marble/GeoDataPlacemark.h>
#include <marble/MarbleModel.h>
#include <marble/PluginManager.h>
#include <marble/SearchRunner.h>
#include <marble/SearchRunnerPlugin.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// Nominatim's usage policy: an application names itself and sends at most one request a second.
const QUrl nominatimSearch(QStringLiteral("https://nominatim.openstreetmap.org/search"));
const int onlineSpacing = 1000;   // milliseconds between two requests
const int onlinePatience = 15000; // milliseconds before a silent service counts as failed
const QString placeDatabaseId = QStringLiteral("localdatabase");

// The place database matches the start of names. A name counts as the text's place when the
// text is all of it or ends where a word of it ends: "Kansas" is Kansas City, "Wien" is not
// Wiener Neustadt.
bool namesPlace(const QString& name, const QString& text) {
    if (text.isEmpty() || !name.startsWith(text, Qt::CaseInsensitive)) {
        return false;
    }
    if (name.size() == text.size() || !text.back().isLetterOrNumber()) {
        return true;
    }
    return !name.at(text.size()).isLetterOrNumber();
}

// The most populous candidate; among equals, or when no population is known, the first, which
// is where Nominatim puts the one it ranks highest.
std::optional<AddressSearch::Place> bestPlace(const QVector<AddressSearch::Place>& places) {
    if (places.isEmpty()) {
        return std::nullopt;
    }
    return *std::max_element(places.begin(), places.end(),
                             [](const AddressSearch::Place& a, const AddressSearch::Place& b) {
                                 return a.population < b.population;
                             });
}

bool onEarth(double latitude, double longitude) {
    return std::isfinite(latitude) && std::isfinite(longitude) && std::abs(latitude) <= 90 &&
           std::abs(longitude) <= 180;
}

// Runs on the worker thread, as Marble's own search tasks run its runners: the runner reads the
// places the model has loaded and hands over copies, which are ours to delete.
QVector<AddressSearch::Place> placesNamed(const Marble::SearchRunnerPlugin* database,
                                          const Marble::MarbleModel* model, const QString& text) {
    QVector<AddressSearch::Place> places;
    if (!database || text.isEmpty()) {
        return places;
    }
    std::unique_ptr<Marble::SearchRunner> runner(database->newRunner());
    runner->setModel(model);
    QObject::connect(
        runner.get(), &Marble::SearchRunner::searchFinished,
        [&](const QVector<Marble::GeoDataPlacemark*>& result) {
            for (const Marble::GeoDataPlacemark* placemark : result) {
                const Marble::GeoDataCoordinates where = placemark->coordinate();
                const double latitude = where.latitude(Marble::GeoDataCoordinates::Degree);
                const double longitude = where.longitude(Marble::GeoDataCoordinates::Degree);
                if (namesPlace(placemark->name(), text) && onEarth(latitude, longitude)) {
                    places.append({latitude, longitude, placemark->population()});
                }
            }
            qDeleteAll(result);
        });
    runner->search(text, Marble::GeoDataLatLonBox());
    return places;
}

// OSM's population tag is a whole number, sometimes written with group separators or followed
// by a second value after a semicolon.
qint64 populationFromTag(const QString& tag) {
    QString digits;
    for (const QChar c : tag) {
        if (c.isDigit()) {
            digits.append(c);
        } else if (c == QLatin1Char(' ') || c == QLatin1Char(',') || c == QLatin1Char('.') ||
                   c == QLatin1Char('\'') || c == QChar(0x00A0) || c == QChar(0x202F)) {
            continue;
        } else {
            break;
        }
    }
    bool ok = false;
    const qint64 population = digits.left(15).toLongLong(&ok);
    return ok ? population : -1;
}

double degreesFrom(const QJsonValue& value) {
    if (value.isDouble()) {
        return value.toDouble();
    }
    bool ok = false;
    const double degrees = value.toString().toDouble(&ok);
    return ok ? degrees : NAN;
}

// Nominatim answers with an array of places, coordinates as decimal strings, the place's OSM
// tags (population among them) under "extratags".
QVector<AddressSearch::Place> placesFromNominatim(const QByteArray& body) {
    QVector<AddressSearch::Place> places;
    const QJsonArray results = QJsonDocument::fromJson(body).array();
    for (const QJsonValue& result : results) {
        const QJsonObject place = result.toObject();
        const double latitude = degreesFrom(place.value(QStringLiteral("lat")));
        const double longitude = degreesFrom(place.value(QStringLiteral("lon")));
        if (!onEarth(latitude, longitude)) {
            continue;
        }
        const QJsonValue tag =
            place.value(QStringLiteral("extratags")).toObject().value(QStringLiteral("population"));
        places.append(
            {latitude, longitude, tag.isString() ? populationFromTag(tag.toString()) : -1});
    }
    return places;
}

QByteArray userAgent() {
    const QString version = QCoreApplication::applicationVersion();
    return QStringLiteral("Geoquill%1 (Qt %2)")
        .arg(version.isEmpty() ? QString() : QLatin1Char('/') + version,
             QString::fromLatin1(qVersion()))
        .toUtf8();
}

} // namespace

AddressSearch::AddressSearch(Marble::MarbleModel* model, QObject* parent)
    : QObject(parent), model(model), onlineService(nominatimSearch) {
    // One look-up among the places at a time: a newer text waits for it and older ones drop.
    worker.setMaxThreadCount(1);
}

AddressSearch::~AddressSearch() {
    // The running look-up reads the model's places; let it end before the caller drops them.
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

const Marble::SearchRunnerPlugin* AddressSearch::placeDatabase() {
    if (!databaseLookedFor && model) {
        databaseLookedFor = true;
        const auto plugins = model->pluginManager()->searchRunnerPlugins();
        const auto it =
            std::find_if(plugins.begin(), plugins.end(), [](const Marble::SearchRunnerPlugin* p) {
                return p->nameId() == placeDatabaseId;
            });
        database = it == plugins.end() ? nullptr : *it;
    }
    return database;
}

void AddressSearch::startOffline() {
    offlineRunning = true;
    const Request request = latest;
    const Marble::SearchRunnerPlugin* runners = model ? placeDatabase() : nullptr;
    const Marble::MarbleModel* loaded = model.data();
    worker.start([this, request, runners, loaded] {
        const QVector<Place> named = placesNamed(runners, loaded, request.text);
        QMetaObject::invokeMethod(
            this, [this, request, named] { offlineDone(request, named); }, Qt::QueuedConnection);
    });
}

void AddressSearch::offlineDone(const Request& request, const QVector<Place>& places) {
    offlineRunning = false;
    if (request.serial != latest.serial) {
        startOffline();
        return;
    }
    if (const auto best = bestPlace(places)) {
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
                          ? bestPlace(placesFromNominatim(reply->readAll()))
                          : std::nullopt;
    if (best) {
        emit found(best->latitude, best->longitude);
    } else {
        emit notFound();
    }
}
