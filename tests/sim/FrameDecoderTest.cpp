#include <gtest/gtest.h>

#include "sim/FrameDecoder.h"

namespace {

// The longest frame that fits decodes; one byte more and it is dropped whole.
TEST(FrameDecoderTest, OversizeBoundary) {
    FPSIM::FrameDecoder d;
    std::vector<FPSIM::FrameDecoder::Frame> frames;
    for (size_t collected :
         {FPSIM::FrameDecoder::kMaxCollected, FPSIM::FrameDecoder::kMaxCollected + 1}) {
        std::vector<uint8_t> wire{0x09, 'T'};
        wire.insert(wire.end(), collected - 1, 'a');
        wire.push_back(0x7E);
        d.Feed(wire.data(), wire.size(), frames);
    }
    ASSERT_EQ(frames.size(), 1u);
    EXPECT_EQ(frames[0].payload.size(), FPSIM::FrameDecoder::kMaxCollected - 1);
    EXPECT_EQ(d.GetStats().oversize, 1u);
}

}  // namespace
