#pragma once

#include <string>

#include "sim/PanelState.h"

namespace FPPANEL {

/// Saves what the panel shows to a file, in the format its name's extension
/// asks for: text (".txt") or a picture (".svg", ".png"); a new format is one
/// more entry in the table in PanelSnapshot.cpp.
/// Threads: any; it keeps no state.
class PanelSnapshot {
public:
    /// Writes state to path; false (with error set) for an unknown extension
    /// or a file that cannot be written.
    static bool Save(const std::string& path, const FPSIM::PanelState_t& state, bool utf8,
                     std::string& error);
    /// The text format: the framed display with each reverse row's mask, then
    /// the LEDs and the unit status. Nothing that changes from run to run
    /// (addresses, times), so snapshots can be compared.
    static std::string Text(const FPSIM::PanelState_t& state, bool utf8);
};

}  // namespace FPPANEL
