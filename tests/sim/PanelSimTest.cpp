#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <vector>

#include "sim/FrameDecoder.h"
#include "sim/PanelSim.h"
#include "tests/fp/link/LinkPeer.h"
#include "tests/support/Waiting.h"

using FPSIM::PanelSim;
using fptest::Bytes;

namespace {

// The emulator on one end of a socket pair, the test as the unit on the other.
// Frames are written by hand so the emulator's own encoder is not trusted to
// check itself.
class PanelSimTest : public ::testing::Test {
protected:
    void Make(FPSIM::PanelConfig_t config = FPSIM::PanelConfig_t()) {
        sim_.reset(new PanelSim(link_.ours, config));
        ASSERT_TRUE(sim_->Start());
        EXPECT_EQ(Read(3), (Bytes{0x09, 'i', 0x7E}));
    }
    // Writes bytes and waits until the emulator has applied them.
    void Send(const Bytes& b) {
        link_.Send(b);
        written_ += b.size();
        ASSERT_TRUE(sim_->WaitForInput(written_, 2000));
    }
    Bytes Read(size_t n) { return link_.Take(n, 2000); }
    bool Quiet() { return link_.Take(1, 50).empty(); }

    fptest::LinkPeer link_;
    std::unique_ptr<PanelSim> sim_;
    uint64_t written_ = 0;
};

// Positioned, reverse and escaped text is drawn by the fp-panel tool's own
// test; here what that drawing does not reach.
TEST_F(PanelSimTest, TextContinuesIsClippedAtTheEdgeAndClearGoesHome) {
    FPSIM::PanelConfig_t c;
    c.width = 10;
    c.height = 3;
    Make(c);
    // After "Hi" the next text continues without a new position.
    Send({0x09, 'T', 'H', 'i', 0x7E, 0x09, 'T', '!', 0x7E});
    // Past the right edge: 3 of 5 land, 2 are counted; a row off the grid drops all.
    Send({0x09, 'X', 7, 0x7E, 0x09, 'Y', 2, 0x7E, 0x09, 'T', '1', '2', '3', '4', '5', 0x7E});
    Send({0x09, 'Y', 3, 0x7E, 0x09, 'T', 'z', 0x7E});
    FPSIM::PanelState_t s = sim_->Snapshot();
    EXPECT_EQ(s.grid.RenderMarked(), "Hi!       \n          \n       123");
    EXPECT_EQ(s.counters.droppedChars, 3u);
    EXPECT_EQ(s.counters.framesByOp['T'], 4u);

    Send({0x09, '0', 0x7E});
    s = sim_->Snapshot();
    EXPECT_EQ(s.grid.RenderMarked(), "          \n          \n          ");
    EXPECT_EQ(s.column, 0u);
    EXPECT_EQ(s.row, 0u);
}

TEST_F(PanelSimTest, IndicatorsAndRequestsAnswered) {
    FPSIM::PanelConfig_t c;
    c.voltage = 3.125f;
    c.version = "1.2";
    Make(c);
    Send({0x09, 'L', 3,    1,    0x7E, 0x09, 'L',  4,    2,   0x7E, 0x09,
          'U',  7,   0x7E, 0x09, 'B',  200,  0x7E, 0x09, 'E', 0,    0x7E});
    FPSIM::PanelState_t s = sim_->Snapshot();
    EXPECT_EQ(s.leds, (std::map<uint8_t, bool>{{3, true}, {4, false}}));
    EXPECT_EQ(s.unitStatus, 7);
    EXPECT_EQ(s.brightness, 200);
    EXPECT_EQ(s.fanState, 0);

    Send({0x09, 'D', 0x7E});
    EXPECT_EQ(Read(7), (Bytes{0x09, 'D', 0x40, 0x48, 0x00, 0x00, 0x7E}));
    Send({0x09, 'I', 0x7E});
    EXPECT_EQ(Read(4), (Bytes{0x09, 'I', 1, 0x7E}));
    Send({0x09, 'V', 0x7E});
    EXPECT_EQ(Read(6), (Bytes{0x09, 'V', '1', '.', '2', 0x7E}));
    // Values set at run time, escaped on the wire.
    sim_->SetSlotId(0x7E);
    Send({0x09, 'A', 0x7E});
    EXPECT_EQ(Read(5), (Bytes{0x09, 'A', 0x7D, 0x5E, 0x7E}));
    EXPECT_TRUE(Quiet());
}

TEST_F(PanelSimTest, ReportsFollowSubscriptionOnInjectedClock) {
    Make();
    sim_->SetTemperature(-10);
    sim_->SetFanSpeed(0, 0x1234);
    sim_->SetFanSpeed(2, 5);
    // Every 0.2 s: temperature, fan 1 and fan 3.
    Send({0x09, 'P', 2, 0x0B, 0x7E});
    const Bytes round{0x09, 'C',  0xFF, 0xF6, 0x7E, 0x09, 'F', 0x12,
                      0x34, 0x7E, 0x09, 'H',  0x00, 0x05, 0x7E};
    sim_->Advance(199);
    EXPECT_TRUE(Quiet());
    sim_->Advance(1);
    EXPECT_EQ(Read(round.size()), round);
    sim_->Advance(400);  // two rounds fall due
    Bytes two(round);
    two.insert(two.end(), round.begin(), round.end());
    EXPECT_EQ(Read(two.size()), two);
    EXPECT_EQ(sim_->Snapshot().counters.reportsSent, 9u);

    Send({0x09, 'P', 0x00, 0x7E});
    sim_->Advance(1000);
    EXPECT_TRUE(Quiet());
    EXPECT_FALSE(sim_->Snapshot().subscribed);
}

// A press's two frames are checked through the fp-panel tool.
TEST_F(PanelSimTest, KeyMessages) {
    Make();
    ASSERT_TRUE(sim_->Hold(2, 300));
    EXPECT_EQ(Read(5), (Bytes{0x09, 'K', 2, 1, 0x7E}));
    sim_->Advance(299);
    EXPECT_TRUE(Quiet());
    sim_->Advance(1);
    EXPECT_EQ(Read(5), (Bytes{0x09, 'K', 2, 2, 0x7E}));
    ASSERT_TRUE(sim_->SendRaw({0x7E, 0x09}));
    EXPECT_EQ(Read(2), (Bytes{0x7E, 0x09}));
}

TEST_F(PanelSimTest, MalformedInputCountedAndSurvived) {
    Make();
    Send({'x', 'y', 0x7E});                      // garbage outside a frame
    Send({0x09, 0x7E});                          // empty frame
    Send({0x09, 'T', 'a', 0x09, 'X', 1, 0x7E});  // truncated, then a good one
    Send({0x09, 'T', 0x7D, 0x7E});               // escape with nothing to escape
    // The longest frame that fits still decodes (to an unknown op); one byte
    // more and it is dropped whole.
    for (size_t collected :
         {FPSIM::FrameDecoder::kMaxCollected, FPSIM::FrameDecoder::kMaxCollected + 1}) {
        Bytes big{0x09, 'Q'};
        big.insert(big.end(), collected - 1, 'a');
        big.push_back(0x7E);
        Send(big);
    }
    Send({0x09, 'Q', 0x7E, 0x09, 'L', 1, 0x7E, 0x09, 'R', 5, 0x7E});  // unknown op, bad payloads
    // An escape at the end of one read still applies to the next one.
    Send({0x09, 'T', 0x7D});
    Send({0x5D, 0x7E});
    FPSIM::PanelState_t s = sim_->Snapshot();
    EXPECT_EQ(s.counters.garbageBytes, 3u);
    EXPECT_EQ(s.counters.badFrames, 4u);
    EXPECT_EQ(s.counters.oversizeFrames, 1u);
    EXPECT_EQ(s.counters.unknownOps, 2u);
    EXPECT_EQ(s.counters.badPayloads, 2u);
    EXPECT_EQ(s.grid.RowBytes(0).substr(0, 2), " }");
    EXPECT_FALSE(s.inverted);
}

TEST(PanelGridTest, GlyphsAndReverseRuns) {
    FPSIM::PanelGrid g(6, 2);
    const uint8_t symbols[] = {0x7F, 0x80, 0x81, 0x82, 0x83, 0x84};
    g.Write(0, 0, symbols, 6, false);
    const uint8_t more[] = {0x85, 0x8A, 'o', 'k', 0x01};
    g.Write(0, 1, more, 2, true);
    g.Write(3, 1, more + 2, 3, true);
    EXPECT_EQ(g.RenderMarked(true), "↕↔↵⚿⎋✓\n[✗⊘] [ok\xEF\xBF\xBD]");
    EXPECT_EQ(g.RenderMarked(false), "^-<Lx*\n[o!] [ok?]");
    EXPECT_EQ(g.RenderPlain(1, false), "o! ok?");
    EXPECT_EQ(g.ReverseMask(1), "##.###");
}

// The fp-panel tool's reconnect test relies on the lost-link notice; here the
// real-time ticker that a manual-clock test cannot reach.
TEST_F(PanelSimTest, RealTimeClockSendsReportsAndReleasesHeldKeys) {
    FPSIM::PanelConfig_t c;
    c.clock = FPSIM::TIME_REAL;
    Make(c);
    std::atomic<unsigned> seen{0};
    sim_->AddObserver(PanelSim::Observer([&](unsigned changes) { seen |= changes; }));
    sim_->SetTemperature(0x0102);
    Send({0x09, 'P', 1, 0x01, 0x7E});
    EXPECT_EQ(Read(5), (Bytes{0x09, 'C', 0x01, 0x02, 0x7E}));
    ASSERT_TRUE(sim_->Hold(4, 20));
    // Reports keep coming; skip to the release of the held key.
    Bytes stream = Read(5);
    EXPECT_EQ(stream, (Bytes{0x09, 'K', 4, 1, 0x7E}));
    for (int i = 0; i < 20 && stream != Bytes{0x09, 'K', 4, 2, 0x7E}; ++i)
        stream = Read(5);
    EXPECT_EQ(stream, (Bytes{0x09, 'K', 4, 2, 0x7E}));
    // Observers hear of a report after it is written: wait for it.
    EXPECT_TRUE(fptest::WaitFor([&] { return (seen & PanelSim::CHANGE_REPORT) != 0; }));
}

}  // namespace
