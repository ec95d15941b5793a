#include "BatchCellText.h"

#include "coordinates/PlainNumberText.h"
#include "coordinates/SafeInteger.h"

#include <QStringList>

#include <cmath>

namespace {

const QChar degreeSign(0x00B0);
constexpr NumberPattern ddPattern = NumberPattern::fromText("##0.00####");
constexpr NumberPattern secondsPattern = NumberPattern::fromText("#0.0##");
constexpr NumberPattern metresPattern = NumberPattern::fromText("######0.0#");

enum class Axis { Longitude, Latitude };

// Which value the coordinate columns 2 to 5 hold under the order of values.
Axis axisOfColumn(int column, bool latFirst) {
    const bool firstOfPair = column == 2 || column == 4;
    return firstOfPair == latFirst ? Axis::Latitude : Axis::Longitude;
}

QString ddCell(const Vertex& v, Axis axis, const BatchCellFormat& f) {
    const double value = axis == Axis::Longitude ? v.lon : v.lat;
    QString text;
    text.reserve(16);
    appendNumber(text, f.DDshowHemiLet ? std::fabs(value) : value, ddPattern, f.locale);
    if (f.DDshowDegrSymb)
        text += degreeSign;
    if (!f.DDshowHemiLet)
        return text;
    // A longitude of exactly 0 has no side; a latitude of 0 counts as north.
    if (axis == Axis::Longitude) {
        if (value < 0)
            text += QLatin1String(" W");
        else if (value > 0)
            text += QLatin1String(" E");
    } else {
        text += value < 0 ? QLatin1String(" S") : QLatin1String(" N");
    }
    return text;
}

QString dmsCell(const Vertex& v, Axis axis, const BatchCellFormat& f) {
    const bool lon = axis == Axis::Longitude;
    const std::int64_t degrees = lon ? v.lon_degr : v.lat_Degr;
    const std::int64_t minutes = lon ? v.lon_min : v.lat_min;
    const double seconds = lon ? v.lon_sec : v.lat_sec;
    const QLatin1String minuteText = f.DMSshowSymbols ? QLatin1String("' ") : QLatin1String(" ");

    QString text;
    text.reserve(32);
    // The sign is told by the value (a minus or a letter below); a minus typed before the
    // degrees of a DMS text is not shown a second time.
    text += QString::number(absoluteInteger(degrees));
    if (f.DMSshowSymbols)
        text += degreeSign;
    text += QLatin1Char(' ');
    text += QString::number(minutes);
    text += minuteText;
    if (f.DMSshowHemiLet) {
        appendNumber(text, seconds, secondsPattern, f.locale);
        if (f.DMSshowSymbols)
            text += QLatin1Char('"');
        text += QLatin1Char(' ');
        text += lon ? v.lon_Hemisphere : v.lat_Hemisphere;
        return text;
    }
    // The stored degrees of a record made from decimal degrees or UTM carry no sign, so the
    // side of the equator or meridian is told by a minus sign taken from the value itself.
    text += plainDoubleText(seconds);
    if (f.DMSshowSymbols)
        text += QLatin1Char('"');
    if ((lon ? v.lon : v.lat) < 0)
        text.prepend(QLatin1Char('-'));
    return text;
}

QString utmCell(double metres, QLatin1String letter, bool showLetter, const BatchCellFormat& f) {
    QString text;
    text.reserve(20);
    appendNumber(text, metres, metresPattern, f.locale);
    if (f.UTMshowM)
        text += QLatin1String(" m");
    if (showLetter)
        text += letter;
    return text;
}

QString zoneCell(const Vertex& v, const BatchCellFormat& f) {
    const std::int64_t zone = v.utmZ ? (*v.utmZ)[1] : 0;
    if (f.UTMnegZoneSouth)
        return QString::number(zone);
    return QString::number(absoluteInteger(zone)) +
           (zone <= -1 ? QLatin1String(" S") : QLatin1String(" N"));
}

} // namespace

BatchCellFormat BatchCellFormat::from(const NotationSettings& s, bool latFirst,
                                      const NumberLocale& locale) {
    BatchCellFormat f;
    f.DDshowHemiLet = s.DDshowHemiLet;
    f.DDshowDegrSymb = s.DDshowDegrSymb;
    f.DMSshowHemiLet = s.DMSshowHemiLet;
    f.DMSshowSymbols = s.DMSshowSymbols;
    f.UTMshowM = s.UTMshowM;
    f.UTMshowEN = s.UTMshowEN;
    f.UTMnegZoneSouth = s.UTMnegZoneSouth;
    f.latFirst = latFirst;
    f.locale = locale;
    return f;
}

QString batchHeaderText(int column, bool latFirst) {
    switch (column) {
    case 0:
        return QStringLiteral("#");
    case 1:
        return QStringLiteral("Label");
    case 2:
    case 3:
        return axisOfColumn(column, latFirst) == Axis::Latitude ? QStringLiteral("Lat DD")
                                                                : QStringLiteral("Lon DD");
    case 4:
    case 5:
        return axisOfColumn(column, latFirst) == Axis::Latitude ? QStringLiteral("Lat DMS")
                                                                : QStringLiteral("Lon DMS");
    case 6:
        return QStringLiteral("UTM E");
    case 7:
        return QStringLiteral("UTM N");
    case 8:
        return QStringLiteral("UTM Zone");
    default:
        return QString();
    }
}

QString initialBatchHeaderText() {
    QStringList headers;
    for (int column = 0; column < batchColumnCount; ++column)
        headers << batchHeaderText(column, false);
    return headers.join(QLatin1Char('\t'));
}

QString batchCellText(const Vertex& v, std::size_t index, int column, const BatchCellFormat& f) {
    switch (column) {
    case 0:
        return QString::number(static_cast<qulonglong>(index) + 1);
    case 1:
        return v.label;
    case 2:
    case 3:
        return ddCell(v, axisOfColumn(column, f.latFirst), f);
    case 4:
    case 5:
        return dmsCell(v, axisOfColumn(column, f.latFirst), f);
    case 6:
        return utmCell(v.utmE, QLatin1String(" E"), f.UTMshowEN, f);
    case 7:
        return utmCell(v.utmN, QLatin1String(" N"), f.UTMshowEN, f);
    case 8:
        return zoneCell(v, f);
    default:
        return QString();
    }
}
