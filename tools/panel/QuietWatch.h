#pragma once

#include <cstdint>

namespace FPPANEL {

/// Tells when the unit has settled: connected, and nothing received from it,
/// sent to it or due to be sent (a timed key release) for a while. A script's
/// "sync" waits for it, so what it checks next is what the unit drew in
/// answer to what came before.
///
/// Time is passed in (milliseconds from any fixed point), so tests step it.
/// Threads: one thread at a time.
class QuietWatch {
public:
    /// What the link looked like at nowMs. A new connection or more bytes
    /// received since the last look is activity.
    void Observe(uint64_t nowMs, bool connected, uint64_t connections, uint64_t bytesIn);
    /// Something was sent to the unit, which will answer.
    void Touch(uint64_t nowMs);
    /// Something will be sent at atMs (the end of a timed hold).
    void ExpectUntil(uint64_t atMs);
    /// True once connected and untouched for quietMs.
    bool Quiet(uint64_t nowMs, unsigned quietMs) const;

private:
    bool connected_ = false;
    uint64_t connections_ = 0;
    uint64_t bytesIn_ = 0;
    uint64_t lastActivityMs_ = 0;
};

}  // namespace FPPANEL
