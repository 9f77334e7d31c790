#include "fp/link/FpAdapter.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <random>
#include <string>
#include <thread>

#include "sim/FrameEncoder.h"
#include "testing/LogCapture.h"
#include "tests/fp/link/LinkPeer.h"

using FP::FpAdapter;
using fptest::Bytes;
using Payload = FP::IFpAdapter::Payload;

namespace {

Payload P(Bytes const& b) {
    return Payload(b.data(), b.size());
}
Bytes B(Payload const& p) {
    return Bytes(p.Data(), p.Data() + p.Length());
}
using Frame = std::pair<unsigned char, Bytes>;

// A 'K' frame with n plain payload bytes.
Bytes LongFrame(size_t n) {
    Bytes frame{0x09, 'K'};
    frame.insert(frame.end(), n, 0x33);
    frame.push_back(0x7E);
    return frame;
}

// The adapter on a socket pair whose controller end stays silent unless a test
// writes to it, so the parser can also be fed directly from the test thread.
struct AdapterTest : ::testing::Test {
    fptest::LinkPeer link;
    FP::Testing::LogCapture log{"fpcontrol"};
    FpAdapter adapter{link.ours};
};

TEST_F(AdapterTest, FramesAndEscapesOutgoingBytesButNeverTheOpcodeWithinTheSizeLimit) {
    EXPECT_TRUE(adapter.SendCommand(0x7E, P({0x09, 0x7D, 0x7E, 0x41})));
    EXPECT_EQ(link.Drain(), (Bytes{0x09, 0x7E, 0x7D, 0x29, 0x7D, 0x5D, 0x7D, 0x5E, 0x41, 0x7E}));

    // The payload must escape to at most 509 bytes.
    Bytes fits(254, 0x7E);
    fits.push_back(1);  // 254 * 2 + 1 = 509
    EXPECT_TRUE(adapter.SendCommand('T', P(fits)));
    EXPECT_EQ(link.Drain().size(), 512u);

    Bytes escapesOver(255, 0x7D);
    EXPECT_FALSE(adapter.SendCommand('T', P(escapesOver)));
    EXPECT_FALSE(adapter.SendCommand('T', P(Bytes(510, 'a'))));
    EXPECT_TRUE(link.Drain().empty());
}

TEST_F(AdapterTest, ParserKeepsStateAcrossChunksAndDropsOverlongFramesWhole) {
    std::vector<Frame> seen;  // handed over on the test thread, which feeds the parser
    adapter.SetResponseHandler('K', [&](Payload const& p) { seen.push_back({'K', B(p)}); });
    auto feed = [&](Bytes const& chunk) {
        return adapter.ReceiveBytes(chunk.data(), chunk.size());
    };
    // An escape at the very end of a chunk applies to the first byte of the next.
    EXPECT_FALSE(feed({0x09, 'K', 0x7D}));
    EXPECT_FALSE(feed({0x29, 0x01}));
    EXPECT_TRUE(seen.empty());
    EXPECT_TRUE(feed({0x7E}));
    // Too long: dropped without resyncing inside it, so no stray byte is
    // reported. 512 collected bytes (op + 511) are still a frame.
    EXPECT_TRUE(feed(LongFrame(2000)));
    EXPECT_TRUE(feed(LongFrame(511)));
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0], (Frame{'K', {0x09, 0x01}}));
    EXPECT_EQ(seen[1].second.size(), 511u);
    EXPECT_EQ(log.Count("Expected Frame Start at ", true), 0u);
}

// Through the socket and the read thread from here on.

TEST_F(AdapterTest, LateAnswerOfATimedOutRequestGoesToTheNextRequest) {
    auto first = std::async(std::launch::async, [&] { return adapter.SendRequest('A', {}, 50); });
    EXPECT_EQ(link.Take(3), (Bytes{0x09, 'A', 0x7E}));
    EXPECT_TRUE(first.get().Empty());

    link.Send({0x09, 'A', 0x05, 0x7E});
    EXPECT_EQ(B(adapter.SendRequest('V', {}, 5000)), (Bytes{0x05}));
    EXPECT_TRUE(
        log.Contains("ReceiveRequestResponse() Expected response operation 0x56. Actual=0x41"));
    EXPECT_EQ(link.Take(3), (Bytes{0x09, 'V', 0x7E}));
}

// Random frames of every byte value and length, written in writes of random
// size so frames are cut anywhere, arrive whole and in order.
TEST_F(AdapterTest, RandomFramesInRandomChunksArriveIntactAndInOrder) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    constexpr size_t kFrames = 10000;  // the sanitizers slow the byte loops down
#else
    constexpr size_t kFrames = 50000;
#endif
    std::mt19937 rng(20240611);
    fptest::Collected<Frame> got;
    std::vector<Frame> sent;
    Bytes stream;
    while (sent.size() < kFrames) {
        const auto op = static_cast<unsigned char>(rng());
        if (FpAdapter::IsFrameByte(op))
            continue;
        Bytes payload;
        const size_t room = rng() % (FpAdapter::kMaxEscapedPayload + 1);
        for (size_t used = 0;;) {
            const auto b = static_cast<unsigned char>(rng());
            if ((used += FpAdapter::IsFrameByte(b) ? 2 : 1) > room)
                break;
            payload.push_back(b);
        }
        sent.push_back({op, payload});
        adapter.SetResponseHandler(op, [&got, op](Payload const& p) { got.Add({op, B(p)}); });
        const Bytes wire = FPSIM::FrameEncoder::Encode(op, payload);
        ASSERT_LE(wire.size(), FpAdapter::kFrameBufferSize);
        stream.insert(stream.end(), wire.begin(), wire.end());
    }
    std::thread controller([&] {
        for (size_t at = 0, n; at < stream.size(); at += n) {
            n = std::min<size_t>(stream.size() - at, 1 + rng() % 1500);
            if (!link.peer.Write(stream.data() + at, n))
                return;
        }
    });
    const std::vector<Frame> arrived = got.WaitFor(kFrames, 60000);
    controller.join();
    ASSERT_EQ(arrived.size(), sent.size());
    for (size_t i = 0; i < sent.size(); ++i)
        ASSERT_EQ(arrived[i], sent[i]) << "frame " << i;
}

// Requests from several threads while unsolicited frames flow: every request
// gets exactly one answer and none is lost, duplicated or also handed to the
// handler of its operation.
TEST_F(AdapterTest, ConcurrentRequestsWithUnsolicitedTraffic) {
    constexpr int kThreads = 4, kEach = 40;
    std::atomic<int> keys{0}, strays{0};
    adapter.SetResponseHandler('K', [&](Payload const&) { ++keys; });
    adapter.SetResponseHandler('V', [&](Payload const&) { ++strays; });

    std::thread controller([&] {
        for (int i = 0; i < kThreads * kEach; ++i) {
            Bytes req = link.Take(5);  // 09 'V' thread index 7E, echoed back
            if (req.size() != 5)
                return;
            link.Send({0x09, 'K', 0x01, 0x01, 0x7E, 0x09, 'V', req[2], req[3], 0x7E});
        }
    });
    fptest::Collected<int> answers;
    std::vector<std::thread> requesters;
    for (int t = 0; t < kThreads; ++t) {
        requesters.emplace_back([&, t] {
            for (int i = 0; i < kEach; ++i) {
                // Both bytes stay clear of the frame bytes, so requests are 5 bytes.
                Payload r = adapter.SendRequest(
                    'V',
                    P({static_cast<unsigned char>('0' + t), static_cast<unsigned char>(' ' + i)}),
                    5000);
                answers.Add(r.Length() == 2 ? (r[0] - '0') * 100 + r[1] - ' ' : -1);
            }
        });
    }
    for (std::thread& r : requesters)
        r.join();
    controller.join();
    std::vector<int> all = answers.WaitFor(0), expected;
    std::sort(all.begin(), all.end());
    for (int t = 0; t < kThreads; ++t)
        for (int i = 0; i < kEach; ++i)
            expected.push_back(t * 100 + i);
    EXPECT_EQ(all, expected);
    EXPECT_EQ(keys.load(), kThreads * kEach);
    EXPECT_EQ(strays.load(), 0);
}

TEST(AdapterLifetime, DestructionReturnsPromptlyWhileBlockedOrAfterTheLinkDied) {
    fptest::LinkPeer link;
    FP::Testing::LogCapture log{"fpcontrol"};
    auto start = std::chrono::steady_clock::now();
    { FpAdapter blocked(link.ours); }
    EXPECT_FALSE(log.Contains("Read failed. Pausing thread."));

    {
        FpAdapter adapter(link.ours);
        ::shutdown(link.peer.GetFd(), SHUT_WR);  // the controller stops talking
        for (int i = 0; i < 500 && !log.Contains("Read failed. Pausing thread."); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_EQ(log.Count("Read failed. Pausing thread."), 1u);
        EXPECT_TRUE(adapter.SendRequest('A', {}, 20).Empty());  // written, never answered

        link.peer.Close();  // now writes fail too: no wait, nothing left queued
        EXPECT_FALSE(adapter.SendCommand('B', P({1})));
        EXPECT_TRUE(adapter.SendRequest('A', {}).Empty());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

}  // namespace
