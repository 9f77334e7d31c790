#pragma once

#include <atomic>
#include <memory>
#include <mutex>

#include "kt/StreamSocket.h"
#include "sim/PanelSim.h"
#include "tools/panel/PanelView.h"

namespace FPDEMO {

// The panel emulator running in this process, on one end of a socket pair;
// the unit gets the other end. It is also what the curses screen draws.
class EmbeddedPanel : public FPPANEL::PanelView {
public:
    EmbeddedPanel(unsigned width, unsigned height);
    ~EmbeddedPanel() override;
    EmbeddedPanel(const EmbeddedPanel&) = delete;
    EmbeddedPanel& operator=(const EmbeddedPanel&) = delete;

    // The unit's end of the link, handed over once; null if the pair failed.
    std::unique_ptr<KT::CStreamSocket> TakeUnitEnd() { return std::move(unitEnd_); }
    // Sends the start-up message and starts the emulator's threads.
    bool Start();
    void Stop();
    FPSIM::PanelSim& Sim() { return *sim_; }

    FPSIM::PanelState_t Snapshot() const override { return sim_->Snapshot(); }
    FPPANEL::PanelInfo_t Info() const override;
    uint64_t ChangeCount() const override { return changes_.load(); }
    bool KeyDown(int key) override { return sim_->KeyDown(uint8_t(key)); }
    bool KeyUp(int key) override { return sim_->KeyUp(uint8_t(key)); }
    void AdjustTemperature(int delta) override;
    void AdjustFanSpeeds(int delta) override;

private:
    void OnChange(unsigned) { ++changes_; }

    FPSIM::PanelConfig_t config_;
    std::unique_ptr<KT::CStreamSocket> unitEnd_;
    KT::CStreamSocket panelEnd_;
    std::unique_ptr<FPSIM::PanelSim> sim_;
    std::atomic<uint64_t> changes_{0};
};

}  // namespace FPDEMO
