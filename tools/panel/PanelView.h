#pragma once

#include <cstdint>

#include "sim/PanelState.h"
#include "tools/panel/PanelText.h"

namespace FPPANEL {

// What the curses screen needs from an emulated panel: its state to draw and
// a way to press its keys and move its readings. fp-panel's server is one;
// a program that runs the emulator in-process can be another. All methods
// may be called from any thread.
class PanelView {
public:
    virtual ~PanelView() = default;
    virtual FPSIM::PanelState_t Snapshot() const = 0;
    virtual PanelInfo_t Info() const = 0;
    // Bumped on every change, so the screen knows when to redraw.
    virtual uint64_t ChangeCount() const = 0;
    virtual bool KeyDown(int key) = 0;
    virtual bool KeyUp(int key) = 0;
    virtual void AdjustTemperature(int delta) = 0;
    virtual void AdjustFanSpeeds(int delta) = 0;
};

}  // namespace FPPANEL
