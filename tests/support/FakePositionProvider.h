#pragma once
// The user's receiver for Marble's tracking: fixes come when the test moves it, failures when it
// says, so each update is seen without a clock. The tracking runs and owns a new instance of it
// (newInstance): reach that one through the tracking's positionProviderPlugin().

#include "map/MapPin.h"

#include <marble/GeoDataAccuracy.h>
#include <marble/GeoDataCoordinates.h>
#include <marble/PositionProviderPlugin.h>

#include <QIcon>

class FakePositionProvider : public Marble::PositionProviderPlugin {
public:
    enum Start { FixAtOnce, Searching, NoSource };
    explicit FakePositionProvider(Start how, MapCoordinate first = {}) : start(how), at(first) {}

    void moveTo(MapCoordinate where) {
        at = where;
        state = Marble::PositionProviderStatusAvailable;
        emit statusChanged(state);
        emit positionChanged(position(), accuracy());
    }
    void fail() {
        state = Marble::PositionProviderStatusError;
        emit statusChanged(state);
    }

    PositionProviderPlugin* newInstance() const override {
        return new FakePositionProvider(start, at);
    }
    void initialize() override {
        state = start == FixAtOnce   ? Marble::PositionProviderStatusAvailable
                : start == Searching ? Marble::PositionProviderStatusAcquiring
                                     : Marble::PositionProviderStatusError;
    }
    bool isInitialized() const override { return start != NoSource; }
    Marble::PositionProviderStatus status() const override { return state; }
    Marble::GeoDataCoordinates position() const override {
        return Marble::GeoDataCoordinates(at.longitude, at.latitude, 0,
                                          Marble::GeoDataCoordinates::Degree);
    }
    Marble::GeoDataAccuracy accuracy() const override { return Marble::GeoDataAccuracy(); }
    qreal speed() const override { return 0; }
    qreal direction() const override { return 0; }
    QDateTime timestamp() const override { return {}; }
    QString name() const override { return QStringLiteral("stand-in receiver"); }
    QString nameId() const override { return name(); }
    QString guiString() const override { return name(); }
    QString version() const override { return name(); }
    QString description() const override { return name(); }
    QString copyrightYears() const override { return name(); }
    QVector<Marble::PluginAuthor> pluginAuthors() const override { return {}; }
    QIcon icon() const override { return {}; }

private:
    Start start;
    MapCoordinate at;
    Marble::PositionProviderStatus state = Marble::PositionProviderStatusUnavailable;
};
