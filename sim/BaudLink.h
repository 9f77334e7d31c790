#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>

#include "kt/StreamSocket.h"
#include "kt/Thread.h"

namespace FPSIM {

/// Joins two connected sockets the way a serial line at a given baud rate would:
/// whatever is read from one is written to the other, in both directions, each
/// byte no sooner than the line could have carried it (10 bit times a byte:
/// start, eight data bits, stop). Bytes that queue up behind a busy line wait,
/// as they would in a UART's transmit buffer.
///
/// Threads: two threads of its own, one per direction, started by Start() and
/// stopped by Stop() or the destructor; the query and wait operations are safe
/// from any thread.
/// Borrows: both sockets, which must outlive this object. When one side closes,
/// the other is shut down once what was in flight has been delivered.
class BaudLink {
public:
    /// The clock delivery times are read from.
    using Clock = std::chrono::steady_clock;

    /// Which way the bytes go: from the first socket given to the second, or back.
    enum Direction_e { FORWARD = 0, BACKWARD = 1 };

    /// What one direction has delivered so far.
    struct Delivered_t {
        uint64_t bytes = 0;      ///< bytes written out in total
        Clock::time_point last;  ///< when the newest of them was written out
    };

    /// Joins first and second at baud (0: no delay at all); nothing moves
    /// until Start().
    BaudLink(KT::CStreamSocket& first, KT::CStreamSocket& second, unsigned baud);
    ~BaudLink();
    BaudLink(const BaudLink&) = delete;
    BaudLink& operator=(const BaudLink&) = delete;

    /// Starts both directions; false if already started or a thread would not start.
    bool Start();
    /// Stops both directions; bytes still on the line are dropped. Safe to repeat.
    void Stop();

    /// The rate the line was made with.
    unsigned Baud() const { return baud_; }
    /// How long the line takes to carry one byte at baud (0 gives zero).
    static Clock::duration ByteTime(unsigned baud);

    /// A snapshot of what direction has carried so far.
    Delivered_t Delivered(Direction_e direction) const;
    /// Waits until direction has delivered at least bytes bytes in total; false
    /// on timeout. The figures reached are left in *reached when it is given.
    bool WaitDelivered(Direction_e direction, uint64_t bytes, unsigned timeoutMs,
                       Delivered_t* reached = nullptr) const;

private:
    struct Lane;
    bool Carry(Lane& lane);

    const unsigned baud_;
    const Clock::duration byteTime_;
    std::unique_ptr<Lane> lanes_[2];
};

}  // namespace FPSIM
