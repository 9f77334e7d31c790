#include <memory>

#include "DisplayScreen.h"
#include "testing/ScreenTest.h"

namespace {

using FP::Testing::ShowsRow;
using FP::Testing::ShowsText;

// Every test starts with the unit showing the display screen on a fresh
// panel, with the variables as the application declares them.
class DisplayScreenTest : public FP::Testing::ScreenTest {
protected:
    void SetUp() override {
        FP::Testing::ScreenHarness::Options options;
        options.declare = MyUnit::DeclareVars;
        FP::Testing::ScreenHarness& harness = Make(options);
        harness.AddScreen(std::make_unique<MyUnit::DisplayScreen>());
        ASSERT_TRUE(harness.Start());
    }
};

TEST_F(DisplayScreenTest, EditsAndStoresTheLevel) {
    FP::Testing::ScreenHarness& panel = Harness();
    EXPECT_THAT(panel.Panel(), ShowsText("Display"));
    EXPECT_THAT(panel.Panel(), ShowsRow(1, ">Brightness:5"));

    ASSERT_TRUE(panel.Press({"ENTER", "UP", "ENTER"}));
    EXPECT_EQ("6", panel.Get(MyUnit::kBrightness));
    EXPECT_THAT(panel.Panel(), ShowsText("Brightness:6"));
}

TEST_F(DisplayScreenTest, RefusedWriteIsShownThenTheStoredLevelComesBack) {
    FP::Testing::ScreenHarness& panel = Harness();
    panel.RefuseNextWrite("Panel busy");
    ASSERT_TRUE(panel.Press({"ENTER", "UP", "ENTER"}));
    EXPECT_THAT(panel.Panel(), ShowsText("Not saved"));
    EXPECT_THAT(panel.Panel(), ShowsText("Panel busy"));
    EXPECT_EQ("5", panel.Get(MyUnit::kBrightness));

    ASSERT_TRUE(panel.Advance(2000));
    EXPECT_THAT(panel.Panel(), ShowsText("Brightness:5"));
}

TEST_F(DisplayScreenTest, FollowsTheEngineAndSurvivesTheLink) {
    FP::Testing::ScreenHarness& panel = Harness();
    ASSERT_TRUE(panel.Set(MyUnit::kBrightness, "3"));
    EXPECT_THAT(panel.Panel(), ShowsText("Brightness:3"));

    // A new panel, and then a restarted one, both come back blank: the unit
    // must draw the screen again by itself.
    ASSERT_TRUE(panel.DropLink());
    ASSERT_TRUE(panel.RestoreLink());
    EXPECT_THAT(panel.Panel(), ShowsText("Brightness:3"));
    ASSERT_TRUE(panel.RestartController());
    EXPECT_THAT(panel.Panel(), ShowsText("Brightness:3"));
    ASSERT_TRUE(panel.Press("DOWN"));
    EXPECT_EQ("Display", panel.CurrentScreen());
}

}  // namespace
