#include "BatchCellText.h"

#include "coordinates/PlainNumberText.h"
#include "coordinates/SafeInteger.h"

#include <QStringList>

#include <charconv>
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

void appendInteger(QString& out, std::int64_t value) {
    char digits[24];
    const auto written = std::to_chars(digits, digits + sizeof digits, value);
    out += QLatin1String(digits, static_cast<int>(written.ptr - digits));
}

void appendDD(QString& out, const Vertex& v, Axis axis, const BatchCellFormat& f) {
    const double value = axis == Axis::Longitude ? v.lon : v.lat;
    appendNumber(out, f.DDshowHemiLet ? std::fabs(value) : value, ddPattern, f.locale);
    if (f.DDshowDegrSymb)
        out += degreeSign;
    if (!f.DDshowHemiLet)
        return;
    // A longitude of exactly 0 has no side; a latitude of 0 counts as north.
    if (axis == Axis::Longitude) {
        if (value < 0)
            out += QLatin1String(" W");
        else if (value > 0)
            out += QLatin1String(" E");
    } else {
        out += value < 0 ? QLatin1String(" S") : QLatin1String(" N");
    }
}

void appendDMS(QString& out, const Vertex& v, Axis axis, const BatchCellFormat& f) {
    const bool lon = axis == Axis::Longitude;
    const std::int64_t degrees = lon ? v.lon_degr : v.lat_Degr;
    const std::int64_t minutes = lon ? v.lon_min : v.lat_min;
    const double seconds = lon ? v.lon_sec : v.lat_sec;
    const QLatin1String minuteText = f.DMSshowSymbols ? QLatin1String("' ") : QLatin1String(" ");

    // Without letters, the stored degrees of a record made from decimal degrees or UTM carry no
    // sign, so the side of the equator or meridian is told by a minus sign taken from the value
    // itself.
    if (!f.DMSshowHemiLet && (lon ? v.lon : v.lat) < 0)
        out += QLatin1Char('-');
    // The sign is told by the value (a minus or a letter below); a minus typed before the
    // degrees of a DMS text is not shown a second time.
    appendInteger(out, absoluteInteger(degrees));
    if (f.DMSshowSymbols)
        out += degreeSign;
    out += QLatin1Char(' ');
    appendInteger(out, minutes);
    out += minuteText;
    if (f.DMSshowHemiLet) {
        appendNumber(out, seconds, secondsPattern, f.locale);
        if (f.DMSshowSymbols)
            out += QLatin1Char('"');
        out += QLatin1Char(' ');
        out += lon ? v.lon_Hemisphere : v.lat_Hemisphere;
        return;
    }
    appendPlainDoubleText(out, seconds);
    if (f.DMSshowSymbols)
        out += QLatin1Char('"');
}

void appendUTM(QString& out, double metres, QLatin1String letter, bool showLetter,
               const BatchCellFormat& f) {
    appendNumber(out, metres, metresPattern, f.locale);
    if (f.UTMshowM)
        out += QLatin1String(" m");
    if (showLetter)
        out += letter;
}

void appendZone(QString& out, const Vertex& v, const BatchCellFormat& f) {
    const std::int64_t zone = v.utmZ ? (*v.utmZ)[1] : 0;
    if (f.UTMnegZoneSouth) {
        appendInteger(out, zone);
        return;
    }
    appendInteger(out, absoluteInteger(zone));
    out += zone <= -1 ? QLatin1String(" S") : QLatin1String(" N");
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

void appendBatchCellText(QString& out, const Vertex& v, std::size_t index, int column,
                         const BatchCellFormat& f) {
    switch (column) {
    case 0:
        appendInteger(out, static_cast<std::int64_t>(index) + 1);
        break;
    case 1:
        out += v.label;
        break;
    case 2:
    case 3:
        appendDD(out, v, axisOfColumn(column, f.latFirst), f);
        break;
    case 4:
    case 5:
        appendDMS(out, v, axisOfColumn(column, f.latFirst), f);
        break;
    case 6:
        appendUTM(out, v.utmE, QLatin1String(" E"), f.UTMshowEN, f);
        break;
    case 7:
        appendUTM(out, v.utmN, QLatin1String(" N"), f.UTMshowEN, f);
        break;
    case 8:
        appendZone(out, v, f);
        break;
    default:
        break;
    }
}

QString batchCellText(const Vertex& v, std::size_t index, int column, const BatchCellFormat& f) {
    if (column == 1)
        return v.label;
    QString text;
    text.reserve(32);
    appendBatchCellText(text, v, index, column, f);
    return text;
}
