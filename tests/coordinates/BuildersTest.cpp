// The three builders that every location comes from, on the texts and numbers a user types or a
// file holds, hostile ones included. Projected coordinates are checked against GeographicLib's
// exact transverse Mercator (the polar caps are the projection grid's); degrees, minutes and
// seconds against the arithmetic of sexagesimal parts.

#include "coordinates/LatLon_UTM.h"
#include "coordinates/SafeInteger.h"
#include "coordinates/generalModule.h"
#include "support/QStringPrinting.h"
#include "support/RecordingMessageBox.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/TransverseMercatorExact.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <tuple>

using namespace generalModule;

namespace {

constexpr double metreTolerance = 0.0015; // our series against the exact projection
constexpr double degreeTolerance = 2e-8;
constexpr double polar = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();
const QStringList bothMessages{"Invalid grid zone format", "Unable to translate UTM to LL"};

const GeographicLib::TransverseMercatorExact& exactUtm() {
    static const GeographicLib::TransverseMercatorExact tm(
        GeographicLib::Constants::WGS84_a(), GeographicLib::Constants::WGS84_f(), 0.9996);
    return tm;
}

// The record's UTM coordinates against GeographicLib's, on the given central meridian.
void expectProjected(const Vertex& v, double meridian) {
    double x = 0, y = 0;
    exactUtm().Forward(meridian, v.lat, v.lon, x, y);
    EXPECT_NEAR(v.utmE, x + 500000, metreTolerance);
    EXPECT_NEAR(v.utmN, y < 0 ? y + 10000000 : y, metreTolerance);
}

// The parts and letters of a record made from a value: those of |value|, the sign a letter.
void expectParts(double value, std::int64_t degrees, std::int64_t minutes, double seconds,
                 const QString& letter, const char* negative, const char* positive) {
    EXPECT_TRUE(minutes >= 0 && minutes < 60 && seconds >= 0 && seconds < 60) << minutes;
    EXPECT_NEAR(double(degrees) + double(minutes) / 60 + seconds / 3600, std::fabs(value), 1e-9);
    EXPECT_EQ(letter, QString::fromLatin1(value < 0 ? negative : positive));
}

void expectPartsOf(const Vertex& v) {
    expectParts(v.lon, v.lon_degr, v.lon_min, v.lon_sec, v.lon_Hemisphere, "W", "E");
    expectParts(v.lat, v.lat_Degr, v.lat_min, v.lat_sec, v.lat_Hemisphere, "S", "N");
}

// --- Decimal degrees ---------------------------------------------------------------------------

struct DDRow {
    const char* name;
    double lon, lat;
    double meridian; // of the projection; NaN in the polar caps
    std::int64_t zone, band;
};

const DDRow ddRows[] = {
    {"west_north", -120.5, 37.25, -123, 10, 14},
    {"east_south_zone_negative", 151.25, -33.75, 153, -56, 5},
    {"origin", 0, 0, 3, 31, 10},
    {"just_south_of_equator", 3, -0.5, 3, -31, 9},
    {"negative_zero_is_north", 10, -0.0, 9, 32, 10},
    {"lat_84_still_utm", 10, 84, 15, 32, 20},
    {"lat_minus_80_still_utm", 10, -80, 9, -32, 0},
    {"north_polar_cap", -45.5, 88.5, polar, 23, 21},
    {"south_pole_band_minus_1", 0, -90, polar, -31, -1},
};

class FromDecimalDegrees : public testing::TestWithParam<DDRow> {};

TEST_P(FromDecimalDegrees, FillsEveryNotation) {
    const DDRow& r = GetParam();
    const VertexRef v = vertexFromDD(r.lon, r.lat);
    EXPECT_EQ(v->lon, r.lon);
    EXPECT_EQ(v->lat, r.lat);
    EXPECT_EQ(*v->utmZ, (UtmZone{0, r.zone, r.band}));
    expectPartsOf(*v);
    if (!std::isnan(r.meridian))
        expectProjected(*v, r.meridian);
}

INSTANTIATE_TEST_SUITE_P(Builders, FromDecimalDegrees, testing::ValuesIn(ddRows),
                         [](const auto& row) { return std::string(row.param.name); });

// Absurd values from a file: a record all the same, and no undefined behaviour on the way.
TEST(FromDecimalDegreesAbsurd, StillARecord) {
    const double absurd[][2] = {{1e300, polar}, {-1e300, 1e300}, {inf, 0.0}};
    for (const auto& [lon, lat] : absurd)
        EXPECT_NE(vertexFromDD(lon, lat), nullptr);
}

// --- Degrees, minutes, seconds -----------------------------------------------------------------

const QString digits(100000, QLatin1Char('1'));
const QString quotes(1 << 20, QLatin1Char('"'));
const QString marks = QString::fromUtf8("°'\" ").repeated(100000);
const QString nuls(1000, QChar(0));
const QString surrogates(1000, QChar(0xD800));

struct DMSRow {
    const char* name;
    QString text;
    double value;
    std::int64_t degrees, minutes;
    double seconds;
    QString letter; // empty: nothing read, the coordinate and its parts keep their defaults
};

const DMSRow dmsRows[] = {
    {"minus_zero_degrees_negates_parts", "-0° 10' 01\" E", -(10 / 60.0 + 1 / 3600.0), 0, 10, 1,
     "E"},
    {"minus_negates_whole_angle", "-120° 30' 36\" E", -120.51, -120, 30, 36, "E"},
    {"south_in_lower_case", "34° 37' 30\" s", -34.625, 34, 37, 30, "s"},
    {"minus_and_letter_stay_negative", "-58° 22' 30\" W", -58.375, -58, 22, 30, "W"},
    {"seconds_left_out", "151° 12' E", 151.2, 151, 12, 0, "E"},
    {"two_digits_split_into_degrees_and_minutes", "45 N", 4 + 5 / 60.0, 4, 5, 0, "N"},
    // Texts pasted from a word processor carry curly quotes.
    {"curly_quotes", "45° 30’ 15.5” N", 45 + 30 / 60.0 + 15.5 / 3600, 45, 30, 15.5, "N"},
    {"curly_left_double_quote", "8° 0’ 1“W", -(8 + 1 / 3600.0), 8, 0, 1, "W"},
    {"no_letter", "45° 30' 15\"", 0, 0, 0, 0, ""},
    {"empty", "", 0, 0, 0, 0, ""},
    // Hostile texts: nothing readable, or a value found after the junk. A long run of digits
    // followed by text that defeats the match took the regular-expression engine seconds.
    {"hundred_thousand_digits", digits, 0, 0, 0, 0, ""},
    {"value_after_digits_and_letter", digits + "x 12 30 N", 12.5, 12, 30, 0, "N"},
    {"digits_then_two_degree_signs", digits + "°° ", 0, 0, 0, 0, ""},
    {"digits_quote_digits", digits + "'" + digits, 0, 0, 0, 0, ""},
    {"lone_surrogates", surrogates, 0, 0, 0, 0, ""},
    {"nul_characters", nuls, 0, 0, 0, 0, ""},
    {"megabyte_of_quotes", quotes, 0, 0, 0, 0, ""},
    {"marks_without_digits", marks, 0, 0, 0, 0, ""},
    {"minus_signs", QString(100000, QLatin1Char('-')), 0, 0, 0, 0, ""},
    {"marks_between_digits", QString::fromUtf8("-1°'\" ").repeated(50000), 0, 0, 0, 0, ""},
    // Degrees beyond any double: the value is infinite and the stored degrees clamp.
    {"hundred_thousand_digit_degrees", digits + " N", inf, integerLimit, 1, 0, "N"},
    {"hundred_thousand_digit_seconds", "1 2 " + digits + " W", -inf, 1, 2, inf, "W"},
    // Any one character after the seconds is the letter.
    {"nul_as_letter", "45 30 00 " + QString(QChar(0)), 45.5, 45, 30, 0, QString(QChar(0))},
    {"surrogate_as_letter", "45 30 00 " + QString(QChar(0xD800)), 45.5, 45, 30, 0,
     QString(QChar(0xD800))},
    {"surrogates_around_value", QChar(0xDC00) + QString("45° 30' 00\" N") + QChar(0xD800), 45.5, 45,
     30, 0, "N"},
    {"digit_as_letter", QString("1 ").repeated(100000), 1 + 1 / 60.0 + 1 / 3600.0, 1, 1, 1, "1"},
    {"value_after_quotes", quotes + "12° 30' 00\" S", -12.5, 12, 30, 0, "S"},
    {"value_after_marks", marks + "12° 30' 00\" W", -12.5, 12, 30, 0, "W"},
};

class FromDMS : public testing::TestWithParam<DMSRow> {};

// The text read as a longitude and as a latitude: the value with the sign the text gives, the
// parts as typed, and the UTM coordinates of the place.
TEST_P(FromDMS, ReadsValueAndKeepsThePartsAsTyped) {
    const DMSRow& r = GetParam();
    const VertexRef asLon = vertexFromDMS(r.text, QStringLiteral("45 30 0 N"));
    const VertexRef asLat = vertexFromDMS(QStringLiteral("9 0 0 E"), r.text);
    const bool read = !r.letter.isEmpty();
    const auto parts = std::tuple(r.degrees, r.minutes, r.seconds);
    EXPECT_TRUE(asLon->lon == r.value || std::fabs(asLon->lon - r.value) < 1e-12) << asLon->lon;
    EXPECT_EQ(std::tuple(asLon->lon_degr, asLon->lon_min, asLon->lon_sec), parts);
    EXPECT_EQ(asLon->lon_Hemisphere, read ? r.letter : QStringLiteral("E"));
    EXPECT_TRUE(asLat->lat == r.value || std::fabs(asLat->lat - r.value) < 1e-12) << asLat->lat;
    EXPECT_EQ(std::tuple(asLat->lat_Degr, asLat->lat_min, asLat->lat_sec), parts);
    EXPECT_EQ(asLat->lat_Hemisphere, read ? r.letter : QStringLiteral("N"));
    EXPECT_EQ((*asLat->utmZ)[1] < 0, r.value < 0);
    if (std::fabs(r.value) <= 180)
        expectProjected(*asLon, std::floor((r.value + 180) / 6) * 6 - 177);
    if (std::fabs(r.value) <= 80)
        expectProjected(*asLat, 9);
}

INSTANTIATE_TEST_SUITE_P(Builders, FromDMS, testing::ValuesIn(dmsRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- UTM ---------------------------------------------------------------------------------------

struct UTMRow {
    const char* name;
    double easting, northing;
    QString zoneText;
    std::int64_t zone;   // as the record keeps it: signed by the latitude when read
    std::int64_t marker; // 5 south, 15 north, from the zone text
    bool valid;          // false: both messages, and the location stays at 0, 0
};

const UTMRow utmRows[] = {
    {"no_letter_is_north", 500000, 4982950.4, "32", 32, 15, true},
    {"minus_sign_is_south", 333471.8, 6253018.2, "-56", -56, 5, true},
    {"south_letter_in_lower_case_without_blank", 333471.8, 6253018.2, "56s", -56, 5, true},
    {"minus_sign_wins_over_north_letter", 333471.8, 6253018.2, "-56 N", -56, 5, true},
    {"band_letter_is_not_a_hemisphere", 500000, 4982950.4, "32T", 32, 15, true},
    {"single_digit", 640000, 7200000, "7", 7, 15, true},
    {"text_before_zone", 500000, 4982950.4, "zone 32", 32, 15, true},
    // A northing above the false northing is north of the equator even in the south.
    {"zone_sign_follows_latitude", 500000, 10500000, "32 S", 32, 5, true},
    {"hundred_thousand_digits_read_as_two", 500000, 4982950.4, digits, 11, 15, true},
    {"zone_after_quotes", 500000, 4982950.4, quotes + "32", 32, 15, true},
    {"nul_after_zone", 500000, 4982950.4, "32" + QString(QChar(0)), 32, 15, true},
    // A lone surrogate made the pattern engine refuse the whole zone text: the zone was lost.
    {"lone_surrogate_after_zone", 500000, 4982950.4, "32" + QString(QChar(0xD800)), 32, 15, true},
    {"empty", 500000, 4982950.4, "", 0, 15, false},
    {"minus_zero_south", 500000, 4982950.4, "-0 S", 0, 15, false},
    {"zone_62", 500000, 4982950.4, "62", 62, 15, false},
    {"zone_minus_62", 500000, 4982950.4, "-62", 62, 5, false},
    {"lone_surrogates", 500000, 4982950.4, surrogates, 0, 15, false},
    {"marks_without_digits", 500000, 4982950.4, marks, 0, 15, false},
    {"minus_signs", 500000, 4982950.4, QString(100000, QLatin1Char('-')), 0, 15, false},
};

class FromUTM : public testing::TestWithParam<UTMRow> {};

TEST_P(FromUTM, LocationByTheExactInverseOrBothMessages) {
    const UTMRow& r = GetParam();
    RecordingMessageBox box;
    const VertexRef v = vertexFromUTM(r.easting, r.northing, r.zoneText, box);
    EXPECT_EQ(std::tuple(v->utmE, v->utmN), std::tuple(r.easting, r.northing));
    EXPECT_EQ(*v->utmZ, (UtmZone{0, r.zone, r.marker}));
    if (!r.valid) {
        EXPECT_EQ(box.shown, bothMessages);
        EXPECT_EQ(std::tuple(v->lat, v->lon), std::tuple(0.0, 0.0));
        expectPartsOf(*v);
        return;
    }
    EXPECT_TRUE(box.shown.isEmpty()) << box.shown.join(" / ").toStdString();
    double lon = 0, lat = 0;
    const double meridian = (std::llabs(r.zone) - 1) * 6.0 - 177;
    exactUtm().Reverse(meridian, r.easting - 500000,
                       r.marker == 5 ? r.northing - 10000000 : r.northing, lat, lon);
    EXPECT_NEAR(v->lat, lat, degreeTolerance);
    EXPECT_NEAR(v->lon, lon, degreeTolerance);
    expectPartsOf(*v);
}

INSTANTIATE_TEST_SUITE_P(Builders, FromUTM, testing::ValuesIn(utmRows),
                         [](const auto& row) { return std::string(row.param.name); });

// An easting or northing read as NaN or infinity from a file: the zone is good, so nothing is
// reported, and the location is no number rather than a made-up place.
TEST(FromUTMNonFinite, NoMessageAndNoLocation) {
    const double notANumber[][2] = {
        {polar, 4982950.4}, {500000, polar}, {inf, 4982950.4}, {500000, -inf}};
    for (const auto& [e, n] : notANumber) {
        RecordingMessageBox box;
        const VertexRef v = vertexFromUTM(e, n, QStringLiteral("32"), box);
        EXPECT_TRUE(box.shown.isEmpty());
        EXPECT_FALSE(std::isfinite(v->lat) && std::isfinite(v->lon)) << e << " " << n;
    }
}

// The smallest 64-bit zone has no positive counterpart: it must be refused, not overflow.
TEST(Inverse, SmallestIntegerZoneIsRefusedAndKeepsTheOutputs) {
    double lon = 123, lat = 45;
    RecordingMessageBox box;
    LatLon_UTM::utm2ll(500000, 4982950.4, lon, lat, UtmZone{0, INT64_MIN, 15}, LatLon_UTM::wgs84,
                       box);
    EXPECT_EQ(box.shown, bothMessages);
    EXPECT_EQ(lon, 123);
    EXPECT_EQ(lat, 45);
}

// A row clicked in the table is edited as a copy: every field of the record, the same.
TEST(Clone, CopiesEveryField) {
    RecordingMessageBox box;
    const VertexRef source = vertexFromUTM(333471.8, 6253018.2, QStringLiteral("56 S"), box);
    source->label = QStringLiteral("Opera House");
    source->checked = false;
    source->selected = true;
    source->saved = true;
    const VertexRef copy = cloneLocation(*source);
    ASSERT_NE(copy, source);
    const auto fields = [](const Vertex& v) {
        return std::tuple(v.lat, v.lon, v.utmE, v.utmN, *v.utmZ, v.lat_Degr, v.lat_min, v.lat_sec,
                          v.lon_degr, v.lon_min, v.lon_sec, v.lat_Hemisphere, v.lon_Hemisphere,
                          v.label, v.checked, v.selected, v.saved);
    };
    EXPECT_TRUE(fields(*copy) == fields(*source));
}

} // namespace
