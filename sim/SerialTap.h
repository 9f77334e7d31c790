#pragma once

#include <memory>

#include "kt/StreamSocket.h"
#include "sim/BaudLink.h"

namespace FPSIM {

/// Puts a serial line of a given baud rate in front of a connected socket:
/// whoever reads and writes Near() talks to the far side of that socket as if
/// over the line. fp-panel puts it between the unit's connection and the
/// emulator; SerialPair between the two ends of a socket pair.
///
/// Threads: those of BaudLink; build and destroy on one thread.
/// Borrows: the far socket (must outlive this). Owns: the near end and the line.
/// Destroy whatever reads Near() first.
class SerialTap {
public:
    /// Makes the near end and starts the line to far; check IsOpen() afterwards.
    SerialTap(KT::CStreamSocket& far, unsigned baud);
    ~SerialTap();
    SerialTap(const SerialTap&) = delete;
    SerialTap& operator=(const SerialTap&) = delete;

    /// False when the sockets or the line's threads could not be made.
    bool IsOpen() const { return open_; }
    /// The end to read and write in place of far's peer; owned by the tap.
    KT::CStreamSocket& Near() { return near_; }
    /// FORWARD carries what the far socket's peer sends toward Near().
    BaudLink& Line() { return *line_; }

private:
    KT::CStreamSocket lineEnd_;
    KT::CStreamSocket near_;
    std::unique_ptr<BaudLink> line_;
    bool open_ = false;
};

}  // namespace FPSIM
