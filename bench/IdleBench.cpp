// The stack at rest: a bound menu drawn on the emulated panel, the keypad
// watching, the engine idle. Reports the process's resident memory and how
// often each of its threads wakes up while nothing happens.
#include <benchmark/benchmark.h>
#include <dirent.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <thread>

#include "bench/BenchSupport.h"
#include "fp/client/FpClient.h"
#include "fp/display/DisplayHw.h"
#include "fp/input/Keypad.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "fp/screens/BaseScreen.h"
#include "kt/StreamSocket.h"
#include "sim/PanelSim.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"
#include "tov/VarDecl.h"
#include "unit/Unit.h"

namespace {

// A field of a /proc status file, as a number (kB for memory).
double StatusField(const std::string& path, const std::string& field) {
    std::ifstream in(path);
    std::string line;
    while (std::getline(in, line))
        if (line.compare(0, field.size() + 1, field + ":") == 0)
            return std::atof(line.c_str() + field.size() + 1);
    return 0;
}

// Context switches of every thread of the process, by thread id and name.
std::map<std::string, double> ThreadSwitches() {
    std::map<std::string, double> out;
    DIR* dir = opendir("/proc/self/task");
    if (!dir)
        return out;
    while (dirent* e = readdir(dir)) {
        if (e->d_name[0] == '.')
            continue;
        const std::string task = std::string("/proc/self/task/") + e->d_name;
        std::string name;
        std::getline(std::ifstream(task + "/comm"), name);
        out[name + "#" + e->d_name] = StatusField(task + "/status", "voluntary_ctxt_switches") +
                                      StatusField(task + "/status", "nonvoluntary_ctxt_switches");
    }
    closedir(dir);
    return out;
}

// Wake-ups per second of every thread over seconds of rest, against limit.
void Measure(benchmark::State& state, double seconds, double limit) {
    for (auto _ : state) {
        const auto before = ThreadSwitches();
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
        const auto after = ThreadSwitches();
        double total = 0;
        for (const auto& t : after) {
            auto b = before.find(t.first);
            const double d = t.second - (b == before.end() ? 0 : b->second);
            // The measuring thread's own sleep is not the stack's, and the
            // emulator's threads stand for the panel's hardware.
            if (t.first.rfind("fp_bench_idle#", 0) == 0 || t.first.rfind("fpsim", 0) == 0)
                continue;
            total += d;
            if (d > 0)
                state.counters["wake/s " + t.first.substr(0, t.first.find('#'))] += d / seconds;
        }
        state.counters["wakeups_per_s"] = total / seconds;
        state.counters["limit_per_s"] = limit;
    }
}

double Seconds() {
    const char* env = std::getenv("FP_BENCH_IDLE_SECONDS");
    return env ? std::atof(env) : 3.0;
}

class NoKeys : public FP::IKeyPress {
public:
    void OnKeyPress(FP::Key_e) override {}
};

void BM_Idle(benchmark::State& state) {
    const double seconds = Seconds();
    // The emulator on its manual clock: it stands for hardware and must not
    // add wake-ups of its own to the process.
    fpbench::PanelLink link(20, 4, FPSIM::TIME_MANUAL);
    link.Sim().Start();
    NoKeys keys;
    link.Keypad().SetCallback(&keys);
    link.Keypad().StartThreads();
    TOV::CDataStore store;
    TOV::CTovClient client(store);
    FP::FpClient fp(&client);
    FP::MenuStyleBasic menu;
    for (int i = 0; i < 10; ++i)
        store.Declare(TOV::CVarDecl("idle.v" + std::to_string(i)).Default(std::to_string(i)));
    menu.SetDisplay(&link.Display());
    menu.SetClient(&fp);
    menu.SetTitle("Idle");
    for (int i = 0; i < 10; ++i)
        menu.AddLine(new FP::DisplayLine("idle.v" + std::to_string(i), "0"), "Value ");
    menu.DrawScreen(FP::DRAW_FULL);
    link.Control().GetDisplayType();

    Measure(state, seconds, 1000.0 / FP::Keypad::kWatchWaitMs);
    state.counters["rss_kB"] = StatusField("/proc/self/status", "VmRSS");
    state.counters["threads"] = static_cast<double>(ThreadSwitches().size());
    delete menu.GetTitle();
}
BENCHMARK(BM_Idle)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

// A screen of ten engine rows; polls every range(0) ms, or never for 0.
class RowsScreen : public FP::BaseScreen {
public:
    explicit RowsScreen(int pollMs) : FP::BaseScreen(pollMs ? pollMs : 1000, pollMs != 0) {
        SetName("Rows");
        menu.SetTitle("Idle");
        for (int i = 0; i < 10; ++i)
            menu.AddLine(new FP::DisplayLine("idle.v" + std::to_string(i), "0"), "Value ");
    }
};

// The unit runtime at rest on a panel in another process (here: the
// emulator on its manual clock, which adds no wake-ups): the UI, engine and
// link threads besides the keypad's. The limit is the keypad's tick plus the
// screen's poll rate; liveness_per_s is the link check's request rate, which
// comes on top (a request and its answer wake three threads).
void BM_IdleUnit(benchmark::State& state) {
    const int pollMs = static_cast<int>(state.range(0));
    TOV::CDataStore store;
    for (int i = 0; i < 10; ++i)
        store.Declare(TOV::CVarDecl("idle.v" + std::to_string(i)).Default(std::to_string(i)));
    std::unique_ptr<KT::CStreamSocket> unitEnd(new KT::CStreamSocket);
    KT::CStreamSocket panelEnd;
    KT::CStreamSocket::CreatePair(*unitEnd, panelEnd);
    FPSIM::PanelConfig_t config;
    config.clock = FPSIM::TIME_MANUAL;
    FPSIM::PanelSim sim(panelEnd, config);
    sim.Start();
    FP::Unit::Options options;
    options.connector = [&unitEnd](std::string&) { return std::move(unitEnd); };
    FP::Unit unit(store, options);
    unit.AddScreen(std::unique_ptr<FP::BaseScreen>(new RowsScreen(pollMs)));
    unit.Start();
    unit.WaitLinkUp(5000);
    unit.WaitIdle(5000);
    const double limit = 1000.0 / FP::Keypad::kWatchWaitMs + (pollMs ? 1000.0 / pollMs : 0);
    Measure(state, Seconds(), limit);
    state.counters["liveness_per_s"] = 1000.0 / options.livenessPeriodMs;
    unit.Stop();
    sim.Stop();
}
BENCHMARK(BM_IdleUnit)
    ->Arg(0)
    ->Arg(1000)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
