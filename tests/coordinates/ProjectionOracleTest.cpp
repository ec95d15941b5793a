// The projection against implementations nobody here wrote, over grids of every zone:
// GeographicLib's exact transverse Mercator (Lee's solution, good to nanometres) and polar
// stereographic, and PROJ's transverse Mercator series (+approx). Each suite prints the worst
// error it met, so that a drift in accuracy shows before it fails.

#include "coordinates/LatLon_UTM.h"
#include "support/RecordingMessageBox.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/TransverseMercatorExact.hpp>
#include <proj.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace LatLon_UTM;

namespace {

// Snyder's series is within about 1 mm of the exact projection across a zone, and 1e-8 degree
// back; the tolerances leave room for that and little more.
constexpr double metreTolerance = 0.0015;
constexpr double degreeTolerance = 2e-8;

double zoneMeridian(std::int64_t zone) {
    return static_cast<double>((zone - 1) * 6 - 180 + 3);
}

// The meridian a location is projected on: its zone's, or the middle of the Norway or Svalbard
// cell it lies in (not a meridian of standard UTM, so the references are told it).
double projectionMeridian(double lon, double lat, std::int64_t zone) {
    struct Cell {
        double latFrom, latTo, lonFrom, lonTo, meridian;
    };
    const Cell cells[] = {{72, 90, 0, 9, 4.5},    {72, 90, 9, 21, 15}, {72, 90, 21, 33, 27},
                          {72, 90, 33, 42, 37.5}, {56, 64, 0, 3, 1.5}, {56, 64, 3, 12, 7.5}};
    for (const Cell& c : cells)
        if (lat > c.latFrom && lat < c.latTo && lon >= c.lonFrom && lon < c.lonTo && lon > 0)
            return c.meridian;
    return zoneMeridian(zone);
}

struct GridPoint {
    double lon, lat;
    std::int64_t zone; // of the longitude
};

struct Belt {
    const char* name;
    double latFrom, latTo, latStep;
    bool antimeridianOnly; // longitude 180 only, which is zone 61
};

std::vector<GridPoint> pointsOf(const Belt& b) {
    std::vector<GridPoint> points;
    for (double lat = b.latFrom; lat <= b.latTo + 1e-9; lat += b.latStep) {
        if (b.antimeridianOnly) {
            points.push_back({180.0, lat, 61});
            continue;
        }
        // Every zone, from its western edge to just short of the next zone's.
        for (std::int64_t zone = 1; zone <= 60; ++zone) {
            for (double offset = -3; offset < 2.9; offset += 0.25)
                points.push_back({zoneMeridian(zone) + offset, lat, zone});
            points.push_back({zoneMeridian(zone) + 2.9999999, lat, zone});
        }
    }
    return points;
}

const Belt belts[] = {
    {"south_80_to_1", -80, -1, 1, false},         {"across_equator", -0.5, 0.5, 0.125, false},
    {"north_1_to_56", 1, 56, 1, false},           {"norway_belt_56_to_64", 56, 64, 0.25, false},
    {"north_64_to_72", 64, 72, 1, false},         {"svalbard_belt_72_to_84", 72, 84, 0.25, false},
    {"antimeridian_zone_61", -80, 84, 0.5, true},
};

void reportWorst(const std::string& what, double value) {
    std::cout << "[ worst    ] " << what << ": " << value << std::endl;
    testing::Test::RecordProperty(what, std::to_string(value));
}

const GeographicLib::TransverseMercatorExact& exactUtm() {
    static const GeographicLib::TransverseMercatorExact tm(
        GeographicLib::Constants::WGS84_a(), GeographicLib::Constants::WGS84_f(), 0.9996);
    return tm;
}

// PROJ's projections, one for each central meridian and hemisphere met.
using Projections = std::map<std::pair<double, bool>, std::unique_ptr<PJ, PJ* (*)(PJ*)>>;

PJ* projFor(Projections& made, double meridian, bool south) {
    auto& pj = made.try_emplace({meridian, south}, nullptr, &proj_destroy).first->second;
    if (!pj) {
        std::ostringstream def;
        def << "+proj=tmerc +lat_0=0 +lon_0=" << meridian
            << " +k_0=0.9996 +x_0=500000 +y_0=" << (south ? 10000000 : 0)
            << " +ellps=WGS84 +approx";
        pj.reset(proj_create(PJ_DEFAULT_CTX, def.str().c_str()));
    }
    return pj.get();
}

class Grid : public testing::TestWithParam<Belt> {};

TEST_P(Grid, ForwardAgainstGeographicLibAndProj) {
    Projections made;
    double worstExact = 0, worstProj = 0;
    for (const GridPoint& p : pointsOf(GetParam())) {
        double e = 0, n = 0, x = 0, y = 0;
        UtmZone z{0, 0, 0};
        ll2utm(p.lon, p.lat, e, n, z, wgs84);
        const double meridian = projectionMeridian(p.lon, p.lat, p.zone);
        exactUtm().Forward(meridian, p.lat, p.lon, x, y);
        const double exact = std::hypot(e - x - 500000, n - (y < 0 ? y + 10000000 : y));
        // A location a hair south of the equator is south in UTM too.
        PJ* pj = projFor(made, meridian, p.lat < 0);
        ASSERT_NE(pj, nullptr);
        const PJ_COORD out =
            proj_trans(pj, PJ_FWD, proj_coord(proj_torad(p.lon), proj_torad(p.lat), 0, 0));
        const double approx = std::hypot(e - out.enu.e, n - out.enu.n);
        worstExact = std::max(worstExact, exact);
        worstProj = std::max(worstProj, approx);
        ASSERT_EQ(z[1], p.zone) << "lon " << p.lon << " lat " << p.lat;
        ASSERT_LE(std::max(exact, approx), metreTolerance)
            << "lon " << p.lon << " lat " << p.lat << ": GeographicLib " << exact << ", PROJ "
            << approx;
    }
    reportWorst("forward_vs_geographiclib_m", worstExact);
    reportWorst("forward_vs_proj_m", worstProj);
}

// The inverse against the exact projection: coordinates made by the reference on the zone's
// meridian (the inverse knows the zone only, so the Norway and Svalbard cells are included)
// come back to their location, with nothing to report.
TEST_P(Grid, InverseAgainstGeographicLib) {
    double worstInverse = 0;
    for (const GridPoint& p : pointsOf(GetParam())) {
        const UtmZone zone{0, p.zone, p.lat < 0 ? 5 : 15};
        double x = 0, y = 0, lon = 0, lat = 0;
        exactUtm().Forward(zoneMeridian(p.zone), p.lat, p.lon, x, y);
        RecordingMessageBox box;
        utm2ll(x + 500000, y < 0 ? y + 10000000 : y, lon, lat, zone, wgs84, box);
        const double error = std::max(std::fabs(lat - p.lat), std::fabs(lon - p.lon));
        worstInverse = std::max(worstInverse, error);
        ASSERT_LE(error, degreeTolerance) << "lon " << p.lon << " lat " << p.lat;
        ASSERT_TRUE(box.shown.isEmpty());
    }
    reportWorst("inverse_vs_geographiclib_degrees", worstInverse);
}

INSTANTIATE_TEST_SUITE_P(AllZones, Grid, testing::ValuesIn(belts),
                         [](const auto& row) { return std::string(row.param.name); });

// Beyond 84 N and 80 S the projection is polar stereographic, as UPS is; the formula is closed,
// so only the ellipsoid's semi-minor axis, given to 0.01 mm, sets the tolerance.
TEST(PolarCaps, AgainstGeographicLibUPS) {
    double worst = 0;
    for (double lat : {84.0000001, 85.5, 88.0, 89.999, 90.0, -80.0000001, -83.5, -88.25, -90.0}) {
        for (double lon = -180; lon <= 180; lon += 7.5) {
            double e = 0, n = 0, x = 0, y = 0;
            UtmZone z{0, 0, 0};
            ll2utm(lon, lat, e, n, z, wgs84);
            GeographicLib::PolarStereographic::UPS().Forward(lat > 0, lat, lon, x, y);
            const double error = std::hypot(e - x - 2000000, n - y - 2000000);
            worst = std::max(worst, error);
            ASSERT_LE(error, 1e-5) << "lon " << lon << " lat " << lat;
        }
    }
    reportWorst("polar_vs_geographiclib_m", worst);
}

} // namespace
