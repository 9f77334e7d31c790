#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <thread>

#include "fp/client/FpClient.h"
#include "fp/core/Names.h"
#include "fp/screens/BaseConfigScreen.h"
#include "fp/screens/BaseStatusScreen.h"
#include "testing/RecordingDisplay.h"
#include "tests/fp/link/LinkPeer.h"
#include "tests/fp/menu/Keys.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace {

using fptest::Key;

// Records the engine events that reach a screen: the delivery thread adds, the
// test thread waits (bounded) and reads.
template <class Screen>
class Counted : public Screen {
public:
    void HandleEvent(const std::string& n, const TOV::COid& o, const std::string& u,
                     const std::string& v, const TOV::CParam& p) override {
        Screen::HandleEvent(n, o, u, v, p);
        events.Add(n);
    }
    fptest::Collected<std::string> events;
};

// Status rows for temp/fan; extra rows only to cross the "more rows" mark.
class StatScreen : public FP::BaseStatusScreen {
public:
    explicit StatScreen(int extra) : extra(extra) {}
    void CreateLines() override {
        CreateDisplayLine("Temp:", "sys.temp", "0", "");
        CreateListLine("Fan:", "sys.fan", "0", std::vector<std::string>{"Off", "On"}, "");
        for (int i = 0; i < extra; ++i)
            CreateDisplayLine("Row", "x", "");
    }
    void ConfigureMenu() override { menu.SetTitle("Status"); }
    int extra;
};

// Two instances of one variable plus another: the shape both bound kinds
// must walk fully when they watch and unwatch.
class PsuStatus : public FP::BaseStatusScreen {
public:
    void CreateLines() override {
        CreateDisplayLine("A:", "psu.volt", "0", "");
        CreateDisplayLine("B:", "psu.volt", "1", "");
        CreateDisplayLine("Temp:", "sys.temp", "0", "");
    }
};
class PsuConfig : public FP::BaseConfigScreen {
public:
    PsuConfig() : BaseConfigScreen(2000, true) {}
    void CreateLines() override {
        const std::map<int, std::string> levels{{12, "12"}, {13, "13"}};
        CreateListLine("A:", "psu.volt", "0", levels, "V");
        CreateListLine("B:", "psu.volt", "1", levels, "V");
        CreateStringLine("Temp:", "sys.temp", "0", 4, FP::StringLine::AlphaNumeric);
    }
};

class ScreensTest : public ::testing::Test {
protected:
    ScreensTest() : display(20, 4) {
        store.Declare(TOV::CVarDecl("sys.temp").Default("21"));
        store.Declare(TOV::CVarDecl("sys.fan").Default("2"));
        fpClient.Attach();
    }
    ~ScreensTest() override { fpClient.Detach(); }
    template <class S>
    void Wire(S& screen, const std::string& name) {
        screen.SetName(name);
        screen.SetClient(&fpClient);
        screen.SetDisplay(&display);
    }

    TOV::CDataStore store;
    TOV::CTovClient client{store};
    FP::FpClient fpClient{&client};
    FP::Testing::RecordingDisplay display;
};

// Arrows only past four rows, Enter only with a target, the back hint only
// with somewhere to go back to.
TEST_F(ScreensTest, StatusHoverMasksFollowRowsAndTargets) {
    StatScreen five(3), six(4);
    five.SetSelectScreen(FP::kNoScreen);
    six.SetSelectScreen("Detail");
    six.GetMenu()->SetExitScreen("Main");
    Wire(five, "Five");
    Wire(six, "Six");
    five.Initialize();
    EXPECT_EQ(display.navMasks.back(), 0x00);
    EXPECT_EQ(display.Text(), "       Status\n Temp:21\n Fan:On\n Rowx             v");
    six.Initialize();
    EXPECT_EQ(display.navMasks.back(),
              FP::NavSymbol::kExit | FP::NavSymbol::kUpDown | FP::NavSymbol::kEnter);
    EXPECT_EQ(six.KeyPress(Key(FP::KEY_ENTER)), "Detail");
    six.DeInitialize();
    five.DeInitialize();
}

// The engine's delivery thread redraws; this thread only waits meanwhile.
// Each (name, instance) read is watched once per Initialize, none after leave.
TEST_F(ScreensTest, BoundScreensRedrawOnEachReadInstanceUntilLeft) {
    store.Declare(TOV::CVarDecl("psu.volt").Instances({"0", "1"}).Default("12"));
    Counted<PsuStatus> stat;
    Counted<PsuConfig> conf;
    FP::Testing::RecordingDisplay confDisplay(20, 4);
    Wire(stat, "Stat");
    Wire(conf, "Conf");
    conf.SetDisplay(&confDisplay);
    auto writeAll = [&](const std::string& value) {
        std::thread([&] {
            for (const char* instance : {"0", "1"})
                store.Write("other", "psu.volt", TOV::COid(instance), value);
            store.Write("other", "sys.temp", TOV::COid("0"), value);
        }).join();
        return store.GetDispatcher().WaitIdle(10000);
    };
    for (FP::BaseScreen* s : std::initializer_list<FP::BaseScreen*>{&stat, &conf}) {
        s->Initialize();
        s->DeInitialize();
        s->Initialize();
    }
    ASSERT_TRUE(writeAll("13"));
    ASSERT_EQ(stat.events.WaitFor(3).size(), 3u);
    ASSERT_EQ(conf.events.WaitFor(3).size(), 3u);
    EXPECT_EQ(display.Text(), "\n A:13\n B:13\n Temp:13");
    stat.DeInitialize();
    conf.DeInitialize();
    ASSERT_TRUE(writeAll("12"));
    EXPECT_EQ(stat.events.WaitFor(0).size(), 3u);
    EXPECT_EQ(conf.events.WaitFor(0).size(), 3u);
}

}  // namespace
