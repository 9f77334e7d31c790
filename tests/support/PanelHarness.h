#pragma once

#include <memory>
#include <string>

#include "fp/panel/PanelStack.h"
#include "kt/StreamSocket.h"
#include "sim/PanelSim.h"

namespace fptest {

// A unit wired to an emulated panel over a real socket pair, the way an
// application wires it: FpAdapter, FpControl, DisplayHw and Keypad on one end,
// FPSIM::PanelSim on the other.
//
// - The emulator runs on the manual clock unless told otherwise; its threads
//   run from construction on.
// - The keypad's watcher thread starts only on StartKeypad().
// - Barrier() is a request round trip: the emulator handles frames in order,
//   so once its answer is back every frame sent before has been applied, and
//   every frame it sent before (keys, reports) has been handled by the unit.
//   Each barrier adds one display-type frame ('I') to the emulator's counters.
// - Call everything from one test thread; the accessors hand out the objects
//   themselves for whatever the harness does not wrap.
class PanelHarness {
public:
    explicit PanelHarness(unsigned width = 20, unsigned height = 4,
                          FPSIM::Clock_e clock = FPSIM::TIME_MANUAL);
    ~PanelHarness();
    PanelHarness(const PanelHarness&) = delete;
    PanelHarness& operator=(const PanelHarness&) = delete;

    FPSIM::PanelSim& Sim() { return *sim_; }
    FP::FpControl& Control() { return stack_->Control(); }
    FP::DisplayHw& Display() { return stack_->Display(); }
    FP::Keypad& Keypad() { return stack_->Keypad(); }

    void StartKeypad();

    // False (and a test failure) when the answer does not come in time.
    bool Barrier(unsigned timeoutMs = 2000);
    // After a barrier: the emulator's state, and its grid as rows joined with
    // '\n', reverse runs in [...] and panel symbols as ASCII stand-ins.
    FPSIM::PanelState_t State();
    std::string Screen();

private:
    KT::CStreamSocket unitEnd_;
    KT::CStreamSocket panelEnd_;
    std::unique_ptr<FPSIM::PanelSim> sim_;
    std::unique_ptr<FP::PanelStack> stack_;
};

}  // namespace fptest
