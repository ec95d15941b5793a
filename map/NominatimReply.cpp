#include "NominatimReply.h"

#include "PlaceMatch.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

double degreesFrom(const QJsonValue& value) {
    if (value.isDouble())
        return value.toDouble();
    bool ok = false;
    const double degrees = value.toString().toDouble(&ok);
    return ok ? degrees : NAN;
}

} // namespace

QVector<FoundPlace> NominatimReply::places(const QByteArray& body) {
    QVector<FoundPlace> places;
    const QJsonArray results = QJsonDocument::fromJson(body).array();
    for (const QJsonValue& result : results) {
        const QJsonObject place = result.toObject();
        const double latitude = degreesFrom(place.value(QStringLiteral("lat")));
        const double longitude = degreesFrom(place.value(QStringLiteral("lon")));
        if (!PlaceMatch::onEarth(latitude, longitude))
            continue;
        const QJsonValue tag =
            place.value(QStringLiteral("extratags")).toObject().value(QStringLiteral("population"));
        places.append({latitude, longitude,
                       tag.isString() ? PlaceMatch::populationFromTag(tag.toString()) : -1});
    }
    return places;
}
