// Speed and memory of importing a delimited text file of "lat,lon,label" lines through the
// import window, at 10,000 to 1,000,000 lines, against the plainest program that could read the
// same file into UTM: std::getline, two strtod calls and one projection per line.
//
//   ImportBench [Google Benchmark flags]
//   ImportBench --peak-memory N    resident memory of one import of N lines, in bytes per line
//
// The files are written once per run in a temporary folder, with random locations written to
// six decimals as a GPS export would write them.

#include "coordinates/LatLon_UTM.h"
#include "support/FakeWindow.h"

#include <QLocale>
#include <QString>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <random>
#include <string>

namespace {

constexpr std::uint64_t locationSeed = 20240918;

// Column choices of the import: latitude first, as the lines are written.
constexpr int latColumn = 1, lonColumn = 2, labelColumn = 3;

QTemporaryDir& scratch() {
    static QTemporaryDir dir;
    return dir;
}

// Writes n lines of "lat,lon,label" once and gives the file's path. Latitude -80 to 84 and
// longitude -180 to 180: the range a UTM text is written for.
const std::string& linesFile(std::int64_t n) {
    static std::map<std::int64_t, std::string> paths;
    auto found = paths.find(n);
    if (found != paths.end())
        return found->second;
    const std::string path =
        scratch().filePath(QStringLiteral("lines-%1.csv").arg(n)).toStdString();
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) {
        std::perror(path.c_str());
        std::exit(1);
    }
    std::mt19937_64 random(locationSeed);
    std::uniform_real_distribution<double> lat(-80.0, 84.0), lon(-180.0, 180.0);
    for (std::int64_t i = 0; i < n; ++i)
        std::fprintf(f, "%.6f,%.6f,P%lld\n", lat(random), lon(random), static_cast<long long>(i));
    std::fclose(f);
    return paths.emplace(n, path).first->second;
}

// One whole import as a user makes it: File > Open, the columns chosen, OK, replacing the list.
// Gives the number of locations the list then holds.
std::size_t importOnce(FakeWindow& win, const std::string& path) {
    FakeImportWindow& iw = win.importFile(QString::fromStdString(path));
    iw.pressSegment(0); // decimal degrees
    iw.PopupMenuLonEast.selected = lonColumn;
    iw.PopupMenuLatNorth.selected = latColumn;
    iw.PopupMenuLabel.selected = labelColumn;
    iw.TextFieldFirstLine.value = QStringLiteral("1");
    iw.CheckBox1.ticked = false; // replace
    iw.controller->PushButton1_Action();
    return win->locations.size();
}

void BM_scanFile(benchmark::State& state) {
    const std::string& path = linesFile(state.range(0));
    const QString qpath = QString::fromStdString(path);
    for (auto _ : state) {
        FakeImportWindow iw;
        iw.controller->ParseTextFile(qpath);
        if (iw.Listbox1.lastRowIndex() + 1 != state.range(0)) {
            state.SkipWithError("the scan did not give one row per line");
            return;
        }
        benchmark::DoNotOptimize(iw.Listbox1.fieldCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_scanFile)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_importDD(benchmark::State& state) {
    const std::string& path = linesFile(state.range(0));
    FakeWindow win;
    for (auto _ : state) {
        // Each import starts from an empty list and map, as the first import of a session does.
        state.PauseTiming();
        win->locations.clear();
        win->Pins.clear();
        win->fillBatchTable();
        state.ResumeTiming();
        if (importOnce(win, path) != static_cast<std::size_t>(state.range(0))) {
            state.SkipWithError("the import did not give one location per line");
            return;
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_importDD)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// The floor: the same file read line by line into UTM with nothing kept.
void BM_getline_strtod(benchmark::State& state) {
    const std::string& path = linesFile(state.range(0));
    for (auto _ : state) {
        std::ifstream in(path);
        std::string line;
        double sum = 0;
        UtmZone zone{0, 0, 0};
        while (std::getline(in, line)) {
            char* end = nullptr;
            const double lat = std::strtod(line.c_str(), &end);
            const double lon = std::strtod(end + 1, nullptr);
            double easting = 0, northing = 0;
            LatLon_UTM::ll2utm(lon, lat, easting, northing, zone, LatLon_UTM::wgs84);
            sum += easting + northing;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_getline_strtod)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// A field of /proc/self/status in bytes ("VmRSS", "VmHWM"), 0 when it can't be read.
std::int64_t statusBytes(const char* field) {
    std::ifstream in("/proc/self/status");
    std::string line;
    const std::size_t n = std::strlen(field);
    while (std::getline(in, line))
        if (line.compare(0, n, field) == 0 && line.size() > n && line[n] == ':')
            return std::atoll(line.c_str() + n + 1) * 1024;
    return 0;
}

// Peak and kept resident memory of one import of n lines, per line, beyond what the process
// held before it. The import window is gone at the end, as it is once OK has closed it.
int peakMemory(std::int64_t n) {
    const std::string& path = linesFile(n);
    FakeWindow win;
    // Writing the file must not count as the import's peak: "5" resets the high-water mark.
    if (std::FILE* f = std::fopen("/proc/self/clear_refs", "w")) {
        std::fputs("5", f);
        std::fclose(f);
    }
    const std::int64_t before = statusBytes("VmRSS");
    const std::int64_t peakBefore = statusBytes("VmHWM");
    const std::size_t imported = importOnce(win, path);
    win.importWindows.current.reset();
    const std::int64_t after = statusBytes("VmRSS");
    const std::int64_t peak = statusBytes("VmHWM");
    if (imported != static_cast<std::size_t>(n) || before == 0 || peak == 0) {
        std::fprintf(stderr, "ImportBench: the import gave %zu of %lld locations\n", imported,
                     static_cast<long long>(n));
        return 1;
    }
    const double lines = static_cast<double>(n);
    std::printf("lines %lld\n", static_cast<long long>(n));
    std::printf("rss_before_bytes %lld\n", static_cast<long long>(before));
    std::printf("hwm_before_bytes %lld\n", static_cast<long long>(peakBefore));
    std::printf("peak_bytes_per_line %.1f\n", static_cast<double>(peak - before) / lines);
    std::printf("kept_bytes_per_line %.1f\n", static_cast<double>(after - before) / lines);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    // As at application start: locale pinned for the number texts, the default datum made.
    QLocale::setDefault(QLocale::c());
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    if (argc == 3 && std::strcmp(argv[1], "--peak-memory") == 0)
        return peakMemory(std::atoll(argv[2]));
    if (!scratch().isValid()) {
        std::fprintf(stderr, "ImportBench: no temporary folder\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
