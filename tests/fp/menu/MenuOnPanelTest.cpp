#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fp/client/FpClient.h"
#include "fp/lines/IpLine.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "tests/support/PanelHarness.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"
#include "tov/VarDecl.h"

namespace {

FP::KeyState_t Key(FP::Key_e k) {
    return FP::KeyState_t{k, FP::KEY_STATE_DOWN};
}

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

    fptest::PanelHarness panel{20, 4};
    TOV::CDataStore store;
    TOV::CTovClient client;
    FP::FpClient fp;
    FP::MenuStyleBasic menu;
};

TEST_F(MenuOnPanel, FullDrawScrollAndAnEditReachTheGridAndTheEngine) {
    menu.DrawScreen(FP::DRAW_FULL);
    ASSERT_TRUE(panel.Barrier());
    // Title centred with the selected line's navigation symbols at the right,
    // the cursor on the first line, more items below.
    std::string screen = panel.Screen();
    EXPECT_NE(screen.find("       Network"), std::string::npos) << screen;
    EXPECT_NE(screen.find(">Name rack-7"), std::string::npos) << screen;
    EXPECT_NE(screen.find(" IP 10.0.0.2"), std::string::npos) << screen;
    EXPECT_NE(screen.rfind('v'), std::string::npos) << screen;

    // Down, Enter, Up on the first digit, Enter: the new address is written.
    menu.KeyPress(Key(FP::KEY_DOWN));
    menu.KeyPress(Key(FP::KEY_ENTER));
    ASSERT_TRUE(panel.Barrier());
    // While editing the menu cursor gives way to the reverse cell of the digit.
    EXPECT_NE(panel.Screen().find("\n IP [0]10.000.000.002"), std::string::npos) << panel.Screen();
    menu.KeyPress(Key(FP::KEY_UP));
    menu.KeyPress(Key(FP::KEY_ENTER));
    ASSERT_TRUE(panel.Barrier());
    EXPECT_EQ(Value("net.ip"), "110.0.0.2");
    EXPECT_NE(panel.Screen().find(">IP 110.0.0.2"), std::string::npos) << panel.Screen();

    // A value changed behind the menu's back shows at the next draw.
    fp.SendDataWait("unit.name", "0", "rack-9");
    menu.KeyPress(Key(FP::KEY_UP));
    ASSERT_TRUE(panel.Barrier());
    EXPECT_NE(panel.Screen().find(">Name rack-9"), std::string::npos) << panel.Screen();

    // Scrolling past the end wraps to the top and clears the old rows.
    for (int i = 0; i < 5; ++i)
        menu.KeyPress(Key(FP::KEY_DOWN));
    ASSERT_TRUE(panel.Barrier());
    EXPECT_NE(panel.Screen().find(">Name rack-9"), std::string::npos) << panel.Screen();
    EXPECT_EQ(panel.Screen().find("Item 3"), std::string::npos) << panel.Screen();
}

}  // namespace
