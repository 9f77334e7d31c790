#include "unit/internal/PanelConnection.h"

#include <poll.h>

#include "kt/LinkAddress.h"

namespace FP {

namespace {

bool Has(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

PanelConnection::PanelConnection(std::unique_ptr<KT::CStreamSocket> socket, unsigned width,
                                 unsigned height, const PanelStack::Options& options)
    : socket_(std::move(socket)), stack_(new PanelStack(*socket_, width, height, options)) {}

PanelConnection::~PanelConnection() {
    stack_.reset();
    socket_.reset();
}

std::unique_ptr<KT::CStreamSocket> PanelConnection::Open(const std::string& address,
                                                         Failure_e& failure, std::string& reason) {
    const KT::CLinkAddress parsed(address);
    if (!parsed.IsValid()) {
        failure = FAIL_MALFORMED;
        reason = "malformed address '" + address + "': " + parsed.GetError();
        return nullptr;
    }
    std::unique_ptr<KT::CStreamSocket> socket(new KT::CStreamSocket);
    if (socket->Open(address)) {
        failure = FAIL_NONE;
        reason.clear();
        return socket;
    }
    // The socket words its errors for people; sort them for the supervisor.
    const std::string& error = socket->LastError();
    if (Has(error, "bad address") || Has(error, "port 0")) {
        failure = FAIL_MALFORMED;
        reason = "malformed address: " + error;
    } else if (Has(error, "baud rate")) {
        failure = FAIL_BAUD;
        reason = "unsupported baud rate: " + error;
    } else if (Has(error, "No such file") || Has(error, "No such device")) {
        failure = FAIL_NO_DEVICE;
        reason = "no such device: " + error;
    } else if (Has(error, "Connection refused")) {
        failure = FAIL_REFUSED;
        reason = "connection refused: " + error;
    } else {
        failure = FAIL_OTHER;
        reason = error;
    }
    return nullptr;
}

std::string PanelConnection::Gone() const {
    if (!socket_->IsOpen())
        return "the link was shut down";
    // A tty has no half-close; POLLHUP and POLLERR are what an unplugged
    // adapter or a vanished pty leave behind.
    const short wanted = socket_->IsSocket() ? POLLRDHUP : 0;
    pollfd p{socket_->GetFd(), wanted, 0};
    if (::poll(&p, 1, 0) <= 0)
        return std::string();
    if (p.revents & (POLLERR | POLLNVAL))
        return "read failed";
    if (p.revents & (POLLHUP | POLLRDHUP))
        return "the panel hung up";
    return std::string();
}

}  // namespace FP
