#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fp/client/FpClient.h"
#include "fp/screens/BaseStatusScreen.h"
#include "testing/ScreenTest.h"
#include "tov/Oid.h"

namespace {

using FP::Testing::ScreenHarness;
using FP::Testing::ShowsRow;

bool Declare(TOV::CDataStore& store, std::string& error) {
    for (const char* name : {"count", "echo"}) {
        const TOV::CRet ret = store.Declare(TOV::CVarDecl(name).Default("0"));
        if (!ret.Success())
            return error = ret.Msg(), false;
    }
    return true;
}

// Every key bumps "count"; the engine event of that write makes the screen
// copy it to "echo", whose own event redraws the row. Only an idle wait that
// drains engine events as well as keys sees the last step.
class ChainScreen : public FP::BaseStatusScreen {
public:
    ChainScreen() {
        SetName("chain");
        menu.SetTitle("Chain");
    }
    void CreateLines() override {
        CreateDisplayLine("Count:", "count", "0", "");
        CreateDisplayLine("Echo:", "echo", "0", "");
    }
    std::string KeyPress(const FP::KeyState_t& key) override {
        if (key.key != FP::KEY_UP)
            return FP::BaseStatusScreen::KeyPress(key);
        GetClient()->SendData("count", "0", std::to_string(++count_));
        return std::string();
    }
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override {
        if (name == "count")
            GetClient()->SendData("echo", "0", value);
        FP::BaseStatusScreen::HandleEvent(name, oid, user, value, param);
    }

private:
    int count_ = 0;
};

class ScreenHarnessTest : public FP::Testing::ScreenTest {
protected:
    ScreenHarness& Begin() {
        ScreenHarness::Options options;
        options.declare = Declare;
        ScreenHarness& harness = Make(options);
        harness.AddScreen(std::make_unique<ChainScreen>());
        EXPECT_TRUE(harness.Start());
        return harness;
    }
};

TEST_F(ScreenHarnessTest, IdleWaitsForKeysAndTheEngineEventsTheyCause) {
    ScreenHarness& harness = Begin();
    for (int i = 1; i <= 5; ++i) {
        ASSERT_TRUE(harness.Press("up"));
        EXPECT_THAT(harness.Panel(), ShowsRow(2, " Echo:" + std::to_string(i))) << "press " << i;
    }
    // A held key is reported once on the way down, not again on release.
    ASSERT_TRUE(harness.Hold(FP::KEY_UP));
    ASSERT_TRUE(harness.Release(FP::KEY_UP));
    EXPECT_EQ("6", harness.Get("echo"));
}

TEST_F(ScreenHarnessTest, FailuresCarryThePanelAsShown) {
    ScreenHarness& harness = Begin();
    std::vector<std::string> failures;
    harness.SetFailureSink([&](const std::string& message) { failures.push_back(message); });

    EXPECT_FALSE(harness.Press("NOSUCHKEY"));
    harness.RefuseNextWrite("no thanks");
    EXPECT_FALSE(harness.Set("echo", "9"));
    ASSERT_EQ(2u, failures.size());
    EXPECT_THAT(failures[0], testing::HasSubstr("No key is called \"NOSUCHKEY\""));
    EXPECT_THAT(failures[1], testing::HasSubstr("no thanks"));
    for (const std::string& failure : failures)
        EXPECT_THAT(failure, testing::HasSubstr("| Echo:0 ")) << failure;
    EXPECT_EQ("0", harness.Get("echo"));
}

}  // namespace
