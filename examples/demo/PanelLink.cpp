#include "examples/demo/PanelLink.h"

#include <poll.h>

namespace FPDEMO {

PanelLink::PanelLink(std::unique_ptr<KT::CStreamSocket> socket, unsigned width, unsigned height)
    : socket_(std::move(socket)), stack_(new FP::PanelStack(*socket_, width, height)) {}

PanelLink::~PanelLink() {
    // The stack borrows the socket.
    stack_.reset();
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
    return stack_->RoundTrip(timeoutMs);
}

}  // namespace FPDEMO
