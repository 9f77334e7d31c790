#include <gtest/gtest.h>

#include "tests/support/PanelHarness.h"

namespace {

using fptest::PanelHarness;

uint64_t Frames(const FPSIM::PanelState_t& s, unsigned char op) {
    return s.counters.framesByOp[op];
}

TEST(DisplayOnPanel, FullUpdateThenOnlyReverseWords) {
    PanelHarness h(20, 4);
    FP::DisplayHw& d = h.Display();
    d.WriteLine("Main menu", 0, FP::LEFT_JUSTIFY, 0);
    d.WriteLine("Network", 1, FP::LEFT_JUSTIFY, 1);
    d.WriteLine("abcdefghijklmnopqrst", 2, FP::LEFT_JUSTIFY, 0);
    d.WriteLine("end", 3, FP::RIGHT_JUSTIFY, 0);
    d.WriteReverseWord("Network", 1, 1);
    d.SendUpdate();
    FPSIM::PanelState_t s = h.State();
    // Line 0 stops short of the symbol columns; the reverse word lies over the text.
    EXPECT_EQ(s.grid.RenderMarked(),
              "Main menu           \n"
              " [Network]            \n"
              "abcdefghijklmnopqrst\n"
              "                 end");
    EXPECT_EQ(s.grid.ReverseMask(1), ".#######............");
    EXPECT_EQ(Frames(s, '0'), 1u);
    EXPECT_EQ(Frames(s, 'T'), 5u);
    EXPECT_EQ(Frames(s, 'R'), 2u);
    EXPECT_FALSE(s.inverted);

    // Nothing changed in the window: only the new reverse word crosses the link.
    d.WriteReverseWord("end", 3, 17);
    d.SendUpdate();
    FPSIM::PanelState_t again = h.State();
    EXPECT_EQ(Frames(again, 'T') - Frames(s, 'T'), 1u);
    EXPECT_EQ(Frames(again, 'R') - Frames(s, 'R'), 2u);
    EXPECT_EQ(again.grid.RenderMarked(1u), " [Network]            ");
    EXPECT_EQ(again.grid.RenderMarked(3u), "                 [end]");
    EXPECT_FALSE(again.inverted);
}

TEST(DisplayOnPanel, SendLineKeepsOtherLinesReverseWordsPending) {
    PanelHarness h(16, 2);
    FP::DisplayHw& d = h.Display();
    d.SendUpdate();
    d.WriteLine("top", 0, FP::LEFT_JUSTIFY, 0);
    d.WriteLine("bottom", 1, FP::CENTER, 0);
    d.WriteReverseWord("top", 0, 0);
    d.WriteReverseWord("bottom", 1, 5);
    d.SendLine(1);
    EXPECT_EQ(h.Screen(), "                \n     [bottom]     ");
    ASSERT_EQ(d.GetReverseWords().size(), 1u);
    d.SendLine(0);
    EXPECT_EQ(h.Screen(), "[top]             \n     [bottom]     ");
    EXPECT_TRUE(d.GetReverseWords().empty());
}

TEST(DisplayOnPanel, SymbolsLandInTheCornersOfLineZero) {
    PanelHarness h(20, 4);
    FP::DisplayHw& d = h.Display();
    d.WriteLine("12345678901234567890", 0, FP::LEFT_JUSTIFY, 0);
    d.SendUpdate();
    // Enter and up/down over back and the first choice mark; the second mark stays.
    d.SendNavSymbols(0x40 | 0x80 | 0x20 | 0x02 | 0x04);
    EXPECT_EQ(h.State().grid.RenderPlain(0u), "12345678901234567x^<");
    d.SendNavSymbols(0x40 | 0x20);
    EXPECT_EQ(h.State().grid.RenderPlain(0u), "12345678901234567x o");
    // Disable wins over lock; the lock flag is drawn along with the symbols.
    d.SendLockDisableSymbols(0x18);
    EXPECT_EQ(h.State().grid.Char(0, 0), 0x8A);
    d.SetLockShown(true);
    d.SendNavSymbols(0x01);
    FPSIM::PanelState_t s = h.State();
    EXPECT_EQ(s.grid.RenderPlain(0u), "L2345678901234567-  ");
    EXPECT_EQ(s.grid.RenderPlain(0u, true), "⚿2345678901234567↔  ");
    d.SetLockShown(false);
    d.SendLockDisableSymbols(0);
    EXPECT_EQ(h.State().grid.Char(0, 0), ' ');
}

TEST(DisplayOnPanel, SwitchingWindowsRedrawsOnlyOnChange) {
    PanelHarness h(16, 2);
    FP::DisplayHw& d = h.Display();
    d.WriteLine("home", 0, FP::LEFT_JUSTIFY, 0);
    d.WriteLine("ready", 1, FP::LEFT_JUSTIFY, 0);
    d.SendUpdate();
    d.SendNavSymbols(0x04);
    d.CreateDisplayWindow(7);
    ASSERT_TRUE(d.SelectWindow(7));  // an empty window sends nothing
    d.ClearDisplay();
    d.WriteLine("popup", 1, FP::CENTER, 0);
    d.WriteReverseChar('p', 1, 5);
    d.SendUpdate();
    // Line 0 is sent cut short of the symbol columns, so the symbol stays.
    EXPECT_EQ(h.Screen(), "               <\n     [p]opup      ");
    const uint64_t texts = Frames(h.State(), 'T');
    ASSERT_TRUE(d.SelectWindow(0));
    EXPECT_EQ(h.Screen(), "home           <\nready           ");
    ASSERT_TRUE(d.SelectWindow(0));  // same text as last sent: nothing goes out
    EXPECT_EQ(Frames(h.State(), 'T') - texts, 2u);
    EXPECT_FALSE(d.SelectWindow(99));
}

TEST(DisplayOnPanel, WindowUpdateOfAShortTextBlanksOnlyTheLineBelow) {
    PanelHarness h(20, 4);
    FP::DisplayHw& d = h.Display();
    d.WriteLine("old 2", 2, FP::LEFT_JUSTIFY, 0);
    d.WriteLine("old 3", 3, FP::LEFT_JUSTIFY, 0);
    d.SendUpdate();
    d.SendWindowUpdate(std::string(20, 'a') + std::string(20, 'b'));
    EXPECT_EQ(h.Screen(), std::string(17, 'a') + "   \n" + std::string(20, 'b') + "\n" +
                              std::string(20, ' ') + "\nold 3" + std::string(15, ' '));
}

}  // namespace
