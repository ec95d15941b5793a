#include "UserPosition.h"

#include <marble/GeoDataCoordinates.h>
#include <marble/MarbleModel.h>
#include <marble/PluginManager.h>
#include <marble/PositionProviderPlugin.h>
#include <marble/PositionTracking.h>

QStringList UserPosition::systemProviderNames() {
    return {QStringLiteral("QtPositioning"), QStringLiteral("Gpsd")};
}

UserPosition::UserPosition(Marble::MarbleModel* mapModel, QObject* parent)
    : QObject(parent), model(mapModel) {
    if (!model) {
        return;
    }
    Marble::PositionTracking* marbleTracking = model->positionTracking();
    // Marble keeps every fix as a track to draw; only the latest is wanted here, and a track
    // kept all day would only grow.
    marbleTracking->setTrackVisible(false);
    marbleTracking->clearTrack();
    connect(marbleTracking, &Marble::PositionTracking::statusChanged, this,
            &UserPosition::takeStatus);
    connect(marbleTracking, &Marble::PositionTracking::gpsLocation, this,
            [this](const Marble::GeoDataCoordinates& where, qreal) { takeLocation(where); });
}

UserPosition::~UserPosition() {
    const bool ours = runningIsOurs();
    tracking = false;
    if (ours) {
        model->positionTracking()->setPositionProviderPlugin(nullptr);
    }
}

void UserPosition::useProvider(Marble::PositionProviderPlugin* provider) {
    useProviders(provider ? QList<Marble::PositionProviderPlugin*>{provider}
                          : QList<Marble::PositionProviderPlugin*>{});
}

void UserPosition::useProviders(const QList<Marble::PositionProviderPlugin*>& providers) {
    replacements.clear();
    for (Marble::PositionProviderPlugin* provider : providers)
        replacements.append(provider);
}

std::optional<MapCoordinate> UserPosition::position() const {
    return fix;
}

void UserPosition::setTracking(bool on) {
    if (on == tracking || !model) {
        return;
    }
    tracking = on;
    ++attempt;
    model->positionTracking()->clearTrack();
    untried.clear();
    hadFix = false;
    if (on) {
        for (const auto& provider : replacements) {
            untried.append(provider.data());
        }
        if (replacements.isEmpty()) {
            const auto plugins = model->pluginManager()->positionProviderPlugins();
            for (const QString& nameId : systemProviderNames()) {
                for (const Marble::PositionProviderPlugin* plugin : plugins) {
                    if (plugin->nameId() == nameId) {
                        untried.append(plugin);
                    }
                }
            }
        }
        startNextProvider();
        return;
    }
    // The provider may be the one whose signal is being delivered right now (a slot of
    // positionChanged that stops tracking), and the tracking deletes the provider it drops: drop
    // it once that delivery is over. Its fixes count no more from here on.
    const QPointer<Marble::PositionProviderPlugin> stopped = running;
    const QPointer<Marble::MarbleModel> owner = model;
    running = nullptr;
    QMetaObject::invokeMethod(
        model->positionTracking(),
        [stopped, owner] {
            if (stopped && owner &&
                owner->positionTracking()->positionProviderPlugin() == stopped.data()) {
                owner->positionTracking()->setPositionProviderPlugin(nullptr);
            }
        },
        Qt::QueuedConnection);
    forget();
}

void UserPosition::startNextProvider() {
    ++attempt;
    while (tracking && model && !untried.isEmpty()) {
        const QPointer<const Marble::PositionProviderPlugin> prototype = untried.takeFirst();
        if (!prototype) {
            continue;
        }
        running = prototype->newInstance();
        // The tracking owns the instance from here on, deleting the one it had.
        model->positionTracking()->setPositionProviderPlugin(running.data());
        if (running && running->isInitialized()) {
            return;
        }
        // No source at all (Qt Positioning with no plugin for this system): the next provider
        // now, and no second switch for a failure the start may already have reported.
        ++attempt;
    }
}

void UserPosition::providerFailed() {
    forget();
    if (hadFix || untried.isEmpty()) {
        return;
    }
    // Not now: the failing provider is inside its own signal, and the switch deletes it.
    const quint64 failedAttempt = attempt;
    QMetaObject::invokeMethod(
        this,
        [this, failedAttempt] {
            if (failedAttempt == attempt) {
                startNextProvider();
            }
        },
        Qt::QueuedConnection);
}

void UserPosition::takeStatus() {
    if (runningIsOurs() && running->status() == Marble::PositionProviderStatusError) {
        providerFailed();
    }
}

void UserPosition::takeLocation(const Marble::GeoDataCoordinates& where) {
    if (!runningIsOurs() || !where.isValid()) {
        return;
    }
    model->positionTracking()->clearTrack(); // the fix is kept here; Marble's copy goes
    const MapCoordinate now{where.latitude(Marble::GeoDataCoordinates::Degree),
                            where.longitude(Marble::GeoDataCoordinates::Degree)};
    hadFix = true;
    // The tracking reports a provider's first fix twice when it comes during the start.
    if (fix && fix->latitude == now.latitude && fix->longitude == now.longitude) {
        return;
    }
    fix = now;
    emit positionChanged();
}

void UserPosition::forget() {
    if (fix) {
        fix.reset();
        emit positionChanged();
    }
}

bool UserPosition::runningIsOurs() const {
    return tracking && model && running &&
           model->positionTracking()->positionProviderPlugin() == running.data();
}
