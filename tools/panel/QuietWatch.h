#pragma once

#include <cstdint>

namespace FPPANEL {

/// Tells when the unit has settled, so that what a script checks next is
/// what the unit drew in answer to what came before.
///
/// Settled means connected, and nothing received from the unit for the quiet
/// time, nor due to be sent to it (a timed key release). After something is
/// sent (a key) or the unit connects, an answer is due: the quiet time counts
/// from the answer, however late it comes, and only if none comes at all the
/// unit counts as settled after kNoAnswerFactor quiet times. So a loaded
/// machine that is slow to answer does not make a script read an old screen.
///
/// Time is passed in (milliseconds from any fixed point), so tests step it.
/// Threads: one thread at a time.
class QuietWatch {
public:
    static const unsigned kNoAnswerFactor = 4;

    /// What the link looked like at nowMs: a new connection and bytes received
    /// since the last look are what the watch goes by.
    void Observe(uint64_t nowMs, bool connected, uint64_t connections, uint64_t bytesIn);
    /// Something was sent to the unit at nowMs; its answer is due.
    void Touch(uint64_t nowMs);
    /// Something will be sent at atMs (the end of a timed hold); settled
    /// counts from then, with no answer due.
    void ExpectUntil(uint64_t atMs);
    /// True once connected and settled for quietMs.
    bool Quiet(uint64_t nowMs, unsigned quietMs) const;

private:
    void Activity(uint64_t atMs);

    bool connected_ = false;
    uint64_t connections_ = 0;
    uint64_t bytesIn_ = 0;
    bool answerDue_ = false;
    uint64_t lastActivityMs_ = 0;
};

}  // namespace FPPANEL
