// Speed of writing and reading the three notations of the entry fields, against the plainest
// way a C program prints a location: snprintf with "%.6f, %.6f", once per notation. Every
// benchmark cycles through the same few thousand random locations, so that neither the number
// conversions nor the branch predictors see one value over and over; the texts the readers take
// are written before any timing starts.

#include "coordinates/LatLon_UTM.h"
#include "coordinates/MessageBox.h"
#include "coordinates/NumberText.h"
#include "notation/NotationFormat.h"
#include "notation/NotationParse.h"
#include "notation/NotationSettings.h"

#include <QLocale>
#include <QString>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <random>
#include <vector>

namespace {

// A power of two, so that the next index is a mask, not a branch.
constexpr std::size_t locationCount = 4096;
constexpr std::uint64_t locationSeed = 20240918;
constexpr bool latFirst = true;

struct LonLat {
    double lon; // degrees
    double lat; // degrees
};

// Uniform over the UTM range of the forward projection: latitude -80 to 84, longitude -180 to
// 180, as locations typed or clicked anywhere a UTM text can be written for.
const std::vector<LonLat>& locations() {
    static const std::vector<LonLat> result = [] {
        std::mt19937_64 random(locationSeed);
        std::uniform_real_distribution<double> lon(-180.0, 180.0);
        std::uniform_real_distribution<double> lat(-80.0, 84.0);
        std::vector<LonLat> p(locationCount);
        for (LonLat& q : p) {
            q.lon = lon(random);
            q.lat = lat(random);
        }
        return p;
    }();
    return result;
}

inline std::size_t next(std::size_t i) {
    return (i + 1) & (locationCount - 1);
}

const NumberLocale& cLocale() {
    static const NumberLocale locale = NumberLocale::from(QLocale::c());
    return locale;
}

// The texts in the fields as the window shows them: the start settings with the separators the
// window's open event sets. With the bare "," of the construction values there is no blank
// between the two values, and the DD and DMS readers take nothing from such a text.
NotationSettings windowSettings() {
    NotationSettings s;
    s.DDseparator = QStringLiteral(", ");
    s.DMSseparator = QStringLiteral(", ");
    s.UTMseparator = QStringLiteral(", ");
    return s;
}

// The readers report bad zones only, and the written zones are all good.
class SilentMessageBox : public MessageBox {
public:
    void show(const QString&) override {}
};

struct WrittenTexts {
    std::vector<QString> dd, dms, utm;
};

const WrittenTexts& writtenTexts() {
    static const WrittenTexts result = [] {
        const NotationSettings s = windowSettings();
        WrittenTexts t;
        for (const LonLat& p : locations()) {
            t.dd.push_back(formatDD(p.lon, p.lat, s, latFirst, cLocale()));
            t.dms.push_back(formatDMS(p.lon, p.lat, s, latFirst, cLocale()));
            t.utm.push_back(formatUTM(p.lon, p.lat, s, cLocale()));
        }
        return t;
    }();
    return result;
}

bool near(const ParsedPosition& p, const LonLat& q, bool checkLon) {
    // The texts carry at least six decimals of a degree, or a tenth of a metre.
    constexpr double tolerance = 1e-5;
    return p.complete() && std::fabs(p.lat - q.lat) < tolerance &&
           (!checkLon || std::fabs(p.lon - q.lon) < tolerance);
}

// A reader that took nothing from its text would be timed on its quickest path. Checked once,
// on every text: each must give back the location it was written for. North of 56 degrees the
// Norway and Svalbard cells write UTM on a moved meridian and read it back on the zone's own,
// so there only a complete reading is required.
bool readersGiveBackOnce() {
    const auto& p = locations();
    const WrittenTexts& t = writtenTexts();
    SilentMessageBox messages;
    for (std::size_t i = 0; i < locationCount; ++i) {
        if (!near(parseDDText(t.dd[i], latFirst, cLocale()), p[i], true) ||
            !near(parseDMSText(t.dms[i], latFirst, cLocale()), p[i], true))
            return false;
        const ParsedPosition utm = parseUTMText(t.utm[i], cLocale(), messages);
        if (p[i].lat <= 56 ? !near(utm, p[i], true) : !utm.complete())
            return false;
    }
    return true;
}

bool readersGiveBack(benchmark::State& state) {
    static const bool ok = readersGiveBackOnce();
    if (!ok)
        state.SkipWithError("a written text does not read back: the benchmark set-up is wrong");
    return ok;
}

void BM_formatDD(benchmark::State& state) {
    const auto& p = locations();
    const NotationSettings s;
    std::size_t i = 0;
    for (auto _ : state) {
        QString text = formatDD(p[i].lon, p[i].lat, s, latFirst, cLocale());
        benchmark::DoNotOptimize(text);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_formatDD);

void BM_formatDMS(benchmark::State& state) {
    const auto& p = locations();
    const NotationSettings s;
    std::size_t i = 0;
    for (auto _ : state) {
        QString text = formatDMS(p[i].lon, p[i].lat, s, latFirst, cLocale());
        benchmark::DoNotOptimize(text);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_formatDMS);

void BM_formatUTM(benchmark::State& state) {
    const auto& p = locations();
    const NotationSettings s;
    std::size_t i = 0;
    for (auto _ : state) {
        QString text = formatUTM(p[i].lon, p[i].lat, s, cLocale());
        benchmark::DoNotOptimize(text);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_formatUTM);

// One call per notation, as a program that prints a location three times would make them.
void BM_snprintf_three(benchmark::State& state) {
    const auto& p = locations();
    std::size_t i = 0;
    for (auto _ : state) {
        char dd[64], dms[64], utm[64];
        const int n1 = std::snprintf(dd, sizeof dd, "%.6f, %.6f", p[i].lat, p[i].lon);
        const int n2 = std::snprintf(dms, sizeof dms, "%.6f, %.6f", p[i].lat, p[i].lon);
        const int n3 = std::snprintf(utm, sizeof utm, "%.6f, %.6f", p[i].lat, p[i].lon);
        benchmark::DoNotOptimize(dd);
        benchmark::DoNotOptimize(dms);
        benchmark::DoNotOptimize(utm);
        benchmark::DoNotOptimize(n1 + n2 + n3);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_snprintf_three);

void BM_parseDD(benchmark::State& state) {
    const auto& t = writtenTexts().dd;
    if (!readersGiveBack(state))
        return;
    std::size_t i = 0;
    for (auto _ : state) {
        ParsedPosition r = parseDDText(t[i], latFirst, cLocale());
        benchmark::DoNotOptimize(r);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_parseDD);

void BM_parseDMS(benchmark::State& state) {
    const auto& t = writtenTexts().dms;
    if (!readersGiveBack(state))
        return;
    std::size_t i = 0;
    for (auto _ : state) {
        ParsedPosition r = parseDMSText(t[i], latFirst, cLocale());
        benchmark::DoNotOptimize(r);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_parseDMS);

void BM_parseUTM(benchmark::State& state) {
    const auto& t = writtenTexts().utm;
    if (!readersGiveBack(state))
        return;
    SilentMessageBox messages;
    std::size_t i = 0;
    for (auto _ : state) {
        ParsedPosition r = parseUTMText(t[i], cLocale(), messages);
        benchmark::DoNotOptimize(r);
        i = next(i);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_parseUTM);

} // namespace

int main(int argc, char** argv) {
    // As at application start: the UTM writer and reader use the default datum.
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
