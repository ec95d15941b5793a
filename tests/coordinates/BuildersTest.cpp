// The three builders that every location comes from, and the record they fill. Coordinates are
// checked against GeographicLib's exact transverse Mercator and polar stereographic
// projections; sexagesimal values are checked against the arithmetic of degrees, minutes and
// seconds written out in the tables.

#include "coordinates/LatLon_UTM.h"
#include "coordinates/Vertex.h"
#include "coordinates/generalModule.h"
#include "support/RecordingMessageBox.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/TransverseMercatorExact.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <random>
#include <string>

using namespace generalModule;

namespace {

// Our series against the exact projection: about 1 mm at worst across a zone, 1e-8 degree
// back. The tolerances leave room for that and nothing more.
constexpr double metreTolerance = 0.0015;
constexpr double degreeTolerance = 1e-7;

const GeographicLib::TransverseMercatorExact& exactUtm() {
    static const GeographicLib::TransverseMercatorExact tm(
        GeographicLib::Constants::WGS84_a(), GeographicLib::Constants::WGS84_f(), 0.9996);
    return tm;
}

double zoneMeridian(std::int64_t zone) {
    return static_cast<double>((zone - 1) * 6 - 180 + 3);
}

// UTM or UPS coordinates of a location by GeographicLib; meridian NaN means the polar caps.
void referenceForward(double meridian, double lon, double lat, double& easting, double& northing) {
    double x = 0, y = 0;
    if (std::isnan(meridian)) {
        GeographicLib::PolarStereographic::UPS().Forward(lat > 0, lat, lon, x, y);
        easting = x + 2000000;
        northing = y + 2000000;
        return;
    }
    exactUtm().Forward(meridian, lat, lon, x, y);
    easting = x + 500000;
    northing = y < 0 ? y + 10000000 : y;
}

// Location of UTM coordinates by GeographicLib.
void referenceInverse(std::int64_t zone, bool south, double easting, double northing, double& lon,
                      double& lat) {
    exactUtm().Reverse(zoneMeridian(zone), easting - 500000, south ? northing - 10000000 : northing,
                       lat, lon);
}

// Longitudes that name the same meridian (183 and -177 beyond zone 60) compare equal.
double longitudeDifference(double a, double b) {
    return std::remainder(a - b, 360.0);
}

// Degrees, minutes and seconds of a record put back together: the magnitude of the value.
void expectPartsOf(double value, std::int64_t degrees, std::int64_t minutes, double seconds) {
    EXPECT_GE(minutes, 0);
    EXPECT_LT(minutes, 60);
    EXPECT_GE(seconds, 0);
    EXPECT_LT(seconds, 60);
    EXPECT_NEAR(static_cast<double>(degrees) + static_cast<double>(minutes) / 60 + seconds / 3600,
                std::fabs(value), 1e-9);
}

const double polar = std::numeric_limits<double>::quiet_NaN();

// ---------------------------------------------------------------------------------------------

TEST(VertexRecord, DefaultsOfANewRecord) {
    const Vertex v;
    EXPECT_EQ(v.lat, 0);
    EXPECT_EQ(v.lon, 0);
    EXPECT_EQ(v.utmE, 0);
    EXPECT_EQ(v.utmN, 0);
    ASSERT_NE(v.utmZ, nullptr);
    EXPECT_EQ(*v.utmZ, (UtmZone{0, 0, 0}));
    EXPECT_EQ(v.lat_Degr, 0);
    EXPECT_EQ(v.lat_min, 0);
    EXPECT_EQ(v.lat_sec, 0);
    EXPECT_EQ(v.lon_degr, 0);
    EXPECT_EQ(v.lon_min, 0);
    EXPECT_EQ(v.lon_sec, 0);
    // Letters for a location at 0, 0 all the same.
    EXPECT_EQ(v.lat_Hemisphere, QStringLiteral("N"));
    EXPECT_EQ(v.lon_Hemisphere, QStringLiteral("E"));
    EXPECT_TRUE(v.checked);
    EXPECT_FALSE(v.selected);
    EXPECT_FALSE(v.saved);
    EXPECT_TRUE(v.label.isEmpty());
}

TEST(VertexRecord, EveryRecordHasItsOwnZoneArray) {
    const Vertex first, second;
    EXPECT_NE(first.utmZ, second.utmZ);
    (*first.utmZ)[1] = 33;
    EXPECT_EQ((*second.utmZ)[1], 0);
}

TEST(VertexRecord, CloneEqualsSourceInEveryField) {
    Vertex source;
    source.lat = -33.85;
    source.lon = 151.2;
    source.utmE = 333471.815;
    source.utmN = 6253018.169;
    *source.utmZ = UtmZone{0, -56, 5};
    source.lat_Degr = 33;
    source.lat_min = 51;
    source.lat_sec = 0.5;
    source.lon_degr = 151;
    source.lon_min = 12;
    source.lon_sec = 1.25;
    source.lat_Hemisphere = QStringLiteral("S");
    source.lon_Hemisphere = QStringLiteral("W");
    source.checked = false;
    source.selected = true;
    source.label = QStringLiteral("Opera House");
    source.saved = true;

    const VertexRef clone = cloneLocation(source);
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone.get(), &source);
    EXPECT_EQ(clone->lat, source.lat);
    EXPECT_EQ(clone->lon, source.lon);
    EXPECT_EQ(clone->utmE, source.utmE);
    EXPECT_EQ(clone->utmN, source.utmN);
    EXPECT_EQ(clone->lat_Degr, source.lat_Degr);
    EXPECT_EQ(clone->lat_min, source.lat_min);
    EXPECT_EQ(clone->lat_sec, source.lat_sec);
    EXPECT_EQ(clone->lon_degr, source.lon_degr);
    EXPECT_EQ(clone->lon_min, source.lon_min);
    EXPECT_EQ(clone->lon_sec, source.lon_sec);
    EXPECT_EQ(clone->lat_Hemisphere, source.lat_Hemisphere);
    EXPECT_EQ(clone->lon_Hemisphere, source.lon_Hemisphere);
    EXPECT_EQ(clone->checked, source.checked);
    EXPECT_EQ(clone->selected, source.selected);
    EXPECT_EQ(clone->label, source.label);
    EXPECT_EQ(clone->saved, source.saved);
    // The zone array is shared, not copied.
    EXPECT_EQ(clone->utmZ, source.utmZ);
}

TEST(VertexRecord, CloneOfADefaultRecordKeepsTheDefaults) {
    const Vertex source;
    const VertexRef clone = cloneLocation(source);
    EXPECT_TRUE(clone->checked);
    EXPECT_FALSE(clone->selected);
    EXPECT_FALSE(clone->saved);
    EXPECT_EQ(clone->lat_Hemisphere, QStringLiteral("N"));
    EXPECT_EQ(clone->lon_Hemisphere, QStringLiteral("E"));
}

TEST(VertexRecord, RenamingACloneLeavesTheSource) {
    Vertex source;
    source.label = QStringLiteral("Camp");
    const VertexRef clone = cloneLocation(source);
    clone->label = QStringLiteral("Summit");
    clone->saved = true;
    EXPECT_EQ(source.label, QStringLiteral("Camp"));
    EXPECT_FALSE(source.saved);
}

// ---------------------------------------------------------------------------------------------

struct DDCase {
    const char* name;
    double lon, lat;
    double meridian; // of the projection, for the reference; NaN in the polar caps
    std::int64_t zone, band;
    std::int64_t lonDegrees, lonMinutes;
    double lonSeconds;
    const char* lonLetter;
    std::int64_t latDegrees, latMinutes;
    double latSeconds;
    const char* latLetter;
};

void PrintTo(const DDCase& c, std::ostream* out) {
    *out << c.name;
}

// Values with exact binary fractions, so that the parts are exact too.
const DDCase ddCases[] = {
    {"west_north", -120.5, 37.25, -123, 10, 14, 120, 30, 0, "W", 37, 15, 0, "N"},
    {"east_south_zone_negative", 151.25, -33.75, 153, -56, 5, 151, 15, 0, "E", 33, 45, 0, "S"},
    {"west_south", -58.375, -34.625, -57, -21, 5, 58, 22, 30, "W", 34, 37, 30, "S"},
    {"origin", 0, 0, 3, 31, 10, 0, 0, 0, "E", 0, 0, 0, "N"},
    {"just_south_of_equator", 3, -0.5, 3, -31, 9, 3, 0, 0, "E", 0, 30, 0, "S"},
    {"negative_zero_is_north", 10, -0.0, 9, 32, 10, 10, 0, 0, "E", 0, 0, 0, "N"},
    {"antimeridian_zone_61", 180, 0.5, 183, 61, 10, 180, 0, 0, "E", 0, 30, 0, "N"},
    {"minus_180_zone_1", -180, 10.125, -177, 1, 11, 180, 0, 0, "W", 10, 7, 30, "N"},
    {"norway_cell_meridian", 5.5, 60.5, 7.5, 31, 17, 5, 30, 0, "E", 60, 30, 0, "N"},
    {"svalbard_cell_meridian", 10.5, 78.25, 15, 32, 19, 10, 30, 0, "E", 78, 15, 0, "N"},
    {"north_polar_cap", -45.5, 88.5, polar, 23, 21, 45, 30, 0, "W", 88, 30, 0, "N"},
    {"south_pole_band_minus_1", 0, -90, polar, -31, -1, 0, 0, 0, "E", 90, 0, 0, "S"},
};

class FromDecimalDegrees : public testing::TestWithParam<DDCase> {};

TEST_P(FromDecimalDegrees, FillsEveryNotation) {
    const DDCase& c = GetParam();
    const VertexRef v = vertexFromDD(c.lon, c.lat);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->lon, c.lon);
    EXPECT_EQ(v->lat, c.lat);
    EXPECT_EQ((*v->utmZ)[0], 0);
    EXPECT_EQ((*v->utmZ)[1], c.zone);
    EXPECT_EQ((*v->utmZ)[2], c.band);
    EXPECT_EQ(v->lon_degr, c.lonDegrees);
    EXPECT_EQ(v->lon_min, c.lonMinutes);
    EXPECT_EQ(v->lon_sec, c.lonSeconds);
    EXPECT_EQ(v->lon_Hemisphere, QString::fromUtf8(c.lonLetter));
    EXPECT_EQ(v->lat_Degr, c.latDegrees);
    EXPECT_EQ(v->lat_min, c.latMinutes);
    EXPECT_EQ(v->lat_sec, c.latSeconds);
    EXPECT_EQ(v->lat_Hemisphere, QString::fromUtf8(c.latLetter));

    double e = 0, n = 0;
    referenceForward(c.meridian, c.lon, c.lat, e, n);
    EXPECT_NEAR(v->utmE, e, metreTolerance);
    EXPECT_NEAR(v->utmN, n, metreTolerance);
}

// What the user attaches to a location is not the builder's business.
TEST_P(FromDecimalDegrees, LeavesTheUsersFieldsAtTheirDefaults) {
    const VertexRef v = vertexFromDD(GetParam().lon, GetParam().lat);
    EXPECT_TRUE(v->checked);
    EXPECT_FALSE(v->selected);
    EXPECT_FALSE(v->saved);
    EXPECT_TRUE(v->label.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Builders, FromDecimalDegrees, testing::ValuesIn(ddCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct Quadrant {
    const char* name;
    double lonFrom, lonTo, latFrom, latTo;
};

void PrintTo(const Quadrant& c, std::ostream* out) {
    *out << c.name;
}

class FromDecimalDegreesAnywhere : public testing::TestWithParam<Quadrant> {};

// Any location: the parts are those of |v|, the letters and the zone's sign follow the signs.
TEST_P(FromDecimalDegreesAnywhere, PartsLettersAndZoneSign) {
    const Quadrant& q = GetParam();
    std::mt19937_64 random(4242);
    std::uniform_real_distribution<double> lonOf(q.lonFrom, q.lonTo);
    std::uniform_real_distribution<double> latOf(q.latFrom, q.latTo);
    for (int i = 0; i < 2000; ++i) {
        const double lon = lonOf(random), lat = latOf(random);
        const VertexRef v = vertexFromDD(lon, lat);
        SCOPED_TRACE(testing::Message() << "lon " << lon << " lat " << lat);
        expectPartsOf(lon, v->lon_degr, v->lon_min, v->lon_sec);
        expectPartsOf(lat, v->lat_Degr, v->lat_min, v->lat_sec);
        EXPECT_EQ(v->lon_Hemisphere, lon < 0 ? QStringLiteral("W") : QStringLiteral("E"));
        EXPECT_EQ(v->lat_Hemisphere, lat < 0 ? QStringLiteral("S") : QStringLiteral("N"));
        EXPECT_EQ((*v->utmZ)[1] < 0, lat < 0);
        EXPECT_EQ((*v->utmZ)[0], 0);
        if (::testing::Test::HasFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Builders, FromDecimalDegreesAnywhere,
                         testing::Values(Quadrant{"north_east", 0, 180, 0, 90},
                                         Quadrant{"north_west", -180, 0, 0, 90},
                                         Quadrant{"south_east", 0, 180, -90, 0},
                                         Quadrant{"south_west", -180, 0, -90, 0}),
                         [](const auto& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct DMSCase {
    const char* name;
    const char* lonText;
    const char* latText;
    double lon, lat; // the sum of the parts, with the sign the text gives
    std::int64_t lonDegrees, lonMinutes;
    double lonSeconds;
    const char* lonLetter;
    std::int64_t latDegrees, latMinutes;
    double latSeconds;
    const char* latLetter;
    std::int64_t zone, band;
};

void PrintTo(const DMSCase& c, std::ostream* out) {
    *out << c.name;
}

const DMSCase dmsCases[] = {
    {"degree_minute_second_quotes", "9° 10' 20\" E", "45° 30' 15.5\" N",
     9 + 10 / 60.0 + 20 / 3600.0, 45 + 30 / 60.0 + 15.5 / 3600, 9, 10, 20, "E", 45, 30, 15.5, "N",
     32, 15},
    {"blanks_only", "9 10 20 E", "45 30 15.5 N", 9 + 10 / 60.0 + 20 / 3600.0,
     45 + 30 / 60.0 + 15.5 / 3600, 9, 10, 20, "E", 45, 30, 15.5, "N", 32, 15},
    {"minus_before_zero_degrees_negates_parts", "-0° 10' 01\" E", "45° 30' 00\" N",
     -(10 / 60.0 + 1 / 3600.0), 45.5, 0, 10, 1, "E", 45, 30, 0, "N", 30, 15},
    {"minus_negates_whole_angle", "-120° 30' 36\" E", "-33° 45' 00\" N",
     -(120 + 30 / 60.0 + 36 / 3600.0), -33.75, -120, 30, 36, "E", -33, 45, 0, "N", -10, 5},
    {"west_and_south_letters", "58° 22' 30\" W", "34° 37' 30\" S", -58.375, -34.625, 58, 22, 30,
     "W", 34, 37, 30, "S", -21, 5},
    {"letters_in_lower_case", "58° 22' 30\" w", "34° 37' 30\" s", -58.375, -34.625, 58, 22, 30, "w",
     34, 37, 30, "s", -21, 5},
    {"west_on_latitude_and_south_on_longitude", "58° 22' 30\" S", "34° 37' 30\" W", -58.375,
     -34.625, 58, 22, 30, "S", 34, 37, 30, "W", -21, 5},
    {"minus_and_letter_stay_negative", "-58° 22' 30\" W", "-34° 37' 30\" S", -58.375, -34.625, -58,
     22, 30, "W", -34, 37, 30, "S", -21, 5},
    {"seconds_left_out", "151° 12' E", "33° 51' S", 151 + 12 / 60.0, -(33 + 51 / 60.0), 151, 12, 0,
     "E", 33, 51, 0, "S", -56, 5},
    {"no_blank_after_degree_sign_nor_letter", "9°10' 0\"E", "45°30' 0\"N", 9 + 10 / 60.0, 45.5, 9,
     10, 0, "E", 45, 30, 0, "N", 32, 15},
    {"two_digits_split_between_degrees_and_minutes", "9 10 20 E", "45 N",
     9 + 10 / 60.0 + 20 / 3600.0, 4 + 5 / 60.0, 9, 10, 20, "E", 4, 5, 0, "N", 32, 10},
    // Texts that give no value leave that coordinate at 0 and its parts at their defaults.
    {"latitude_without_letter", "9 10 20 E", "45° 30' 15\"", 9 + 10 / 60.0 + 20 / 3600.0, 0, 9, 10,
     20, "E", 0, 0, 0, "N", 32, 10},
    {"latitude_without_blank_after_minutes", "9 10 20 E", "45°30'15\"N",
     9 + 10 / 60.0 + 20 / 3600.0, 0, 9, 10, 20, "E", 0, 0, 0, "N", 32, 10},
    {"longitude_letter_only", "W", "45 30 15.5 N", 0, 45 + 30 / 60.0 + 15.5 / 3600, 0, 0, 0, "E",
     45, 30, 15.5, "N", 31, 15},
    {"both_empty", "", "", 0, 0, 0, 0, 0, "E", 0, 0, 0, "N", 31, 10},
};

class FromDMS : public testing::TestWithParam<DMSCase> {};

TEST_P(FromDMS, ReadsValuesAndKeepsPartsAsTyped) {
    const DMSCase& c = GetParam();
    const VertexRef v = vertexFromDMS(QString::fromUtf8(c.lonText), QString::fromUtf8(c.latText));
    ASSERT_NE(v, nullptr);
    EXPECT_NEAR(v->lon, c.lon, 1e-12);
    EXPECT_NEAR(v->lat, c.lat, 1e-12);
    EXPECT_EQ(v->lon_degr, c.lonDegrees);
    EXPECT_EQ(v->lon_min, c.lonMinutes);
    EXPECT_EQ(v->lon_sec, c.lonSeconds);
    EXPECT_EQ(v->lon_Hemisphere, QString::fromUtf8(c.lonLetter));
    EXPECT_EQ(v->lat_Degr, c.latDegrees);
    EXPECT_EQ(v->lat_min, c.latMinutes);
    EXPECT_EQ(v->lat_sec, c.latSeconds);
    EXPECT_EQ(v->lat_Hemisphere, QString::fromUtf8(c.latLetter));
    EXPECT_EQ((*v->utmZ)[0], 0);
    EXPECT_EQ((*v->utmZ)[1], c.zone);
    EXPECT_EQ((*v->utmZ)[2], c.band);

    double e = 0, n = 0;
    referenceForward(zoneMeridian(std::llabs(c.zone)), c.lon, c.lat, e, n);
    EXPECT_NEAR(v->utmE, e, metreTolerance);
    EXPECT_NEAR(v->utmN, n, metreTolerance);
    EXPECT_TRUE(v->checked);
    EXPECT_FALSE(v->saved);
}

INSTANTIATE_TEST_SUITE_P(Builders, FromDMS, testing::ValuesIn(dmsCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct QuoteCase {
    const char* name;
    const char* typographic;
    const char* plain;
};

void PrintTo(const QuoteCase& c, std::ostream* out) {
    *out << c.name;
}

// Texts pasted from a word processor carry curly quotes.
const QuoteCase quoteCases[] = {
    {"right_single_and_right_double", "45° 30\u2019 15.5\u201D N", "45° 30' 15.5\" N"},
    {"left_double", "45° 30\u2019 15.5\u201C N", "45° 30' 15.5\" N"},
    {"south_with_curly_quotes", "33° 51\u2019 36\u201D S", "33° 51' 36\" S"},
    {"no_blank_before_letter", "8° 0\u2019 1\u201DW", "8° 0' 1\"W"},
};

void expectSameRecord(const Vertex& a, const Vertex& b) {
    EXPECT_EQ(a.lat, b.lat);
    EXPECT_EQ(a.lon, b.lon);
    EXPECT_EQ(a.utmE, b.utmE);
    EXPECT_EQ(a.utmN, b.utmN);
    EXPECT_EQ(*a.utmZ, *b.utmZ);
    EXPECT_EQ(a.lat_Degr, b.lat_Degr);
    EXPECT_EQ(a.lat_min, b.lat_min);
    EXPECT_EQ(a.lat_sec, b.lat_sec);
    EXPECT_EQ(a.lon_degr, b.lon_degr);
    EXPECT_EQ(a.lon_min, b.lon_min);
    EXPECT_EQ(a.lon_sec, b.lon_sec);
    EXPECT_EQ(a.lat_Hemisphere, b.lat_Hemisphere);
    EXPECT_EQ(a.lon_Hemisphere, b.lon_Hemisphere);
}

class FromDMSWithCurlyQuotes : public testing::TestWithParam<QuoteCase> {};

TEST_P(FromDMSWithCurlyQuotes, SameRecordAsPlainQuotes) {
    const QuoteCase& c = GetParam();
    const QString typographic = QString::fromUtf8(c.typographic);
    const QString plain = QString::fromUtf8(c.plain);
    const VertexRef fromPlain = vertexFromDMS(plain, plain);
    // A value must come out of it, or the comparison proves nothing.
    ASSERT_NE(fromPlain->lat, 0);
    ASSERT_NE(fromPlain->lon, 0);
    expectSameRecord(*vertexFromDMS(typographic, typographic), *fromPlain);
    expectSameRecord(*vertexFromDMS(typographic, plain), *fromPlain);
    expectSameRecord(*vertexFromDMS(plain, typographic), *fromPlain);
}

INSTANTIATE_TEST_SUITE_P(Builders, FromDMSWithCurlyQuotes, testing::ValuesIn(quoteCases),
                         [](const auto& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct UTMCase {
    const char* name;
    double easting, northing;
    const char* zoneText;
    std::int64_t zone;   // as the record ends: signed by the computed latitude
    std::int64_t marker; // 5 south, 15 north, from the zone text
};

void PrintTo(const UTMCase& c, std::ostream* out) {
    *out << c.name;
}

const UTMCase utmCases[] = {
    {"no_letter_is_north", 500000, 4982950.4, "32", 32, 15},
    {"north_letter", 500000, 4982950.4, "32 N", 32, 15},
    {"south_letter", 333471.8, 6253018.2, "56 S", -56, 5},
    {"minus_sign_is_south", 333471.8, 6253018.2, "-56", -56, 5},
    {"south_letter_in_lower_case", 333471.8, 6253018.2, "56 s", -56, 5},
    {"south_letter_without_blank", 333471.8, 6253018.2, "56S", -56, 5},
    {"minus_sign_wins_over_north_letter", 333471.8, 6253018.2, "-56 N", -56, 5},
    {"band_letter_is_not_a_hemisphere", 500000, 4982950.4, "32T", 32, 15},
    {"three_digits_read_as_two", 500000, 4982950.4, "123", 12, 15},
    {"single_digit", 640000, 7200000, "7", 7, 15},
    {"text_before_zone", 500000, 4982950.4, "zone 32", 32, 15},
    {"zone_61", 400000, 1000000, "61", 61, 15},
    {"west_of_greenwich", 450000, 4000000, "10", 10, 15},
    {"south_west", 700000, 8000000, "19 S", -19, 5},
    // A northing above the false northing is north of the equator even in the south.
    {"zone_sign_follows_latitude", 500000, 10500000, "32 S", 32, 5},
};

class FromUTM : public testing::TestWithParam<UTMCase> {};

TEST_P(FromUTM, LocationMatchesTheExactInverse) {
    const UTMCase& c = GetParam();
    RecordingMessageBox box;
    const VertexRef v = vertexFromUTM(c.easting, c.northing, QString::fromUtf8(c.zoneText), box);
    ASSERT_NE(v, nullptr);
    EXPECT_TRUE(box.shown.isEmpty()) << box.shown.join(QStringLiteral(" / ")).toStdString();
    EXPECT_EQ(v->utmE, c.easting);
    EXPECT_EQ(v->utmN, c.northing);
    EXPECT_EQ((*v->utmZ)[0], 0);
    EXPECT_EQ((*v->utmZ)[1], c.zone);
    EXPECT_EQ((*v->utmZ)[2], c.marker);

    double lon = 0, lat = 0;
    referenceInverse(std::llabs(c.zone), c.marker == 5, c.easting, c.northing, lon, lat);
    EXPECT_NEAR(v->lat, lat, degreeTolerance);
    EXPECT_NEAR(longitudeDifference(v->lon, lon), 0, degreeTolerance) << v->lon << " vs " << lon;

    expectPartsOf(v->lon, v->lon_degr, v->lon_min, v->lon_sec);
    expectPartsOf(v->lat, v->lat_Degr, v->lat_min, v->lat_sec);
    EXPECT_EQ(v->lon_Hemisphere, v->lon < 0 ? QStringLiteral("W") : QStringLiteral("E"));
    EXPECT_EQ(v->lat_Hemisphere, v->lat < 0 ? QStringLiteral("S") : QStringLiteral("N"));
    EXPECT_TRUE(v->checked);
    EXPECT_FALSE(v->selected);
    EXPECT_FALSE(v->saved);
}

INSTANTIATE_TEST_SUITE_P(Builders, FromUTM, testing::ValuesIn(utmCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Builders, MinusZoneAndSouthLetterGiveTheSameRecord) {
    RecordingMessageBox box;
    const VertexRef letter = vertexFromUTM(333471.8, 6253018.2, QStringLiteral("56 S"), box);
    const VertexRef minus = vertexFromUTM(333471.8, 6253018.2, QStringLiteral("-56"), box);
    expectSameRecord(*letter, *minus);
    EXPECT_TRUE(box.shown.isEmpty());
}

// The published check value read back: a location near 45 N 9 E.
TEST(Builders, CheckValueComesBackNearItsLocation) {
    RecordingMessageBox box;
    const VertexRef v = vertexFromUTM(500000, 4982950.4, QStringLiteral("32"), box);
    EXPECT_NEAR(v->lat, 45, 1e-6);
    EXPECT_NEAR(v->lon, 9, 1e-9);
}

struct BadZoneCase {
    const char* name;
    const char* zoneText;
    std::int64_t zone;   // index 1 as the record keeps it
    std::int64_t marker; // index 2
};

void PrintTo(const BadZoneCase& c, std::ostream* out) {
    *out << c.name;
}

const BadZoneCase badZoneCases[] = {
    {"empty", "", 0, 15},
    {"no_digits", "abc", 0, 15},
    {"letter_only", "S", 0, 15},
    {"zero", "0", 0, 15},
    {"double_zero", "00", 0, 15},
    {"minus_zero", "-0", 0, 15},
    {"zero_south", "0 S", 0, 15},
    {"zone_62", "62", 62, 15},
    {"zone_62_south", "62 S", 62, 5},
    {"zone_minus_62", "-62", 62, 5},
    {"zone_99", "99", 99, 15},
};

class FromUTMBadZone : public testing::TestWithParam<BadZoneCase> {};

TEST_P(FromUTMBadZone, BothMessagesAndLocationZero) {
    const BadZoneCase& c = GetParam();
    RecordingMessageBox box;
    const VertexRef v = vertexFromUTM(500000, 4982950.4, QString::fromUtf8(c.zoneText), box);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(box.shown, QStringList({QStringLiteral("Invalid grid zone format"),
                                      QStringLiteral("Unable to translate UTM to LL")}));
    EXPECT_EQ(v->lat, 0);
    EXPECT_EQ(v->lon, 0);
    EXPECT_EQ(v->utmE, 500000);
    EXPECT_EQ(v->utmN, 4982950.4);
    EXPECT_EQ(*v->utmZ, (UtmZone{0, c.zone, c.marker}));
    EXPECT_EQ(v->lat_Degr, 0);
    EXPECT_EQ(v->lat_min, 0);
    EXPECT_EQ(v->lat_sec, 0);
    EXPECT_EQ(v->lon_degr, 0);
    EXPECT_EQ(v->lon_min, 0);
    EXPECT_EQ(v->lon_sec, 0);
    EXPECT_EQ(v->lat_Hemisphere, QStringLiteral("N"));
    EXPECT_EQ(v->lon_Hemisphere, QStringLiteral("E"));
}

INSTANTIATE_TEST_SUITE_P(Builders, FromUTMBadZone, testing::ValuesIn(badZoneCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
