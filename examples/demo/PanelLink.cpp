#include "examples/demo/PanelLink.h"

#include <poll.h>

namespace FPDEMO {

PanelLink::PanelLink(std::unique_ptr<KT::CStreamSocket> socket, unsigned width, unsigned height)
    : socket_(std::move(socket)) {
    adapter_.reset(new FP::FpAdapter(*socket_));
    control_.reset(new FP::FpControl(*adapter_));
    keypad_.reset(new FP::Keypad(*control_));
    display_.reset(new FP::DisplayHw(*control_, width, height));
}

PanelLink::~PanelLink() {
    // Stop key delivery first, then the read thread that feeds everything.
    keypad_->SetCallback(nullptr);
    control_->ClearInitHandler();
    display_.reset();
    keypad_.reset();
    adapter_.reset();
    control_.reset();
    socket_.reset();
}

bool PanelLink::PeerGone() const {
    if (!socket_->IsOpen())
        return true;
    if (!socket_->IsSocket())
        return false;  // a serial line has no hang-up to see
    pollfd p{socket_->GetFd(), POLLRDHUP, 0};
    return ::poll(&p, 1, 0) > 0 && (p.revents & (POLLRDHUP | POLLHUP | POLLERR | POLLNVAL));
}

bool PanelLink::RoundTrip(unsigned timeoutMs) {
    return !adapter_
                ->SendRequest(FP::FpControl::OP_DISPLAY_TYPE, FP::IFpAdapter::Payload(), timeoutMs)
                .Empty();
}

}  // namespace FPDEMO
