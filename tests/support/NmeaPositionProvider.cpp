#include "NmeaPositionProvider.h"

#include <marble/GeoDataAccuracy.h>
#include <marble/GeoDataCoordinates.h>

#include <QFile>
#include <QIcon>
#include <QNmeaPositionInfoSource>

#include <cmath>

NmeaPositionProvider::NmeaPositionProvider(const QString& recording, QObject* parent)
    : PositionProviderPlugin(parent), logPath(recording) {}

NmeaPositionProvider::~NmeaPositionProvider() = default;

QString NmeaPositionProvider::name() const {
    return tr("NMEA log position provider");
}

QString NmeaPositionProvider::nameId() const {
    return QStringLiteral("GeoquillNmeaLog");
}

QString NmeaPositionProvider::guiString() const {
    return tr("Recorded NMEA log");
}

QString NmeaPositionProvider::version() const {
    return QStringLiteral("1.0");
}

QString NmeaPositionProvider::description() const {
    return tr("Replays the positions of a recorded NMEA log at the pace they were recorded.");
}

QString NmeaPositionProvider::copyrightYears() const {
    return QStringLiteral("2024");
}

QVector<Marble::PluginAuthor> NmeaPositionProvider::pluginAuthors() const {
    return {Marble::PluginAuthor(QStringLiteral("Geoquill"), QString())};
}

QIcon NmeaPositionProvider::icon() const {
    return QIcon();
}

Marble::PositionProviderPlugin* NmeaPositionProvider::newInstance() const {
    return new NmeaPositionProvider(logPath);
}

void NmeaPositionProvider::initialize() {
    if (source) {
        return;
    }
    log = new QFile(logPath, this);
    if (!log->open(QIODevice::ReadOnly)) {
        fail(tr("Cannot read the NMEA log %1: %2").arg(logPath, log->errorString()));
        return;
    }
    source = new QNmeaPositionInfoSource(QNmeaPositionInfoSource::SimulationMode, this);
    source->setDevice(log);
    connect(source, &QGeoPositionInfoSource::positionUpdated, this, &NmeaPositionProvider::takeFix);
    connect(source, QOverload<QGeoPositionInfoSource::Error>::of(&QGeoPositionInfoSource::error),
            this, [this](QGeoPositionInfoSource::Error) {
                fail(tr("The NMEA log %1 could not be replayed").arg(logPath));
            });
    setStatus(Marble::PositionProviderStatusAcquiring);
    source->startUpdates();
}

bool NmeaPositionProvider::isInitialized() const {
    return source != nullptr;
}

Marble::PositionProviderStatus NmeaPositionProvider::status() const {
    return state;
}

Marble::GeoDataCoordinates NmeaPositionProvider::position() const {
    const QGeoCoordinate where = last.coordinate();
    if (!where.isValid()) {
        return Marble::GeoDataCoordinates();
    }
    const double altitude = std::isnan(where.altitude()) ? 0.0 : where.altitude();
    return Marble::GeoDataCoordinates(where.longitude(), where.latitude(), altitude,
                                      Marble::GeoDataCoordinates::Degree);
}

Marble::GeoDataAccuracy NmeaPositionProvider::accuracy() const {
    // A log gives an accuracy in metres only when the receiver's range error was known.
    if (!last.hasAttribute(QGeoPositionInfo::HorizontalAccuracy)) {
        return Marble::GeoDataAccuracy();
    }
    const qreal vertical = last.hasAttribute(QGeoPositionInfo::VerticalAccuracy)
                               ? last.attribute(QGeoPositionInfo::VerticalAccuracy)
                               : 0.0;
    return Marble::GeoDataAccuracy(Marble::GeoDataAccuracy::Detailed,
                                   last.attribute(QGeoPositionInfo::HorizontalAccuracy), vertical);
}

qreal NmeaPositionProvider::speed() const {
    return last.hasAttribute(QGeoPositionInfo::GroundSpeed)
               ? last.attribute(QGeoPositionInfo::GroundSpeed)
               : 0.0;
}

qreal NmeaPositionProvider::direction() const {
    return last.hasAttribute(QGeoPositionInfo::Direction)
               ? last.attribute(QGeoPositionInfo::Direction)
               : 0.0;
}

QDateTime NmeaPositionProvider::timestamp() const {
    return last.timestamp();
}

QString NmeaPositionProvider::error() const {
    return problem;
}

void NmeaPositionProvider::takeFix(const QGeoPositionInfo& fix) {
    if (!fix.isValid() || !fix.coordinate().isValid()) {
        return;
    }
    last = fix;
    // Marble's tracking takes a position only from a provider whose status is available.
    setStatus(Marble::PositionProviderStatusAvailable);
    emit positionChanged(position(), accuracy());
}

void NmeaPositionProvider::fail(const QString& why) {
    problem = why;
    setStatus(Marble::PositionProviderStatusError);
}

void NmeaPositionProvider::setStatus(Marble::PositionProviderStatus next) {
    if (state != next) {
        state = next;
        emit statusChanged(state);
    }
}
