#include <gtest/gtest.h>

#include <pty.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "fp/core/Names.h"
#include "fp/link/FpAdapter.h"
#include "fp/link/FpControl.h"
#include "fp/screens/BaseStatusScreen.h"
#include "kt/ListenSocket.h"
#include "kt/StreamSocket.h"
#include "sim/PanelSim.h"
#include "testing/LogCapture.h"
#include "tests/fp/link/LinkPeer.h"
#include "tests/support/Waiting.h"
#include "tov/DataStore.h"
#include "tov/VarDecl.h"
#include "unit/LogGuard.h"
#include "unit/Unit.h"

namespace {

using Clock = std::chrono::steady_clock;
using FP::Unit;
using fptest::WaitFor;

// A status screen that counts the engine events it receives.
class CountingScreen : public FP::BaseStatusScreen {
public:
    CountingScreen(const std::string& name, const std::string& title) {
        SetName(name);
        menu.SetTitle(title);
    }
    void CreateLines() override { CreateDisplayLine("Level:", "level", "0", ""); }
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override {
        ++events;
        FP::BaseStatusScreen::HandleEvent(name, oid, user, value, param);
    }
    int events = 0;
};

// A unit on an in-process panel (socket pair), with a clock the test moves.
struct Rig {
    Rig() {
        store.Declare(TOV::CVarDecl("level").Default("3").Check(TOV::CValidator::Integer(1, 8)));
        unitEnd.reset(new KT::CStreamSocket);
        KT::CStreamSocket::CreatePair(*unitEnd, panelEnd);
        sim.reset(new FPSIM::PanelSim(panelEnd));
        sim->Start();
        options.connector = [this](std::string& reason) {
            reason = "the pair is used up";
            return std::move(unitEnd);
        };
        options.now = [this] { return Clock::now() + std::chrono::milliseconds(offsetMs.load()); };
        options.livenessPeriodMs = 0;
    }
    ~Rig() {
        unit.reset();
        sim->Stop();
    }
    // Builds the unit with its two screens and waits for its link.
    bool Start() {
        unit.reset(new Unit(store, options));
        a = new CountingScreen("a", "Screen A");
        b = new CountingScreen("b", "Screen B");
        unit->AddScreen(std::unique_ptr<FP::BaseScreen>(a));
        unit->AddScreen(std::unique_ptr<FP::BaseScreen>(b));
        return unit->Start() && unit->WaitLinkUp(20000);
    }
    std::string Row(unsigned row) { return sim->Snapshot().grid.RenderPlain(row); }
    bool Shows(unsigned row, const std::string& text) {
        return WaitFor([&] {
            if (!options.uiThread)
                unit->RunPending();
            return Row(row).find(text) != std::string::npos;
        });
    }

    TOV::CDataStore store;
    std::unique_ptr<KT::CStreamSocket> unitEnd;
    KT::CStreamSocket panelEnd;
    std::unique_ptr<FPSIM::PanelSim> sim;
    std::atomic<long> offsetMs{0};
    Unit::Options options;
    std::unique_ptr<Unit> unit;
    CountingScreen* a = nullptr;
    CountingScreen* b = nullptr;
};

TEST(UnitLink, FailuresCarryTheirReason) {
    // A port nobody listens on: bind one, then let it go.
    unsigned short port = 0;
    {
        KT::CListenSocket listener;
        ASSERT_TRUE(listener.Listen("tcp:127.0.0.1:0"));
        port = listener.GetPort();
    }
    struct Case {
        std::string address;
        const char* reason;
    } cases[] = {
        {"serial:/dev/ttyNOPE", "no such device"},
        {"tcp:127.0.0.1:" + std::to_string(port), "connection refused"},
    };
    TOV::CDataStore store;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.address);
        Unit::Options options;
        options.address = c.address;
        options.retryMinMs = options.retryMaxMs = 20;
        Unit unit(store, options);
        unit.AddScreen(std::unique_ptr<FP::BaseScreen>(new CountingScreen("a", "A")));
        fptest::Collected<std::string> told;
        unit.SetLinkListener(
            [&](const Unit::LinkEvent_t& e) { told.Add((e.up ? "up: " : "down: ") + e.reason); });
        EXPECT_TRUE(unit.Start());  // the unit keeps trying in the background
        ASSERT_FALSE(told.WaitFor(1, 20000).empty());
        // Let it retry a few times: the same reason is told once.
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        const std::vector<std::string> events = told.WaitFor(0);
        ASSERT_EQ(1u, events.size());
        EXPECT_EQ(0u, events[0].find(std::string("down: ") + c.reason)) << events[0];
    }
}

TEST(UnitLink, SilentSerialPeerIsDroppedAndTheRestoredPanelRedrawn) {
    int master = -1;
    int slave = -1;
    char name[128];
    ASSERT_EQ(0, ::openpty(&master, &slave, name, nullptr, nullptr));
    KT::CStreamSocket panelEnd(master);
    TOV::CDataStore store;
    store.Declare(TOV::CVarDecl("level").Default("3"));
    Unit::Options options;
    options.address = std::string("serial:") + name + "@115200";
    options.livenessPeriodMs = 100;
    options.livenessMisses = 2;
    options.retryMinMs = options.retryMaxMs = 50;
    Unit unit(store, options);
    unit.AddScreen(std::unique_ptr<FP::BaseScreen>(new CountingScreen("a", "Screen A")));
    std::atomic<int> downs{0};
    unit.SetLinkListener([&](const Unit::LinkEvent_t& e) { downs += !e.up; });
    unit.SetLed(FP::FpControl::Led_e(2), true);

    std::unique_ptr<FPSIM::PanelSim> sim(new FPSIM::PanelSim(panelEnd));
    ASSERT_TRUE(sim->Start());
    ASSERT_TRUE(unit.Start());
    ASSERT_TRUE(unit.WaitLinkUp(20000));
    auto showsTitle = [&] {
        return unit.WaitIdle(20000) &&
               sim->Snapshot().grid.RenderPlain(0u).find("Screen A") != std::string::npos;
    };
    EXPECT_TRUE(showsTitle());

    // The cable is pulled: the device stays, the panel just stops answering.
    sim->Stop();
    sim.reset();
    ASSERT_TRUE(WaitFor([&] { return !unit.LinkUp() && downs.load() >= 1; }));

    // Plugged in again, to a panel that remembers nothing.
    sim.reset(new FPSIM::PanelSim(panelEnd));
    ASSERT_TRUE(sim->Start());
    ASSERT_TRUE(WaitFor([&] { return unit.LinkUp() && unit.Reconnects() == 1; }));
    EXPECT_TRUE(showsTitle());
    EXPECT_TRUE(sim->Snapshot().leds.count(2) && sim->Snapshot().leds.at(2));

    // A serial link sends only changes; a controller that restarts on the
    // same link has lost them all, so the whole screen must go out again.
    auto clears = [&] { return sim->Snapshot().counters.framesByOp['0']; };
    const uint64_t clearsBefore = clears();
    ASSERT_TRUE(sim->SendFrame(FP::FpControl::OP_INIT, {}));
    ASSERT_TRUE(WaitFor([&] { return clears() > clearsBefore; }));  // the unit blanked the panel
    EXPECT_TRUE(showsTitle());
    unit.Stop();
    sim->Stop();
    ::close(slave);
}

TEST(UnitUi, RefusalIsShownThenTheEngineValueComesBack) {
    Rig rig;
    ASSERT_TRUE(rig.Start());
    ASSERT_TRUE(rig.Shows(1, "Level:3"));
    rig.unit->Post([&] { rig.unit->Client().SendData("level", "0", "99"); });
    ASSERT_TRUE(rig.Shows(0, "Not saved"));
    // Still there just before its time is up, gone right after.
    rig.offsetMs += 1400;
    ASSERT_TRUE(rig.unit->WaitIdle(20000));
    EXPECT_NE(std::string::npos, rig.Row(0).find("Not saved"));
    rig.offsetMs += 200;
    ASSERT_TRUE(rig.unit->WaitIdle(20000));
    ASSERT_TRUE(rig.unit->WaitIdle(20000));
    EXPECT_NE(std::string::npos, rig.Row(0).find("Screen A"));
    EXPECT_NE(std::string::npos, rig.Row(1).find("Level:3"));
}

TEST(UnitUi, SwitchingScreensLeavesNoEventRegistrationBehind) {
    Rig rig;
    rig.options.uiThread = false;
    ASSERT_TRUE(rig.Start());
    for (const char* name : {"b", "a", "nowhere", "b", "a", "b"}) {
        rig.unit->ShowScreen(name);
        rig.unit->RunPending();
    }
    EXPECT_EQ("b", rig.unit->CurrentScreen());
    rig.store.Write(FP::FPUSER, "level", TOV::COid("0"), "5");
    rig.unit->RunPending();
    EXPECT_EQ(0, rig.a->events);
    EXPECT_EQ(1, rig.b->events);  // one registration, not one per visit
}

TEST(UnitUi, IdleTimeoutGoesHomeDimsAndTheWakingKeyIsConsumed) {
    Rig rig;
    rig.options.uiThread = false;
    rig.options.idleTimeoutMs = 30000;
    rig.options.homeScreen = "a";
    rig.options.idleBrightness = 1;
    ASSERT_TRUE(rig.Start());
    rig.unit->SetBrightness(7);
    rig.unit->ShowScreen("b");
    ASSERT_TRUE(rig.Shows(0, "Screen B"));
    EXPECT_EQ(7, rig.sim->Snapshot().brightness);

    rig.offsetMs += 29000;
    rig.unit->RunPending();
    EXPECT_EQ("b", rig.unit->CurrentScreen());
    rig.offsetMs += 1000;
    ASSERT_TRUE(rig.Shows(0, "Screen A"));
    ASSERT_TRUE(WaitFor([&] { return rig.sim->Snapshot().brightness == 1; }));

    // ENTER on a dark panel only wakes it.
    rig.unit->PressKey(FP::KEY_ENTER);
    rig.unit->RunPending();
    ASSERT_TRUE(WaitFor([&] { return rig.sim->Snapshot().brightness == 7; }));
    EXPECT_EQ("a", rig.unit->CurrentScreen());
}

TEST(UnitLog, GuardSumsUpAStrayByteStorm) {
    std::atomic<long> offsetMs{0};
    FP::LogGuard::Options options;
    options.now = [&] { return Clock::now() + std::chrono::milliseconds(offsetMs.load()); };
    FP::Testing::LogCapture root("");
    {
        FP::LogGuard guard("fpcontrol", options);
        KT::CStreamSocket unitEnd;
        KT::CStreamSocket panelEnd;
        ASSERT_TRUE(KT::CStreamSocket::CreatePair(unitEnd, panelEnd));
        FP::FpAdapter adapter(unitEnd);
        const std::string storm(20000, 'x');
        ASSERT_TRUE(panelEnd.Write(storm.data(), storm.size()));
        // The storm is over once a round trip's worth of quiet passes with no new line.
        ASSERT_TRUE(WaitFor([&] {
            const unsigned long before = guard.Suppressed();
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            return before > 100 && guard.Suppressed() == before;
        }));
        offsetMs += 5000;
        guard.Flush();
    }
    size_t passed = 0;
    size_t summaries = 0;
    for (const std::string& line : root.Messages()) {
        passed += line.find("Expected Frame Start") == 0;
        summaries += line.find("similar lines suppressed") != std::string::npos;
    }
    EXPECT_EQ(5u, passed);
    EXPECT_EQ(1u, summaries);
}

}  // namespace
