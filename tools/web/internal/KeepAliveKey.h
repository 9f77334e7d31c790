#pragma once

#include <cstdint>
#include <vector>

#include "tools/panel/HeldKeyTracker.h"

namespace FPWEB {

// A browser reports key releases itself, so unlike a terminal there is no
// tap-or-hold guessing: a key goes down on its first message and up on its
// "keyup". The page re-sends a held key every 100 ms as a keep-alive, so a
// lost "keyup" (a closed tab, a dropped message) lets the key go once
// nothing has come for releaseMs. Another key releases the one held first.
class KeepAliveKey {
public:
    using Event_t = FPPANEL::HeldKeyTracker::Event_t;

    explicit KeepAliveKey(unsigned releaseMs) : releaseMs_(releaseMs) {}

    std::vector<Event_t> OnKey(int key, uint64_t nowMs) {
        std::vector<Event_t> out = Poll(nowMs);
        if (held_ == key) {
            lastSeenMs_ = nowMs;
            return out;
        }
        if (held_ >= 0)
            out.push_back({held_, false});
        out.push_back({key, true});
        held_ = key;
        lastSeenMs_ = nowMs;
        return out;
    }
    std::vector<Event_t> Poll(uint64_t nowMs) {
        // A clock that went backwards must not hold a key for ever.
        if (held_ >= 0 && (nowMs < lastSeenMs_ || nowMs - lastSeenMs_ >= releaseMs_))
            return ReleaseAll();
        return {};
    }
    std::vector<Event_t> ReleaseAll() {
        if (held_ < 0)
            return {};
        const int key = held_;
        held_ = -1;
        return {{key, false}};
    }
    int HeldKey() const { return held_; }

private:
    const unsigned releaseMs_;
    int held_ = -1;
    uint64_t lastSeenMs_ = 0;
};

}  // namespace FPWEB
