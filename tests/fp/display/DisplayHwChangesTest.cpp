#include <gtest/gtest.h>

#include <random>
#include <string>

#include "fp/core/Names.h"
#include "tests/support/PanelHarness.h"

namespace {

using Mode = FP::DisplayHw::UpdateMode_e;

// Every cell of both panels, characters and reverse video.
void ExpectSamePanel(fptest::PanelHarness& whole, fptest::PanelHarness& changes,
                     const std::string& step) {
    const FPSIM::PanelGrid a = whole.State().grid;
    const FPSIM::PanelGrid b = changes.State().grid;
    ASSERT_EQ(a.RenderMarked(), b.RenderMarked()) << step;
    for (unsigned row = 0; row < a.Height(); ++row)
        ASSERT_EQ(a.RowBytes(row), b.RowBytes(row)) << step;
}

// Random text over the characters a menu puts on the panel, its symbols included.
std::string RandomText(std::mt19937& rng, size_t maxLength) {
    static const std::string kChars = std::string("ab Z09:.-[]") + "\x7F\x80\x81\x82\x83\x8A";
    std::string text(rng() % (maxLength + 1), ' ');
    for (char& c : text)
        c = kChars[rng() % kChars.size()];
    return text;
}

// Applies one random operation of the display's whole interface to d.
std::string RandomStep(std::mt19937& rng, FP::DisplayHw& d, unsigned seed) {
    std::mt19937 r(seed);  // both displays draw the same numbers
    auto n = [&](unsigned below) { return static_cast<unsigned>(r() % below); };
    const unsigned op = n(17);
    switch (op) {
        case 0:
        case 1:
            d.WriteLine(RandomText(r, 24), n(5), FP::DisplayLineFormat_e(n(3)), n(3));
            break;
        case 2:
            d.WriteWord(RandomText(r, 30), n(4), n(21));
            break;
        case 3:
            d.WriteChar(static_cast<unsigned char>(RandomText(r, 1).append("x")[0]), n(5), n(21));
            break;
        case 4:
            d.WriteReverseWord(RandomText(r, 8), n(4), n(20));
            break;
        case 5:
            d.WriteReverseChar('>', n(4), n(20));
            break;
        case 6:
            d.ClearLine(n(4));
            break;
        case 7:
            d.ClearDisplay();
            break;
        case 8:
        case 9:
            d.SendUpdate();
            break;
        case 10:
            d.SendLine(n(4));
            break;
        case 11:
            d.SetLockShown(n(2));
            d.SetDisableShown(n(3) == 0);
            d.SendNavSymbols(static_cast<unsigned char>(n(256)));
            break;
        case 12:
            d.SendBlankChars(n(6), n(20), n(4));
            break;
        case 13:
            d.ForceUpdate();
            break;
        case 14:
            if (!d.GetDisplayWindow(1))
                d.CreateDisplayWindow(1);
            d.SelectWindow(static_cast<int>(n(2)));
            break;
        case 15:
            d.ShowBoundary();
            break;
        default:
            if (n(4) == 0)
                d.ClearHwDisplay();
            break;
    }
    (void)rng;
    return "op " + std::to_string(op);
}

TEST(DisplayHwChangesTest, AnySequenceLeavesThePanelAsTheWholeWindowModeDoes) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        fptest::PanelHarness whole, changes;
        changes.Display().SetUpdateMode(FP::DisplayHw::SEND_CHANGES);
        std::mt19937 rng(seed);
        uint64_t wholeBytes = 0, changesBytes = 0;
        for (int i = 0; i < 250; ++i) {
            const unsigned stepSeed = static_cast<unsigned>(rng());
            const std::string step = RandomStep(rng, whole.Display(), stepSeed);
            RandomStep(rng, changes.Display(), stepSeed);
            ExpectSamePanel(
                whole, changes,
                "seed " + std::to_string(seed) + " step " + std::to_string(i) + " " + step);
            if (HasFatalFailure())
                return;
        }
        wholeBytes = whole.State().counters.bytesIn;
        changesBytes = changes.State().counters.bytesIn;
        EXPECT_LT(changesBytes, wholeBytes) << "seed " << seed;
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
    const std::string screen = panel.Screen();
    EXPECT_NE(std::string::npos, screen.find("Item 1  value 1")) << screen;
    EXPECT_NE(std::string::npos, screen.find("[>]tem 2  value 8")) << screen;
}

TEST_F(DisplayHwChangesBytesTest, ForceUpdateAndAPanelRestartSendEverythingAgain) {
    FP::DisplayHw& d = panel.Display();
    d.ForceUpdate();
    // Each line whole, symbols included; the cursor cell goes back to normal
    // video as in the whole-window mode.
    const uint64_t everything = (11 + 20) * 4;
    EXPECT_EQ(everything, Sent());
    d.SendUpdate();
    EXPECT_EQ(0u, Sent());
    d.ResendAll();  // e.g. from the link's thread when the controller restarted
    d.SendUpdate();
    EXPECT_EQ(everything, Sent());
}

}  // namespace
