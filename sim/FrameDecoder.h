#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace FPSIM {

/// Cuts a byte stream into frames, one chunk at a time. State (an open frame,
/// a pending escape) carries over between chunks. Nothing it is fed can make
/// it read or write outside its own bounded buffer; every kind of bad input is
/// counted instead.
///
/// Threads: one at a time; it has no lock of its own.
class FrameDecoder {
public:
    /// Largest frame kept: opcode plus payload after unescaping. The unit
    /// assembles frames in 512-byte buffers, so anything longer is not a frame
    /// a well-behaved peer sends.
    static constexpr size_t kMaxCollected = 512;

    /// One frame as it was meant, escapes removed.
    struct Frame {
        uint8_t op = 0;                ///< the first byte after the start byte
        std::vector<uint8_t> payload;  ///< everything after the opcode
    };

    /// Running totals since construction.
    struct Stats {
        uint64_t frames = 0;     ///< whole frames delivered
        uint64_t garbage = 0;    ///< bytes seen outside any frame
        uint64_t empty = 0;      ///< start byte directly followed by end byte
        uint64_t truncated = 0;  ///< frames cut short by a new start byte
        uint64_t oversize = 0;   ///< frames over kMaxCollected, dropped
        uint64_t badEscape = 0;  ///< escape byte directly before the end byte
    };

    /// Appends every frame completed by this chunk to out, in order.
    void Feed(const uint8_t* data, size_t length, std::vector<Frame>& out);
    /// Drops any half-read frame and pending escape; the totals are kept.
    void Reset();

    /// The totals so far; the reference stays valid as long as the decoder.
    const Stats& GetStats() const { return stats_; }
    /// Frames that were started but dropped, of whatever kind.
    uint64_t BadFrames() const {
        return stats_.empty + stats_.truncated + stats_.oversize + stats_.badEscape;
    }

private:
    void Collect(uint8_t b);

    bool inFrame_ = false;
    bool escape_ = false;
    bool overflow_ = false;
    std::vector<uint8_t> collected_;
    Stats stats_;
};

}  // namespace FPSIM
