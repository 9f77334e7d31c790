#pragma once

#include <string>

#include "sim/PanelState.h"
#include "tools/panel/PanelText.h"

namespace FPWEB {

// The messages the page reads, as JSON text.
class StateJson {
public:
    // Everything the page draws: cells (as the terminal's UTF-8 glyphs, one
    // string per row), the reverse-video mask, LEDs and readings.
    static std::string State(const FPSIM::PanelState_t& state, const FPPANEL::PanelInfo_t& info,
                             const std::string& title);
    // Whether this browser may press keys, and whether a token would let it.
    static std::string Access(bool mayPress, bool needsToken);
    // text as a JSON string literal, quotes included.
    static std::string Quote(const std::string& text);
};

}  // namespace FPWEB
