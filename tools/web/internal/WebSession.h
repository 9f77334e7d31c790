#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/web/internal/KeepAliveKey.h"

namespace FPWEB {

// What one browser connection may do, decided from its messages alone, so
// the rules can be tested without a socket. Time comes in as milliseconds
// from any fixed point.
//
// The page sends short text lines:
//   auth TOKEN       unlock the keys
//   key NAME         a keyboard key (KeyboardEvent.key) went down or is still held
//   keyup NAME       that key came up
//   pad NAME         an on-screen key (a panel key name) went down or is still held
//   padup NAME       that on-screen key came up
// The page repeats "key"/"pad" while a key is held; a key whose repeats stop
// goes up by itself, so a lost key-up cannot leave it held.
class WebSession {
public:
    struct Limits_t {
        size_t maxMessage = 64;      // bytes; no valid line is longer
        unsigned burst = 30;         // messages allowed at once...
        unsigned perSecond = 25;     // ...refilled at this rate
        unsigned maxBadTokens = 3;   // wrong tokens before the connection is closed
        unsigned logEveryMs = 1000;  // at most one drop line per connection this often
    };

    // What the caller must do after a message or a tick.
    struct Outcome_t {
        std::vector<FPPANEL::HeldKeyTracker::Event_t> keys;  // in order
        int temperatureDelta = 0;
        int fanDelta = 0;
        std::string log;             // empty: nothing worth a line
        bool accessChanged = false;  // tell the page it may now press keys
        bool close = false;
    };

    // token empty: every connection may press keys.
    WebSession(const std::string& token, unsigned releaseMs, const Limits_t& limits);
    WebSession(const std::string& token, unsigned releaseMs)
        : WebSession(token, releaseMs, Limits_t()) {}

    Outcome_t OnText(const std::string& text, uint64_t nowMs);
    // A frame that is not one whole text message (binary, fragmented, ...).
    Outcome_t OnUnusable(const std::string& what, uint64_t nowMs);
    // Releases whose repeats stopped.
    Outcome_t Poll(uint64_t nowMs);
    // The connection is going: whatever is held goes up.
    std::vector<FPPANEL::HeldKeyTracker::Event_t> Close() { return tracker_.ReleaseAll(); }

    bool MayPress() const { return authorized_; }
    bool NeedsToken() const { return !token_.empty(); }

private:
    bool TakeBudget(uint64_t nowMs);
    void Drop(Outcome_t& out, const std::string& why, uint64_t nowMs);
    void Key(Outcome_t& out, const std::string& verb, const std::string& name, uint64_t nowMs);
    bool TokenMatches(const std::string& offered) const;

    const std::string token_;
    const Limits_t limits_;
    KeepAliveKey tracker_;
    bool authorized_;
    unsigned badTokens_ = 0;
    double budget_;
    uint64_t budgetMs_ = 0;
    bool budgetStarted_ = false;
    uint64_t lastLogMs_ = 0;
    bool logged_ = false;
    unsigned unlogged_ = 0;  // drops since the last line
};

}  // namespace FPWEB
