#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "fp/client/FpClient.h"
#include "fp/lines/IpLine.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "tests/fp/menu/Keys.h"
#include "tests/support/PanelHarness.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"
#include "tov/VarDecl.h"

namespace {

using fptest::Key;

// A bound menu drawn on the emulated panel: what the user would see is the
// emulator's grid after the frames crossed the socket, not the display model.
class MenuOnPanel : public ::testing::Test {
protected:
    MenuOnPanel() : client(store), fp(&client) {
        store.Declare(TOV::CVarDecl("unit.name").Default("rack-7"));
        store.Declare(TOV::CVarDecl("net.ip").Default("10.0.0.2"));
        menu.SetDisplay(&panel.Display());
        menu.SetClient(&fp);
        menu.SetTitle("Network");
        menu.AddLine(new FP::DisplayLine("unit.name", "0"), "Name ");
        auto* ip = new FP::IpLine("net.ip", "0");
        ip->SetDbActive(true);
        ip->SetSendDbData(true);
        menu.AddLine(ip, "IP ");
        for (int i = 1; i <= 3; ++i)
            menu.AddLine(new FP::DisplayLine("Item " + std::to_string(i)));
    }
    ~MenuOnPanel() override { delete menu.GetTitle(); }

    std::string Value(const std::string& name) { return fp.GetData(name, "0"); }
    // The grid once every frame sent so far has been applied.
    std::string Screen() {
        EXPECT_TRUE(panel.Barrier());
        return panel.Screen();
    }
    // Presses keys on the menu; the grid afterwards.
    std::string Press(std::initializer_list<FP::Key_e> keys) {
        for (FP::Key_e k : keys)
            menu.KeyPress(Key(k));
        return Screen();
    }

    fptest::PanelHarness panel{20, 4};
    TOV::CDataStore store;
    TOV::CTovClient client;
    FP::FpClient fp;
    FP::MenuStyleBasic menu;
};

// Each step is checked on the emulator's whole grid: the menu cursor, the
// reverse cell while editing, the navigation symbols and the scroll arrow.
TEST_F(MenuOnPanel, FullDrawScrollAndAnEditReachTheGridAndTheEngine) {
    auto grid = [](const std::string& nav, const char* nameRow, const char* ipRow) {
        return "       Network   " + nav + "\n" + nameRow + "\n" + ipRow + "\n Item 1           v ";
    };
    menu.DrawScreen(FP::DRAW_FULL);
    EXPECT_EQ(Screen(), grid(" ^<", ">Name rack-7        ", " IP 10.0.0.2        "));

    // Down, Enter, Up on the first digit, Enter: the new address is written.
    EXPECT_EQ(Press({FP::KEY_DOWN, FP::KEY_ENTER}),
              grid("-^<", " Name rack-7        ", " IP [0]10.000.000.002 "));
    EXPECT_EQ(Press({FP::KEY_UP, FP::KEY_ENTER}),
              grid(" ^<", " Name rack-7        ", ">IP 110.0.0.2       "));
    EXPECT_EQ(Value("net.ip"), "110.0.0.2");

    // A value changed behind the menu's back shows at the next draw.
    fp.SendDataWait("unit.name", "0", "rack-9");
    const std::string top = grid(" ^<", ">Name rack-9        ", " IP 110.0.0.2       ");
    EXPECT_EQ(Press({FP::KEY_UP}), top);

    // Scrolling past either end wraps round and clears the old rows.
    EXPECT_EQ(Press({FP::KEY_DOWN, FP::KEY_DOWN, FP::KEY_DOWN, FP::KEY_DOWN, FP::KEY_DOWN}), top);
    EXPECT_EQ(
        Press({FP::KEY_UP}),
        "       Network    ^<\n Item 1           ^ \n Item 2             \n>Item 3             ");
}

}  // namespace
