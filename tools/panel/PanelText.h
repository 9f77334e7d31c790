#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sim/PanelState.h"

namespace FPPANEL {

// What the screen shows besides the emulator's own state.
struct PanelInfo_t {
    std::string address;
    bool connected = false;
    uint8_t slotId = 0;
    float voltage = 0;
    uint8_t displayType = 0;
    std::string version;
    uint64_t connections = 0;  // units accepted so far
};

// The panel as text: the display in a frame, then the indicators. Used for
// headless dumps; the curses screen draws the display itself and reuses the
// indicator lines.
class PanelText {
public:
    // The framed display. A row with reverse-video cells is followed, right of
    // the frame, by its mask ('#' reverse, '.' normal).
    static std::vector<std::string> Display(const FPSIM::PanelState_t& state, bool utf8);
    // "LEDs: 4 on, 5 off", and the unit status, brightness and fan line:
    // what the unit set, without the emulator's own readings.
    static std::string Leds(const FPSIM::PanelState_t& state);
    static std::string Status(const FPSIM::PanelState_t& state);
    static std::vector<std::string> Indicators(const FPSIM::PanelState_t& state,
                                               const PanelInfo_t& info);
    // Display and indicators, one line each, every line ending in '\n'.
    static std::string Render(const FPSIM::PanelState_t& state, const PanelInfo_t& info, bool utf8);
};

}  // namespace FPPANEL
