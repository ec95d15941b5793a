#include "NotationParse.h"

#include "coordinates/LatLon_UTM.h"
#include "coordinates/LoneSurrogates.h"
#include "coordinates/MessageBox.h"
#include "coordinates/SafeInteger.h"
#include "coordinates/TypographicQuotes.h"

#include <QRegularExpression>

#include <cmath>

namespace {

// Callers keep the result in a function-local static, so each pattern is compiled once.
QRegularExpression compiled(const char* pattern) {
    QRegularExpression re(QString::fromUtf8(pattern));
    re.optimize();
    return re;
}

const QRegularExpression& ddPattern() {
    static const QRegularExpression re =
        compiled("(-?[0-9.,]+)°? *([ewnsEWNS])?,?;? +(-?[0-9.,]+)°? *([ewnsEWNS])?(.*)");
    return re;
}

const QRegularExpression& dmsPattern() {
    static const QRegularExpression re =
        compiled("(-?[0-9.,]+)°? *([0-9.,]*)'? *([0-9.,]*)\"? *([ewnsEWNS])?,?;? +"
                 "(-?[0-9.,]+)°? *([0-9.,]*)'? *([0-9.,]*)\"? *([ewnsEWNS])?(.*)");
    return re;
}

const QRegularExpression& utmPattern() {
    static const QRegularExpression re =
        compiled("(-?[0-9.,]+) *m? *([enEN])?,?;? +(-?[0-9.,]+) *m? *([enEN])?,?;? +(-?[0-9]+) "
                 "*([nsNS])?(.*)");
    return re;
}

// A run of blanks as one blank. The patterns have several optional blanks in a row wherever an
// optional mark or letter is missing (" *m? *([enEN])?,?;? +"). Where a text does not match, the
// engine tries every way of sharing a run of blanks among them and reaches its match limit
// within a few hundred blanks: "match limit exceeded" for a text with a reading further on.
// Every blank in the patterns may repeat, so one blank reads the same as many.
QString withSingleBlanks(QString text) {
    const int first = text.indexOf(QLatin1String("  "));
    if (first < 0)
        return text; // most texts: left shared, not copied
    QChar* d = text.data();
    const int n = text.size();
    int kept = first + 1;
    for (int i = kept; i < n; ++i) {
        if (d[i] == QLatin1Char(' ') && d[kept - 1] == QLatin1Char(' '))
            continue;
        d[kept++] = d[i];
    }
    text.truncate(kept);
    return text;
}

// The text as the patterns expect it: whole surrogate pairs only, the locale's own minus sign
// as '-', and single blanks.
QString forPatterns(QString text, const NumberLocale& locale) {
    text = withoutLoneSurrogates(std::move(text));
    if (locale.minusSign != QLatin1Char('-'))
        text.replace(locale.minusSign, QLatin1Char('-'));
    return withSingleBlanks(std::move(text));
}

// Searches text; on an engine failure marks result and returns false.
bool search(const QRegularExpression& re, const QString& text, QRegularExpressionMatch& match,
            ParsedPosition& result) {
    match = re.match(text);
    if (!match.isValid()) {
        // QRegularExpression reports a failed search (match or depth limit) as an invalid match.
        result.searchFailed = true;
        result.errorText = QStringLiteral("match limit exceeded");
        return false;
    }
    return match.hasMatch();
}

bool letterIs(QStringView letter, char c) {
    return letter.size() == 1 && letter[0].toUpper() == QLatin1Char(c);
}

// Places two values with their letters as longitude and latitude.
void placeValues(double value1, QStringView letter1, double value2, QStringView letter2,
                 bool latFirst, ParsedPosition& result) {
    if (letterIs(letter1, 'E') || letterIs(letter1, 'W'))
        result.lon = letterIs(letter1, 'W') ? -std::fabs(value1) : value1;
    else if (letterIs(letter2, 'E') || letterIs(letter2, 'W'))
        result.lon = letterIs(letter2, 'W') ? -std::fabs(value2) : value2;
    else if (letter1.isEmpty() && !latFirst)
        result.lon = value1;
    else if (letter2.isEmpty() && latFirst)
        result.lon = value2;
    else
        return;

    if (letterIs(letter1, 'N') || letterIs(letter1, 'S'))
        result.lat = letterIs(letter1, 'S') ? -std::fabs(value1) : value1;
    else if (letterIs(letter2, 'N') || letterIs(letter2, 'S'))
        result.lat = letterIs(letter2, 'S') ? -std::fabs(value2) : value2;
    else if (letter1.isEmpty() && latFirst)
        result.lat = value1;
    else if (letter2.isEmpty() && !latFirst)
        result.lat = value2;
}

// Degrees, minutes and seconds as one angle; a minus sign on the degrees negates it all.
double sexagesimalValue(QStringView degrees, QStringView minutes, QStringView seconds,
                        const NumberLocale& locale) {
    const double magnitude =
        (ToDouble(minutes, locale) / 60 + std::fabs(ToDouble(degrees, locale))) +
        ToDouble(seconds, locale) / 3600;
    return degrees.startsWith(QLatin1Char('-')) ? -magnitude : magnitude;
}

} // namespace

ParsedPosition parseDDText(const QString& text, bool latFirst, const NumberLocale& locale) {
    ParsedPosition result;
    QRegularExpressionMatch m;
    if (!search(ddPattern(), forPatterns(text, locale), m, result))
        return result;
    placeValues(ToDouble(m.capturedView(1), locale), m.capturedView(2),
                ToDouble(m.capturedView(3), locale), m.capturedView(4), latFirst, result);
    return result;
}

ParsedPosition parseDMSText(const QString& text, bool latFirst, const NumberLocale& locale) {
    ParsedPosition result;
    QRegularExpressionMatch m;
    if (!search(dmsPattern(), forPatterns(withPlainQuotes(text), locale), m, result))
        return result;
    const double value1 =
        sexagesimalValue(m.capturedView(1), m.capturedView(2), m.capturedView(3), locale);
    const double value2 =
        sexagesimalValue(m.capturedView(5), m.capturedView(6), m.capturedView(7), locale);
    placeValues(value1, m.capturedView(4), value2, m.capturedView(8), latFirst, result);
    return result;
}

ParsedPosition parseUTMText(const QString& text, const NumberLocale& locale, MessageBox& messages) {
    ParsedPosition result;
    QRegularExpressionMatch m;
    if (!search(utmPattern(), forPatterns(text, locale), m, result))
        return result;
    const double n1 = ToDouble(m.capturedView(1), locale);
    const double n2 = ToDouble(m.capturedView(3), locale);
    const QStringView letter1 = m.capturedView(2);
    const QStringView letter2 = m.capturedView(4);

    double easting = 0, northing = 0;
    if (letterIs(letter1, 'E'))
        easting = n1;
    else if (letterIs(letter2, 'E'))
        easting = n2;
    else
        return result;
    if (letterIs(letter1, 'N'))
        northing = n1;
    else if (letterIs(letter2, 'N'))
        northing = n2;
    else
        return result;

    UtmZone utmZ{0, ToInteger(m.capturedView(5)), 0};
    if (letterIs(m.capturedView(6), 'S'))
        utmZ[1] = -absoluteInteger(utmZ[1]);
    else if (letterIs(m.capturedView(6), 'N'))
        utmZ[1] = absoluteInteger(utmZ[1]);
    utmZ[2] = utmZ[1] < 0 ? 5 : 15;
    LatLon_UTM::utm2ll(easting, northing, result.lon, result.lat, utmZ,
                       LatLon_UTM::getFullDatum(QStringLiteral("WGS84")), messages);
    return result;
}
