// The three readers of the entry fields: which text gives which longitude and latitude, which
// text is left alone, letters against the order of the values, comma locales, hostile texts and
// the zone checks of the UTM reader. UTM readings are checked against GeographicLib's transverse
// Mercator inverse, not against our own projection.

#include "notation/NotationParse.h"
#include "support/QStringPrinting.h"
#include "support/RecordingMessageBox.h"
#include "support/TestLocales.h"

#include <GeographicLib/TransverseMercator.hpp>

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

constexpr double missing = -9999.0;
constexpr bool latFirst = true, lonFirst = false;
enum class Notation { DD, DMS };

using testLocales::german;
using testLocales::point;
using testLocales::trueMinus;
const double north45 = 45 + 30 / 60.0 + 15.5 / 3600, east9 = 9 + 10 / 60.0;

struct ReadRow {
    const char* name;
    Notation notation;
    QString text;
    bool latFirst;
    const NumberLocale* locale;
    double lon, lat; // -9999 where no value is placed
};

const ReadRow readRows[] = {
    {"DD_Blank_LatFirst", Notation::DD, "45.5 9.25", latFirst, &point, 9.25, 45.5},
    {"DD_Blank_LonFirst", Notation::DD, "45.5 9.25", lonFirst, &point, 45.5, 9.25},
    {"DD_OwnOutput", Notation::DD, "-33.85, 151.20", latFirst, &point, 151.2, -33.85},
    {"DD_LettersBeatOrder", Notation::DD, "45.5N 9.25E", lonFirst, &point, 9.25, 45.5},
    {"DD_WestAndSouthNegate", Notation::DD, "9.25 w, 45.5 S", latFirst, &point, -9.25, -45.5},
    {"DD_EastAndNorthKeepMinus", Notation::DD, "-10 E, -20 N", latFirst, &point, -10, -20},
    {"DD_WestOfNegativeStaysNegative", Notation::DD, "-10 W, -20 S", latFirst, &point, -10, -20},
    {"DD_LatitudeUnplaced", Notation::DD, "10 E 20", latFirst, &point, 10, missing},
    {"DD_SecondPlacedByOrder", Notation::DD, "10 E 20", lonFirst, &point, 10, 20},
    {"DD_FirstPlacedByOrder", Notation::DD, "9.25 45.5 N", lonFirst, &point, 9.25, 45.5},
    {"DD_NeitherPlaced", Notation::DD, "45.5 N 9.25", lonFirst, &point, missing, missing},
    {"DD_SameLetterTwice", Notation::DD, "10 N 20 N", latFirst, &point, missing, missing},
    {"DD_DegreeSignsAndLetters", Notation::DD, "45.5°N, 9.25°E", latFirst, &point, 9.25, 45.5},
    {"DD_Semicolon", Notation::DD, "45.5; 9.25", latFirst, &point, 9.25, 45.5},
    {"DD_TextAround", Notation::DD, "at 45.5 9.25 here", latFirst, &point, 9.25, 45.5},
    {"DD_OutOfRangeTaken", Notation::DD, "200 9", latFirst, &point, 9, 200},
    {"DD_PointLocale_CommaEndsNumber", Notation::DD, "45,5 9,25", latFirst, &point, 9, 45},
    {"DD_NoMatch_OneValue", Notation::DD, "45", latFirst, &point, missing, missing},
    {"DD_NoMatch_NoBlank", Notation::DD, "45,9", latFirst, &point, missing, missing},
    {"DD_NoMatch_Tab", Notation::DD, "45.5\t9.25", latFirst, &point, missing, missing},
    {"DD_NoMatch_Words", Notation::DD, "north east", latFirst, &point, missing, missing},
    // A lone surrogate made the pattern engine refuse the text: shown as a failed search.
    {"DD_LoneSurrogate", Notation::DD, QChar(0xDC00) + QString("45.5 9.25"), latFirst, &point, 9.25,
     45.5},
    {"DD_German", Notation::DD, "45,5, 9,25", latFirst, &german, 9.25, 45.5},
    {"DD_German_CommaAfterWholeNumber", Notation::DD, "45, 9", latFirst, &german, 9, 45},
    {"DD_German_LettersAndDegrees", Notation::DD, "33,85°S, 151,20°E", latFirst, &german, 151.2,
     -33.85},
    {"DD_German_PointStillDecimal", Notation::DD, "45.5 9.25", latFirst, &german, 9.25, 45.5},
    {"DD_TrueMinus", Notation::DD, "\u221233,85 151,2", latFirst, &trueMinus, 151.2, -33.85},
    {"DMS_Full", Notation::DMS, "45° 30' 15.5\"N, 9° 10' 0\"E", latFirst, &point, east9, north45},
    {"DMS_OwnOutput_SixtySeconds", Notation::DMS, "33° 51' 00.0\"S, 151° 11' 60.0\"E", latFirst,
     &point, 151.2, -33.85},
    {"DMS_NumbersOnly", Notation::DMS, "45 30 0 9 10 0", lonFirst, &point, 45.5, east9},
    {"DMS_FillFromTheLeft", Notation::DMS, "45 30 9 10", latFirst, &point, 10,
     45 + 30 / 60.0 + 9 / 3600.0},
    {"DMS_SecondValueTakesAtLeastOne", Notation::DMS, "45 30 15", latFirst, &point, 15, 45.5},
    {"DMS_WholeDegrees", Notation::DMS, "45°N, 9°E", latFirst, &point, 9, 45},
    {"DMS_CurlyQuotes", Notation::DMS, "45° 30’ 15.5”N, 9° 10’ 0“E", latFirst, &point, east9,
     north45},
    {"DMS_MinusNegatesWholeAngle", Notation::DMS, "-33 51 00.0, 151 11 60.0", latFirst, &point,
     151.2, -33.85},
    {"DMS_MinusOnSecondValue", Notation::DMS, "33 51 00.0, -151 11 60.0", latFirst, &point, -151.2,
     33.85},
    {"DMS_MinusZeroDegrees", Notation::DMS, "-0° 30', 10°", latFirst, &point, 10, -0.5},
    {"DMS_MinusAndSouth", Notation::DMS, "-33° 51'S, 151° 12'E", latFirst, &point, 151.2, -33.85},
    {"DMS_LettersBeatOrder", Notation::DMS, "45° 30's, 9° 15'w", lonFirst, &point, -9.25, -45.5},
    {"DMS_LatitudeUnplaced", Notation::DMS, "10°E 20°", latFirst, &point, 10, missing},
    {"DMS_NoMatch_NoBlankInside", Notation::DMS, "45°30'15\"N", latFirst, &point, missing, missing},
    {"DMS_NoMatch_NoBlankBetween", Notation::DMS, "45°N,9°E", latFirst, &point, missing, missing},
    {"DMS_NoMatch_Empty", Notation::DMS, "", latFirst, &point, missing, missing},
    // A long run of blanks before the reading made the engine give up: "match limit exceeded".
    {"DMS_LongRunOfBlanksFirst", Notation::DMS,
     "7" + QString(400, ' ') + "x 45° 30' 15.5\"N, 9° 10' 0\"E", latFirst, &point, east9, north45},
    {"DMS_German_OwnOutput", Notation::DMS, "33° 51' 00,0\"S, 151° 11' 60,0\"E", latFirst, &german,
     151.2, -33.85},
    {"DMS_German_TrailingComma", Notation::DMS, "-33 51 00,0, 151 11 60,0", latFirst, &german,
     151.2, -33.85},
    {"DMS_TrueMinus", Notation::DMS, "\u221233 51 0 151 12 0", latFirst, &trueMinus, 151.2, -33.85},
};

class Read : public testing::TestWithParam<ReadRow> {};

TEST_P(Read, PlacesTheValues) {
    const ReadRow& r = GetParam();
    const ParsedPosition p = r.notation == Notation::DD
                                 ? parseDDText(r.text, r.latFirst, *r.locale)
                                 : parseDMSText(r.text, r.latFirst, *r.locale);
    EXPECT_FALSE(p.searchFailed) << p.errorText.toStdString();
    EXPECT_NEAR(p.lon, r.lon, 1e-12);
    EXPECT_NEAR(p.lat, r.lat, 1e-12);
    EXPECT_EQ(p.complete(), r.lon != missing && r.lat != missing);
}

INSTANTIATE_TEST_SUITE_P(Notation, Read, testing::ValuesIn(readRows),
                         [](const auto& row) { return std::string(row.param.name); });

// A long run of digits before a blank lets the three numbers of the first value split it in
// very many ways; the engine gives up instead of hanging the window.
TEST(ReadDMS, RunawaySearchIsReportedAndReadsNothing) {
    const ParsedPosition p = parseDMSText(QString(1000, '1') + ' ', latFirst, point);
    EXPECT_TRUE(p.searchFailed);
    EXPECT_FALSE(p.errorText.isEmpty());
    EXPECT_EQ(p.lon, missing);
    EXPECT_EQ(p.lat, missing);
}

// --- UTM ---------------------------------------------------------------------------------------

enum class Outcome { Read, LeftAlone, BadZone };

struct UTMRow {
    const char* name;
    QString text;
    const NumberLocale* locale;
    Outcome outcome;
    double easting = 0, northing = 0; // the grid position the text names
    int zone = 0;
    bool north = true;
};

const UTMRow utmRows[] = {
    {"OwnOutput", "500000.0 E, 4982950.4 N 32", &point, Outcome::Read, 500000, 4982950.4, 32, true},
    {"NorthingFirst", "4982950.4 N, 500000.0 E 32", &point, Outcome::Read, 500000, 4982950.4, 32,
     true},
    {"NegativeZoneIsSouth", "333471.8 E, 6253018.2 N -56", &point, Outcome::Read, 333471.8,
     6253018.2, 56, false},
    {"MetresAndSouthLetter", "333471.8 m E, 6253018.2 m N 56 S", &point, Outcome::Read, 333471.8,
     6253018.2, 56, false},
    {"LowerCaseLetters", "333471.8 e; 6253018.2 n 56 s", &point, Outcome::Read, 333471.8, 6253018.2,
     56, false},
    {"NorthLetterBeatsMinus", "333471.8 E 6253018.2 N -56 N", &point, Outcome::Read, 333471.8,
     6253018.2, 56, true},
    {"WholeMetresZone1", "500000 E, 4982950 N 1", &point, Outcome::Read, 500000, 4982950, 1, true},
    {"Zone61", "500000.0 E, 4982950.4 N 61", &point, Outcome::Read, 500000, 4982950.4, 61, true},
    // Wide gaps of blanks, as in a row pasted from a table, made the engine give up.
    {"WideGapsFirst",
     "7" + QString(60, ' ') + "12" + QString(60, ' ') + "see 333471.8 E, 6253018.2 N -56", &point,
     Outcome::Read, 333471.8, 6253018.2, 56, false},
    {"German", "333471,8 m E, 6253018,2 m N 56 S", &german, Outcome::Read, 333471.8, 6253018.2, 56,
     false},
    {"TrueMinusOnZone", "333471,8 E, 6253018,2 N \u221256", &trueMinus, Outcome::Read, 333471.8,
     6253018.2, 56, false},
    {"NoLetters", "333471.8, 6253018.2 -56", &point, Outcome::LeftAlone},
    {"TwoEastings", "500000 E, 4982950 E 32", &point, Outcome::LeftAlone},
    {"TwoNorthings", "500000 N, 4982950 N 32", &point, Outcome::LeftAlone},
    {"NoZone", "500000.0 E, 4982950.4 N", &point, Outcome::LeftAlone},
    {"CommaWithoutBlank", "500000.0 E,4982950.4 N 32", &point, Outcome::LeftAlone},
    {"TabSeparator", "500000.0 E\t4982950.4 N 32", &point, Outcome::LeftAlone},
    {"Empty", "", &point, Outcome::LeftAlone},
    {"Zone62South", "500000.0 E, 4982950.4 N 62 S", &point, Outcome::BadZone},
    {"ZoneMinus62", "500000.0 E, 4982950.4 N -62", &point, Outcome::BadZone},
    {"Zone0", "500000.0 E, 4982950.4 N 0", &point, Outcome::BadZone},
};

class ReadUTM : public testing::TestWithParam<UTMRow> {};

TEST_P(ReadUTM, AgainstTheReferenceInverse) {
    const UTMRow& r = GetParam();
    RecordingMessageBox box;
    const ParsedPosition p = parseUTMText(r.text, *r.locale, box);
    EXPECT_FALSE(p.searchFailed) << p.errorText.toStdString();
    if (r.outcome != Outcome::Read) {
        EXPECT_EQ(p.lon, missing);
        EXPECT_EQ(p.lat, missing);
        EXPECT_EQ(box.shown,
                  r.outcome == Outcome::LeftAlone
                      ? QStringList()
                      : QStringList({"Invalid grid zone format", "Unable to translate UTM to LL"}));
        return;
    }
    double lat = 0, lon = 0;
    GeographicLib::TransverseMercator::UTM().Reverse((r.zone - 1) * 6.0 - 177, r.easting - 500000,
                                                     r.north ? r.northing : r.northing - 1e7, lat,
                                                     lon);
    EXPECT_TRUE(box.shown.isEmpty()) << box.shown.join('|').toStdString();
    EXPECT_NEAR(p.lat, lat, 2e-8);
    // Zone 61 lies on both sides of the antimeridian.
    EXPECT_NEAR(std::remainder(p.lon - lon, 360.0), 0, 2e-8) << p.lon << " vs " << lon;
}

INSTANTIATE_TEST_SUITE_P(Notation, ReadUTM, testing::ValuesIn(utmRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
