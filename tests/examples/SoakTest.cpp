#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <thread>

#include "examples/demo/DemoUnit.h"
#include "examples/demo/DemoVars.h"
#include "kt/ListenSocket.h"
#include "sim/PanelSim.h"
#include "tests/support/TempDir.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"
#include "tov/Validator.h"
#include "tov/VarDecl.h"

namespace {

using Clock = std::chrono::steady_clock;

// The demo unit under load for FP_SOAK_SECONDS (a few seconds by default, so
// CI runs it on every change; set it to 120 or more for a real soak): a panel
// that hammers keys and hangs up every two seconds, and a thread writing a
// persistent variable as fast as the engine takes it. Nothing may crash or
// leak (the sanitizer presets run this too), and the unit must still answer at
// the end. That acknowledged writes reach the file is the data store's test.
TEST(Soak, KeyStormEngineWritesAndLinkDrops) {
    const char* env = std::getenv("FP_SOAK_SECONDS");
    const int seconds = env ? std::atoi(env) : 6;
    const fptest::TempDir dir("fp-soak");
    const std::string db = dir.At("settings.db");
    const std::string address = "unix:" + dir.At("panel.sock");

    long acknowledged = 0;
    TOV::CDataStore store;
    std::string error;
    ASSERT_TRUE(FPDEMO::DeclareVars(store, error)) << error;
    ASSERT_TRUE(store
                    .Declare(TOV::CVarDecl("soak.counter")
                                 .Default("0")
                                 .Check(TOV::CValidator::Integer())
                                 .Persistent())
                    .Success());
    ASSERT_TRUE(store.Open(db).Success());

    KT::CListenSocket listener;
    ASSERT_TRUE(listener.Listen(address));
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    std::atomic<bool> stop{false};
    std::atomic<unsigned> sessions{0};

    // The panel: accept, storm keys for two seconds, hang up, again.
    std::thread panel([&] {
        std::mt19937 rng(7);
        const uint8_t keys[] = {FP::KEY_UP,    FP::KEY_DOWN, FP::KEY_LEFT, FP::KEY_RIGHT,
                                FP::KEY_ENTER, FP::KEY_EXIT, FP::KEY_1,    FP::KEY_a};
        while (!stop) {
            KT::CStreamSocket link;
            if (!listener.Accept(link, 200))
                continue;
            FPSIM::PanelConfig_t config;
            config.clock = FPSIM::TIME_REAL;
            FPSIM::PanelSim sim(link, config);
            sim.Start();
            ++sessions;
            const auto hangUp = Clock::now() + std::chrono::seconds(2);
            while (!stop && Clock::now() < hangUp) {
                sim.Press(keys[rng() % sizeof keys]);
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
            sim.Stop();
            link.Shutdown();
        }
    });

    FP::Unit::Options options;
    options.address = address;
    FPDEMO::DemoUnit unit(store, options);
    unit.SetNotice([](const std::string&) {});
    ASSERT_TRUE(unit.Start());

    // A writer on a thread of its own, as another part of the unit would.
    std::thread writer([&] {
        TOV::CTovClient client(store);
        for (long i = 1; Clock::now() < end; ++i) {
            if (client.SendOp("soak", "soak.counter", TOV::COid("0"), std::to_string(i)).Success())
                acknowledged = i;
        }
    });
    writer.join();
    stop = true;
    panel.join();

    // Still answering: the UI thread drains its queue and keeps a screen.
    EXPECT_TRUE(unit.Sync(10000));
    unit.InjectKey(FP::KEY_EXIT);
    EXPECT_TRUE(unit.Sync(10000));
    EXPECT_FALSE(unit.CurrentScreen().empty());
    EXPECT_GE(sessions.load(), seconds >= 4 ? 2u : 1u);
    EXPECT_GT(unit.KeysReported(), 0u);
    EXPECT_GT(acknowledged, 0);
    unit.Stop();
}

}  // namespace
