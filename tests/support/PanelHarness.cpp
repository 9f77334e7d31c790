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
    adapter_.reset(new FP::FpAdapter(unitEnd_));
    control_.reset(new FP::FpControl(*adapter_));
    display_.reset(new FP::DisplayHw(*control_, width, height));
    keypad_.reset(new FP::Keypad(*control_));
    // Started last: the adapter's handlers are not locked, so they must all be
    // in place before the first frame from the panel can arrive.
    if (!sim_->Start())
        ADD_FAILURE() << "emulator did not start";
}

PanelHarness::~PanelHarness() {
    // Quiet the panel first so no new frames reach objects being torn down.
    sim_->Stop();
    keypad_.reset();
    display_.reset();
    // The adapter's read thread calls into the control, so it goes first.
    adapter_.reset();
    control_.reset();
    sim_.reset();
}

void PanelHarness::StartKeypad() {
    keypad_->StartThreads();
}

bool PanelHarness::Barrier(unsigned timeoutMs) {
    const bool answered =
        !adapter_->SendRequest(FP::FpControl::OP_DISPLAY_TYPE, FP::IFpAdapter::Payload(), timeoutMs)
             .Empty();
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
