#include "tests/support/PanelHarness.h"

#include <gtest/gtest.h>

namespace fptest {

PanelHarness::PanelHarness(unsigned width, unsigned height, FPSIM::Clock_e clock) {
    if (!KT::CStreamSocket::CreatePair(unitEnd_, panelEnd_))
        ADD_FAILURE() << "no socket pair";
    FPSIM::PanelConfig_t config;
    config.width = width;
    config.height = height;
    config.clock = clock;
    sim_.reset(new FPSIM::PanelSim(panelEnd_, config));
    stack_.reset(new FP::PanelStack(unitEnd_, width, height));
    // Started last, so the panel's first frames find the unit complete.
    if (!sim_->Start())
        ADD_FAILURE() << "emulator did not start";
}

PanelHarness::~PanelHarness() {
    // Quiet the panel first so no new frames reach objects being torn down.
    sim_->Stop();
    stack_.reset();
    sim_.reset();
}

void PanelHarness::StartKeypad() {
    stack_->Keypad().StartThreads();
}

bool PanelHarness::Barrier(unsigned timeoutMs) {
    const bool answered = stack_->RoundTrip(timeoutMs);
    if (!answered)
        ADD_FAILURE() << "the emulator did not answer the barrier request";
    return answered;
}

FPSIM::PanelState_t PanelHarness::State() {
    Barrier();
    return sim_->Snapshot();
}

std::string PanelHarness::Screen() {
    return State().grid.RenderMarked();
}

}  // namespace fptest
