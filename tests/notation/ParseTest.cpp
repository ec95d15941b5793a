// The three readers of the entry fields: which text gives which longitude and latitude, which
// text is left alone, letters against the order of the values, comma locales, and the zone
// checks of the UTM reader. UTM readings are checked against GeographicLib's transverse Mercator
// inverse, not against our own projection.

#include "notation/NotationParse.h"
#include "support/RecordingMessageBox.h"

#include <GeographicLib/TransverseMercator.hpp>

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>

namespace {

constexpr double missing = -9999.0;
constexpr bool latFirst = true;
constexpr bool lonFirst = false;

const NumberLocale pointLocale = NumberLocale::from(QLocale::c());
const NumberLocale germanLocale = NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));

// A comma locale whose minus sign is U+2212, as some locales write it.
NumberLocale commaLocaleWithTrueMinus() {
    NumberLocale l;
    l.decimalPoint = QLatin1Char(',');
    l.minusSign = QChar(0x2212);
    return l;
}

struct ReadCase {
    const char* name;
    const char* text; // UTF-8
    bool latFirst;
    double lon, lat; // expected; -9999 where no value is placed
};

// Failure reports name the row instead of dumping its bytes.
void PrintTo(const ReadCase& row, std::ostream* os) {
    *os << row.name;
}

void expectReading(const ParsedPosition& p, const ReadCase& c, double tolerance) {
    EXPECT_FALSE(p.searchFailed);
    if (c.lon == missing)
        EXPECT_EQ(p.lon, missing);
    else
        EXPECT_NEAR(p.lon, c.lon, tolerance);
    if (c.lat == missing)
        EXPECT_EQ(p.lat, missing);
    else
        EXPECT_NEAR(p.lat, c.lat, tolerance);
}

std::string caseName(const testing::TestParamInfo<ReadCase>& info) {
    return info.param.name;
}

// --- Decimal degrees ---------------------------------------------------------------------------

const ReadCase ddCases[] = {
    {"Blank_LatFirst", "45.5 9.25", latFirst, 9.25, 45.5},
    {"Blank_LonFirst", "45.5 9.25", lonFirst, 45.5, 9.25},
    {"OwnOutput_TrailingCommaIgnored", "45.00, 9.00", latFirst, 9, 45},
    {"WholeNumbers", "45 9", latFirst, 9, 45},
    {"LettersBeatOrder_LatFirst", "9.25E 45.5N", latFirst, 9.25, 45.5},
    {"LettersBeatOrder_LonFirst", "45.5N 9.25E", lonFirst, 9.25, 45.5},
    {"WestAndSouthNegate", "9.25 W, 45.5 S", latFirst, -9.25, -45.5},
    {"LowerCaseLetters", "9.25w 45.5s", latFirst, -9.25, -45.5},
    {"Negative_LatFirst", "-33.85, 151.20", latFirst, 151.2, -33.85},
    {"Negative_LonFirst", "151.20, -33.85", lonFirst, 151.2, -33.85},
    {"EastAndNorthKeepMinus", "-10 E, -20 N", latFirst, -10, -20},
    {"WestOfNegativeStaysNegative", "-10 W, -20 S", latFirst, -10, -20},
    {"TenEastTwenty_LatFirst_LatitudeUnplaced", "10 E 20", latFirst, 10, missing},
    {"TenEastTwenty_LonFirst", "10 E 20", lonFirst, 10, 20},
    {"LetterOnFirst_OrderPlacesSecond", "45.5 N 9.25", latFirst, 9.25, 45.5},
    {"LetterOnFirst_OrderCannotPlaceSecond", "45.5 N 9.25", lonFirst, missing, missing},
    {"LetterOnSecond_OrderPlacesFirst", "9.25 45.5 N", lonFirst, 9.25, 45.5},
    {"SameLetterTwice", "10 N 20 N", latFirst, missing, missing},
    {"DegreeSignsAndLetters", "45.5°N, 9.25°E", latFirst, 9.25, 45.5},
    {"DegreeSignsOnly", "45.5° 9.25°", latFirst, 9.25, 45.5},
    {"Semicolon", "45.5; 9.25", latFirst, 9.25, 45.5},
    {"SeveralBlanks", "45.5    9.25", latFirst, 9.25, 45.5},
    {"TextAroundIgnored", "at 45.5 9.25 here", latFirst, 9.25, 45.5},
    {"LatitudeOutOfRangeTaken", "200 9", latFirst, 9, 200},
    {"PointLocale_CommaEndsNumber", "45,5 9,25", latFirst, 9, 45},
    {"NoMatch_OneValue", "45", latFirst, missing, missing},
    {"NoMatch_NoBlank", "45,9", latFirst, missing, missing},
    {"NoMatch_TabIsNotABlank", "45.5\t9.25", latFirst, missing, missing},
    {"NoMatch_Empty", "", latFirst, missing, missing},
    {"NoMatch_Words", "north east", latFirst, missing, missing},
};

class ReadDD : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadDD, PlacesValues) {
    const ReadCase& c = GetParam();
    expectReading(parseDDText(QString::fromUtf8(c.text), c.latFirst, pointLocale), c, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadDD, testing::ValuesIn(ddCases), caseName);

// --- Degrees, minutes, seconds -----------------------------------------------------------------

const ReadCase dmsCases[] = {
    {"FullWithLetters", "45° 30' 15.5\"N, 9° 10' 0\"E", latFirst, 9 + 10 / 60.0,
     45 + 30 / 60.0 + 15.5 / 3600},
    {"OwnOutput_SixtySeconds", "33° 51' 00.0\"S, 151° 11' 60.0\"E", latFirst, 151.2, -33.85},
    {"NumbersOnly_LatFirst", "45 30 0 9 10 0", latFirst, 9 + 10 / 60.0, 45.5},
    {"NumbersOnly_LonFirst", "45 30 0 9 10 0", lonFirst, 45.5, 9 + 10 / 60.0},
    {"FillFromTheLeft", "45 30 9 10", latFirst, 10, 45 + 30 / 60.0 + 9 / 3600.0},
    {"SecondValueTakesAtLeastOne", "45 30 15", latFirst, 15, 45.5},
    {"WholeDegrees_OwnOutput", "45°N, 9°E", latFirst, 9, 45},
    {"TypographicQuotes", "45° 30’ 15.5”N, 9° 10’ 0”E", latFirst, 9 + 10 / 60.0,
     45 + 30 / 60.0 + 15.5 / 3600},
    {"TypographicLeftQuote", "45° 30’ 15.5“N, 9° 10’ 0“E", latFirst, 9 + 10 / 60.0,
     45 + 30 / 60.0 + 15.5 / 3600},
    {"MinusNegatesWholeAngle", "-33° 51' 00.0\", 151° 11' 60.0\"", latFirst, 151.2, -33.85},
    {"MinusNegatesWholeAngle_NoSymbols", "-33 51 00.0, 151 11 60.0", latFirst, 151.2, -33.85},
    {"MinusOnSecondValue", "33 51 00.0, -151 11 60.0", latFirst, -151.2, 33.85},
    {"MinusZeroDegrees", "-0° 30', 10°", latFirst, 10, -0.5},
    {"MinusAndSouth", "-33° 51'S, 151° 12'E", latFirst, 151.2, -33.85},
    {"NoSymbolsWithLetters", "33 51 00.0S, 151 11 60.0E", latFirst, 151.2, -33.85},
    {"LettersBeatOrder_LonFirst", "45° 30'N, 9° 15'E", lonFirst, 9.25, 45.5},
    {"LowerCaseLetters", "45° 30's, 9° 15'w", latFirst, -9.25, -45.5},
    {"TenEastTwenty_LatFirst_LatitudeUnplaced", "10°E 20°", latFirst, 10, missing},
    {"TenEastTwenty_LonFirst", "10°E 20°", lonFirst, 10, 20},
    {"NoMatch_OneValueWithoutBlank", "45°30'15\"N", latFirst, missing, missing},
    {"NoMatch_NoBlankBetweenValues", "45°N,9°E", latFirst, missing, missing},
    {"NoMatch_OneNumber", "45", latFirst, missing, missing},
    {"NoMatch_Empty", "", latFirst, missing, missing},
};

class ReadDMS : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadDMS, PlacesValues) {
    const ReadCase& c = GetParam();
    expectReading(parseDMSText(QString::fromUtf8(c.text), c.latFirst, pointLocale), c, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadDMS, testing::ValuesIn(dmsCases), caseName);

TEST(ReadDMSFailure, RunawaySearchIsReportedAndReadsNothing) {
    // A long run of digits before a blank lets the three numbers of the first value split the
    // run in very many ways; the pattern engine gives up instead of hanging the window.
    const ParsedPosition p =
        parseDMSText(QString(1000, QLatin1Char('1')) + QLatin1Char(' '), latFirst, pointLocale);
    EXPECT_TRUE(p.searchFailed);
    EXPECT_FALSE(p.errorText.isEmpty());
    EXPECT_EQ(p.lon, missing);
    EXPECT_EQ(p.lat, missing);
}

// A long run of blanks before the reading made the engine give up: "match limit exceeded".
TEST(ReadDMSFailure, LongRunOfBlanksBeforeTheReadingIsNoFailedSearch) {
    const QString text = QStringLiteral("7") + QString(400, QLatin1Char(' ')) +
                         QString::fromUtf8("x 45° 30' 15.5\"N, 9° 10' 0\"E");
    const ParsedPosition p = parseDMSText(text, latFirst, pointLocale);
    EXPECT_FALSE(p.searchFailed) << p.errorText.toStdString();
    EXPECT_NEAR(p.lon, 9 + 10 / 60.0, 1e-12);
    EXPECT_NEAR(p.lat, 45 + 30 / 60.0 + 15.5 / 3600, 1e-12);
}

// --- UTM ---------------------------------------------------------------------------------------

struct UtmCase {
    const char* name;
    const char* text;
    // The grid position that the text names, for the reference inverse.
    double easting, northing;
    int zone;
    bool north;
};

void PrintTo(const UtmCase& row, std::ostream* os) {
    *os << row.name;
}

struct LonLat {
    double lon, lat;
};

// GeographicLib's transverse Mercator (Krueger series, accurate to nanometres) on the zone's
// central meridian.
LonLat referenceInverse(double easting, double northing, int zone, bool north) {
    double lat = 0, lon = 0;
    GeographicLib::TransverseMercator::UTM().Reverse((zone - 1) * 6.0 - 180 + 3, easting - 500000.0,
                                                     north ? northing : northing - 10000000.0, lat,
                                                     lon);
    return {lon, lat};
}

// Longitudes compared round the circle: zone 61 lies on both sides of the antimeridian.
double longitudeGap(double a, double b) {
    return std::fabs(std::remainder(a - b, 360.0));
}

const UtmCase utmCases[] = {
    {"OwnOutput", "500000.0 E, 4982950.4 N 32", 500000.0, 4982950.4, 32, true},
    {"NorthingFirst", "4982950.4 N, 500000.0 E 32", 500000.0, 4982950.4, 32, true},
    {"NegativeZoneIsSouth", "333471.8 E, 6253018.2 N -56", 333471.8, 6253018.2, 56, false},
    {"MetresAndSouthLetter", "333471.8 m E, 6253018.2 m N 56 S", 333471.8, 6253018.2, 56, false},
    {"LowerCaseLetters", "333471.8 e, 6253018.2 n 56 s", 333471.8, 6253018.2, 56, false},
    {"NorthLetterBeatsMinus", "333471.8 E, 6253018.2 N -56 N", 333471.8, 6253018.2, 56, true},
    {"BlankSeparator", "333471.8 E 6253018.2 N -56", 333471.8, 6253018.2, 56, false},
    {"Semicolon", "333471.8 E; 6253018.2 N -56", 333471.8, 6253018.2, 56, false},
    {"WholeMetres", "500000 E, 4982950 N 32", 500000.0, 4982950.0, 32, true},
    {"Zone61Accepted", "500000.0 E, 4982950.4 N 61", 500000.0, 4982950.4, 61, true},
    {"Zone1", "500000.0 E, 4982950.4 N 1", 500000.0, 4982950.4, 1, true},
};

class ReadUTM : public testing::TestWithParam<UtmCase> {};

TEST_P(ReadUTM, MatchesReferenceInverse) {
    const UtmCase& c = GetParam();
    RecordingMessageBox box;
    const ParsedPosition p = parseUTMText(QString::fromUtf8(c.text), pointLocale, box);
    const LonLat ref = referenceInverse(c.easting, c.northing, c.zone, c.north);
    EXPECT_TRUE(box.shown.isEmpty()) << box.shown.join(QLatin1Char('|')).toStdString();
    EXPECT_FALSE(p.searchFailed);
    EXPECT_NEAR(p.lat, ref.lat, 1e-7);
    EXPECT_LT(longitudeGap(p.lon, ref.lon), 1e-7) << p.lon << " vs " << ref.lon;
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadUTM, testing::ValuesIn(utmCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ReadUTMValues, OwnOutputGivesBackTheLocationsItWasWrittenFor) {
    // The text carries a tenth of a metre: about 1e-6 degree.
    RecordingMessageBox box;
    ParsedPosition p = parseUTMText(QStringLiteral("500000.0 E, 4982950.4 N 32"), pointLocale, box);
    EXPECT_NEAR(p.lat, 45, 1e-7);
    EXPECT_NEAR(p.lon, 9, 1e-7);
    p = parseUTMText(QStringLiteral("333471.8 E, 6253018.2 N -56"), pointLocale, box);
    EXPECT_NEAR(p.lat, -33.85, 1e-6);
    EXPECT_NEAR(p.lon, 151.2, 1e-6);
    EXPECT_TRUE(box.shown.isEmpty());
}

// Wide gaps of blanks, as in a row pasted from a table, made the engine give up before the reading.
TEST(ReadUTMValues, WideGapsOfBlanksBeforeTheReadingAreNoFailedSearch) {
    const QString gap(60, QLatin1Char(' '));
    const QString text = QStringLiteral("7") + gap + QStringLiteral("12") + gap +
                         QStringLiteral("see 333471.8 E, 6253018.2 N -56");
    RecordingMessageBox box;
    const ParsedPosition p = parseUTMText(text, pointLocale, box);
    const LonLat ref = referenceInverse(333471.8, 6253018.2, 56, false);
    EXPECT_TRUE(box.shown.isEmpty()) << box.shown.join(QLatin1Char('|')).toStdString();
    EXPECT_FALSE(p.searchFailed) << p.errorText.toStdString();
    EXPECT_NEAR(p.lat, ref.lat, 1e-7);
    EXPECT_LT(longitudeGap(p.lon, ref.lon), 1e-7) << p.lon << " vs " << ref.lon;
}

struct UtmUnreadCase {
    const char* name;
    const char* text;
};

void PrintTo(const UtmUnreadCase& row, std::ostream* os) {
    *os << row.name;
}

const UtmUnreadCase utmUnreadCases[] = {
    {"NoLetters", "500000 4982950 32"},
    {"OwnOutputWithoutLetters", "333471.8, 6253018.2 -56"},
    {"TwoEastings", "500000 E, 4982950 E 32"},
    {"TwoNorthings", "500000 N, 4982950 N 32"},
    {"NoZone", "500000.0 E, 4982950.4 N"},
    {"CommaWithoutBlank", "500000.0 E,4982950.4 N 32"},
    {"TabSeparator", "500000.0 E\t4982950.4 N 32"},
    {"Empty", ""},
};

class ReadUTMNothing : public testing::TestWithParam<UtmUnreadCase> {};

TEST_P(ReadUTMNothing, SilentlyLeftAlone) {
    RecordingMessageBox box;
    const ParsedPosition p = parseUTMText(QString::fromUtf8(GetParam().text), pointLocale, box);
    EXPECT_EQ(p.lon, missing);
    EXPECT_EQ(p.lat, missing);
    EXPECT_FALSE(p.searchFailed);
    EXPECT_TRUE(box.shown.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadUTMNothing, testing::ValuesIn(utmUnreadCases),
                         [](const auto& row) { return std::string(row.param.name); });

const UtmUnreadCase badZoneCases[] = {
    {"Zone62", "500000.0 E, 4982950.4 N 62"},       {"Zone62South", "500000.0 E, 4982950.4 N 62 S"},
    {"ZoneMinus62", "500000.0 E, 4982950.4 N -62"}, {"Zone0", "500000.0 E, 4982950.4 N 0"},
    {"Zone100", "500000.0 E, 4982950.4 N 100"},
};

class ReadUTMBadZone : public testing::TestWithParam<UtmUnreadCase> {};

TEST_P(ReadUTMBadZone, TwoMessagesAndNothingRead) {
    RecordingMessageBox box;
    const ParsedPosition p = parseUTMText(QString::fromUtf8(GetParam().text), pointLocale, box);
    EXPECT_EQ(box.shown, QStringList({QStringLiteral("Invalid grid zone format"),
                                      QStringLiteral("Unable to translate UTM to LL")}));
    EXPECT_EQ(p.lon, missing);
    EXPECT_EQ(p.lat, missing);
    EXPECT_FALSE(p.complete());
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadUTMBadZone, testing::ValuesIn(badZoneCases),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Comma locales -----------------------------------------------------------------------------

enum class Notation { DD, DMS };

struct LocaleCase {
    const char* name;
    Notation notation;
    const char* text;
    NumberLocale locale;
    double lon, lat;
};

void PrintTo(const LocaleCase& row, std::ostream* os) {
    *os << row.name;
}

const LocaleCase localeCases[] = {
    {"DD_DecimalCommas", Notation::DD, "45,5 9,25", germanLocale, 9.25, 45.5},
    {"DD_SeparatorCommaAfterDecimalComma", Notation::DD, "45,5, 9,25", germanLocale, 9.25, 45.5},
    {"DD_SeparatorCommaAfterWholeNumber", Notation::DD, "45, 9", germanLocale, 9, 45},
    {"DD_OwnOutput", Notation::DD, "-33,85, 151,20", germanLocale, 151.2, -33.85},
    {"DD_LettersAndDegrees", Notation::DD, "33,85°S, 151,20°E", germanLocale, 151.2, -33.85},
    {"DD_PointStillDecimal", Notation::DD, "45.5 9.25", germanLocale, 9.25, 45.5},
    {"DD_LocaleMinusSign", Notation::DD,
     "\xE2\x88\x92"
     "33,85 151,2",
     commaLocaleWithTrueMinus(), 151.2, -33.85},
    {"DMS_OwnOutput", Notation::DMS, "33° 51' 00,0\"S, 151° 11' 60,0\"E", germanLocale, 151.2,
     -33.85},
    {"DMS_NoSymbols_TrailingComma", Notation::DMS, "-33 51 00,0, 151 11 60,0", germanLocale, 151.2,
     -33.85},
    {"DMS_DecimalSeconds", Notation::DMS, "45 30 15,5, 9 10 0", germanLocale, 9 + 10 / 60.0,
     45 + 30 / 60.0 + 15.5 / 3600},
    {"DMS_LocaleMinusSign", Notation::DMS,
     "\xE2\x88\x92"
     "33 51 0 151 12 0",
     commaLocaleWithTrueMinus(), 151.2, -33.85},
};

class ReadInCommaLocale : public testing::TestWithParam<LocaleCase> {};

TEST_P(ReadInCommaLocale, CommaIsDecimalSeparatorAndTrailingCommaIgnored) {
    const LocaleCase& c = GetParam();
    const QString text = QString::fromUtf8(c.text);
    const ParsedPosition p = c.notation == Notation::DD ? parseDDText(text, latFirst, c.locale)
                                                        : parseDMSText(text, latFirst, c.locale);
    EXPECT_FALSE(p.searchFailed);
    EXPECT_NEAR(p.lon, c.lon, 1e-12);
    EXPECT_NEAR(p.lat, c.lat, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadInCommaLocale, testing::ValuesIn(localeCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct UtmLocaleCase {
    const char* name;
    const char* text;
    NumberLocale locale;
};

void PrintTo(const UtmLocaleCase& row, std::ostream* os) {
    *os << row.name;
}

const UtmLocaleCase utmLocaleCases[] = {
    {"OwnOutput", "333471,8 E, 6253018,2 N -56", germanLocale},
    {"MetresAndSouthLetter", "333471,8 m E, 6253018,2 m N 56 S", germanLocale},
    {"LocaleMinusSignOnZone",
     "333471,8 E, 6253018,2 N \xE2\x88\x92"
     "56",
     commaLocaleWithTrueMinus()},
};

class ReadUTMInCommaLocale : public testing::TestWithParam<UtmLocaleCase> {};

TEST_P(ReadUTMInCommaLocale, SameAsWithPoints) {
    RecordingMessageBox box;
    const ParsedPosition p =
        parseUTMText(QString::fromUtf8(GetParam().text), GetParam().locale, box);
    const LonLat ref = referenceInverse(333471.8, 6253018.2, 56, false);
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_NEAR(p.lat, ref.lat, 1e-7);
    EXPECT_NEAR(p.lon, ref.lon, 1e-7);
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadUTMInCommaLocale, testing::ValuesIn(utmLocaleCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
