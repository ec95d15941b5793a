#include "NotationFormat.h"

#include "coordinates/AngleText.h"
#include "coordinates/LatLon_UTM.h"
#include "coordinates/SafeInteger.h"

namespace {

const QChar degreeSign(0x00B0);

// Replaces a leading minus sign by a trailing hemisphere letter, or adds the positive letter.
// The minus sign is the text's first character whenever the value is negative.
void addHemisphereLetter(QString& text, double value, QChar negative, QChar positive,
                         bool letterAtZero) {
    if (value < 0) {
        text.remove(0, 1);
        text += negative;
    } else if (value > 0 || letterAtZero) {
        text += positive;
    }
}

QString ddHalf(double value, const NumberPattern& pattern, const NotationSettings& s,
               const NumberLocale& locale, QChar negative, QChar positive, bool letterAtZero) {
    QString text;
    text.reserve(16);
    appendNumber(text, value, pattern, locale);
    if (s.DDshowDegrSymb)
        text += degreeSign;
    else if (s.DDshowHemiLet)
        text += QLatin1Char(' ');
    if (s.DDshowHemiLet)
        addHemisphereLetter(text, value, negative, positive, letterAtZero);
    return text;
}

QString dmsHalf(double value, const NotationSettings& s, const NumberLocale& locale, QChar negative,
                QChar positive) {
    QString text;
    text.reserve(24);
    appendDMSfromAngle(text, value, locale);
    if (!s.DMSshowSymbols) {
        const int degree = text.indexOf(degreeSign);
        if (degree >= 0)
            text.remove(degree, 1);
        const int minute = text.indexOf(QLatin1Char('\''));
        if (minute >= 0)
            text.remove(minute, 1);
        const int second = text.indexOf(QLatin1Char('"'));
        if (second >= 0)
            text.remove(second, 1);
    }
    if (s.DMSshowHemiLet)
        addHemisphereLetter(text, value, negative, positive, false);
    return text;
}

QString joined(const QString& lonText, const QString& latText, const QString& separator,
               bool latFirst) {
    return latFirst ? latText + separator + lonText : lonText + separator + latText;
}

} // namespace

QString formatDD(double lon, double lat, const NotationSettings& s, bool latFirst,
                 const NumberLocale& locale) {
    QString lonText, latText;
    if (lon > missingCoordinate) {
        const double v = lon > 180 && s.DDshowHemiLet ? lon - 360 : lon;
        lonText =
            ddHalf(v, Patterns::ddLongitude, s, locale, QLatin1Char('W'), QLatin1Char('E'), false);
    }
    if (lat > missingCoordinate)
        latText =
            ddHalf(lat, Patterns::ddLatitude, s, locale, QLatin1Char('S'), QLatin1Char('N'), true);
    return joined(lonText, latText, s.DDseparator, latFirst);
}

QString formatDMS(double lon, double lat, const NotationSettings& s, bool latFirst,
                  const NumberLocale& locale) {
    QString lonText, latText;
    if (lon > missingCoordinate) {
        const double v = lon > 180 && s.DMSshowHemiLet ? lon - 360 : lon;
        lonText = dmsHalf(v, s, locale, QLatin1Char('W'), QLatin1Char('E'));
    }
    if (lat > missingCoordinate)
        latText = dmsHalf(lat, s, locale, QLatin1Char('S'), QLatin1Char('N'));
    return joined(lonText, latText, s.DMSseparator, latFirst);
}

QString formatUTM(double lon, double lat, const NotationSettings& s, const NumberLocale& locale) {
    double easting = 0, northing = 0;
    UtmZone utmZ{0, 0, 0};
    LatLon_UTM::ll2utm(lon, lat, easting, northing, utmZ, LatLon_UTM::wgs84);
    std::int64_t zone = absoluteInteger(utmZ[1]);
    QLatin1String hemisphere("");
    if (s.UTMnegZoneSouth) {
        if (lat < 0)
            zone = -zone;
    } else {
        hemisphere = lat < 0 ? QLatin1String(" S") : QLatin1String(" N");
    }
    const QLatin1String metres = s.UTMshowM ? QLatin1String(" m") : QLatin1String("");

    QString text;
    text.reserve(40);
    appendNumber(text, easting, Patterns::utmMetres, locale);
    text += metres;
    if (s.UTMshowEN)
        text += QLatin1String(" E");
    text += s.UTMseparator;
    appendNumber(text, northing, Patterns::utmMetres, locale);
    text += metres;
    if (s.UTMshowEN)
        text += QLatin1String(" N");
    text += QLatin1Char(' ');
    text += QString::number(zone);
    text += hemisphere;
    return text;
}
