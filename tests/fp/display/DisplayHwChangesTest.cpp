#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "fp/core/Names.h"
#include "tests/support/PanelHarness.h"

namespace {

// The numbers one random operation draws; both displays get the same seed and
// so the same arguments.
struct Step {
    std::mt19937 r;
    unsigned n(unsigned below) { return static_cast<unsigned>(r() % below); }
    // Random text over the characters a menu puts on the panel, its symbols included.
    std::string Text(size_t maxLength) {
        static const std::string kChars = std::string("ab Z09:.-[]") + "\x7F\x80\x81\x82\x83\x8A";
        std::string text(n(static_cast<unsigned>(maxLength + 1)), ' ');
        for (char& c : text)
            c = kChars[n(static_cast<unsigned>(kChars.size()))];
        return text;
    }
};
using Op = void (*)(FP::DisplayHw&, Step&);

// The display's whole interface; updates come up twice as often as the rest.
const std::vector<Op> kOps = {
    [](FP::DisplayHw& d, Step& s) {
        d.WriteLine(s.Text(24), s.n(5), FP::DisplayLineFormat_e(s.n(3)), s.n(3));
    },
    [](FP::DisplayHw& d, Step& s) { d.WriteWord(s.Text(30), s.n(4), s.n(21)); },
    [](FP::DisplayHw& d, Step& s) {
        d.WriteChar(static_cast<unsigned char>(s.Text(1).append("x")[0]), s.n(5), s.n(21));
    },
    [](FP::DisplayHw& d, Step& s) { d.WriteReverseWord(s.Text(8), s.n(4), s.n(20)); },
    [](FP::DisplayHw& d, Step& s) { d.WriteReverseChar('>', s.n(4), s.n(20)); },
    [](FP::DisplayHw& d, Step& s) { d.ClearLine(s.n(4)); },
    [](FP::DisplayHw& d, Step&) { d.ClearDisplay(); },
    [](FP::DisplayHw& d, Step&) { d.SendUpdate(); },
    [](FP::DisplayHw& d, Step&) { d.SendUpdate(); },
    [](FP::DisplayHw& d, Step& s) { d.SendLine(s.n(4)); },
    [](FP::DisplayHw& d, Step& s) {
        d.SetLockShown(s.n(2));
        d.SetDisableShown(s.n(3) == 0);
        d.SendNavSymbols(static_cast<unsigned char>(s.n(256)));
    },
    [](FP::DisplayHw& d, Step& s) { d.SendBlankChars(s.n(6), s.n(20), s.n(4)); },
    [](FP::DisplayHw& d, Step&) { d.ForceUpdate(); },
    [](FP::DisplayHw& d, Step& s) {
        if (!d.GetDisplayWindow(1))
            d.CreateDisplayWindow(1);
        d.SelectWindow(static_cast<int>(s.n(2)));
    },
    [](FP::DisplayHw& d, Step&) { d.ShowBoundary(); },
    [](FP::DisplayHw& d, Step& s) {
        if (s.n(4) == 0)
            d.ClearHwDisplay();
    },
};

TEST(DisplayHwChangesTest, AnySequenceLeavesThePanelAsTheWholeWindowModeDoes) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        fptest::PanelHarness whole, changes;
        changes.Display().SetUpdateMode(FP::DisplayHw::SEND_CHANGES);
        std::mt19937 rng(seed);
        for (int i = 0; i < 250; ++i) {
            const unsigned op = static_cast<unsigned>(rng() % kOps.size());
            const unsigned stepSeed = static_cast<unsigned>(rng());
            for (fptest::PanelHarness* panel : {&whole, &changes}) {
                Step step{std::mt19937(stepSeed)};
                kOps[op](panel->Display(), step);
            }
            // Every cell of both panels, characters and reverse video.
            SCOPED_TRACE("seed " + std::to_string(seed) + " step " + std::to_string(i) + " op " +
                         std::to_string(op));
            const FPSIM::PanelGrid a = whole.State().grid, b = changes.State().grid;
            ASSERT_EQ(a.RenderMarked(), b.RenderMarked());
            for (unsigned row = 0; row < a.Height(); ++row)
                ASSERT_EQ(a.RowBytes(row), b.RowBytes(row));
        }
        EXPECT_LT(changes.State().counters.bytesIn, whole.State().counters.bytesIn)
            << "seed " << seed;
    }
}

class DisplayHwChangesBytesTest : public ::testing::Test {
protected:
    void SetUp() override {
        panel.Display().SetUpdateMode(FP::DisplayHw::SEND_CHANGES);
        FP::DisplayHw& d = panel.Display();
        d.WriteLine("Status", 0, FP::LEFT_JUSTIFY, 0);
        for (unsigned line = 1; line < 4; ++line)
            d.WriteLine("Item " + std::to_string(line) + "  value 1", line, FP::LEFT_JUSTIFY, 0);
        d.WriteReverseWord(">", 1, 0);
        d.SendNavSymbols(FP::NavSymbol::kUpDown | FP::NavSymbol::kEnter);
        d.SendUpdate();
        Sent();
    }
    // Bytes the panel received since the last call, the barrier's own frame left out.
    uint64_t Sent() {
        const uint64_t now = panel.State().counters.bytesIn;
        const uint64_t sent = now - last - kBarrierBytes;
        last = now;
        return sent;
    }
    static constexpr uint64_t kBarrierBytes = 3;
    fptest::PanelHarness panel;
    uint64_t last = 0;
};

TEST_F(DisplayHwChangesBytesTest, ARefreshSendsTheChangedCellsOnlyAndSymbolsOnlyWhenTheyChange) {
    FP::DisplayHw& d = panel.Display();
    d.WriteLine("Item 2  value 7", 2, FP::LEFT_JUSTIFY, 0);
    d.WriteReverseWord(">", 1, 0);
    d.SendNavSymbols(FP::NavSymbol::kUpDown | FP::NavSymbol::kEnter);
    d.SendUpdate();
    EXPECT_EQ(11u + 1, Sent());  // one cell: column, row and text frames
    d.SendNavSymbols(FP::NavSymbol::kUpDown);
    EXPECT_EQ(11u + 1, Sent());  // the enter hint gives way to a space
    // The cursor moves down: old cell back to normal, new one reversed.
    d.WriteLine("Item 2  value 8", 2, FP::LEFT_JUSTIFY, 0);
    d.WriteReverseWord(">", 2, 0);
    d.SendUpdate();
    // Three runs of one cell each, one of them reversed.
    EXPECT_EQ(12u + 12u + 12u + 8u, Sent());
}

TEST_F(DisplayHwChangesBytesTest, ForceUpdateSendsEverythingAgain) {
    FP::DisplayHw& d = panel.Display();
    d.ForceUpdate();
    // Each line whole, symbols included; the cursor cell goes back to normal
    // video as in the whole-window mode.
    const uint64_t everything = (11 + 20) * 4;
    EXPECT_EQ(everything, Sent());
}

}  // namespace
