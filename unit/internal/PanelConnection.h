#pragma once

#include <memory>
#include <string>

#include "fp/panel/PanelStack.h"
#include "kt/StreamSocket.h"

namespace FP {

// One open link to the panel and the stack built on it. Destroying it tears
// the stack down before the socket it borrows.
class PanelConnection {
public:
    // Why opening failed, sorted by what the supervisor should do about it.
    enum Failure_e {
        FAIL_NONE,
        FAIL_MALFORMED,  // never retried: the address will not change
        FAIL_BAUD,       // never retried either
        FAIL_NO_DEVICE,
        FAIL_REFUSED,
        FAIL_OTHER
    };

    PanelConnection(std::unique_ptr<KT::CStreamSocket> socket, unsigned width, unsigned height,
                    const PanelStack::Options& options);
    ~PanelConnection();
    PanelConnection(const PanelConnection&) = delete;
    PanelConnection& operator=(const PanelConnection&) = delete;

    // Opens address; on failure answers null and fills failure and reason
    // (a short class such as "no such device", then the system's words).
    static std::unique_ptr<KT::CStreamSocket> Open(const std::string& address, Failure_e& failure,
                                                   std::string& reason);

    PanelStack& Stack() { return *stack_; }
    // Non-empty once the other end hung up or the descriptor failed; a tty
    // whose device went away reports a hang-up too. Consumes nothing.
    std::string Gone() const;

private:
    std::unique_ptr<KT::CStreamSocket> socket_;
    std::unique_ptr<PanelStack> stack_;
};

}  // namespace FP
