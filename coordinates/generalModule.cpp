#include "generalModule.h"

#include "DMSTextMatch.h"
#include "LatLon_UTM.h"
#include "LoneSurrogates.h"
#include "MessageBox.h"
#include "NumberText.h"
#include "SafeInteger.h"
#include "TypographicQuotes.h"

#include <QRegularExpression>

#include <cmath>

namespace generalModule {

namespace {

// Fills the degrees, minutes and seconds of |v| and the hemisphere letter of a negative v.
void setSexagesimalParts(double v, std::int64_t& degrees, std::int64_t& minutes, double& seconds,
                         QString& hemisphere, const QString& negativeLetter) {
    const double magnitude = std::fabs(v);
    degrees = truncateToInteger(std::floor(magnitude));
    const double m = (magnitude - static_cast<double>(degrees)) * 60;
    minutes = truncateToInteger(std::floor(m));
    seconds = (m - static_cast<double>(minutes)) * 60;
    if (v < 0)
        hemisphere = negativeLetter;
}

// The zone of a record south of the equator is kept negative.
void signZoneByLatitude(Vertex& v) {
    if (v.lat < 0)
        (*v.utmZ)[1] = -absoluteInteger((*v.utmZ)[1]);
}

// One sexagesimal text, as read by vertexFromDMS.
struct DMSReading {
    bool found = false;
    std::int64_t degrees = 0;
    std::int64_t minutes = 0;
    double seconds = 0;
    QString letter;
    double value = 0;
};

DMSReading readDMSText(const QString& text) {
    DMSReading r;
    const QString plainText = withPlainQuotes(text);
    const DMSTextMatch m = matchDMSText(plainText);
    if (!m.found() || !m.took(4))
        return r;
    const NumberLocale plain;
    const QStringView degreesText = m.captured(plainText, 1);
    const QStringView minutesText = m.captured(plainText, 2);
    const QStringView secondsText = m.captured(plainText, 3);
    r.found = true;
    r.degrees = ToInteger(degreesText);
    r.minutes = ToInteger(minutesText);
    r.seconds = ToDouble(secondsText, plain);
    r.letter = m.captured(plainText, 4).toString();
    const double magnitude = std::fabs(ToDouble(degreesText, plain)) +
                             ToDouble(minutesText, plain) / 60 +
                             ToDouble(secondsText, plain) / 3600;
    r.value = degreesText.startsWith(QLatin1Char('-')) ? -magnitude : magnitude;
    if (r.letter.compare(QLatin1String("S"), Qt::CaseInsensitive) == 0 ||
        r.letter.compare(QLatin1String("W"), Qt::CaseInsensitive) == 0)
        r.value = -std::fabs(r.value);
    return r;
}

} // namespace

VertexRef vertexFromDD(double lon, double lat) {
    auto v = std::make_shared<Vertex>();
    v->lon = lon;
    v->lat = lat;
    LatLon_UTM::ll2utm(lon, lat, v->utmE, v->utmN, *v->utmZ, LatLon_UTM::wgs84);
    signZoneByLatitude(*v);
    setSexagesimalParts(lon, v->lon_degr, v->lon_min, v->lon_sec, v->lon_Hemisphere,
                        QStringLiteral("W"));
    setSexagesimalParts(lat, v->lat_Degr, v->lat_min, v->lat_sec, v->lat_Hemisphere,
                        QStringLiteral("S"));
    return v;
}

VertexRef vertexFromDMS(const QString& lonText, const QString& latText) {
    auto v = std::make_shared<Vertex>();
    const DMSReading lon = readDMSText(lonText);
    if (lon.found) {
        v->lon_degr = lon.degrees;
        v->lon_min = lon.minutes;
        v->lon_sec = lon.seconds;
        v->lon_Hemisphere = lon.letter;
        v->lon = lon.value;
    }
    const DMSReading lat = readDMSText(latText);
    if (lat.found) {
        v->lat_Degr = lat.degrees;
        v->lat_min = lat.minutes;
        v->lat_sec = lat.seconds;
        v->lat_Hemisphere = lat.letter;
        v->lat = lat.value;
    }
    LatLon_UTM::ll2utm(v->lon, v->lat, v->utmE, v->utmN, *v->utmZ, LatLon_UTM::wgs84);
    signZoneByLatitude(*v);
    return v;
}

bool isDMSText(const QString& text) {
    return readDMSText(text).found;
}

VertexRef vertexFromUTM(double easting, double northing, const QString& zoneText,
                        MessageBox& messages) {
    static const QRegularExpression pattern(QStringLiteral("(-?\\d\\d?) *(.)?"));
    auto v = std::make_shared<Vertex>();
    UtmZone& zone = *v->utmZ;
    const QRegularExpressionMatch m = pattern.match(withoutLoneSurrogates(zoneText));
    if (m.hasMatch()) {
        zone[1] = ToInteger(m.capturedView(1));
        if (m.capturedStart(2) != -1 &&
            m.capturedView(2).compare(QLatin1String("S"), Qt::CaseInsensitive) == 0)
            zone[1] = -absoluteInteger(zone[1]);
    }
    zone[2] = zone[1] < 0 ? 5 : 15;
    v->utmE = easting;
    v->utmN = northing;
    zone[1] = absoluteInteger(zone[1]);
    double lon = 0, lat = 0;
    LatLon_UTM::utm2ll(easting, northing, lon, lat, zone, LatLon_UTM::wgs84, messages);
    v->lon = lon;
    v->lat = lat;
    signZoneByLatitude(*v);
    setSexagesimalParts(lon, v->lon_degr, v->lon_min, v->lon_sec, v->lon_Hemisphere,
                        QStringLiteral("W"));
    setSexagesimalParts(lat, v->lat_Degr, v->lat_min, v->lat_sec, v->lat_Hemisphere,
                        QStringLiteral("S"));
    return v;
}

} // namespace generalModule
