#pragma once

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

#include "kt/StreamSocket.h"

namespace fptest {

using Bytes = std::vector<unsigned char>;

// The controller's end of a socket pair; `ours` is the end the adapter gets.
struct LinkPeer {
    KT::CStreamSocket ours, peer;
    LinkPeer() { KT::CStreamSocket::CreatePair(ours, peer); }

    void Send(Bytes const& b) { peer.Write(b.data(), b.size()); }

    // Exactly n bytes, or fewer if none come for timeoutMs.
    Bytes Take(size_t n, int timeoutMs = 5000) {
        Bytes out;
        while (out.size() < n) {
            pollfd p{peer.GetFd(), POLLIN, 0};
            if (::poll(&p, 1, timeoutMs) <= 0)
                break;
            unsigned char buf[1024];
            ssize_t got = ::recv(peer.GetFd(), buf, std::min(sizeof buf, n - out.size()), 0);
            if (got <= 0)
                break;
            out.insert(out.end(), buf, buf + got);
        }
        return out;
    }

    // Whatever has been written so far; writes are complete when they return.
    Bytes Drain() { return Take(SIZE_MAX, 0); }
};

// Collects values delivered on another thread and waits for them.
template <class T>
class Collected {
public:
    void Add(T v) {
        std::lock_guard<std::mutex> lock(mutex_);
        values_.push_back(v);
        cond_.notify_all();
    }
    std::vector<T> WaitFor(size_t n, int timeoutMs = 5000) {
        return WaitUntil([n](std::vector<T> const& v) { return v.size() >= n; }, timeoutMs);
    }
    // Waits until done(values) holds or the time is up; the values so far.
    template <class Done>
    std::vector<T> WaitUntil(Done done, int timeoutMs = 5000) {
        std::unique_lock<std::mutex> lock(mutex_);
        cond_.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return done(values_); });
        return values_;
    }
    // The values so far, which are then forgotten.
    std::vector<T> Take() {
        std::lock_guard<std::mutex> lock(mutex_);
        return std::move(values_);
    }

private:
    std::mutex mutex_;
    std::condition_variable cond_;
    std::vector<T> values_;
};

}  // namespace fptest
