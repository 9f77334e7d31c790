// Drawing a bound 20x4 menu: CPU time of a full draw and of a refresh down to
// the socket, and the bytes each puts on the wire against the bytes needed to
// update only the cells that changed.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <thread>

#include "bench/BenchSupport.h"
#include "fp/client/FpClient.h"
#include "fp/display/DisplayHw.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "sim/PanelGrid.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"
#include "tov/VarDecl.h"

namespace {

constexpr int kLines = 10;
constexpr unsigned kWidth = 20, kHeight = 4;

// Ten lines bound to the embedded engine, drawn on the given link.
class BoundMenu {
public:
    explicit BoundMenu(FP::FpControl& control)
        : client(store), fp(&client), display(control, kWidth, kHeight) {
        for (int i = 0; i < kLines; ++i)
            store.Declare(TOV::CVarDecl(Name(i)).Default("value " + std::to_string(i)));
        menu.SetDisplay(&display);
        menu.SetClient(&fp);
        menu.SetTitle("Status");
        for (int i = 0; i < kLines; ++i)
            menu.AddLine(new FP::DisplayLine(Name(i), "0"), "Item " + std::to_string(i) + " ");
    }
    ~BoundMenu() { delete menu.GetTitle(); }

    static std::string Name(int i) { return "bench.v" + std::to_string(i); }
    // Changes the value of the first line shown below the title.
    void Touch(unsigned n) { fp.SendDataWait(Name(0), "0", "value " + std::to_string(n % 10)); }

    TOV::CDataStore store;
    TOV::CTovClient client;
    FP::FpClient fp;
    FP::DisplayHw display;
    FP::MenuStyleBasic menu;
};

// The wire side, measured once on the emulator: bytes sent against minimal.
// Full: the first draw on a blank panel, then the same draw again; refresh:
// after one bound value changed.
void WireCost(benchmark::State& state, bool full, FP::DisplayHw::UpdateMode_e mode) {
    fpbench::PanelLink link(kWidth, kHeight);
    link.Sim().Start();
    BoundMenu m(link.Control());
    m.display.SetUpdateMode(mode);
    auto measure = [&](FP::DrawScreen_e mode, const char* prefix) {
        link.Control().GetDisplayType();
        const FPSIM::PanelState_t before = link.Sim().Snapshot();
        m.menu.DrawScreen(mode);
        link.Control().GetDisplayType();
        const FPSIM::PanelState_t after = link.Sim().Snapshot();
        const size_t kBarrierBytes = 3;
        const double sent =
            static_cast<double>(after.counters.bytesIn - before.counters.bytesIn - kBarrierBytes);
        const double minimal = static_cast<double>(fpbench::MinimalBytes(before.grid, after.grid));
        state.counters[std::string(prefix) + "wire_B"] = sent;
        state.counters[std::string(prefix) + "minimal_B"] = minimal;
    };
    if (full) {
        measure(FP::DRAW_FULL, "first_");
        measure(FP::DRAW_FULL, "again_");
    } else {
        m.menu.DrawScreen(FP::DRAW_FULL);
        m.Touch(1);
        measure(FP::DRAW_REFRESH, "");
    }
}

void BM_MenuDraw(benchmark::State& state) {
    const bool full = state.range(0) == 1;
    const auto mode = static_cast<FP::DisplayHw::UpdateMode_e>(state.range(1));
    fpbench::DrainedLink link;
    BoundMenu m(link.Control());
    m.display.SetUpdateMode(mode);
    m.menu.DrawScreen(FP::DRAW_FULL);
    unsigned n = 0;
    for (auto _ : state) {
        if (!full) {
            state.PauseTiming();
            m.Touch(++n);
            state.ResumeTiming();
        }
        m.menu.DrawScreen(full ? FP::DRAW_FULL : FP::DRAW_REFRESH);
    }
    WireCost(state, full, mode);
}
// changes: 0 sends whole windows (the default), 1 only the cells that changed.
BENCHMARK(BM_MenuDraw)->ArgNames({"full", "changes"})->ArgsProduct({{1, 0}, {0, 1}});

}  // namespace

BENCHMARK_MAIN();
