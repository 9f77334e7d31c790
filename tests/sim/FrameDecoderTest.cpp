#include <gtest/gtest.h>

#include "sim/FrameDecoder.h"
#include "sim/FrameEncoder.h"

namespace {

// Every frame byte in the payload, fed one byte per call: the decoder must
// give back exactly what went in.
TEST(FrameDecoderTest, ByteAtATimeRoundTrip) {
    const std::vector<uint8_t> payload{0x09, 0x7D, 0x7E, 0x00, 0xFF, 0x29};
    std::vector<uint8_t> wire = FPSIM::FrameEncoder::Encode('T', payload);
    EXPECT_EQ(wire, (std::vector<uint8_t>{0x09, 'T', 0x7D, 0x29, 0x7D, 0x5D, 0x7D, 0x5E, 0x00, 0xFF,
                                          0x29, 0x7E}));
    wire.insert(wire.end(), {0x09, '0', 0x7E});
    FPSIM::FrameDecoder d;
    std::vector<FPSIM::FrameDecoder::Frame> frames;
    for (uint8_t b : wire)
        d.Feed(&b, 1, frames);
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].op, 'T');
    EXPECT_EQ(frames[0].payload, payload);
    EXPECT_EQ(frames[1].op, '0');
    EXPECT_TRUE(frames[1].payload.empty());
    EXPECT_EQ(d.BadFrames(), 0u);
}

// An oversize frame is dropped whole and the next one still decodes.
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
