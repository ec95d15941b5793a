#include "MapPin.h"

#include "coordinates/PlainNumberText.h"

QString MapPin::title() const {
    if (label.isEmpty() && numbered)
        return coordinateText(coordinate.latitude, coordinate.longitude, latitudeFirst);
    return label;
}

QString MapPin::subtitle() const {
    if (label.isEmpty() || !numbered)
        return QString();
    return coordinateText(coordinate.latitude, coordinate.longitude, latitudeFirst);
}

QString coordinateText(double lat, double lon, bool latitudeFirst) {
    const QString latText = plainDoubleText(lat) + QChar(0x00B0);
    const QString lonText = plainDoubleText(lon) + QChar(0x00B0);
    return latitudeFirst ? latText + QStringLiteral(", ") + lonText
                         : lonText + QStringLiteral(", ") + latText;
}
