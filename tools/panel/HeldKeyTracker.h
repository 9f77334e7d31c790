#pragma once

#include <cstdint>
#include <vector>

namespace FPPANEL {

// Turns a terminal's key events into panel key downs and ups. A terminal
// reports a held key as a stream of repeats and never reports the release,
// so a key goes down on its first event and up once no repeat has come for
// releaseMs. Terminals repeat only the last key pressed, so another key
// releases the one held before it goes down.
//
// Time is passed in (milliseconds from any fixed point), so tests step it.
class HeldKeyTracker {
public:
    struct Event_t {
        int key;
        bool down;
        bool operator==(const Event_t& o) const { return key == o.key && down == o.down; }
    };

    explicit HeldKeyTracker(unsigned releaseMs = 120) : releaseMs_(releaseMs) {}

    // A terminal event for key: what to send now.
    std::vector<Event_t> OnKey(int key, uint64_t nowMs);
    // Releases that fell due by nowMs.
    std::vector<Event_t> Poll(uint64_t nowMs);
    // Releases the held key at once (before quitting or on disconnect).
    std::vector<Event_t> ReleaseAll();

    bool Holding() const { return held_ >= 0; }
    int HeldKey() const { return held_; }

private:
    const unsigned releaseMs_;
    int held_ = -1;
    uint64_t lastSeenMs_ = 0;
};

}  // namespace FPPANEL
