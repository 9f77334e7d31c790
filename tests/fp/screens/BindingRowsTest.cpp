#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "fp/lines/ChoiceLine.h"
#include "fp/lines/EngineClockLines.h"
#include "fp/lines/EngineNumberLine.h"
#include "fp/screens/BaseConfigScreen.h"
#include "fp/screens/BaseStatusScreen.h"
#include "fp/screens/FpClient.h"
#include "testing/LogCapture.h"
#include "testing/RecordingDisplay.h"
#include "tests/fp/menu/Keys.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace {

// A configuration or status screen whose rows come from the test.
template <class Base>
class Rows : public Base {
public:
    explicit Rows(std::function<void(Rows&)> make) : make_(std::move(make)) {}
    void CreateLines() override { make_(*this); }

private:
    std::function<void(Rows&)> make_;
};
struct ConfigBase : FP::BaseConfigScreen {
    ConfigBase() : BaseConfigScreen(2000, true) {}
};
struct StatusBase : FP::BaseStatusScreen {
    StatusBase() { SetSelectScreen(FP::kNoScreen); }
};
using Config = Rows<ConfigBase>;
using Status = Rows<StatusBase>;

// The unit's side of the rows: the engine, a client and a 20x4 panel.
struct Unit {
    Unit() {
        using TOV::CValidator;
        auto keep = [this](const char* name, const char* value, const CValidator& check) {
            store.Declare(TOV::CVarDecl(name).Default(value).Check(check));
        };
        keep("net.dhcp", "0", CValidator::Integer(0, 1));
        keep("fan.mode", "eco", CValidator::OneOf({"eco", "perf"}));
        keep("app.limit", "2.5", CValidator::Real(0, 50));
        keep("app.steps", "25", CValidator::Integer(0, 500));
        keep("clock.date", "2026/01/31",
             CValidator::Custom(CValidator::Function([](const std::string& v) {
                 return FP::EngineDateLine::Accepts(v) ? "" : "no such date";
             })));
        store.Declare(TOV::CVarDecl("clock.time").Default("23:59:58"));
        store.Declare(TOV::CVarDecl("sys.volt").Default("125"));
        fp.Attach();
    }
    ~Unit() { fp.Detach(); }
    template <class S>
    void Show(S& screen) {
        screen.SetClient(&fp);
        screen.SetDisplay(&display);
        screen.Initialize();
    }
    // Presses keys spelled E enter, ^ up, v down, < left, > right.
    void Keys(FP::BaseScreen& screen, const std::string& keys) {
        const FP::Key_e named[] = {FP::KEY_ENTER, FP::KEY_UP, FP::KEY_DOWN, FP::KEY_LEFT,
                                   FP::KEY_RIGHT};
        for (char k : keys)
            screen.KeyPress(fptest::Key(named[std::string("E^v<>").find(k)]));
    }
    std::string Var(const std::string& name) {
        return store.Read(name, TOV::COid("0")).Val().GetValue();
    }
    TOV::CDataStore store;
    // Queued: engine events would otherwise redraw from the delivery thread
    // while the test drives the screen. Each draw reads the engine anyway.
    TOV::CTovClient client{store, TOV::CTovClient::DELIVER_QUEUED};
    FP::FpClient fp{&client};
    FP::Testing::RecordingDisplay display{20, 4};
};

class BindingRowsTest : public ::testing::Test {
protected:
    // Shows screen on the unit's panel and returns what the panel shows.
    template <class S>
    std::string Shown(S& screen) {
        unit.Show(screen);
        return unit.display.Text();
    }
    // Shows a screen of rows on the unit and presses keys on it.
    void Edit(void (*rows)(Config&), const std::string& shown, const std::string& keys) {
        screen.reset(new Config(rows));
        EXPECT_EQ(Shown(*screen), shown);
        unit.Keys(*screen, keys);
    }
    Unit unit;
    std::unique_ptr<Config> screen;  // goes before the unit it draws from
};

const std::map<int, std::string> kOffOn{{0, "Off"}, {1, "On"}};
const std::map<std::string, std::string> kModes{{"eco", "Eco"}, {"perf", "Perf"}};

void ChoiceRows(Config& s) {
    s.CreateChoiceLine("DHCP:", "net.dhcp", "0", kOffOn, "");
    s.CreateChoiceLine("Fan:", "fan.mode", "0", kModes, "");
}

// A choice stores its key, not the text it shows.
TEST_F(BindingRowsTest, ChoiceRowsStoreKeys) {
    Edit(ChoiceRows, "\n>DHCP:Off\n Fan:Eco\n", "E^EvE^E");
    EXPECT_EQ(unit.Var("net.dhcp"), "1");
    EXPECT_EQ(unit.Var("fan.mode"), "perf");
}

void NumberRows(Config& s) {
    s.CreateNumberLine("Lim:", "app.limit", "0", 0, 99.9, 1, "A", FP::EngineNumberLine::STORE_TEXT);
    s.CreateNumberLine("Stp:", "app.steps", "0", 0, 99.9, 1, "V", FP::EngineNumberLine::STORE_STEPS,
                       0.1);
}

// Tens up, ones up, tenths up, commit: 2.5 becomes 13.6 on both rows; a
// second commit past what the engine allows is refused and the row goes
// back to what is stored.
TEST_F(BindingRowsTest, NumberRowsWriteWhatTheyShowAndGoBackWhenRefused) {
    Edit(NumberRows, "\n>Lim:02.5A\n Stp:02.5V\n", "E^>^>^EvE^>^>^E");
    EXPECT_EQ(unit.Var("app.limit"), "13.6");
    EXPECT_EQ(unit.Var("app.steps"), "136");
    FP::Testing::LogCapture log("fp.client");
    unit.Keys(*screen, "^E<<^^^^E");
    EXPECT_EQ(log.Count("SendDataWait() app.limit/0 refused \"53.6\"", true), 1u);
    EXPECT_EQ(unit.display.Text(), "\n>Lim:13.6A\n Stp:13.6V\n");
}

// A scale with no steps is said once, when the row is made; a stored text
// that is no number shows as a placeholder. Scaled status numbers round.
TEST_F(BindingRowsTest, RowsShowPlaceholdersForWhatTheyCannotShowAndScaledValues) {
    FP::Testing::LogCapture log("fp.lines");
    unit.store.Declare(TOV::CVarDecl("app.free").Default("abc"));
    Config config([](Config& s) {
        s.CreateNumberLine("Z:", "app.steps", "0", 0, 99, 0, "", FP::EngineNumberLine::STORE_STEPS,
                           0);
        s.CreateNumberLine("L:", "app.free", "0", 0, 99, 0, "", FP::EngineNumberLine::STORE_TEXT);
    });
    EXPECT_EQ(Shown(config), "\n>Z:?\n L:?\n");
    config.DrawScreen();  // a second draw says nothing new
    EXPECT_EQ(log.Count("CheckScale() No steps of scale 0", true), 1u);
    EXPECT_EQ(log.Count("SetCurrentValue() app.free/0 holds \"abc\", which is not a number"), 1u);
    unit.Keys(config, "E^E");
    EXPECT_EQ(unit.Var("app.steps"), "25");

    // A choice row whose value is no key shows a placeholder, said once over two draws.
    unit.store.Declare(TOV::CVarDecl("fan.speed").Default("fast"));
    Status status([](Status& s) {
        s.CreateScaledNumberLine("V:", "sys.volt", "0", "", false, 0, 0.1);
        s.CreateScaledNumberLine("W:", "sys.volt", "0", "", false, 2, 0.1);
        s.CreateChoiceLine("Fan:", "fan.speed", "0",
                           std::map<std::string, std::string>{{"slow", "Slow"}}, "");
    });
    unit.Show(status);
    status.DrawScreen();
    EXPECT_EQ(unit.display.Text(), "\n V:000000013\n W:000012.50\n Fan:?");
    EXPECT_EQ(log.Count("SetCurrentValue() fan.speed/0 holds \"fast\"", true), 1u);
    unit.store.Write("other", "fan.speed", TOV::COid("0"), "slow");
    status.DrawScreen();
    EXPECT_EQ(unit.display.Text(), "\n V:000000013\n W:000012.50\n Fan:Slow");
}

void ClockRows(Config& s) {
    s.CreateDateLine("D:", "clock.date", "0");
    s.CreateTimeLine("T:", "clock.time", "0");
}

// Month up makes 31 February, which the engine refuses and the row takes
// back; then day down three, commit, and the hour wraps past midnight.
TEST_F(BindingRowsTest, DateAndTimeRowsWriteTheirFieldsAndShowPlaceholders) {
    Edit(ClockRows, "\n>D:2026/01/31\n T:23:59:58\n", "E>^E");
    EXPECT_EQ(unit.Var("clock.date"), "2026/01/31");
    EXPECT_EQ(unit.display.Text(), "\n>D:2026/01/31\n T:23:59:58\n");
    unit.Keys(*screen, "E^>vvvEvE^E");
    EXPECT_EQ(unit.Var("clock.date"), "2026/02/28");
    EXPECT_EQ(unit.Var("clock.time"), "00:59:58");

    // A stored time of day that is no time shows as a placeholder.
    FP::Testing::LogCapture log("fp.lines");
    unit.store.Write("other", "clock.time", TOV::COid("0"), "25:00:00");
    screen->DrawScreen();
    EXPECT_EQ(unit.display.Text(), "\n D:2026/02/28\n>T:?\n");
    EXPECT_EQ(log.Count("SetCurrentValue() clock.time/0 holds \"25:00:00\"", true), 1u);
}

}  // namespace
