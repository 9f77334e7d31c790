#pragma once

#include <memory>
#include <string>

#include "fp/display/DisplayHw.h"
#include "fp/input/Keypad.h"
#include "fp/link/FpAdapter.h"
#include "fp/link/FpControl.h"
#include "kt/StreamSocket.h"

namespace FPDEMO {

// One connection to the panel and the library objects built on it, in the
// order an application wires them. Destroying it (or Close) tears them down
// in reverse, so a dropped link is replaced by building a new PanelLink.
class PanelLink {
public:
    // Takes the connected socket.
    PanelLink(std::unique_ptr<KT::CStreamSocket> socket, unsigned width, unsigned height);
    ~PanelLink();
    PanelLink(const PanelLink&) = delete;
    PanelLink& operator=(const PanelLink&) = delete;

    FP::FpAdapter& Adapter() { return *adapter_; }
    FP::FpControl& Control() { return *control_; }
    FP::Keypad& Keypad() { return *keypad_; }
    FP::DisplayHw& Display() { return *display_; }

    // True once the other end has hung up or the socket failed. Does not
    // consume anything the read thread is waiting for.
    bool PeerGone() const;
    // A request round trip: once answered, every frame sent before it has
    // been applied by the panel. False on timeout.
    bool RoundTrip(unsigned timeoutMs);

private:
    std::unique_ptr<KT::CStreamSocket> socket_;
    std::unique_ptr<FP::FpAdapter> adapter_;
    std::unique_ptr<FP::FpControl> control_;
    std::unique_ptr<FP::Keypad> keypad_;
    std::unique_ptr<FP::DisplayHw> display_;
};

}  // namespace FPDEMO
