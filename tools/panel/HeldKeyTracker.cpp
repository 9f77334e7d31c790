#include "tools/panel/HeldKeyTracker.h"

namespace FPPANEL {

std::vector<HeldKeyTracker::Event_t> HeldKeyTracker::OnKey(int key, uint64_t nowMs) {
    std::vector<Event_t> out = Poll(nowMs);
    if (held_ == key) {
        lastSeenMs_ = nowMs;  // a repeat: the key stays down
        return out;
    }
    if (held_ >= 0)
        out.push_back({held_, false});
    out.push_back({key, true});
    held_ = key;
    lastSeenMs_ = nowMs;
    return out;
}

std::vector<HeldKeyTracker::Event_t> HeldKeyTracker::Poll(uint64_t nowMs) {
    // A clock that went backwards must not hold a key for ever.
    if (held_ >= 0 && (nowMs < lastSeenMs_ || nowMs - lastSeenMs_ >= releaseMs_))
        return ReleaseAll();
    return {};
}

std::vector<HeldKeyTracker::Event_t> HeldKeyTracker::ReleaseAll() {
    if (held_ < 0)
        return {};
    const int key = held_;
    held_ = -1;
    return {{key, false}};
}

}  // namespace FPPANEL
