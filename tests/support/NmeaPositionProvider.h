#pragma once
// A position provider for Marble's tracking that replays a recorded NMEA log (GGA and RMC
// sentences) at the pace of its own time stamps: the same fixes in the same order every time,
// for the widget tests that follow the user's position.
//
// A fix is a position a sentence with a valid checksum gives; sentences of the same time stamp
// make one fix. A log that cannot be read makes the provider's status an error.

#include <marble/PositionProviderPlugin.h>

#include <QGeoPositionInfo>
#include <QString>

class QFile;
class QNmeaPositionInfoSource;

class NmeaPositionProvider : public Marble::PositionProviderPlugin {
    Q_OBJECT

public:
    explicit NmeaPositionProvider(const QString& logPath, QObject* parent = nullptr);
    ~NmeaPositionProvider() override;

    QString name() const override;
    QString nameId() const override;
    QString guiString() const override;
    QString version() const override;
    QString description() const override;
    QString copyrightYears() const override;
    QVector<Marble::PluginAuthor> pluginAuthors() const override;
    QIcon icon() const override;

    // A provider of the same log, starting again from its first fix.
    Marble::PositionProviderPlugin* newInstance() const override;

    // Opens the log and starts the replay.
    void initialize() override;
    bool isInitialized() const override;

    Marble::PositionProviderStatus status() const override;
    Marble::GeoDataCoordinates position() const override;
    Marble::GeoDataAccuracy accuracy() const override;
    qreal speed() const override;     // metres per second
    qreal direction() const override; // degrees clockwise from true north
    QDateTime timestamp() const override;
    QString error() const override;

private:
    void takeFix(const QGeoPositionInfo& fix);
    void fail(const QString& why);
    void setStatus(Marble::PositionProviderStatus next);

    QString logPath;
    QFile* log = nullptr;
    QNmeaPositionInfoSource* source = nullptr;
    Marble::PositionProviderStatus state = Marble::PositionProviderStatusUnavailable;
    QGeoPositionInfo last;
    QString problem;
};
