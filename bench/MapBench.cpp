// The map at scale, through the real window offscreen: the controller rebuilding its pins for
// the whole list, one full frame of the map after a pan with many pins on it (Marble's drawing
// and ours together), a click's hit test among 100,000 pins, and the application's start: from
// spawning the program to its first map frame, and its resident memory with every process it
// starts. Locations are spread at random over Europe, which a web zoom of 4 shows whole.

#include "coordinates/LatLon_UTM.h"
#include "coordinates/generalModule.h"
#include "locationbook/Window1.h"
#include "shell/MainWindow.h"
#include "shell/MarbleMapView.h"
#include "shell/PinLayer.h"

#include <marble/MarbleMap.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTabWidget>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <unistd.h>

namespace {

QTemporaryDir* home = nullptr; // the map's caches and looks, for this run alone

// One window for every benchmark, on the map's page, with the map's data read in.
MainWindow& window() {
    static MainWindow* w = [] {
        auto* made = new MainWindow;
        made->show();
        made->tabPanel()->setCurrentIndex(0);
        QElapsedTimer waited;
        waited.start();
        while (made->map()->pendingMapFiles() > 0 && waited.elapsed() < 20000)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        QApplication::processEvents();
        return made;
    }();
    return *w;
}

const std::vector<VertexRef>& spreadLocations(std::size_t count) {
    static std::map<std::size_t, std::vector<VertexRef>> made;
    auto found = made.find(count);
    if (found != made.end())
        return found->second;
    std::mt19937_64 random(20261123);
    std::uniform_real_distribution<double> lat(36, 60), lon(-12, 32);
    std::vector<VertexRef> locations;
    locations.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        locations.push_back(generalModule::vertexFromDD(lon(random), lat(random)));
        locations.back()->label = QStringLiteral("Point %1").arg(i + 1);
        locations.back()->saved = true;
    }
    return made.emplace(count, std::move(locations)).first->second;
}

// The window's list replaced, and its pins made and put on the map.
void recordWithPins(Window1& w, std::size_t count) {
    w.locations = spreadLocations(count);
    w.makePinsFromLocations();
}

void BM_makePins(benchmark::State& state) {
    Window1& w = window().controller();
    w.locations = spreadLocations(std::size_t(state.range(0)));
    for (auto _ : state)
        w.makePinsFromLocations();
    state.counters["pins"] = double(w.Pins.size());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_makePins)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_mapFrame(benchmark::State& state) {
    MainWindow& main = window();
    Window1& w = main.controller();
    MarbleMapView* map = main.map();
    recordWithPins(w, std::size_t(state.range(0)));
    const double zoom = double(state.range(1));
    w.LoadMap(48.0, 10.0);
    map->setZoomLevel(zoom);
    map->repaint();
    QApplication::processEvents();
    // Three pixels to one side and back: each frame is a new view, as in a drag.
    const double step = 3.0 * 360.0 / (4.0 * map->map()->radius());
    int side = 1;
    for (auto _ : state) {
        side = -side;
        map->setCenterCoordinate(MapCoordinate{48.0, 10.0 + side * step});
        map->repaint();
    }
    state.counters["pictures_drawn"] = double(map->pinLayer().drawnCount());
    w.locations.clear();
    w.makePinsFromLocations();
}
BENCHMARK(BM_mapFrame)
    ->ArgsProduct({{1000, 10000, 100000}, {4, 8}})
    ->ArgNames({"pins", "webzoom"})
    ->Unit(benchmark::kMillisecond);

// Points spread over the map where the clicks land.
std::vector<QPointF> clickPoints(const MarbleMapView& map) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> x(0, map.QWidget::width()), y(0, map.height());
    std::vector<QPointF> points(1024);
    for (QPointF& p : points)
        p = QPointF(x(random), y(random));
    return points;
}

void BM_pinHitTest(benchmark::State& state) {
    MainWindow& main = window();
    Window1& w = main.controller();
    MarbleMapView* map = main.map();
    recordWithPins(w, 100000);
    w.LoadMap(48.0, 10.0);
    map->setZoomLevel(double(state.range(0)));
    map->repaint(); // the frame the user clicks on
    const std::vector<QPointF> points = clickPoints(*map);
    std::size_t i = 0, hits = 0;
    for (auto _ : state) {
        const MapPinRef pin = map->pinLayer().pinAt(*map->map()->viewport(), points[i++ & 1023]);
        hits += pin != nullptr;
        benchmark::DoNotOptimize(pin);
    }
    state.counters["hit_share"] = double(hits) / double(state.iterations());
    w.locations.clear();
    w.makePinsFromLocations();
}
BENCHMARK(BM_pinHitTest)->Arg(4)->Arg(8)->ArgName("webzoom")->Unit(benchmark::kMicrosecond);

// The worst case: the map moved and no frame was drawn since, so the hit test places the pins
// itself first.
void BM_pinHitTestAfterPan(benchmark::State& state) {
    MainWindow& main = window();
    Window1& w = main.controller();
    MarbleMapView* map = main.map();
    recordWithPins(w, 100000);
    w.LoadMap(48.0, 10.0);
    map->setZoomLevel(4);
    const std::vector<QPointF> points = clickPoints(*map);
    const double step = 3.0 * 360.0 / (4.0 * map->map()->radius());
    std::size_t i = 0;
    int side = 1;
    for (auto _ : state) {
        side = -side;
        map->setCenterCoordinate(MapCoordinate{48.0, 10.0 + side * step});
        benchmark::DoNotOptimize(
            map->pinLayer().pinAt(*map->map()->viewport(), points[i++ & 1023]));
    }
    w.locations.clear();
    w.makePinsFromLocations();
}
BENCHMARK(BM_pinHitTestAfterPan)->Unit(benchmark::kMicrosecond);

// --- The application's start ---------------------------------------------------------------

QProcessEnvironment appEnvironment(const char* firstFrame) {
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    env.insert(QStringLiteral("GEOQUILL_MAP_OFFLINE"), QStringLiteral("1"));
    env.insert(QStringLiteral("GEOQUILL_FIRST_MAP_FRAME"), QString::fromLatin1(firstFrame));
    env.insert(QStringLiteral("XDG_DATA_HOME"), home->filePath(QStringLiteral("data")));
    env.insert(QStringLiteral("XDG_CACHE_HOME"), home->filePath(QStringLiteral("cache")));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home->filePath(QStringLiteral("config")));
    return env;
}

// Starts the program and waits for it to say it has painted its map; the time that took
// (seconds), or a negative number when it never did.
double startUntilFirstFrame(QProcess& app, const char* firstFrame) {
    app.setProcessEnvironment(appEnvironment(firstFrame));
    app.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer clock;
    clock.start();
    app.start(QStringLiteral(GEOQUILL_APP), QStringList());
    QByteArray said;
    while (!said.contains("first map frame")) {
        if (!app.waitForReadyRead(20000))
            return -1;
        said += app.readAllStandardOutput();
    }
    return double(clock.nsecsElapsed()) / 1e9;
}

// Resident memory (MB) of a process and every process it started, from /proc.
double residentWithChildren(qint64 root, int& processes) {
    std::map<qint64, std::vector<qint64>> children;
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : entries) {
        bool isPid = false;
        const qint64 pid = entry.toLongLong(&isPid);
        if (!isPid)
            continue;
        std::ifstream stat("/proc/" + entry.toStdString() + "/stat");
        std::string line;
        std::getline(stat, line);
        const auto close = line.rfind(')'); // the command name may hold spaces
        if (close == std::string::npos)
            continue;
        std::istringstream rest(line.substr(close + 2));
        char state = 0;
        qint64 parent = 0;
        rest >> state >> parent;
        children[parent].push_back(pid);
    }
    double megabytes = 0;
    processes = 0;
    std::vector<qint64> todo{root};
    while (!todo.empty()) {
        const qint64 pid = todo.back();
        todo.pop_back();
        std::ifstream statm("/proc/" + std::to_string(pid) + "/statm");
        long pages = 0, resident = 0;
        if (statm >> pages >> resident) {
            megabytes += double(resident) * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
            ++processes;
        }
        for (qint64 child : children[pid])
            todo.push_back(child);
    }
    return megabytes;
}

// From the process's start to the main window's first full paint with the map, and the memory
// resident then (the program and anything it started).
void BM_startup(benchmark::State& state) {
    double megabytes = 0;
    int processes = 0;
    for (auto _ : state) {
        QProcess app;
        const double seconds = startUntilFirstFrame(app, "print");
        if (seconds < 0) {
            state.SkipWithError("the program showed no map");
            break;
        }
        state.SetIterationTime(seconds);
        megabytes = std::max(megabytes, residentWithChildren(app.processId(), processes));
        app.terminate();
        if (!app.waitForFinished(10000))
            app.kill();
    }
    state.counters["resident_MB"] = megabytes;
    state.counters["processes"] = processes;
}
BENCHMARK(BM_startup)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QTemporaryDir dir;
    home = &dir;
    qputenv("XDG_DATA_HOME", dir.filePath(QStringLiteral("data")).toLocal8Bit());
    qputenv("XDG_CACHE_HOME", dir.filePath(QStringLiteral("cache")).toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", dir.filePath(QStringLiteral("config")).toLocal8Bit());
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", dir.path().toLocal8Bit()); // private to this run (0700)
    qputenv("GEOQUILL_MAP_OFFLINE", "1");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QApplication app(argc, argv);
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
