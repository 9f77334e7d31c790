#include <gtest/gtest.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "fp/link/FpAdapter.h"
#include "sim/FrameDecoder.h"
#include "sim/FrameEncoder.h"
#include "tests/fp/link/LinkPeer.h"

using FP::FpAdapter;
using fptest::Bytes;
using Payload = FP::IFpAdapter::Payload;

namespace {

// The sanitizers slow the byte loops down several times over.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr size_t kFrames = 10000;
constexpr uint32_t kRequests = 1000;
#else
constexpr size_t kFrames = 50000;
constexpr uint32_t kRequests = 5000;
#endif

// Ops the unit asks with; the controller never sends them unasked, or an
// unsolicited frame could be taken for an answer.
const Bytes kRequestOps = {'A', 'D', 'I', 'V', 'Q'};

bool IsRequestOp(unsigned char op) {
    return std::find(kRequestOps.begin(), kRequestOps.end(), op) != kRequestOps.end();
}

unsigned char UnsolicitedOp(std::mt19937& rng) {
    for (;;) {
        auto op = static_cast<unsigned char>(rng());
        if (!FpAdapter::IsFrameByte(op) && !IsRequestOp(op))
            return op;
    }
}

// Any byte values, up to the longest payload whose escaped form still fits.
Bytes RandomPayload(std::mt19937& rng) {
    const size_t room = rng() % (FpAdapter::kMaxEscapedPayload + 1);
    Bytes p;
    for (size_t used = 0;;) {
        auto b = static_cast<unsigned char>(rng());
        used += FpAdapter::IsFrameByte(b) ? 2 : 1;
        if (used > room)
            return p;
        p.push_back(b);
    }
}

// The bytes go out in writes of random size, so frames are cut anywhere.
void WriteInChunks(KT::CStreamSocket& s, const Bytes& bytes, std::mt19937& rng) {
    for (size_t at = 0; at < bytes.size();) {
        size_t n = std::min<size_t>(bytes.size() - at, 1 + rng() % 1500);
        ASSERT_TRUE(s.Write(bytes.data() + at, n));
        at += n;
    }
}

struct RoundTrip : ::testing::Test {
    fptest::LinkPeer link;
    std::mutex mutex;
    std::condition_variable arrived;
    std::vector<std::pair<unsigned char, Bytes>> seen;  // filled on the read thread
    FpAdapter adapter{link.ours};

    RoundTrip() {
        for (int op = 0; op < 256; ++op) {
            const auto code = static_cast<unsigned char>(op);
            adapter.SetResponseHandler(code, [this, code](Payload const& p) {
                std::lock_guard<std::mutex> lock(mutex);
                seen.push_back({code, Bytes(p.Data(), p.Data() + p.Length())});
                arrived.notify_all();
            });
        }
    }
    bool WaitSeen(size_t n) {
        std::unique_lock<std::mutex> lock(mutex);
        return arrived.wait_for(lock, std::chrono::seconds(60), [&] { return seen.size() >= n; });
    }
};

TEST_F(RoundTrip, RandomFramesInRandomChunksArriveIntactAndInOrder) {
    std::mt19937 rng(20240611);
    std::vector<std::pair<unsigned char, Bytes>> sent;
    Bytes stream;
    for (size_t i = 0; i < kFrames; ++i) {
        sent.push_back({UnsolicitedOp(rng), RandomPayload(rng)});
        Bytes wire = FPSIM::FrameEncoder::Encode(sent.back().first, sent.back().second);
        ASSERT_LE(wire.size(), FpAdapter::kFrameBufferSize);
        stream.insert(stream.end(), wire.begin(), wire.end());
    }
    std::thread controller([&] { WriteInChunks(link.peer, stream, rng); });
    const bool all = WaitSeen(kFrames);
    controller.join();
    ASSERT_TRUE(all) << seen.size() << " of " << kFrames << " frames arrived";
    std::lock_guard<std::mutex> lock(mutex);
    ASSERT_EQ(seen.size(), sent.size());
    for (size_t i = 0; i < sent.size(); ++i)
        ASSERT_EQ(seen[i], sent[i]) << "frame " << i;
}

// The answer the controller gives to request number seq.
Bytes AnswerFor(uint32_t seq) {
    std::mt19937 rng(seq);
    return RandomPayload(rng);
}

TEST_F(RoundTrip, EveryRequestGetsItsOwnAnswerAmidUnsolicitedFrames) {
    // The controller answers each request it decodes, after an unsolicited
    // frame now and then, all cut into random writes.
    std::thread controller([&] {
        std::mt19937 rng(7);
        FPSIM::FrameDecoder decoder;
        uint32_t answered = 0;
        Payload slice(4096);
        while (answered < kRequests) {
            int n = link.peer.Read(slice);
            if (n <= 0)
                return;
            std::vector<FPSIM::FrameDecoder::Frame> frames;
            decoder.Feed(slice.Data(), static_cast<size_t>(n), frames);
            for (const auto& f : frames) {
                if (f.payload.size() != 4u)
                    return;  // the unit's side then misses its answer and fails
                uint32_t seq = f.payload[0] | f.payload[1] << 8 | f.payload[2] << 16 |
                               static_cast<uint32_t>(f.payload[3]) << 24;
                Bytes out;
                if (rng() % 2)
                    out = FPSIM::FrameEncoder::Encode(UnsolicitedOp(rng), RandomPayload(rng));
                Bytes answer = FPSIM::FrameEncoder::Encode(f.op, AnswerFor(seq));
                out.insert(out.end(), answer.begin(), answer.end());
                WriteInChunks(link.peer, out, rng);
                ++answered;
            }
        }
    });
    uint32_t seq = 0;
    for (; seq < kRequests; ++seq) {
        const unsigned char op = kRequestOps[seq % kRequestOps.size()];
        const Bytes ask = {static_cast<unsigned char>(seq), static_cast<unsigned char>(seq >> 8),
                           static_cast<unsigned char>(seq >> 16),
                           static_cast<unsigned char>(seq >> 24)};
        Payload got = adapter.SendRequest(op, Payload(ask.data(), ask.size()), 10000);
        const Bytes answer(got.Data(), got.Data() + got.Length());
        EXPECT_EQ(answer, AnswerFor(seq)) << "request " << seq;
        if (answer != AnswerFor(seq))
            break;
    }
    if (seq < kRequests)
        link.peer.Shutdown();  // lets the controller's read return
    controller.join();
    std::lock_guard<std::mutex> lock(mutex);
    for (const auto& f : seen)
        EXPECT_FALSE(IsRequestOp(f.first));
}

}  // namespace
