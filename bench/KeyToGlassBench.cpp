// Key to glass over an emulated serial line: from the panel putting a key-down
// frame on the wire to the last byte of the redraw it causes reaching the
// panel, for the actions a user does most, at two line speeds and in both
// update modes of the hardware display. Each figure is set against the wire's
// own limit: the key frame plus the fewest bytes that could change the panel.
#include <benchmark/benchmark.h>

#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <string>
#include <vector>

#include "bench/BenchSupport.h"
#include "fp/client/FpClient.h"
#include "fp/core/Names.h"
#include "fp/lines/ListLine.h"
#include "fp/lines/NumberLine.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "sim/FrameEncoder.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"
#include "tov/VarDecl.h"

namespace {

constexpr unsigned kWidth = 20, kHeight = 4;

// A small unit: a main menu with a number, a list and a row that opens a
// second screen. Keys are handled on the keypad's thread, the way a unit with
// a single UI thread would once the key reached it.
class Unit : public FP::IKeyPress {
public:
    explicit Unit(FP::DisplayHw& display) : client(store), fp(&client) {
        store.Declare(TOV::CVarDecl("k2g.level").Default("42"));
        store.Declare(TOV::CVarDecl("k2g.mode").Default("Auto"));
        Setup(main, display, "Main");
        auto* level = new FP::NumberLine(false, 1.0, 0, 1.0);
        level->SetMinMax(0, 999);
        level->SetDbInfo("k2g.level", "0");
        main.AddLine(level, "Level ");
        auto* mode = new FP::ListLine(std::vector<std::string>{"Auto", "Manual", "Off"}, false);
        mode->SetDbInfo("k2g.mode", "0");
        main.AddLine(mode, "Mode ");
        main.AddLine(new FP::DisplayLine("Settings"), "", "Settings");
        main.AddLine(new FP::DisplayLine("About"));
        Setup(settings, display, "Settings");
        settings.SetExitScreen("Main");
        for (const char* row : {"Contrast 5", "Backlight on", "Language en"})
            settings.AddLine(new FP::DisplayLine(row));
        current = &main;
    }
    ~Unit() override {
        delete main.GetTitle();
        delete settings.GetTitle();
    }

    void OnKeyPress(FP::Key_e key) override {
        const std::string next = current->KeyPress(FP::KeyState_t{key, FP::KEY_STATE_DOWN});
        if (next != FP::kNoScreen) {
            current = next == "Settings" ? &settings : &main;
            current->DrawScreen(FP::DRAW_FULL);
        }
        std::lock_guard<std::mutex> lock(mutex);
        ++handled;
        cond.notify_all();
    }
    // Waits until count keys have been handled in all.
    void WaitHandled(unsigned count) {
        std::unique_lock<std::mutex> lock(mutex);
        cond.wait(lock, [&] { return handled >= count; });
    }

    TOV::CDataStore store;
    TOV::CTovClient client;
    FP::FpClient fp;
    FP::MenuStyleBasic main, settings;
    FP::MenuStyleBasic* current;

private:
    void Setup(FP::MenuStyleBasic& menu, FP::DisplayHw& display, const char* title) {
        menu.SetDisplay(&display);
        menu.SetClient(&fp);
        menu.SetTitle(title);
    }
    std::mutex mutex;
    std::condition_variable cond;
    unsigned handled = 0;
};

// One measured action: keys that lead to it, then two keys pressed in turn
// so that the panel swings between two states.
struct Action {
    const char* name;
    std::vector<FP::Key_e> setup;
    FP::Key_e keys[2];
};

const Action kActions[] = {
    {"cursor move", {}, {FP::KEY_DOWN, FP::KEY_UP}},
    {"digit step", {FP::KEY_ENTER}, {FP::KEY_UP, FP::KEY_DOWN}},
    {"list choice", {FP::KEY_DOWN, FP::KEY_ENTER}, {FP::KEY_DOWN, FP::KEY_UP}},
    {"screen change", {FP::KEY_DOWN, FP::KEY_DOWN}, {FP::KEY_ENTER, FP::KEY_EXIT}},
};

double Ms(fpbench::Clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

void BM_KeyToGlass(benchmark::State& state) {
    const Action& action = kActions[state.range(0)];
    const unsigned baud = static_cast<unsigned>(state.range(1));
    FP::PanelStack::Options options;
    options.startKeypad = true;
    options.sendChangesOnly = state.range(2) == 1;
    fpbench::PanelLink link(kWidth, kHeight, FPSIM::TIME_MANUAL, baud, options);
    FPSIM::PanelSim& sim = link.Sim();
    FP::PanelStack& stack = link.Stack();
    Unit unit(stack.Display());
    stack.Keypad().SetCallback(&unit);
    sim.Start();
    // Past the panel's start-up message, which asks for everything again.
    stack.RoundTrip(10000);
    unit.main.DrawScreen(FP::DRAW_FULL);
    unsigned presses = 0;
    auto press = [&](FP::Key_e key) {
        sim.KeyDown(static_cast<uint8_t>(key));
        unit.WaitHandled(++presses);
        sim.KeyUp(static_cast<uint8_t>(key));
    };
    auto settle = [&] {
        if (!stack.RoundTrip(10000))
            state.SkipWithError("the panel did not answer");
        return sim.Snapshot();
    };
    for (FP::Key_e key : action.setup)
        press(key);

    // Each of the two keys once, between barriers: what it sends, and the
    // least the panel's change could have cost.
    const size_t kBarrierBytes = 3;
    uint64_t wire[2];
    double limitMs[2], minimal[2];
    for (int k = 0; k < 2; ++k) {
        const FPSIM::PanelState_t before = settle();
        press(action.keys[k]);
        const FPSIM::PanelState_t after = settle();
        wire[k] = after.counters.bytesIn - before.counters.bytesIn - kBarrierBytes;
        minimal[k] = static_cast<double>(fpbench::MinimalBytes(before.grid, after.grid));
        const size_t keyFrame =
            FPSIM::FrameEncoder::Encode('K', {static_cast<uint8_t>(action.keys[k]), 1}).size();
        limitMs[k] = Ms(FPSIM::BaudLink::ByteTime(baud)) * (minimal[k] + double(keyFrame));
    }
    settle();

    std::vector<double> ms, ratio;
    uint64_t expected = link.Line()->Delivered(FPSIM::BaudLink::FORWARD).bytes;
    int k = 0;
    for (auto _ : state) {
        const uint64_t base = link.Line()->Delivered(FPSIM::BaudLink::FORWARD).bytes;
        const auto start = fpbench::Clock::now();
        sim.KeyDown(static_cast<uint8_t>(action.keys[k]));
        FPSIM::BaudLink::Delivered_t reached;
        if (!link.Line()->WaitDelivered(FPSIM::BaudLink::FORWARD, base + wire[k], 10000,
                                        &reached)) {
            state.SkipWithError("the redraw never reached the panel");
            break;
        }
        const double took = Ms(reached.last - start);
        state.SetIterationTime(took / 1000);
        ms.push_back(took);
        ratio.push_back(took / limitMs[k]);
        expected += wire[k];
        unit.WaitHandled(++presses);
        sim.KeyUp(static_cast<uint8_t>(action.keys[k]));
        k = 1 - k;
    }
    // Every press must have sent what it sent once measured alone, or the
    // times above would belong to another redraw.
    settle();
    if (link.Line()->Delivered(FPSIM::BaudLink::FORWARD).bytes != expected + kBarrierBytes)
        state.SkipWithError("a press sent other bytes than when measured alone");
    state.SetLabel(action.name);
    state.counters["median_ms"] = fpbench::Percentile(ms, 0.5);
    state.counters["p99_ms"] = fpbench::Percentile(ms, 0.99);
    state.counters["limit_ms"] = (limitMs[0] + limitMs[1]) / 2;
    state.counters["ratio_median"] = fpbench::Percentile(ratio, 0.5);
    state.counters["ratio_p99"] = fpbench::Percentile(ratio, 0.99);
    state.counters["wire_B"] = double(wire[0] + wire[1]) / 2;
    state.counters["minimal_B"] = (minimal[0] + minimal[1]) / 2;
    stack.Keypad().SetCallback(nullptr);
}

// Presses per figure: FP_BENCH_PRESSES, or enough for a 99th percentile
// that means something without taking minutes at 9600 baud.
int Presses() {
    const char* set = std::getenv("FP_BENCH_PRESSES");
    const int n = set ? std::atoi(set) : 0;
    return n > 0 ? n : 100;
}

// action: index into kActions; changes: 0 whole windows (the default), 1
// only the cells that changed.
BENCHMARK(BM_KeyToGlass)
    ->ArgNames({"action", "baud", "changes"})
    ->ArgsProduct({{0, 1, 2, 3}, {9600, 115200}, {0, 1}})
    ->UseManualTime()
    ->Iterations(Presses())
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
