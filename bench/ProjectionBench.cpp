// Speed of the UTM projection, forward and inverse, against GeographicLib (UTMUPS, Krueger
// series) and PROJ (the default, exact transverse Mercator of "+proj=utm"). Every benchmark
// works on the same million random locations inside the UTM range; each iteration converts
// one location, taking them in turn so that caches and branch predictors see varied input.
// The inverse benchmarks read back each library's own forward results, and the location set
// and those results are made before any timing starts.

#include "coordinates/LatLon_UTM.h"
#include "coordinates/MessageBox.h"
#include "coordinates/generalModule.h"

#include <GeographicLib/UTMUPS.hpp>
#include <benchmark/benchmark.h>
#include <proj.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t pointCount = 1000000;
constexpr std::uint64_t pointSeed = 20240917;
constexpr double pi = 3.14159265358979323846;

struct LonLat {
    double lon;
    double lat;
};

// Uniform over the UTM range of the forward projection: latitude -80 to 84, longitude -180
// to 180 (180 itself excluded, so every location has one of the zones 1 to 60).
const std::vector<LonLat>& points() {
    static const std::vector<LonLat> result = [] {
        std::mt19937_64 random(pointSeed);
        std::uniform_real_distribution<double> lon(-180.0, 180.0);
        std::uniform_real_distribution<double> lat(-80.0, 84.0);
        std::vector<LonLat> p(pointCount);
        for (LonLat& q : p) {
            q.lon = lon(random);
            q.lat = lat(random);
        }
        return p;
    }();
    return result;
}

// Next index into the location set, wrapping around at the end.
inline std::size_t next(std::size_t i) {
    return i + 1 == pointCount ? 0 : i + 1;
}

// The inverse projection only reports bad zones, and none occur among these locations.
class SilentMessageBox : public MessageBox {
public:
    void show(const QString&) override {}
};

struct OwnUtm {
    double easting;
    double northing;
    UtmZone zone; // zone and hemisphere marker (5 south, 15 north), as the UTM builder fills it
};

const std::vector<OwnUtm>& ownForward() {
    static const std::vector<OwnUtm> result = [] {
        std::vector<OwnUtm> r(pointCount);
        for (std::size_t i = 0; i < pointCount; ++i) {
            const LonLat& p = points()[i];
            UtmZone z{0, 0, 0};
            LatLon_UTM::ll2utm(p.lon, p.lat, r[i].easting, r[i].northing, z, LatLon_UTM::wgs84);
            r[i].zone = UtmZone{0, z[1] < 0 ? -z[1] : z[1], p.lat < 0 ? 5 : 15};
        }
        return r;
    }();
    return result;
}

struct GeographicLibUtm {
    int zone;
    bool northp;
    double x;
    double y;
};

const std::vector<GeographicLibUtm>& geographicLibForward() {
    static const std::vector<GeographicLibUtm> result = [] {
        std::vector<GeographicLibUtm> r(pointCount);
        for (std::size_t i = 0; i < pointCount; ++i) {
            const LonLat& p = points()[i];
            GeographicLib::UTMUPS::Forward(p.lat, p.lon, r[i].zone, r[i].northp, r[i].x, r[i].y);
        }
        return r;
    }();
    return result;
}

// One PROJ object for each zone and hemisphere, made once: 60 zones, north and south.
class ProjUtm {
public:
    ProjUtm() : context_(proj_context_create()) {
        for (int zone = 1; zone <= 60; ++zone) {
            for (int south = 0; south <= 1; ++south) {
                const std::string definition = "+proj=utm +zone=" + std::to_string(zone) +
                                               " +ellps=WGS84" + (south ? " +south" : "");
                PJ* p = proj_create(context_, definition.c_str());
                if (p == nullptr) {
                    std::fprintf(stderr, "PROJ refused \"%s\"\n", definition.c_str());
                    std::abort();
                }
                objects_[index(zone, south != 0)] = p;
            }
        }
        // PROJ strings of a single projection take radians; ask rather than assume.
        PJ* first = objects_[0];
        inputFactor_ = proj_angular_input(first, PJ_FWD) ? pi / 180.0 : 1.0;
        outputFactor_ = proj_angular_output(first, PJ_INV) ? 180.0 / pi : 1.0;
    }
    ~ProjUtm() {
        for (PJ* p : objects_)
            proj_destroy(p);
        proj_context_destroy(context_);
    }
    ProjUtm(const ProjUtm&) = delete;
    ProjUtm& operator=(const ProjUtm&) = delete;

    static std::size_t index(int zone, bool south) {
        return static_cast<std::size_t>(zone - 1) * 2 + (south ? 1 : 0);
    }
    // The standard zone of a longitude in -180 to 180 (180 excluded).
    static int zoneOf(double lon) { return static_cast<int>((lon + 180.0) / 6.0) + 1; }

    PJ* object(std::size_t i) const { return objects_[i]; }
    double inputFactor() const { return inputFactor_; }
    double outputFactor() const { return outputFactor_; }

private:
    PJ_CONTEXT* context_;
    std::array<PJ*, 120> objects_{};
    double inputFactor_ = 1.0;
    double outputFactor_ = 1.0;
};

const ProjUtm& proj() {
    static const ProjUtm instance;
    return instance;
}

struct ProjResult {
    std::size_t object;
    double x;
    double y;
};

const std::vector<ProjResult>& projForward() {
    static const std::vector<ProjResult> result = [] {
        const ProjUtm& pj = proj();
        std::vector<ProjResult> r(pointCount);
        for (std::size_t i = 0; i < pointCount; ++i) {
            const LonLat& p = points()[i];
            r[i].object = ProjUtm::index(ProjUtm::zoneOf(p.lon), p.lat < 0);
            const PJ_COORD out =
                proj_trans(pj.object(r[i].object), PJ_FWD,
                           proj_coord(p.lon * pj.inputFactor(), p.lat * pj.inputFactor(), 0, 0));
            r[i].x = out.xy.x;
            r[i].y = out.xy.y;
        }
        return r;
    }();
    return result;
}

// A wrong unit or a wrong zone would make a peer time a different computation. Away from the
// Norway and Svalbard cells, where the central meridians differ, every implementation must
// agree with ours to well under a metre. Checked once, on the first ten thousand locations.
bool peersAgreeOnce() {
    const auto& own = ownForward();
    const auto& geo = geographicLibForward();
    const auto& pj = projForward();
    for (std::size_t i = 0; i < 10000; ++i) {
        if (points()[i].lat > 56)
            continue;
        const double dGeo = std::hypot(geo[i].x - own[i].easting, geo[i].y - own[i].northing);
        const double dProj = std::hypot(pj[i].x - own[i].easting, pj[i].y - own[i].northing);
        if (!(dGeo < 1.0) || !(dProj < 1.0) || geo[i].zone != own[i].zone[1])
            return false;
    }
    return true;
}

bool peersAgree(benchmark::State& state) {
    static const bool agree = peersAgreeOnce();
    if (!agree)
        state.SkipWithError("peer results differ from ll2utm: the benchmark set-up is wrong");
    return agree;
}

void BM_ll2utm(benchmark::State& state) {
    const auto& p = points();
    std::size_t i = 0;
    for (auto _ : state) {
        double easting, northing;
        UtmZone zone{0, 0, 0};
        LatLon_UTM::ll2utm(p[i].lon, p[i].lat, easting, northing, zone, LatLon_UTM::wgs84);
        benchmark::DoNotOptimize(easting);
        benchmark::DoNotOptimize(northing);
        benchmark::DoNotOptimize(zone);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ll2utm);

void BM_utm2ll(benchmark::State& state) {
    const auto& u = ownForward();
    SilentMessageBox messages;
    std::size_t i = 0;
    for (auto _ : state) {
        double lon = 0, lat = 0;
        LatLon_UTM::utm2ll(u[i].easting, u[i].northing, lon, lat, u[i].zone, LatLon_UTM::wgs84,
                           messages);
        benchmark::DoNotOptimize(lon);
        benchmark::DoNotOptimize(lat);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_utm2ll);

void BM_vertexFromDD(benchmark::State& state) {
    const auto& p = points();
    std::size_t i = 0;
    for (auto _ : state) {
        VertexRef v = generalModule::vertexFromDD(p[i].lon, p[i].lat);
        benchmark::DoNotOptimize(v.get());
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_vertexFromDD);

void BM_GeographicLib_UTMUPS_Forward(benchmark::State& state) {
    const auto& p = points();
    if (!peersAgree(state))
        return;
    std::size_t i = 0;
    for (auto _ : state) {
        int zone;
        bool northp;
        double x, y;
        GeographicLib::UTMUPS::Forward(p[i].lat, p[i].lon, zone, northp, x, y);
        benchmark::DoNotOptimize(zone);
        benchmark::DoNotOptimize(northp);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_GeographicLib_UTMUPS_Forward);

void BM_GeographicLib_UTMUPS_Reverse(benchmark::State& state) {
    const auto& g = geographicLibForward();
    if (!peersAgree(state))
        return;
    std::size_t i = 0;
    for (auto _ : state) {
        double lat, lon;
        GeographicLib::UTMUPS::Reverse(g[i].zone, g[i].northp, g[i].x, g[i].y, lat, lon);
        benchmark::DoNotOptimize(lat);
        benchmark::DoNotOptimize(lon);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_GeographicLib_UTMUPS_Reverse);

// The zone's object is chosen inside the loop, as ll2utm chooses its zone; the objects
// themselves were made beforehand.
void BM_PROJ_utm_Forward(benchmark::State& state) {
    const auto& p = points();
    const ProjUtm& pj = proj();
    if (!peersAgree(state))
        return;
    const double factor = pj.inputFactor();
    std::size_t i = 0;
    for (auto _ : state) {
        PJ* object = pj.object(ProjUtm::index(ProjUtm::zoneOf(p[i].lon), p[i].lat < 0));
        const PJ_COORD out =
            proj_trans(object, PJ_FWD, proj_coord(p[i].lon * factor, p[i].lat * factor, 0, 0));
        benchmark::DoNotOptimize(out);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_PROJ_utm_Forward);

void BM_PROJ_utm_Inverse(benchmark::State& state) {
    const auto& r = projForward();
    const ProjUtm& pj = proj();
    if (!peersAgree(state))
        return;
    const double factor = pj.outputFactor();
    std::size_t i = 0;
    for (auto _ : state) {
        const PJ_COORD out =
            proj_trans(pj.object(r[i].object), PJ_INV, proj_coord(r[i].x, r[i].y, 0, 0));
        double lon = out.lp.lam * factor;
        double lat = out.lp.phi * factor;
        benchmark::DoNotOptimize(lon);
        benchmark::DoNotOptimize(lat);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_PROJ_utm_Inverse);

} // namespace

int main(int argc, char** argv) {
    // As at application start: the conversions read the default datum.
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
