#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "fp/lines/ChoiceLine.h"
#include "fp/lines/EngineDateLine.h"
#include "fp/lines/EngineNumberLine.h"
#include "fp/screens/BaseConfigScreen.h"
#include "fp/screens/BaseStatusScreen.h"
#include "fp/screens/FpClient.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ScreenText.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace {

using fptest::ScreenText;

// A configuration screen whose rows come from the test.
class Config : public FP::BaseConfigScreen {
public:
    explicit Config(std::function<void(Config&)> make)
        : BaseConfigScreen(2000, true), make_(std::move(make)) {}
    void CreateLines() override { make_(*this); }
    using BaseConfigScreen::AddBound;

private:
    std::function<void(Config&)> make_;
};

class Status : public FP::BaseStatusScreen {
public:
    explicit Status(std::function<void(Status&)> make) : make_(std::move(make)) {
        SetSelectScreen(FP::kNoScreen);
    }
    void CreateLines() override { make_(*this); }

private:
    std::function<void(Status&)> make_;
};

// The unit as a restart sees it: a store (on the test's file when asked), a
// client and a 20x4 panel. Rebuilt by Restart; the file stays.
struct Unit {
    explicit Unit(const std::string& file) {
        if (!file.empty()) {
            EXPECT_TRUE(store.Open(file).Success());
        }
        using TOV::CValidator;
        using TOV::CVarDecl;
        store.Declare(
            CVarDecl("net.dhcp").Default("0").Check(CValidator::Integer(0, 1)).Persistent());
        store.Declare(CVarDecl("fan.mode")
                          .Default("eco")
                          .Check(CValidator::OneOf({"eco", "perf"}))
                          .Persistent());
        store.Declare(CVarDecl("sys.volt").Default("125"));
        store.Declare(
            CVarDecl("app.limit").Default("2.5").Check(CValidator::Real(0, 50)).Persistent());
        store.Declare(
            CVarDecl("app.steps").Default("25").Check(CValidator::Integer(0, 500)).Persistent());
        store.Declare(CVarDecl("clock.date")
                          .Default("2026/01/31")
                          .Check(CValidator::Custom(CValidator::Function([](const std::string& v) {
                              return FP::EngineDateLine::IsCalendarDate(v) ? "" : "no such date";
                          })))
                          .Persistent());
        store.Declare(CVarDecl("clock.time").Default("23:59:58").Persistent());
        fp.Attach();
    }
    ~Unit() { fp.Detach(); }
    template <class S>
    void Show(S& screen) {
        screen.SetClient(&fp);
        screen.SetDisplay(&display);
        screen.Initialize();
    }
    void Keys(FP::BaseScreen& screen, std::initializer_list<FP::Key_e> keys) {
        for (FP::Key_e k : keys)
            screen.KeyPress(FP::KeyState_t{k, FP::KEY_STATE_DOWN});
    }
    std::string Var(const std::string& name) {
        return store.Read(name, TOV::COid("0")).Val().GetValue();
    }
    TOV::CDataStore store;
    // Queued: engine events would otherwise redraw from the delivery thread
    // while the test drives the screen. Each draw reads the engine anyway.
    TOV::CTovClient client{store, TOV::CTovClient::DELIVER_QUEUED};
    FP::FpClient fp{&client};
    fptest::TextDisplay display{20, 4};
};

// Every case runs in memory and on a SQLite file that outlives a restart.
class BindingRowsTest : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        char tmpl[] = "/tmp/fpbindXXXXXX";
        dir = mkdtemp(tmpl);
        Restart();
    }
    void TearDown() override {
        unit.reset();
        std::system(("rm -rf '" + dir + "'").c_str());
    }
    void Restart() {
        unit.reset();
        unit.reset(new Unit(GetParam() ? dir + "/unit.db" : ""));
    }
    std::string dir;
    std::unique_ptr<Unit> unit;
};

const std::map<int, std::string> kOffOn{{0, "Off"}, {1, "On"}};
const std::map<std::string, std::string> kModes{{"eco", "Eco"}, {"perf", "Perf"}};

void ChoiceRows(Config& s) {
    s.CreateChoiceLine("DHCP:", "net.dhcp", "0", kOffOn, "");
    s.CreateChoiceLine("Fan:", "fan.mode", "0", kModes, "");
}

TEST_P(BindingRowsTest, ChoiceRowsStoreKeysAndShowThemAfterARestart) {
    {
        Config screen(ChoiceRows);
        unit->Show(screen);
        EXPECT_EQ(ScreenText(unit->display), "\n>DHCP:Off\n Fan:Eco\n");
        unit->Keys(screen, {FP::KEY_ENTER, FP::KEY_UP, FP::KEY_ENTER, FP::KEY_DOWN, FP::KEY_ENTER,
                            FP::KEY_UP, FP::KEY_ENTER});
        EXPECT_EQ(unit->Var("net.dhcp"), "1");
        EXPECT_EQ(unit->Var("fan.mode"), "perf");
    }
    Restart();
    Config screen(ChoiceRows);
    unit->Show(screen);
    if (GetParam())
        EXPECT_EQ(ScreenText(unit->display), "\n>DHCP:On\n Fan:Perf\n");
    else
        EXPECT_EQ(ScreenText(unit->display), "\n>DHCP:Off\n Fan:Eco\n");
}

void NumberRows(Config& s) {
    s.CreateNumberLine("Lim:", "app.limit", "0", 0, 99.9, 1, "A", FP::EngineNumberLine::STORE_TEXT);
    s.CreateNumberLine("Stp:", "app.steps", "0", 0, 99.9, 1, "V", FP::EngineNumberLine::STORE_STEPS,
                       0.1);
}

// Tens up, ones up, tenths up, commit: 2.5 becomes 13.6 on both rows; a
// second commit past what the engine allows is refused and the row goes
// back to what is stored.
TEST_P(BindingRowsTest, NumberRowsWriteWhatTheyShowAndShowItAfterARestart) {
    const std::initializer_list<FP::Key_e> edit{FP::KEY_ENTER, FP::KEY_UP,    FP::KEY_RIGHT,
                                                FP::KEY_UP,    FP::KEY_RIGHT, FP::KEY_UP,
                                                FP::KEY_ENTER};
    {
        Config screen(NumberRows);
        unit->Show(screen);
        EXPECT_EQ(ScreenText(unit->display), "\n>Lim:02.5A\n Stp:02.5V\n");
        unit->Keys(screen, edit);
        unit->Keys(screen, {FP::KEY_DOWN});
        unit->Keys(screen, edit);
        EXPECT_EQ(unit->Var("app.limit"), "13.6");
        EXPECT_EQ(unit->Var("app.steps"), "136");
        fptest::LogCapture log("fp.client");
        unit->Keys(screen, {FP::KEY_UP, FP::KEY_ENTER, FP::KEY_LEFT, FP::KEY_LEFT, FP::KEY_UP,
                            FP::KEY_UP, FP::KEY_UP, FP::KEY_UP, FP::KEY_ENTER});
        EXPECT_EQ(log.Count("SendDataWait() app.limit/0 refused \"53.6\"", true), 1u);
        EXPECT_EQ(ScreenText(unit->display), "\n>Lim:13.6A\n Stp:13.6V\n");
    }
    Restart();
    Config screen(NumberRows);
    unit->Show(screen);
    EXPECT_EQ(ScreenText(unit->display),
              GetParam() ? "\n>Lim:13.6A\n Stp:13.6V\n" : "\n>Lim:02.5A\n Stp:02.5V\n");
}

// A scale with no steps is said once, when the row is made; a stored text
// that is no number shows as a placeholder. Scaled status numbers round.
TEST_P(BindingRowsTest, RowsShowPlaceholdersForWhatTheyCannotShowAndScaledValues) {
    fptest::LogCapture log("fp.lines");
    unit->store.Declare(TOV::CVarDecl("app.free").Default("abc"));
    Config config([](Config& s) {
        s.CreateNumberLine("Z:", "app.steps", "0", 0, 99, 0, "", FP::EngineNumberLine::STORE_STEPS,
                           0);
        s.CreateNumberLine("L:", "app.free", "0", 0, 99, 0, "", FP::EngineNumberLine::STORE_TEXT);
    });
    unit->Show(config);
    config.DrawScreen();
    EXPECT_EQ(ScreenText(unit->display), "\n>Z:?\n L:?\n");
    EXPECT_EQ(log.Count("CheckScale() No steps of scale 0", true), 1u);
    EXPECT_EQ(log.Count("SetCurrentValue() app.free/0 holds \"abc\", which is not a number"), 1u);
    unit->Keys(config, {FP::KEY_ENTER, FP::KEY_UP, FP::KEY_ENTER});
    EXPECT_EQ(unit->Var("app.steps"), "25");

    // A choice row whose value is no key shows a placeholder, said once over two draws.
    unit->store.Declare(TOV::CVarDecl("fan.speed").Default("fast"));
    Status status([](Status& s) {
        s.CreateScaledNumberLine("V:", "sys.volt", "0", "", false, 0, 0.1);
        s.CreateScaledNumberLine("W:", "sys.volt", "0", "", false, 2, 0.1);
        s.CreateChoiceLine("Fan:", "fan.speed", "0",
                           std::map<std::string, std::string>{{"slow", "Slow"}}, "");
    });
    unit->Show(status);
    status.DrawScreen();
    EXPECT_EQ(ScreenText(unit->display), "\n V:000000013\n W:000012.50\n Fan:?");
    EXPECT_EQ(log.Count("SetCurrentValue() fan.speed/0 holds \"fast\"", true), 1u);
    unit->store.Write("other", "fan.speed", TOV::COid("0"), "slow");
    status.DrawScreen();
    EXPECT_EQ(ScreenText(unit->display), "\n V:000000013\n W:000012.50\n Fan:Slow");
}

void ClockRows(Config& s) {
    s.CreateDateLine("D:", "clock.date", "0");
    s.CreateTimeLine("T:", "clock.time", "0");
}

TEST_P(BindingRowsTest, DateAndTimeRowsRefuseNoDayAndShowTheirValueAfterARestart) {
    {
        Config screen(ClockRows);
        unit->Show(screen);
        EXPECT_EQ(ScreenText(unit->display), "\n>D:2026/01/31\n T:23:59:58\n");
        unit->Keys(screen, {FP::KEY_ENTER, FP::KEY_RIGHT, FP::KEY_UP, FP::KEY_ENTER});
        EXPECT_EQ(unit->Var("clock.date"), "2026/01/31");  // 31 February
        EXPECT_EQ(ScreenText(unit->display), "\n>D:2026/01/31\n T:23:59:58\n");
        unit->Keys(screen, {FP::KEY_ENTER, FP::KEY_UP, FP::KEY_RIGHT, FP::KEY_DOWN, FP::KEY_DOWN,
                            FP::KEY_DOWN, FP::KEY_ENTER, FP::KEY_DOWN, FP::KEY_ENTER, FP::KEY_UP,
                            FP::KEY_ENTER});
        EXPECT_EQ(unit->Var("clock.date"), "2026/02/28");
        EXPECT_EQ(unit->Var("clock.time"), "00:59:58");
    }
    Restart();
    fptest::LogCapture log("fp.lines");
    unit->store.Write("other", "clock.time", TOV::COid("0"), "25:00:00");
    Config screen(ClockRows);
    unit->Show(screen);
    EXPECT_EQ(ScreenText(unit->display),
              GetParam() ? "\n>D:2026/02/28\n T:?\n" : "\n>D:2026/01/31\n T:?\n");
    EXPECT_EQ(log.Count("SetCurrentValue() clock.time/0 holds \"25:00:00\"", true), 1u);
}

INSTANTIATE_TEST_SUITE_P(MemoryAndFile, BindingRowsTest, ::testing::Bool());

}  // namespace
