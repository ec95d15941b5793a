#pragma once
// The user's own position, followed through Marble's position tracking: the system's location
// service through Qt Positioning (GeoClue2 on desktops) first, and gpsd when Qt Positioning has
// no source or gives up before its first fix (it reports an error after about five seconds
// without one). A provider of the tests' own can stand in for both.

#include "map/MapPin.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <optional>

namespace Marble {
class GeoDataCoordinates;
class MarbleModel;
class PositionProviderPlugin;
} // namespace Marble

class UserPosition : public QObject {
    Q_OBJECT

public:
    // The model's position tracking is the one used; the model must outlive this.
    explicit UserPosition(Marble::MarbleModel* model, QObject* parent = nullptr);
    ~UserPosition() override;

    // Starts or stops following the user's position. Starting twice is harmless; stopping drops
    // the position and hands the tracking no provider. Never waits for a fix. Stopping gpsd
    // waits for its reading thread to end, up to its one-second poll.
    void setTracking(bool on);

    // The last fix while tracking; none before the first fix, after the provider has failed, or
    // when not tracking.
    std::optional<MapCoordinate> position() const;

    // Uses this provider instead of the system's from the next start on. It serves as a model:
    // each start hands the tracking a new instance of it (provider->newInstance()), which the
    // tracking owns; the one given stays the caller's. Null goes back to the system's.
    void useProvider(Marble::PositionProviderPlugin* provider);
    // As useProvider, with providers tried in this order as the system's are: the next one when
    // a provider has no source or gives up before its first fix. Empty goes back to the
    // system's.
    void useProviders(const QList<Marble::PositionProviderPlugin*>& providers);

    // The system's providers in the order they are tried, by Marble's names for them.
    static QStringList systemProviderNames();

signals:
    // The position came, moved or went.
    void positionChanged();

private:
    void startNextProvider();
    void providerFailed();
    void takeStatus();
    void takeLocation(const Marble::GeoDataCoordinates& where);
    void forget();
    bool runningIsOurs() const;

    QPointer<Marble::MarbleModel> model;
    QList<QPointer<Marble::PositionProviderPlugin>> replacements;
    QList<QPointer<const Marble::PositionProviderPlugin>> untried;
    QPointer<Marble::PositionProviderPlugin> running;
    quint64 attempt = 0;
    bool tracking = false;
    bool hadFix = false;
    std::optional<MapCoordinate> fix;
};
