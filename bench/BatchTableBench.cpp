// The table of recorded locations at scale, through the real window offscreen: a rebuild of
// the whole table followed by one paint of what is on screen, and a sort by a decimal-degree
// column followed by a paint. Locations are spread at random so that a sort has work to do.
// The resident memory of the process is reported with the largest table.

#include "coordinates/LatLon_UTM.h"
#include "coordinates/generalModule.h"
#include "locationbook/BatchTable.h"
#include "locationbook/Window1.h"
#include "shell/BatchTableView.h"
#include "shell/MainWindow.h"

#include <QApplication>
#include <QTabWidget>

#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <random>
#include <unistd.h>

namespace {

// Resident memory of this process (MB), from the kernel's page count.
double residentMegabytes() {
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return double(resident) * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// One window for every benchmark, with its list of locations replaced per benchmark.
MainWindow& window() {
    static MainWindow* w = [] {
        auto* made = new MainWindow;
        made->show();
        made->tabPanel()->setCurrentIndex(1);
        QApplication::processEvents();
        return made;
    }();
    return *w;
}

void recordLocations(Window1& w, std::size_t count) {
    std::mt19937_64 random(20261123);
    std::uniform_real_distribution<double> lat(-80, 84), lon(-180, 180);
    w.locations.clear();
    w.locations.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        w.locations.push_back(generalModule::vertexFromDD(lon(random), lat(random)));
        w.locations.back()->label = QStringLiteral("Point %1").arg(i + 1);
        w.locations.back()->saved = true;
    }
}

void showOnScreen(BatchTableView* view) {
    view->viewport()->repaint();
}

void BM_fillBatchTable(benchmark::State& state) {
    MainWindow& main = window();
    Window1& w = main.controller();
    recordLocations(w, std::size_t(state.range(0)));
    for (auto _ : state) {
        w.fillBatchTable();
        showOnScreen(main.batchListbox());
    }
    // The whole process: Qt, the window, the records and the table.
    state.counters["process_MB"] = residentMegabytes();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_fillBatchTable)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_sortBatchTable(benchmark::State& state) {
    MainWindow& main = window();
    Window1& w = main.controller();
    recordLocations(w, std::size_t(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        w.fillBatchTable(); // back to the order of the list
        state.ResumeTiming();
        main.batchListbox()->sortByHeaderClick(2);
        showOnScreen(main.batchListbox());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_sortBatchTable)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
