#include "tools/panel/HeldKeyTracker.h"

namespace FPPANEL {

namespace {

HeldKeyTracker::Timing_t WithRelease(unsigned releaseMs) {
    HeldKeyTracker::Timing_t t;
    t.releaseMs = releaseMs;
    return t;
}

}  // namespace

HeldKeyTracker::HeldKeyTracker(unsigned releaseMs) : timing_(WithRelease(releaseMs)) {}

void HeldKeyTracker::Press(std::vector<Event_t>& out, uint64_t nowMs) {
    Release(out);
    out.push_back({key_, true});
    down_ = true;
    downAtMs_ = nowMs;
}

void HeldKeyTracker::Release(std::vector<Event_t>& out) {
    if (down_)
        out.push_back({key_, false});
    down_ = false;
}

std::vector<HeldKeyTracker::Event_t> HeldKeyTracker::OnKey(int key, uint64_t nowMs) {
    std::vector<Event_t> out = Poll(nowMs);
    if (key != key_ || nowMs - lastSeenMs_ > timing_.maxRepeatDelayMs) {
        // A key of its own: whatever was held goes up first.
        Release(out);
        key_ = key;
        phase_ = TAP;
        Press(out, nowMs);
    } else if (phase_ != TAP) {
        // Poll has ended any stream whose gap reached releaseMs, so this one
        // came in time: a repeat.
        if (!down_)
            Press(out, nowMs);
        phase_ = REPEAT;
    } else if (nowMs - lastSeenMs_ < timing_.minRepeatDelayMs) {
        Press(out, nowMs);  // too soon for a terminal repeat: another tap
    } else {
        // Tap or first repeat; a key already up is pressed now, since either
        // way the panel sees a press here.
        phase_ = CANDIDATE;
        candidatePressed_ = !down_;
        if (!down_)
            Press(out, nowMs);
    }
    lastSeenMs_ = nowMs;
    return out;
}

std::vector<HeldKeyTracker::Event_t> HeldKeyTracker::Poll(uint64_t nowMs) {
    std::vector<Event_t> out;
    if (key_ < 0)
        return out;
    if (nowMs < lastSeenMs_ || nowMs < downAtMs_) {
        // A clock that went backwards must not hold a key for ever.
        return ReleaseAll();
    }
    const bool streamEnded = nowMs - lastSeenMs_ >= timing_.releaseMs;
    // A press left down for the keypad's hold delay would repeat: lift it.
    const bool tapOver = (phase_ == TAP || (phase_ == CANDIDATE && !candidatePressed_)) &&
                         nowMs - downAtMs_ >= timing_.tapMs;
    if (phase_ == REPEAT && streamEnded) {
        Release(out);
        key_ = -1;
        phase_ = TAP;
        return out;
    }
    if (tapOver)
        Release(out);
    if (phase_ == CANDIDATE && streamEnded) {
        // No stream followed: the candidate was a tap of its own.
        if (!candidatePressed_)
            Press(out, nowMs);
        phase_ = TAP;
    }
    return out;
}

std::vector<HeldKeyTracker::Event_t> HeldKeyTracker::ReleaseAll() {
    std::vector<Event_t> out;
    Release(out);
    key_ = -1;
    phase_ = TAP;
    return out;
}

}  // namespace FPPANEL
