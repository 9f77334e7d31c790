#include <gtest/gtest.h>

#include "fp/lines/ScrollLine.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "testing/RecordingDisplay.h"
#include "tests/fp/menu/Keys.h"

namespace {

using fptest::Key;

const std::string kAlphabet = "abcdefghijklmnopqrstuvwxyz0123";  // 30 characters

// Records which handler the base line's dispatch called.
struct ProbeLine : FP::DisplayLine {
    bool KeyPress(const FP::KeyState_t& k) override { return FP::BaseLine::KeyPress(k); }
    void KeyEnter() override { calls += 'E', editing = true; }
    void KeyUp() override { calls += 'U'; }
    void KeyDown() override { calls += 'D'; }
    void KeyLeft() override { calls += 'L'; }
    void KeyRight() override { calls += 'R'; }
    std::string calls;
};

TEST(BaseLine, DispatchesKeysAndExitLeavesEditMode) {
    ProbeLine line;
    for (auto k : {FP::KEY_LEFT, FP::KEY_UP, FP::KEY_RIGHT, FP::KEY_DOWN, FP::KEY_9})
        EXPECT_FALSE(line.KeyPress(Key(k)));
    EXPECT_TRUE(line.KeyPress(Key(FP::KEY_ENTER)));
    EXPECT_FALSE(line.KeyPress(Key(FP::KEY_EXIT)));
    EXPECT_FALSE(line.GetEditing());
    EXPECT_EQ(line.calls, "LURDE");
}

TEST(DisplayLine, EnterTogglesEditingUnlessReadOnly) {
    FP::DisplayLine line("host");
    EXPECT_TRUE(line.KeyPress(Key(FP::KEY_ENTER)));
    EXPECT_FALSE(line.KeyPress(Key(FP::KEY_ENTER)));
    line.KeyPress(Key(FP::KEY_ENTER));
    EXPECT_FALSE(line.KeyPress(Key(FP::KEY_EXIT)));
    line.SetReadOnly(true);
    EXPECT_FALSE(line.KeyPress(Key(FP::KEY_ENTER)));
}

TEST(ScrollLine, CutsLongValuesAndDrawsShortTextWholeOverOldText) {
    FP::ScrollLine line(std::string(300, 'x'));
    EXPECT_EQ(line.GetCurrentString(), std::string(254, 'x'));
    line.SetCurrentValue(42);
    EXPECT_EQ(line.GetCurrentNumber(), 2);  // counts characters

    FP::Testing::RecordingDisplay display(20, 4);
    display.WriteLine("####################", 2, FP::LEFT_JUSTIFY, 0);
    line.SetDisplay(&display);
    line.SetSuffix("!");
    line.SetCurrentValue("short");
    EXPECT_EQ(line.GetHoverNavMask(), 2);
    line.DrawLine(2);
    EXPECT_EQ(display.Text(), "\n\n short!\n");
}

// Left and right reach the line through the menu without an edit; up
// returns to the start.
TEST(ScrollLine, ScrollsSidewaysInAMenu) {
    FP::Testing::RecordingDisplay display(20, 4);
    FP::MenuStyleBasic menu;
    menu.SetDisplay(&display);
    menu.SetTitle("Info");
    auto* line = new FP::ScrollLine(kAlphabet);
    menu.AddLine(line);
    menu.AddLine(new FP::DisplayLine("next"));
    line->SetCurrentValue(kAlphabet);  // now that the width is known
    EXPECT_EQ(line->GetHoverNavMask(), 3);

    menu.KeyPress(Key(FP::KEY_RIGHT));
    menu.KeyPress(Key(FP::KEY_RIGHT));
    menu.KeyPress(Key(FP::KEY_LEFT));
    EXPECT_EQ(line->GetScrollPos(), 1u);
    for (int i = 0; i < 15; ++i)
        menu.KeyPress(Key(FP::KEY_RIGHT));
    EXPECT_EQ(line->GetScrollPos(), 10u);  // 20 characters left: no further
    EXPECT_FALSE(menu.GetEditEnabled());
    menu.KeyPress(Key(FP::KEY_UP));
    EXPECT_EQ(line->GetScrollPos(), 0u);
    delete menu.GetTitle();
}

}  // namespace
