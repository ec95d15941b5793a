#include "MapThemeChoice.h"

namespace {

const char* const plainTheme = "earth/plain/plain.dgml";
const char* const openStreetMapTheme = "earth/openstreetmap/openstreetmap.dgml";

QString ownThemeId(int index) {
    return QStringLiteral("earth/%1/%1.dgml").arg(MapThemeChoice::ownThemeNames().at(index));
}

} // namespace

const QStringList& MapThemeChoice::ownThemeNames() {
    static const QStringList names = {
        QStringLiteral("geoquill-satellite"), QStringLiteral("geoquill-satellite-online"),
        QStringLiteral("geoquill-hybrid"), QStringLiteral("geoquill-hybrid-online")};
    return names;
}

QString MapThemeChoice::themeFor(int mapType, const Sources& sources) {
    if (mapType != 1 && mapType != 2)
        return QLatin1String(sources.openStreetMap ? openStreetMapTheme : plainTheme);
    if (!sources.sentinel2 && !sources.imageryReady)
        return QLatin1String(plainTheme);
    const int first = mapType == 1 ? 0 : 2;
    return ownThemeId(first + (sources.sentinel2 ? 1 : 0));
}

QString MapThemeChoice::attribution(const QString& themeId) {
    if (themeId.contains(QLatin1String("openstreetmap")))
        return QStringLiteral("\u00A9 OpenStreetMap contributors");
    if (themeId.contains(QLatin1String("online")))
        return QStringLiteral("Contains \u00A9Copernicus Sentinel data 2016");
    return QString();
}
