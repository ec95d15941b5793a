// The texts of the table of recorded locations: named cases worked out by hand for the settings
// a user meets, a sweep over every combination of the seven show options and both orders that
// reads each cell back against the record it was written from, and the comma locale.

#include "locationbook/BatchCellText.h"
#include "coordinates/PlainNumberText.h"
#include "coordinates/generalModule.h"
#include "support/QStringPrinting.h"
#include "support/RecordingMessageBox.h"

#include <QLocale>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>

namespace {

using generalModule::vertexFromDD;
using generalModule::vertexFromDMS;

const BatchCellFormat startFormat{}; // the settings of a new window, latitude first, C locale

BatchCellFormat with(std::initializer_list<bool BatchCellFormat::*> on,
                     std::initializer_list<bool BatchCellFormat::*> off = {}) {
    BatchCellFormat f = startFormat;
    for (auto flag : on)
        f.*flag = true;
    for (auto flag : off)
        f.*flag = false;
    return f;
}

// --- Named cases ---------------------------------------------------------------------------------

struct CellRow {
    const char* name;
    double lon, lat;
    BatchCellFormat format;
    int column;
    const char* text;
};

void PrintTo(const CellRow& row, std::ostream* os) {
    *os << row.name;
}

using F = BatchCellFormat;

const CellRow cellRows[] = {
    // The example of a southern, eastern location with the start settings.
    {"Sydney_LatDD", 151.25, -33.5, startFormat, 2, "-33.50"},
    {"Sydney_LonDD", 151.25, -33.5, startFormat, 3, "151.25"},
    {"Sydney_LatDMS", 151.25, -33.5, startFormat, 4, "33° 30' 0.0\" S"},
    {"Sydney_LonDMS", 151.25, -33.5, startFormat, 5, "151° 15' 0.0\" E"},
    {"Sydney_Zone", 151.25, -33.5, startFormat, 8, "-56"},
    {"Sydney_ZoneLetter", 151.25, -33.5, with({}, {&F::UTMnegZoneSouth}), 8, "56 S"},
    {"Paris_ZoneLetter", 2.35, 48.85, with({}, {&F::UTMnegZoneSouth}), 8, "31 N"},
    // Longitude first moves the pairs, not the other columns.
    {"LonFirst_Column2", 151.25, -33.5, with({}, {&F::latFirst}), 2, "151.25"},
    {"LonFirst_Column5", 151.25, -33.5, with({}, {&F::latFirst}), 5, "33° 30' 0.0\" S"},
    // Decimal degrees: letters with a blank before them, the degree sign before the blank.
    {"DD_LetterNoDegree", 151.25, -33.5, with({&F::DDshowHemiLet}), 2, "33.50 S"},
    {"DD_LetterAndDegree", 151.25, -33.5, with({&F::DDshowHemiLet, &F::DDshowDegrSymb}), 2,
     "33.50° S"},
    {"DD_DegreeKeepsMinus", 151.25, -33.5, with({&F::DDshowDegrSymb}), 2, "-33.50°"},
    {"DD_West", -74.006, 40.7128, with({&F::DDshowHemiLet}), 3, "74.006 W"},
    {"DD_SixDecimals", -74.0059731, 40.7127753, startFormat, 2, "40.712775"},
    {"DD_LongitudeZeroNoLetter", 0, 0, with({&F::DDshowHemiLet}), 3, "0.00"},
    {"DD_LatitudeZeroNorth", 0, 0, with({&F::DDshowHemiLet}), 2, "0.00 N"},
    {"DD_Above180NotWrapped", 200, 10, with({&F::DDshowHemiLet}), 3, "200.00 E"},
    // DMS: without symbols the blanks stay; without letters the sign comes from the value and
    // the seconds are the double's plain text.
    {"DMS_NoSymbols", 151.25, -33.5, with({}, {&F::DMSshowSymbols}), 4, "33 30 0.0 S"},
    {"DMS_NoLetterSouth", 151.25, -33.5, with({}, {&F::DMSshowHemiLet}), 4, "-33° 30' 0\""},
    {"DMS_NoLetterOtherCellKeepsSign", 151.25, -33.5, with({}, {&F::DMSshowHemiLet}), 5,
     "151° 15' 0\""},
    {"DMS_NoLetterNoSymbols", -74.25, 10, with({}, {&F::DMSshowHemiLet, &F::DMSshowSymbols}), 5,
     "-74 15 0"},
    {"DMS_PatternSeconds", 9.0043055555555555, 45, startFormat, 5, "9° 0' 15.5\" E"},
    // UTM: metres then " m", then the letter.
    {"UTM_Northing_M", 9, 45, with({&F::UTMshowM}), 7, "4982950.4 m N"},
    {"UTM_Easting_NoLetter", 9, 45, with({}, {&F::UTMshowEN}), 6, "500000.0"},
    {"UTM_Easting_MNoLetter", 9, 45, with({&F::UTMshowM}, {&F::UTMshowEN}), 6, "500000.0 m"},
};

class BatchCell : public testing::TestWithParam<CellRow> {};

TEST_P(BatchCell, TextOfOneCell) {
    const CellRow& row = GetParam();
    const VertexRef v = vertexFromDD(row.lon, row.lat);
    EXPECT_EQ(batchCellText(*v, 0, row.column, row.format), QString::fromUtf8(row.text));
}

INSTANTIATE_TEST_SUITE_P(Table, BatchCell, testing::ValuesIn(cellRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(BatchCell, NumberColumnCountsFromOneAndLabelIsVerbatim) {
    const VertexRef v = vertexFromDD(9, 45);
    v->label = QStringLiteral("  Home, sweet\thome ");
    EXPECT_EQ(batchCellText(*v, 0, 0, startFormat), QStringLiteral("1"));
    EXPECT_EQ(batchCellText(*v, 99999, 0, startFormat), QStringLiteral("100000"));
    EXPECT_EQ(batchCellText(*v, 0, 1, startFormat), v->label);
    EXPECT_EQ(batchCellText(*v, 0, 9, startFormat), QString());
}

// A location typed in DMS shows its parts as typed (unnormalised minutes stay), and its sign
// from the value: a typed minus is not written twice.
TEST(BatchCell, TypedDMSKeepsItsParts) {
    const VertexRef typed =
        vertexFromDMS(QStringLiteral("-74 0 21.6 E"), QStringLiteral("40 90 0 N"));
    ASSERT_LT(typed->lon, 0);
    const BatchCellFormat noLetters = with({}, {&F::DMSshowHemiLet});
    EXPECT_EQ(batchCellText(*typed, 0, 4, startFormat), QStringLiteral("40° 90' 0.0\" N"));
    EXPECT_EQ(batchCellText(*typed, 0, 5, noLetters), QStringLiteral("-74° 0' 21.6\""));
}

TEST(BatchCell, Headers) {
    const char* latFirst[] = {"#",       "Label", "Lat DD", "Lon DD",  "Lat DMS",
                              "Lon DMS", "UTM E", "UTM N",  "UTM Zone"};
    const char* lonFirst[] = {"#",       "Label", "Lon DD", "Lat DD",  "Lon DMS",
                              "Lat DMS", "UTM E", "UTM N",  "UTM Zone"};
    for (int column = 0; column < batchColumnCount; ++column) {
        EXPECT_EQ(batchHeaderText(column, true), QString::fromLatin1(latFirst[column]));
        EXPECT_EQ(batchHeaderText(column, false), QString::fromLatin1(lonFirst[column]));
    }
    EXPECT_EQ(initialBatchHeaderText(),
              QStringLiteral("#\tLabel\tLon DD\tLat DD\tLon DMS\tLat DMS\tUTM E\tUTM N\tUTM Zone"));
}

// --- Every combination, read back ----------------------------------------------------------

// Locations from the three builders, on both sides of the equator and the meridian, at 0 and
// beyond 180.
std::vector<VertexRef> sweepLocations() {
    RecordingMessageBox messages;
    return {
        vertexFromDD(151.25, -33.5),
        vertexFromDD(-74.0059731, 40.7127753),
        vertexFromDD(0, 0),
        vertexFromDD(200, 10),
        vertexFromDD(-0.5, -0.25),
        vertexFromDMS(QStringLiteral("74 0 21.6 W"), QStringLiteral("40 42 46.08 N")),
        vertexFromDMS(QStringLiteral("18 25 25.25 E"), QStringLiteral("33 55 29.5 S")),
        generalModule::vertexFromUTM(333471.8, 6253018.2, QStringLiteral("-56"), messages),
        generalModule::vertexFromUTM(500000, 4982950.4, QStringLiteral("32 N"), messages),
    };
}

// Reads "number[°][ letter]" and checks it against the value under the flags.
void checkDD(const QString& cell, double value, bool isLon, const BatchCellFormat& f) {
    static const QRegularExpression shape(QStringLiteral("^(-?)(\\d+\\.\\d{2,6})(°?)( [NSEW])?$"));
    const auto m = shape.match(cell);
    ASSERT_TRUE(m.hasMatch()) << cell.toStdString();
    EXPECT_EQ(!m.captured(3).isEmpty(), f.DDshowDegrSymb) << cell.toStdString();
    const double magnitude = m.captured(2).toDouble();
    EXPECT_NEAR(magnitude, std::fabs(value), 0.5e-6) << cell.toStdString();
    if (!f.DDshowHemiLet) {
        EXPECT_EQ(m.captured(1) == QLatin1String("-"), value < 0) << cell.toStdString();
        EXPECT_TRUE(m.captured(4).isEmpty());
        return;
    }
    EXPECT_TRUE(m.captured(1).isEmpty()) << cell.toStdString();
    QString letter =
        isLon ? (value < 0 ? " W" : (value > 0 ? " E" : "")) : (value < 0 ? " S" : " N");
    EXPECT_EQ(m.captured(4), letter) << cell.toStdString();
}

void checkDMS(const QString& cell, const Vertex& v, bool isLon, const BatchCellFormat& f) {
    const QString symbols =
        f.DMSshowSymbols ? QStringLiteral("° (\\d+)' ") : QStringLiteral(" (\\d+) ");
    const QString tail = f.DMSshowHemiLet ? QStringLiteral("(\\d+\\.\\d{1,3})%1 ([NSEW])$")
                                          : QStringLiteral("([0-9.e+-]+)%1$");
    const QRegularExpression shape(QStringLiteral("^(-?)(\\d+)") + symbols +
                                   tail.arg(f.DMSshowSymbols ? QStringLiteral("\"") : QString()));
    const auto m = shape.match(cell);
    ASSERT_TRUE(m.hasMatch()) << cell.toStdString();
    const std::int64_t degrees = isLon ? v.lon_degr : v.lat_Degr;
    EXPECT_EQ(m.captured(2).toLongLong(), std::llabs(degrees)) << cell.toStdString();
    EXPECT_EQ(m.captured(3).toLongLong(), isLon ? v.lon_min : v.lat_min);
    const double seconds = isLon ? v.lon_sec : v.lat_sec;
    if (f.DMSshowHemiLet) {
        EXPECT_TRUE(m.captured(1).isEmpty());
        EXPECT_NEAR(m.captured(4).toDouble(), seconds, 0.0005) << cell.toStdString();
        EXPECT_EQ(m.captured(5), isLon ? v.lon_Hemisphere : v.lat_Hemisphere);
    } else {
        EXPECT_EQ(m.captured(1) == QLatin1String("-"), (isLon ? v.lon : v.lat) < 0);
        EXPECT_EQ(m.captured(4).toDouble(), seconds) << "plain text must keep every digit";
    }
}

void checkMetres(const QString& cell, double metres, const char* letter, const BatchCellFormat& f) {
    QString expectedTail = QString(f.UTMshowM ? " m" : "") + (f.UTMshowEN ? letter : "");
    ASSERT_TRUE(cell.endsWith(expectedTail)) << cell.toStdString();
    const QString number = cell.left(cell.size() - expectedTail.size());
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d+\\.\\d{1,2}$")).match(number).hasMatch())
        << cell.toStdString();
    EXPECT_NEAR(number.toDouble(), metres, 0.005 + 1e-9 * metres) << cell.toStdString();
}

class EveryFormat : public testing::TestWithParam<int> {};

TEST_P(EveryFormat, CellsReadBackAsTheRecord) {
    const int bits = GetParam();
    BatchCellFormat f;
    bool F::*const flags[] = {&F::DDshowHemiLet,   &F::DDshowDegrSymb, &F::DMSshowHemiLet,
                              &F::DMSshowSymbols,  &F::UTMshowM,       &F::UTMshowEN,
                              &F::UTMnegZoneSouth, &F::latFirst};
    for (int i = 0; i < 8; ++i)
        f.*flags[i] = (bits >> i) & 1;
    const auto locations = sweepLocations();
    for (std::size_t i = 0; i < locations.size(); ++i) {
        SCOPED_TRACE(i);
        const Vertex& v = *locations[i];
        const int latDD = f.latFirst ? 2 : 3, lonDD = f.latFirst ? 3 : 2;
        checkDD(batchCellText(v, i, latDD, f), v.lat, false, f);
        checkDD(batchCellText(v, i, lonDD, f), v.lon, true, f);
        checkDMS(batchCellText(v, i, latDD + 2, f), v, false, f);
        checkDMS(batchCellText(v, i, lonDD + 2, f), v, true, f);
        checkMetres(batchCellText(v, i, 6, f), v.utmE, " E", f);
        checkMetres(batchCellText(v, i, 7, f), v.utmN, " N", f);
        const std::int64_t zone = (*v.utmZ)[1];
        const QString zoneText =
            f.UTMnegZoneSouth ? QString::number(zone)
                              : QString::number(std::llabs(zone)) +
                                    (zone <= -1 ? QStringLiteral(" S") : QStringLiteral(" N"));
        EXPECT_EQ(batchCellText(v, i, 8, f), zoneText);
        EXPECT_EQ(batchCellText(v, i, 0, f), QString::number(i + 1));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, EveryFormat, testing::Range(0, 256));

// --- The comma locale ------------------------------------------------------------------------

TEST(BatchCell, CommaLocaleOnlyWherePatternsWrite) {
    BatchCellFormat f = startFormat;
    f.locale = NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));
    const VertexRef v =
        vertexFromDMS(QStringLiteral("9 10 15.5 E"), QStringLiteral("45 30 15.25 N"));
    EXPECT_EQ(batchCellText(*v, 0, 2, f), QStringLiteral("45,504236"));
    EXPECT_EQ(batchCellText(*v, 0, 4, f), QStringLiteral("45° 30' 15,25\" N"));
    EXPECT_TRUE(batchCellText(*v, 0, 6, f).contains(QLatin1Char(',')));
    EXPECT_TRUE(batchCellText(*v, 0, 7, f).contains(QLatin1Char(',')));
    // The plain seconds of the branch without letters, and the integers, use no locale.
    f.DMSshowHemiLet = false;
    EXPECT_EQ(batchCellText(*v, 0, 4, f), QStringLiteral("45° 30' 15.25\""));
    EXPECT_EQ(batchCellText(*v, 0, 5, f), QStringLiteral("9° 10' 15.5\""));
    v->utmZ = std::make_shared<UtmZone>(UtmZone{0, -1234, 0});
    EXPECT_EQ(batchCellText(*v, 1233, 8, f), QStringLiteral("-1234"));
    EXPECT_EQ(batchCellText(*v, 1233, 0, f), QStringLiteral("1234"));
}

// --- Reading the head of a cell ----------------------------------------------------------------

struct ValRow {
    const char* name;
    const char* text;
    double value;
};

void PrintTo(const ValRow& row, std::ostream* os) {
    *os << row.name;
}

const ValRow valRows[] = {
    {"DegreesWithLetter", "-33.50° S", -33.5},
    {"DMSReadsDegreesOnly", "151° 15' 0.0\" E", 151},
    {"Easting", "333471.8 m E", 333471.8},
    {"NoNumber", "Home", 0},
    {"Empty", "", 0},
    {"LeadingBlanks", "  \t12 Main St", 12},
    {"PlusSign", "+7.5", 7.5},
    {"Exponent", "1.5e3 m", 1500},
    {"SignAlone", "- 5", 0},
};

class ValOfCell : public testing::TestWithParam<ValRow> {};

TEST_P(ValOfCell, HeadNumber) {
    EXPECT_EQ(Val(QString::fromUtf8(GetParam().text), NumberLocale()), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Table, ValOfCell, testing::ValuesIn(valRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ValOfCell, FollowsTheLocaleOfTheTable) {
    NumberLocale comma;
    comma.decimalPoint = QLatin1Char(',');
    comma.minusSign = QChar(0x2212);
    EXPECT_EQ(Val(QStringLiteral("-33,50"), comma), -33.5);
    EXPECT_EQ(Val(QString(QChar(0x2212)) + QStringLiteral("33,25 S"), comma), -33.25);
    EXPECT_EQ(Val(QStringLiteral("-33,50"), NumberLocale()), -33);
}

TEST(PlainDouble, ShortestRoundTrip) {
    const double values[] = {0.0, 15.5, 0.1 + 0.2, 1e-7, -2.5, 59.999999999999993};
    for (double value : values) {
        const QString text = plainDoubleText(value);
        EXPECT_FALSE(text.contains(QLatin1Char(','))) << text.toStdString();
        EXPECT_EQ(text.toDouble(), value) << text.toStdString();
    }
    EXPECT_EQ(plainDoubleText(0.0), QStringLiteral("0"));
    EXPECT_EQ(plainDoubleText(15.5), QStringLiteral("15.5"));
}

} // namespace
