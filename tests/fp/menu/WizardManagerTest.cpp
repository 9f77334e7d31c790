#include <gtest/gtest.h>

#include <vector>

#include "fp/client/FpClient.h"
#include "fp/core/Names.h"
#include "fp/lines/ListLine.h"
#include "fp/menu/MenuStyleBasic.h"
#include "fp/menu/WizardManager.h"
#include "testing/RecordingDisplay.h"
#include "tests/fp/menu/Keys.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace {

using Waits = std::vector<std::pair<unsigned int, std::string>>;

// Two wizard rows a and b on the embedded engine; b refuses "Auto". The
// sleeper records each wait with the screen shown during it.
class WizardTest : public ::testing::Test {
protected:
    WizardTest() : display(20, 4), wizard(&menu) {
        const std::vector<std::string> modes{"Off", "On", "Auto"};
        store.Declare(TOV::CVarDecl("w.a").Default("Off"));
        store.Declare(
            TOV::CVarDecl("w.b").Default("Off").Check(TOV::CValidator::OneOf({"Off", "On"})));
        fpClient.Attach();
        menu.SetDisplay(&display);
        menu.SetClient(&fpClient);
        menu.SetTitle("Wizard");
        for (const char* name : {"w.a", "w.b"}) {
            auto* line = new FP::ListLine(modes, false);
            line->SetDbInfo(name, "0");
            menu.AddLine(line, std::string(1, name[2]) + ":");
            wizard.AddLine(line);
            lines.push_back(line);
        }
        wizard.SetSleeper([this](unsigned int ms) { waits.push_back({ms, display.Text()}); });
        wizard.SetWizardDoneHandler([this] {
            ++applied;
            TOV::CTxn txn;
            txn.Add("w.a", TOV::COid("0"), lines[0]->GetCurrentString());
            txn.Add("w.b", TOV::COid("0"), lines[1]->GetCurrentString());
            return fpClient.SendTxn("tov.fp", txn);
        });
        menu.DrawScreen(FP::DRAW_FULL);
    }
    ~WizardTest() override {
        delete menu.GetTitle();  // the style leaves its title to us
        fpClient.Detach();
    }
    void Press(std::initializer_list<FP::Key_e> keys) {
        for (FP::Key_e k : keys)
            EXPECT_EQ(wizard.HandleKeyPress(fptest::Key(k), &display), FP::kNoScreen);
    }
    std::string Stored(const char* name) {
        return store.Read(name, TOV::COid("0")).Val().GetValue();
    }

    TOV::CDataStore store;
    TOV::CTovClient client{store};
    FP::FpClient fpClient{&client};
    FP::Testing::RecordingDisplay display;
    FP::MenuStyleBasic menu;
    FP::WizardManager wizard;
    std::vector<FP::ListLine*> lines;
    Waits waits;
    int applied = 0;
};

TEST_F(WizardTest, WalksBothRowsAndAppliesOnce) {
    Press({FP::KEY_ENTER});  // the menu starts the edit; the wizard waits
    EXPECT_FALSE(wizard.IsStarted());
    Press({FP::KEY_UP, FP::KEY_ENTER});
    EXPECT_TRUE(wizard.IsStarted());
    EXPECT_TRUE(menu.GetEditEnabled());
    EXPECT_EQ(menu.GetCursorIndex(), 1);
    EXPECT_EQ(Stored("w.a"), "Off");  // nothing written before the end
    Press({FP::KEY_UP, FP::KEY_ENTER});
    EXPECT_EQ(applied, 1);
    EXPECT_FALSE(wizard.IsStarted());
    EXPECT_EQ(waits, (Waits{{1100u, "\n\nApplying Changes...\n"}}));
    EXPECT_EQ(Stored("w.a"), "On");
    EXPECT_EQ(Stored("w.b"), "On");
}

TEST_F(WizardTest, RefusedApplyAndExitBothDiscard) {
    Press({FP::KEY_ENTER, FP::KEY_UP, FP::KEY_ENTER, FP::KEY_UP, FP::KEY_UP, FP::KEY_ENTER});
    EXPECT_EQ(waits, (Waits{{1100u, "\n\nApplying Changes...\n"},
                            {1500u, "\n\n   Invalid Input\n Changes Discarded"}}));
    // The entries stay on the rows until the engine's values replace them.
    EXPECT_EQ(display.Text(), "       Wizard\n a:On\n>b:Auto\n");

    waits.clear();
    Press({FP::KEY_ENTER, FP::KEY_UP, FP::KEY_EXIT});
    EXPECT_EQ(applied, 1);
    EXPECT_FALSE(menu.GetEditEnabled());
    EXPECT_FALSE(wizard.IsStarted());
    EXPECT_EQ(waits, (Waits{{1000u, "\n\nBack Button Pressed\n Changes Discarded"}}));
    EXPECT_EQ(display.Text(), "       Wizard\n a:On\n>b:Off\n");
    EXPECT_EQ(Stored("w.b"), "Off");
}

}  // namespace
