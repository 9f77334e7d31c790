#pragma once

#include <memory>

#include "kt/StreamSocket.h"
#include "sim/SerialTap.h"

namespace FPSIM {

/// Two connected sockets, one for the unit and one for the panel, for tests and
/// benchmarks: joined directly (baud 0), or through a BaudLink that carries the
/// bytes as a serial line at baud would.
///
/// Threads: the sockets keep their own rules; build and destroy on one thread.
/// Owns: both ends, and the line and its threads when there is one. Destroy
/// whatever reads the ends (the unit's stack, the emulator) first.
class SerialPair {
public:
    /// Makes the two ends, and the line between them when baud is not 0;
    /// check IsOpen() afterwards.
    explicit SerialPair(unsigned baud = 0);
    ~SerialPair();
    SerialPair(const SerialPair&) = delete;
    SerialPair& operator=(const SerialPair&) = delete;

    /// False when the sockets or the line's threads could not be made.
    bool IsOpen() const { return open_; }
    /// The socket the unit's stack uses and the one the emulator uses; both
    /// stay owned by the pair.
    ///@{
    KT::CStreamSocket& UnitEnd() { return unitEnd_; }
    KT::CStreamSocket& PanelEnd() { return tap_ ? tap_->Near() : panelEnd_; }
    ///@}
    /// The line between the ends, or null when they are joined directly.
    /// FORWARD carries the unit's bytes to the panel.
    BaudLink* Line() { return tap_ ? &tap_->Line() : nullptr; }

private:
    KT::CStreamSocket unitEnd_;
    KT::CStreamSocket panelEnd_;  // direct pairs only
    KT::CStreamSocket unitSide_;  // the line's far socket, when there is a line
    std::unique_ptr<SerialTap> tap_;
    bool open_ = false;
};

}  // namespace FPSIM
