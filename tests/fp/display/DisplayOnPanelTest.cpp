#include <gtest/gtest.h>

#include "tests/support/PanelHarness.h"

namespace {

TEST(DisplayOnPanel, FullUpdateThenOnlyReverseWords) {
    fptest::PanelHarness h(20, 4);
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
              "Main menu           \n [Network]            \n"
              "abcdefghijklmnopqrst\n                 end");
    EXPECT_EQ(s.counters.framesByOp['T'], 5u);

    // Nothing changed in the window: only the new reverse word crosses the link.
    d.WriteReverseWord("end", 3, 17);
    d.SendUpdate();
    FPSIM::PanelState_t again = h.State();
    EXPECT_EQ(again.counters.framesByOp['T'] - s.counters.framesByOp['T'], 1u);
    EXPECT_EQ(again.counters.framesByOp['R'] - s.counters.framesByOp['R'], 2u);

    // SendLine sends its line's reverse words only; the others stay pending.
    d.WriteLine("line two", 2, FP::LEFT_JUSTIFY, 0);
    d.WriteReverseWord("two", 2, 5);
    d.WriteReverseWord("Main", 0, 0);
    d.SendLine(2);
    EXPECT_EQ(h.Screen(),
              "Main menu           \n [Network]            \nline [two]            \n"
              "                 [end]");
    EXPECT_EQ(d.GetReverseWords().size(), 1u);
}

TEST(DisplayOnPanel, SymbolsLandInTheCornersOfLineZero) {
    fptest::PanelHarness h(20, 4);
    FP::DisplayHw& d = h.Display();
    d.WriteLine("12345678901234567890", 0, FP::LEFT_JUSTIFY, 0);
    d.SendUpdate();
    // Enter and up/down over back and the first choice mark; the second mark stays.
    d.SendNavSymbols(0x40 | 0x80 | 0x20 | 0x02 | 0x04);
    EXPECT_EQ(h.State().grid.RenderPlain(0u), "12345678901234567x^<");
    d.SendNavSymbols(0x40 | 0x20);
    EXPECT_EQ(h.State().grid.RenderPlain(0u), "12345678901234567x o");
    // The lock flag is drawn along with the symbols.
    d.SetLockShown(true);
    d.SendNavSymbols(0x01);
    EXPECT_EQ(h.State().grid.RenderPlain(0u, true), "⚿2345678901234567↔  ");
}

TEST(DisplayOnPanel, SwitchingWindowsRedrawsTheWholeWindow) {
    fptest::PanelHarness h(16, 2);
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
    ASSERT_TRUE(d.SelectWindow(0));
    EXPECT_EQ(h.Screen(), "home           <\nready           ");
}

}  // namespace
