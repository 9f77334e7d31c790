#pragma once

#include <string>

#include "sim/PanelState.h"

namespace FPSIM {

/// Pictures of the panel: the character display (reverse video and the
/// panel's symbols drawn dot by dot, as on the glass) with the LEDs, unit
/// status, brightness and fan state on a line beneath it. The same state
/// always gives the same bytes: the font is built in and nothing about the
/// machine, the clock or the emulator's counters goes into a picture.
/// Threads: any; it keeps no state.
class PanelPicture {
public:
    /// The picture as an SVG document. Characters are text (so rows can be
    /// searched for), symbols and unknown bytes are dot paths.
    static std::string Svg(const PanelState_t& state);
    /// The picture as a PNG file (8-bit RGB); empty if the encoder failed.
    static std::string Png(const PanelState_t& state);
    /// Writes Svg() or Png() to path, chosen by its ending (".svg" or
    /// ".png"); false, with error set, for another ending or a failed write.
    static bool Save(const std::string& path, const PanelState_t& state, std::string& error);
};

}  // namespace FPSIM
