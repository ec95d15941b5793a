// The projection against published check values: zones, bands, the Norway and Svalbard cells,
// the polar switch and the inverse's zone checks.

#include "coordinates/LatLon_UTM.h"
#include "support/RecordingMessageBox.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace LatLon_UTM;

namespace {

struct ForwardCase {
    const char* name;
    double lon, lat;          // degrees
    double easting, northing; // metres (NaN: not published)
    std::int64_t zone, band;
};

const ForwardCase forwardCases[] = {
    {"central_meridian_45N", 9, 45, 500000.0, 4982950.4, 32, 15},
    {"california", -120, 37.5, 234798.130, 4154570.154, 11, 14},
    {"sydney_zone_positive", 151.2, -33.85, 333471.815, 6253018.169, 56, 5},
    {"origin", 0, 0, 166021.443, 0.0, 31, 10},
    {"antimeridian_is_zone_61", 180, 0, 166021.443, 0.0, 61, 10},
    {"norway_cell_7_5", 5, 60, 360577.912, 6654046.025, 31, 17},
    {"svalbard_cell_15", 15, 78, 500000.0, NAN, 33, 19},
    {"north_polar", 10, 85, 2096454.164, 1452981.254, 32, 20},
    {"south_polar", 10, -85, 2096454.164, 2547018.746, 32, 0},
};

class ForwardCheckValues : public testing::TestWithParam<ForwardCase> {};

TEST_P(ForwardCheckValues, MatchesPublishedValues) {
    const ForwardCase& c = GetParam();
    double e = 0, n = 0;
    UtmZone z{0, 0, 0};
    ll2utm(c.lon, c.lat, e, n, z, wgs84);
    EXPECT_NEAR(e, c.easting, 0.0006);
    if (!std::isnan(c.northing)) { // NaN: only the easting is published
        EXPECT_NEAR(n, c.northing, 0.06);
    }
    EXPECT_EQ(z[0], 0);
    EXPECT_EQ(z[1], c.zone);
    EXPECT_EQ(z[2], c.band);
}

INSTANTIATE_TEST_SUITE_P(Projection, ForwardCheckValues, testing::ValuesIn(forwardCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Projection, NorwayCellDoesNotComeBackThroughThePlainZone) {
    // The inverse knows the zone only, so a point of the cell returns on zone 31's meridian.
    double e = 0, n = 0, lon = 0, lat = 0;
    UtmZone z{0, 0, 0};
    ll2utm(5, 60, e, n, z, wgs84);
    RecordingMessageBox box;
    utm2ll(e, n, lon, lat, z, wgs84, box);
    EXPECT_NEAR(lon, 0.5, 1e-6);
    EXPECT_TRUE(box.shown.isEmpty());
}

struct PolarSwitchCase {
    const char* name;
    double lat;
    bool polar;
};

class PolarSwitch : public testing::TestWithParam<PolarSwitchCase> {};

TEST_P(PolarSwitch, UtmRangeIncludesBothEnds) {
    double e = 0, n = 0;
    UtmZone z{0, 0, 0};
    ll2utm(10, GetParam().lat, e, n, z, wgs84);
    // Polar eastings sit around 2000000 m, UTM ones around 500000 m.
    EXPECT_EQ(e > 1500000.0, GetParam().polar);
}

INSTANTIATE_TEST_SUITE_P(Projection, PolarSwitch,
                         testing::Values(PolarSwitchCase{"lat_84", 84.0, false},
                                         PolarSwitchCase{"lat_84_plus", 84.0000001, true},
                                         PolarSwitchCase{"lat_minus_80", -80.0, false},
                                         PolarSwitchCase{"lat_minus_80_minus", -80.0000001, true}),
                         [](const auto& row) { return std::string(row.param.name); });

struct ZoneCase {
    const char* name;
    std::int64_t zone;
    bool valid;
};

class InverseZone : public testing::TestWithParam<ZoneCase> {};

TEST_P(InverseZone, BadZoneShowsBothMessagesAndKeepsOutputs) {
    const ZoneCase& c = GetParam();
    UtmZone z{0, c.zone, 15};
    double lon = 123, lat = 45;
    RecordingMessageBox box;
    utm2ll(500000, 4982950.4, lon, lat, z, wgs84, box);
    if (c.valid) {
        EXPECT_TRUE(box.shown.isEmpty());
        EXPECT_NEAR(lat, 45, 1e-6);
    } else {
        EXPECT_EQ(box.shown,
                  QStringList({"Invalid grid zone format", "Unable to translate UTM to LL"}));
        EXPECT_EQ(lon, 123);
        EXPECT_EQ(lat, 45);
    }
}

INSTANTIATE_TEST_SUITE_P(Projection, InverseZone,
                         testing::Values(ZoneCase{"zone_0", 0, false}, ZoneCase{"zone_1", 1, true},
                                         ZoneCase{"zone_61", 61, true},
                                         ZoneCase{"zone_62", 62, false},
                                         ZoneCase{"negative_zone_is_south_sign_only", -32, true},
                                         ZoneCase{"huge_zone", -9223372036854775807LL - 1, false}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Projection, BlankDatumWorksAsWGS84) {
    double e1 = 0, n1 = 0, e2 = 0, n2 = 0;
    UtmZone z1{0, 0, 0}, z2{0, 0, 0};
    ll2utm(-120, 37.5, e1, n1, z1, wgs84);
    ll2utm(-120, 37.5, e2, n2, z2, getFullDatum(QStringLiteral("WGS84")));
    EXPECT_EQ(e1, e2);
    EXPECT_EQ(n1, n2);
    EXPECT_EQ(getFullDatum(QString()).name, QStringLiteral("Unknown"));
    EXPECT_EQ(getFullDatum(QStringLiteral("WGS84")).a, 0.0);
}

// A NaN or absurd input must not be undefined behaviour in the zone arithmetic.
TEST(Projection, AbsurdInputStillYieldsAZone) {
    double e = 0, n = 0;
    UtmZone z{0, 0, 0};
    ll2utm(1e300, std::nan(""), e, n, z, wgs84);
    ll2utm(-1e300, 1e300, e, n, z, wgs84);
    ll2utm(std::numeric_limits<double>::infinity(), 0, e, n, z, wgs84);
    SUCCEED();
}

} // namespace
