#pragma once

#include <cstdint>
#include <vector>

namespace FPPANEL {

/// Turns a terminal's key events into panel key downs and ups.
///
/// A terminal never reports a release, and reports a held key as one event,
/// a pause (the auto-repeat delay), then a stream of repeats. Measured and
/// documented figures: the Linux console waits 250 ms, then repeats about
/// every 92 ms; X servers default to 660 ms then every 40 ms; desktops to
/// about 500 ms then every 30-33 ms; tmux passes the outer terminal's stream
/// on unchanged, keys sent 50 ms apart arriving 40-77 ms apart. No terminal
/// repeats sooner than about 200 ms after the first event.
///
/// Hence the rule:
/// - A key's first event is a press: down at once, up after tapMs unless a
///   repeat stream begins. tapMs stays below the keypad's own hold delay,
///   so a tap never auto-repeats on the panel.
/// - Another event of the same key sooner than minRepeatDelayMs after the
///   previous one is a new tap (up, then down): taps are never merged.
/// - A later one (up to maxRepeatDelayMs) may be the first repeat. If a third
///   event follows within releaseMs, it is a repeat stream: the key stays
///   down until no event has come for releaseMs, so the keypad repeats it at
///   its own pace. If none follows, it was a second tap and is sent as one.
/// - Terminals repeat only the last key pressed, so another key releases the
///   one before it goes down.
///
/// With a terminal delay above tapMs (the X default), a hold shows as a
/// press, then a second press once the terminal starts repeating, then the
/// keypad's repeat.
///
/// Time is passed in (milliseconds from any fixed point), so tests step it.
/// Threads: one thread at a time.
class HeldKeyTracker {
public:
    struct Event_t {
        int key;
        bool down;
        bool operator==(const Event_t& o) const { return key == o.key && down == o.down; }
    };

    /// How the tracker tells taps from holds; all in milliseconds.
    struct Timing_t {
        unsigned releaseMs = 120;  // a repeat stream has ended after this long without events
        unsigned tapMs = 450;      // a lone press stays down this long
        unsigned minRepeatDelayMs = 200;
        unsigned maxRepeatDelayMs = 1000;
    };

    /// The default timing, with releaseMs replaced.
    explicit HeldKeyTracker(unsigned releaseMs = 120);
    explicit HeldKeyTracker(const Timing_t& timing) : timing_(timing) {}

    /// A terminal event for key: what to send now.
    std::vector<Event_t> OnKey(int key, uint64_t nowMs);
    /// What fell due by nowMs.
    std::vector<Event_t> Poll(uint64_t nowMs);
    /// Releases the held key at once (before quitting or on disconnect).
    std::vector<Event_t> ReleaseAll();

    bool Holding() const { return down_; }
    int HeldKey() const { return down_ ? key_ : -1; }

private:
    // TAP: a press, waiting for tapMs. CANDIDATE: an event that may begin a
    // repeat stream. REPEAT: a stream confirmed, the key is held.
    enum Phase_e { TAP, CANDIDATE, REPEAT };

    void Press(std::vector<Event_t>& out, uint64_t nowMs);
    void Release(std::vector<Event_t>& out);

    const Timing_t timing_;
    int key_ = -1;  // the key of the latest event, down or not; -1 for none
    bool down_ = false;
    Phase_e phase_ = TAP;
    bool candidatePressed_ = false;  // CANDIDATE: its press went out already
    uint64_t downAtMs_ = 0;
    uint64_t lastSeenMs_ = 0;  // the latest terminal event of key_
};

}  // namespace FPPANEL
