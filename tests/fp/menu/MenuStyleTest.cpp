#include <gtest/gtest.h>

#include "fp/client/FpClient.h"
#include "fp/core/Names.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "testing/RecordingDisplay.h"
#include "tests/fp/menu/Keys.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace {

using FP::DisplayLine;
using fptest::Key;

// A menu on a real display model, bound to the embedded data engine.
class MenuTest : public ::testing::Test {
protected:
    explicit MenuTest(unsigned int w = 20, unsigned int h = 4) : display(w, h) {
        store.Declare(TOV::CVarDecl("unit.name").Default("alpha"));
        store.Declare(TOV::CVarDecl("unit.speed").Default("12"));
        client.Attach();
        menu.SetDisplay(&display);
        menu.SetClient(&client);
        menu.SetTitle("Setup");
    }
    ~MenuTest() override {
        delete menu.GetTitle();  // the style never deletes its title
        client.Detach();
    }
    // Adds lines named A, B, ... with values a, b, ...
    std::vector<DisplayLine*> AddLines(int n) {
        std::vector<DisplayLine*> added;
        for (int i = 0; i < n; ++i) {
            const char c = static_cast<char>('A' + menu.GetTotalLines());
            added.push_back(new DisplayLine(std::string(1, c + 32)));
            menu.AddLine(added.back(), std::string(1, c) + ":");
        }
        return added;
    }
    // Presses k, which must keep the menu on screen; what the display then shows.
    std::string Press(FP::Key_e k, int times = 1) {
        while (times-- > 0)
            EXPECT_EQ(menu.KeyPress(Key(k)), FP::kNoScreen);
        return display.Text();
    }
    std::string Draw() {
        menu.DrawScreen(FP::DRAW_FULL);
        return display.Text();
    }

    TOV::CDataStore store;
    TOV::CTovClient tov{store};
    FP::FpClient client{&tov};
    FP::Testing::RecordingDisplay display;
    FP::MenuStyleBasic menu;
};

TEST_F(MenuTest, ShortMenuUsesOnlyItsRowsDrawsNoArrowsAndGrowsFromTheTop) {
    AddLines(2);
    EXPECT_EQ(Draw(), "        Setup\n>A:a\n B:b\n");
    EXPECT_EQ(display.navMasks.back(), FP::NavSymbol::kUpDown | FP::NavSymbol::kEnter);
    Press(FP::KEY_DOWN);
    EXPECT_EQ(menu.GetCursorIndex(), 1);
    AddLines(1);  // the area grows: the cursor goes home
    EXPECT_EQ(menu.GetCursorIndex(), 0);
}

TEST_F(MenuTest, StepsOverUnselectableLinesAndSendsEachLinesMask) {
    auto l = AddLines(4);
    for (int i = 0; i < 4; ++i)
        l[i]->SetHoverNavMask(static_cast<unsigned char>(1 << i));
    l[0]->SetSelectable(false);
    Draw();  // a full draw steps off an unselectable first line
    EXPECT_EQ(menu.GetCursorIndex(), 1);
    l[0]->SetSelectable(true);
    l[2]->SetSelectable(false);
    Press(FP::KEY_DOWN);  // B, over C, to D
    EXPECT_EQ(menu.GetCursorIndex(), 3);
    Press(FP::KEY_UP);  // D, over C, to B
    EXPECT_EQ(menu.GetCursorIndex(), 1);
    l[1]->SetSelectable(false);
    menu.ResetCursor();
    Press(FP::KEY_DOWN);  // the key stops on C, the redraw moves on to D
    EXPECT_EQ(menu.GetCursorIndex(), 3);
    EXPECT_EQ(display.navMasks, (std::vector<unsigned char>{2, 8, 2, 8}));
}

// Paging cursors have no selection to move off a line, so redraws, however
// many, leave the page where it is.
TEST_F(MenuTest, PagingMenusKeepTheirPageOverAnUnselectableFirstLine) {
    for (FP::CursorType_e type : {FP::CURSOR_PAGE, FP::CURSOR_SCROLL}) {
        menu.RemoveLines();
        menu.SetCursorType(type);
        AddLines(6)[0]->SetSelectable(false);
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(Draw(), "        Setup\n A:a\n B:b\n C:c              v") << type;
    }
}

TEST_F(MenuTest, ChildMenusExitScreenAndEditMode) {
    menu.AddLine(new DisplayLine("eth0"), "Net:", "Network");
    auto l = AddLines(1);
    l[0]->SetEditNavMask(FP::NavSymbol::kExit);
    Draw();
    EXPECT_EQ(menu.KeyPress(Key(FP::KEY_ENTER)), "Network");
    EXPECT_FALSE(menu.GetEditEnabled());
    EXPECT_EQ(menu.KeyPress(Key(FP::KEY_EXIT)), FP::kNoScreen);
    menu.SetExitScreen("Main");
    EXPECT_EQ(menu.KeyPress(Key(FP::KEY_EXIT)), "Main");

    Press(FP::KEY_DOWN);
    menu.SetEditEnabled(true);
    menu.SetEditEnabled(true);  // no second enter: still editing
    EXPECT_TRUE(menu.GetEditEnabled());
    menu.DrawScreen(FP::DRAW_REFRESH);
    EXPECT_EQ(display.navMasks.back(), FP::NavSymbol::kExit);
    EXPECT_EQ(display.Text(), "        Setup\n Net:eth0\n B:[b]\n");
    // Exit leaves the edit and stays on the screen.
    EXPECT_EQ(Press(FP::KEY_EXIT), "        Setup\n Net:eth0\n>B:b\n");
    EXPECT_FALSE(menu.GetEditEnabled());
    EXPECT_EQ(display.navMasks.back(), FP::NavSymbol::kUpDown | FP::NavSymbol::kEnter);
}

TEST_F(MenuTest, SkipsAndUsesLinesUnderTheCursor) {
    auto l = AddLines(4);
    l[1]->SetCompanionRow(true);  // B takes C along
    Press(FP::KEY_DOWN, 3);
    menu.SkipLine(l[1]);
    EXPECT_EQ(menu.Count(), 2);
    EXPECT_FALSE(menu.IsLiveLineActive(l[2]));
    EXPECT_EQ(menu.GetCursorIndex(), 0);  // D's old position is gone
    EXPECT_EQ(Draw(), "        Setup\n>A:a\n D:d\n");
    Press(FP::KEY_DOWN);
    menu.SetSkipLine(l[1], false);
    EXPECT_EQ(menu.GetCursorIndex(), 1);  // still position 1, now B
    EXPECT_EQ(menu.GetCurrentValue(1), "b");
    EXPECT_EQ(menu.GetCurrentValue(9), "");
    menu.SkipLine(3);
    EXPECT_EQ(Draw(), "        Setup\n A:a\n>B:b\n C:c");
}

TEST_F(MenuTest, BoundTitleIsReadOnEveryDrawAndLinesWriteOnlyWhenAsked) {
    delete menu.GetTitle();
    menu.SetTitle("Unit ", "unit.name", "0");
    auto* speed = new DisplayLine("unit.speed", "0");
    speed->SetSuffix(" rpm");
    menu.AddLine(speed, "Speed");
    EXPECT_EQ(Draw(), "     Unit alpha\n>Speed12 rpm\n\n");
    tov.SendOp("tester", "unit.name", TOV::COid("0"), "beta");
    EXPECT_EQ(Draw(), "      Unit beta\n>Speed12 rpm\n\n");

    speed->SendDbData("7");  // writing back is off by default
    EXPECT_EQ(client.GetData(std::string("unit.speed"), "0"), "12");
    speed->SetSendDbData(true);
    speed->SendDbData("7");
    EXPECT_EQ(client.GetData(std::string("unit.speed"), "0"), "7");
}

TEST_F(MenuTest, EmptyMenuNeitherCrashesNorChangesScreen) {
    EXPECT_EQ(Draw(), "        Setup\n\n\n");
    for (auto k : {FP::KEY_UP, FP::KEY_DOWN, FP::KEY_ENTER, FP::KEY_LEFT})
        Press(k);
    menu.UpdateLine(2, false);
    menu.SetSelectedItem(nullptr);
    menu.SkipLine(nullptr);
    DisplayLine spare("x");
    EXPECT_FALSE(menu.ReplaceLine(&spare, 0, ""));
    EXPECT_EQ(menu.GetCurrentValue(0), "");
}

class SmallMenuTest : public MenuTest {
protected:
    SmallMenuTest() : MenuTest(16, 2) {}
};

// One row: both arrows share its last cell.
TEST_F(SmallMenuTest, OneRowScrollsWithBothArrowsInOneCell) {
    AddLines(3);
    EXPECT_EQ(Draw(), "      Setup\n>A:a          v");
    EXPECT_EQ(Press(FP::KEY_DOWN), "      Setup\n>B:b          v");
    EXPECT_EQ(Press(FP::KEY_DOWN), "      Setup\n>C:c          ^");
}

}  // namespace
