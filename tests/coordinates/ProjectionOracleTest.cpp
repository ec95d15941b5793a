// The projection against implementations that nobody here wrote: GeographicLib's exact
// transverse Mercator (Lee's elliptic-function solution, good to nanometres across a zone) and
// PROJ's classical transverse Mercator series. A third comparison reads Snyder's formulas term
// by term, with every multiple-angle sine and power written out, so that the shortcuts of the
// fast code (multiple-angle sines from one sin/cos pair, w * sqrt(w) for w to the 1.5) cannot
// drift from the published series unnoticed.
//
// Each suite prints the worst error it met, so that a drift in accuracy shows before it fails.

#include "coordinates/LatLon_UTM.h"
#include "support/RecordingMessageBox.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/TransverseMercatorExact.hpp>
#include <proj.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <map>
#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace LatLon_UTM;

namespace {

constexpr double falseEasting = 500000.0;
constexpr double falseNorthingSouth = 10000000.0;

// Central meridian (degrees) of UTM zone 1 to 61.
double zoneMeridian(std::int64_t zone) {
    return static_cast<double>((zone - 1) * 6 - 180 + 3);
}

// Central meridian (degrees) that a location in the UTM range is projected on: its zone's, or
// the middle of the Norway or Svalbard cell that it lies in. These middles are not the
// meridians of standard UTM, so the reference is told them explicitly.
double projectionMeridian(double lon, double lat, std::int64_t zone) {
    if (lat > 72) {
        if (lon > 0 && lon < 9)
            return 4.5;
        if (lon >= 9 && lon < 21)
            return 15;
        if (lon >= 21 && lon < 33)
            return 27;
        if (lon >= 33 && lon < 42)
            return 37.5;
    } else if (lat > 56 && lat < 64) {
        if (lon > 0 && lon < 3)
            return 1.5;
        if (lon >= 3 && lon < 12)
            return 7.5;
    }
    return zoneMeridian(zone);
}

// True where the projection uses another meridian than the zone's: such locations cannot come
// back through the inverse, which knows the zone only.
bool inExceptionCell(double lon, double lat, std::int64_t zone) {
    return projectionMeridian(lon, lat, zone) != zoneMeridian(zone);
}

const GeographicLib::TransverseMercatorExact& exactUtm() {
    static const GeographicLib::TransverseMercatorExact tm(
        GeographicLib::Constants::WGS84_a(), GeographicLib::Constants::WGS84_f(), 0.9996);
    return tm;
}

// UTM easting and northing by the exact reference, false origin included.
void referenceForward(double meridian, double lon, double lat, double& easting, double& northing) {
    double x = 0, y = 0;
    exactUtm().Forward(meridian, lat, lon, x, y);
    easting = x + falseEasting;
    northing = y < 0 ? y + falseNorthingSouth : y;
}

// ---------------------------------------------------------------------------------------------
// The grid: every zone, 3 degrees either side of its central meridian (up to the edge of the
// next zone), in belts of latitude that single out the equator and the Norway and Svalbard
// cells.

struct GridPoint {
    double lon, lat;   // degrees
    std::int64_t zone; // the zone that the longitude lies in
};

struct GridBelt {
    const char* name;
    std::vector<double> latitudes;
    bool antimeridianOnly; // only longitude 180, which is zone 61
};

void PrintTo(const GridBelt& belt, std::ostream* out) {
    *out << belt.name;
}

std::vector<double> steps(double from, double to, double step) {
    std::vector<double> out;
    for (int i = 0;; ++i) {
        const double v = from + i * step;
        if (v > to + 1e-9)
            break;
        out.push_back(v);
    }
    return out;
}

std::vector<GridPoint> pointsOf(const GridBelt& belt) {
    std::vector<GridPoint> points;
    if (belt.antimeridianOnly) {
        for (double lat : belt.latitudes)
            points.push_back({180.0, lat, 61});
        return points;
    }
    std::vector<double> offsets = steps(-3.0, 2.75, 0.25);
    offsets.push_back(2.9999999); // just short of the next zone's edge
    for (std::int64_t zone = 1; zone <= 60; ++zone)
        for (double lat : belt.latitudes)
            for (double offset : offsets)
                points.push_back({zoneMeridian(zone) + offset, lat, zone});
    return points;
}

const GridBelt gridBelts[] = {
    {"south_80_to_1", steps(-80, -1, 1), false},
    {"across_equator", {-0.5, -1e-3, -1e-7, 0.0, 1e-7, 1e-3, 0.5}, false},
    {"north_1_to_56", steps(1, 56, 1), false},
    {"norway_belt_56_to_64", steps(56, 64, 0.25), false},
    {"north_64_to_72", steps(64, 72, 1), false},
    {"svalbard_belt_72_to_84", steps(72, 84, 0.25), false},
    {"antimeridian_zone_61", steps(-80, 84, 0.5), true},
};

std::string beltName(const testing::TestParamInfo<GridBelt>& info) {
    return info.param.name;
}

// Reports a worst case on the console and in the test's XML record.
void reportWorst(const std::string& what, double value, const char* unit) {
    std::ostringstream text;
    text << std::setprecision(3) << value << ' ' << unit;
    std::cout << "[ worst    ] " << what << ": " << text.str() << std::endl;
    testing::Test::RecordProperty(what, text.str());
}

// ---------------------------------------------------------------------------------------------

class AgainstGeographicLib : public testing::TestWithParam<GridBelt> {};

TEST_P(AgainstGeographicLib, ForwardWithinOneAndAHalfMillimetres) {
    double worst = 0;
    for (const GridPoint& p : pointsOf(GetParam())) {
        double e = 0, n = 0, refE = 0, refN = 0;
        UtmZone z{0, 0, 0};
        ll2utm(p.lon, p.lat, e, n, z, wgs84);
        referenceForward(projectionMeridian(p.lon, p.lat, p.zone), p.lon, p.lat, refE, refN);
        const double error = std::hypot(e - refE, n - refN);
        worst = std::max(worst, error);
        ASSERT_EQ(z[1], p.zone) << "lon " << p.lon << " lat " << p.lat;
        ASSERT_LE(error, 0.0015) << "lon " << p.lon << " lat " << p.lat << ": easting " << e
                                 << " vs " << refE << ", northing " << n << " vs " << refN;
    }
    reportWorst("forward_vs_geographiclib_mm", worst * 1000, "mm");
}

// Forward then inverse, with the hemisphere marker as the UTM builder sets it.
TEST_P(AgainstGeographicLib, RoundTripReturnsOutsideTheExceptionCells) {
    double worst = 0;
    int tried = 0;
    for (const GridPoint& p : pointsOf(GetParam())) {
        if (inExceptionCell(p.lon, p.lat, p.zone))
            continue;
        double e = 0, n = 0, lon = 0, lat = 0;
        UtmZone z{0, 0, 0};
        ll2utm(p.lon, p.lat, e, n, z, wgs84);
        const UtmZone back{0, z[1], p.lat < 0 ? 5 : 15};
        RecordingMessageBox box;
        utm2ll(e, n, lon, lat, back, wgs84, box);
        ASSERT_TRUE(box.shown.isEmpty());
        const double error = std::max(std::fabs(lat - p.lat), std::fabs(lon - p.lon));
        worst = std::max(worst, error);
        ++tried;
        ASSERT_LE(error, 1e-7) << "lon " << p.lon << " lat " << p.lat << " came back as lon " << lon
                               << " lat " << lat;
    }
    EXPECT_GT(tried, 0);
    reportWorst("round_trip_degrees", worst, "deg");
}

// The inverse on its own: coordinates made by the reference on the zone's meridian come back to
// the location they were made from. The Norway and Svalbard cells are included, since the
// inverse reads every easting on the zone's meridian.
TEST_P(AgainstGeographicLib, InverseOfReferenceCoordinates) {
    double worst = 0;
    for (const GridPoint& p : pointsOf(GetParam())) {
        double refE = 0, refN = 0, lon = 0, lat = 0;
        referenceForward(zoneMeridian(p.zone), p.lon, p.lat, refE, refN);
        const UtmZone zone{0, p.zone, p.lat < 0 ? 5 : 15};
        RecordingMessageBox box;
        utm2ll(refE, refN, lon, lat, zone, wgs84, box);
        ASSERT_TRUE(box.shown.isEmpty());
        const double error = std::max(std::fabs(lat - p.lat), std::fabs(lon - p.lon));
        worst = std::max(worst, error);
        ASSERT_LE(error, 1e-7) << "lon " << p.lon << " lat " << p.lat << " read back as lon " << lon
                               << " lat " << lat;
    }
    reportWorst("inverse_vs_geographiclib_degrees", worst, "deg");
}

INSTANTIATE_TEST_SUITE_P(Grid, AgainstGeographicLib, testing::ValuesIn(gridBelts), beltName);

// ---------------------------------------------------------------------------------------------

// PROJ's projections, one for each central meridian and hemisphere met.
class ProjProjections {
public:
    ProjProjections() : context_(proj_context_create()) {}
    ~ProjProjections() {
        for (auto& entry : projections_)
            proj_destroy(entry.second);
        proj_context_destroy(context_);
    }
    ProjProjections(const ProjProjections&) = delete;
    ProjProjections& operator=(const ProjProjections&) = delete;

    // The projection for a zone, or for a cell's own meridian where that differs.
    PJ* get(std::int64_t zone, double meridian, bool south) {
        const auto key = std::make_pair(meridian, south);
        auto found = projections_.find(key);
        if (found != projections_.end())
            return found->second;
        std::ostringstream definition;
        if (zone >= 1 && zone <= 60 && meridian == zoneMeridian(zone))
            definition << "+proj=utm +zone=" << zone << (south ? " +south" : "");
        else
            definition << "+proj=tmerc +lat_0=0 +lon_0=" << meridian
                       << " +k_0=0.9996 +x_0=500000 +y_0=" << (south ? 10000000 : 0);
        definition << " +ellps=WGS84 +approx";
        PJ* projection = proj_create(context_, definition.str().c_str());
        projections_[key] = projection;
        return projection;
    }

private:
    PJ_CONTEXT* context_;
    std::map<std::pair<double, bool>, PJ*> projections_;
};

class AgainstProj : public testing::TestWithParam<GridBelt> {};

TEST_P(AgainstProj, ForwardWithinOneAndAHalfMillimetres) {
    ProjProjections projections;
    double worst = 0;
    for (const GridPoint& p : pointsOf(GetParam())) {
        double e = 0, n = 0;
        UtmZone z{0, 0, 0};
        ll2utm(p.lon, p.lat, e, n, z, wgs84);
        // A location a hair south of the equator is south in UTM too.
        PJ* projection =
            projections.get(p.zone, projectionMeridian(p.lon, p.lat, p.zone), p.lat < 0);
        ASSERT_NE(projection, nullptr);
        const PJ_COORD in = proj_coord(proj_torad(p.lon), proj_torad(p.lat), 0, 0);
        const PJ_COORD out = proj_trans(projection, PJ_FWD, in);
        const double error = std::hypot(e - out.enu.e, n - out.enu.n);
        worst = std::max(worst, error);
        ASSERT_LE(error, 0.0015) << "lon " << p.lon << " lat " << p.lat << ": easting " << e
                                 << " vs " << out.enu.e << ", northing " << n << " vs "
                                 << out.enu.n;
    }
    reportWorst("forward_vs_proj_mm", worst * 1000, "mm");
}

INSTANTIATE_TEST_SUITE_P(Grid, AgainstProj, testing::ValuesIn(gridBelts), beltName);

// ---------------------------------------------------------------------------------------------
// Snyder's series, written out as the formulas read: every sine of a multiple angle computed on
// its own, every power through pow.

constexpr double degreesPerRadianIn = 57.2957795131;

using std::cos;
using std::pow;
using std::sin;
using std::sqrt;
using std::tan;

struct LiteralShape {
    double a, e2, e, e4, e6;
};

LiteralShape literalShape() {
    const double a = 6378137.0;
    const double b = 6356752.31425;
    const double f = 1 - b / a;
    LiteralShape s{};
    s.a = a;
    s.e2 = 2 * f - pow(f, 2);
    s.e = sqrt(s.e2);
    s.e4 = pow(s.e2, 2);
    s.e6 = s.e2 * s.e4;
    return s;
}

void literalForward(double lon, double lat, double& easting, double& northing, std::int64_t& zone,
                    std::int64_t& band) {
    const LiteralShape s = literalShape();
    const double a = s.a, e = s.e, e2 = s.e2, e4 = s.e4, e6 = s.e6;
    double phi = lat / degreesPerRadianIn;
    double lambda = lon / degreesPerRadianIn;

    band = static_cast<std::int64_t>(std::trunc((lat + 80) * 0.125));
    zone = static_cast<std::int64_t>(std::trunc((180 + lon) / 6 + 1));
    double lambda0 = 0;
    if (lat >= -80 && lat <= 84)
        lambda0 = projectionMeridian(lon, lat, zone) / degreesPerRadianIn;

    if (lat > 84) {
        const double t =
            sqrt((1 - sin(phi)) / (1 + sin(phi)) * pow((1 + e * sin(phi)) / (1 - e * sin(phi)), e));
        const double d = sqrt(pow(1 + e, 1 + e) * pow(1 - e, 1 - e));
        const double rho = t * (a * 2 * 0.994) / d;
        easting = rho * sin(lambda - lambda0) + 2000000;
        northing = 2000000 - rho * cos(lambda - lambda0);
        return;
    }
    if (lat < -80) {
        phi = -phi;
        lambda = -lambda;
        lambda0 = -lambda0;
        const double t =
            sqrt((1 - sin(phi)) / (1 + sin(phi)) * pow((1 + e * sin(phi)) / (1 - e * sin(phi)), e));
        const double d = sqrt(pow(1 + e, 1 + e) * pow(1 - e, 1 - e));
        const double rho = t * (a * 2 * 0.994) / d;
        easting = 2000000 - rho * sin(lambda - lambda0);
        northing = rho * cos(lambda - lambda0) + 2000000;
        return;
    }
    const double A0 = 1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256;
    const double A2 = 3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024;
    const double A4 = 15 * e4 / 256 + 45 * e6 / 1024;
    const double A6 = 35 * e6 / 3072;
    const double M = a * (A0 * phi - A2 * sin(2 * phi) + A4 * sin(4 * phi) - A6 * sin(6 * phi));
    const double A = (lambda - lambda0) * cos(phi);
    const double ep2 = e2 / (1 - e2);
    const double N = a / sqrt(1 - e2 * pow(sin(phi), 2));
    const double T = pow(tan(phi), 2);
    const double C = ep2 * pow(cos(phi), 2);
    const double x = N * 0.9996 *
                     (A + pow(A, 3) * (1 - T + C) / 6 +
                      pow(A, 5) * (5 - 18 * T + pow(T, 2) + 72 * C - 58 * ep2) / 120);
    const double y =
        0.9996 * (M + N * tan(phi) *
                          (pow(A, 2) / 2 + pow(A, 4) * (5 - T + 9 * C + 4 * pow(C, 2)) / 24 +
                           pow(A, 6) * (61 - 58 * T + pow(T, 2) + 600 * C - 330 * ep2) / 720));
    easting = x + 500000;
    northing = y < 0 ? y + 10000000 : y;
}

void literalInverse(double easting, double northing, std::int64_t zone, std::int64_t marker,
                    double& lon, double& lat) {
    const LiteralShape s = literalShape();
    const double a = s.a, e2 = s.e2, e4 = s.e4, e6 = s.e6;
    const double lambda0 = zoneMeridian(std::llabs(zone)) / degreesPerRadianIn;
    const bool south = marker * 8 - 80 < 0;
    const double x = easting - 500000;
    const double y = south ? northing - 10000000 : northing;
    const double e1 = (1 - sqrt(1 - e2)) / (1 + sqrt(1 - e2));
    const double A0 = 1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256;
    const double mu = (y / 0.9996) / (A0 * a);
    const double phi1 = mu + (3 * e1 / 2 - 27 * pow(e1, 3) / 32) * sin(2 * mu) +
                        (21 * pow(e1, 2) / 16 - 55 * pow(e1, 4) / 32) * sin(4 * mu) +
                        (151 * pow(e1, 3) / 96) * sin(6 * mu) +
                        (1097 * pow(e1, 4) / 512) * sin(8 * mu);
    const double ep2 = e2 / (1 - e2);
    const double C1 = ep2 * pow(cos(phi1), 2);
    const double T1 = pow(tan(phi1), 2);
    const double N1 = a / sqrt(1 - e2 * pow(sin(phi1), 2));
    const double R1 = (1 - e2) * a / pow(1 - e2 * pow(sin(phi1), 2), 1.5);
    const double D = x / (0.9996 * N1);
    const double phi =
        phi1 -
        (N1 * tan(phi1) / R1) *
            (pow(D, 2) / 2 - (5 + 3 * T1 + 10 * C1 - 4 * pow(C1, 2) - 9 * ep2) * pow(D, 4) / 24 +
             (61 + 90 * T1 + 298 * C1 + 45 * pow(T1, 2) - 252 * ep2 - 3 * pow(C1, 2)) * pow(D, 6) /
                 720);
    const double lambda =
        lambda0 +
        (D - (1 + 2 * T1 + C1) * pow(D, 3) / 6 +
         (5 - 2 * C1 + 28 * T1 - 3 * pow(C1, 2) + 8 * ep2 + 24 * pow(T1, 2)) * pow(D, 5) / 120) /
            cos(phi1);
    lat = 180 * phi / 3.141592653589793;
    lon = 180 * lambda / 3.141592653589793;
}

constexpr int randomPointsPerRow = 20000;

struct ForwardDomain {
    const char* name;
    double lonFrom, lonTo, latFrom, latTo; // degrees
};

void PrintTo(const ForwardDomain& c, std::ostream* out) {
    *out << c.name;
}

const ForwardDomain forwardDomains[] = {
    {"utm_range", -180, 180, -80, 84},
    {"norway_and_svalbard_cells", 0, 42, 56, 84},
    {"north_polar_cap", -180, 180, 84.0000001, 90},
    {"south_polar_cap", -180, 180, -90, -80.0000001},
};

class AgainstLiteralSeries : public testing::TestWithParam<ForwardDomain> {};

TEST_P(AgainstLiteralSeries, ForwardAgreesWithinAMicrometre) {
    const ForwardDomain& d = GetParam();
    std::mt19937_64 random(20240611);
    std::uniform_real_distribution<double> lonOf(d.lonFrom, d.lonTo);
    std::uniform_real_distribution<double> latOf(d.latFrom, d.latTo);
    double worst = 0;
    for (int i = 0; i < randomPointsPerRow; ++i) {
        const double lon = lonOf(random), lat = latOf(random);
        double e = 0, n = 0, litE = 0, litN = 0;
        std::int64_t litZone = 0, litBand = 0;
        UtmZone z{0, 0, 0};
        ll2utm(lon, lat, e, n, z, wgs84);
        literalForward(lon, lat, litE, litN, litZone, litBand);
        const double error = std::max(std::fabs(e - litE), std::fabs(n - litN));
        worst = std::max(worst, error);
        ASSERT_LE(error, 1e-6) << std::setprecision(17) << "lon " << lon << " lat " << lat;
        ASSERT_EQ(z[0], 0);
        ASSERT_EQ(z[1], litZone) << std::setprecision(17) << "lon " << lon;
        ASSERT_EQ(z[2], litBand) << std::setprecision(17) << "lat " << lat;
    }
    reportWorst("forward_vs_literal_series_m", worst, "m");
}

INSTANTIATE_TEST_SUITE_P(Random, AgainstLiteralSeries, testing::ValuesIn(forwardDomains),
                         [](const auto& row) { return std::string(row.param.name); });

struct InverseDomain {
    const char* name;
    double northingFrom, northingTo; // metres
    std::int64_t marker;             // hemisphere marker as the UTM builder sets it
    bool negativeZone;               // the sign of the zone is no part of the inverse
};

void PrintTo(const InverseDomain& c, std::ostream* out) {
    *out << c.name;
}

const InverseDomain inverseDomains[] = {
    {"north_marker_15", 0, 9400000, 15, false},
    {"south_marker_5", 1000000, 10000000, 5, false},
    {"band_index_south", 1000000, 10000000, 3, false},
    {"band_index_north", 0, 9400000, 19, false},
    {"negative_zone_south", 1000000, 10000000, 5, true},
};

class AgainstLiteralInverse : public testing::TestWithParam<InverseDomain> {};

TEST_P(AgainstLiteralInverse, InverseAgreesWithinATrillionthOfADegree) {
    const InverseDomain& d = GetParam();
    std::mt19937_64 random(19870315);
    std::uniform_real_distribution<double> eastingOf(160000, 840000);
    std::uniform_real_distribution<double> northingOf(d.northingFrom, d.northingTo);
    std::uniform_int_distribution<std::int64_t> zoneOf(1, 61);
    double worst = 0;
    for (int i = 0; i < randomPointsPerRow; ++i) {
        const double easting = eastingOf(random), northing = northingOf(random);
        const std::int64_t zone = d.negativeZone ? -zoneOf(random) : zoneOf(random);
        double lon = 0, lat = 0, litLon = 0, litLat = 0;
        RecordingMessageBox box;
        utm2ll(easting, northing, lon, lat, UtmZone{0, zone, d.marker}, wgs84, box);
        literalInverse(easting, northing, zone, d.marker, litLon, litLat);
        ASSERT_TRUE(box.shown.isEmpty());
        const double error = std::max(std::fabs(lat - litLat), std::fabs(lon - litLon));
        worst = std::max(worst, error);
        ASSERT_LE(error, 1e-12) << std::setprecision(17) << "easting " << easting << " northing "
                                << northing << " zone " << zone;
    }
    reportWorst("inverse_vs_literal_series_degrees", worst, "deg");
}

INSTANTIATE_TEST_SUITE_P(Random, AgainstLiteralInverse, testing::ValuesIn(inverseDomains),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
