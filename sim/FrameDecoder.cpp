#include "sim/FrameDecoder.h"

#include "sim/FrameEncoder.h"

namespace FPSIM {

void FrameDecoder::Reset() {
    inFrame_ = false;
    escape_ = false;
    overflow_ = false;
    collected_.clear();
}

void FrameDecoder::Collect(uint8_t b) {
    if (collected_.size() >= kMaxCollected) {
        overflow_ = true;  // keep swallowing until the end byte, then drop
        return;
    }
    collected_.push_back(b);
}

void FrameDecoder::Feed(const uint8_t* data, size_t length, std::vector<Frame>& out) {
    for (size_t i = 0; i < length; ++i) {
        const uint8_t b = data[i];
        if (b == FRAME_START) {
            // A start byte always begins a new frame; whatever was open is lost.
            if (inFrame_ && (!collected_.empty() || escape_))
                ++stats_.truncated;
            Reset();
            inFrame_ = true;
            continue;
        }
        if (!inFrame_) {
            ++stats_.garbage;
            continue;
        }
        if (b == FRAME_END) {
            if (escape_)
                ++stats_.badEscape;
            else if (overflow_)
                ++stats_.oversize;
            else if (collected_.empty())
                ++stats_.empty;
            else {
                Frame f;
                f.op = collected_[0];
                f.payload.assign(collected_.begin() + 1, collected_.end());
                out.push_back(std::move(f));
                ++stats_.frames;
            }
            Reset();
            continue;
        }
        if (collected_.empty() && !escape_) {
            Collect(b);  // the opcode travels unescaped
        } else if (escape_) {
            escape_ = false;
            Collect(b ^ 0x20);
        } else if (b == FRAME_ESCAPE) {
            escape_ = true;
        } else {
            Collect(b);
        }
    }
}

}  // namespace FPSIM
