#include "examples/demo/EmbeddedPanel.h"

#include <algorithm>

namespace FPDEMO {

namespace {
const int16_t kStartTemperature = 31;
const uint16_t kStartFanSpeed = 2400;
}  // namespace

EmbeddedPanel::EmbeddedPanel(unsigned width, unsigned height) : unitEnd_(new KT::CStreamSocket) {
    config_.width = width;
    config_.height = height;
    config_.clock = FPSIM::TIME_REAL;
    config_.version = "fpsim 1.0 (in-process)";
    if (!KT::CStreamSocket::CreatePair(*unitEnd_, panelEnd_))
        unitEnd_.reset();
    sim_.reset(new FPSIM::PanelSim(panelEnd_, config_));
    sim_->SetTemperature(kStartTemperature);
    for (unsigned fan = 0; fan < 3; ++fan)
        sim_->SetFanSpeed(fan, uint16_t(kStartFanSpeed + 150 * fan));
    sim_->AddObserver(FPSIM::PanelSim::Observer(this, &EmbeddedPanel::OnChange));
}

EmbeddedPanel::~EmbeddedPanel() {
    Stop();
}

bool EmbeddedPanel::Start() {
    return sim_->Start();
}

void EmbeddedPanel::Stop() {
    sim_->Stop();
}

FPPANEL::PanelInfo_t EmbeddedPanel::Info() const {
    FPPANEL::PanelInfo_t info;
    info.address = "in-process";
    info.connected = true;
    info.slotId = config_.slotId;
    info.voltage = config_.voltage;
    info.displayType = config_.displayType;
    info.version = config_.version;
    return info;
}

void EmbeddedPanel::AdjustTemperature(int delta) {
    const int t = sim_->Snapshot().temperature + delta;
    sim_->SetTemperature(int16_t(std::min(127, std::max(-128, t))));
}

void EmbeddedPanel::AdjustFanSpeeds(int delta) {
    const auto speeds = sim_->Snapshot().fanSpeed;
    for (unsigned fan = 0; fan < speeds.size(); ++fan)
        sim_->SetFanSpeed(fan, uint16_t(std::min(65535, std::max(0, speeds[fan] + delta))));
}

}  // namespace FPDEMO
