#pragma once

#include <memory>
#include <string>

#include "fp/panel/PanelStack.h"
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

    FP::FpAdapter& Adapter() { return stack_->Adapter(); }
    FP::FpControl& Control() { return stack_->Control(); }
    FP::Keypad& Keypad() { return stack_->Keypad(); }
    FP::DisplayHw& Display() { return stack_->Display(); }

    // True once the other end has hung up or the socket failed. Does not
    // consume anything the read thread is waiting for.
    bool PeerGone() const;
    // A request round trip: once answered, every frame sent before it has
    // been applied by the panel. False on timeout.
    bool RoundTrip(unsigned timeoutMs);

private:
    std::unique_ptr<KT::CStreamSocket> socket_;
    std::unique_ptr<FP::PanelStack> stack_;
};

}  // namespace FPDEMO
