#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <typeinfo>

#include "fp/panel/PanelStack.h"
#include "kt/StreamSocket.h"
#include "sim/PanelSim.h"
#include "sim/SerialPair.h"
#include "testing/LogCapture.h"
#include "tests/fp/input/KeyListener.h"

namespace {

struct Ends {
    Ends() { EXPECT_TRUE(KT::CStreamSocket::CreatePair(unit, panel)); }
    KT::CStreamSocket unit, panel;
};

TEST(PanelStack, ClearsThePanelOnceAndDeliversKeysWhenAskedToStartTheKeypad) {
    Ends ends;
    FPSIM::PanelSim sim(ends.panel);
    FP::Testing::LogCapture log("fp.keypad");
    FP::PanelStack::Options options;
    options.startKeypad = true;
    FP::PanelStack stack(ends.unit, 16, 2, options);
    EXPECT_EQ(log.Count(std::string(typeid(FP::Keypad*).name()) + "::StartThreads(", true), 1u);
    fptest::KeyListener listener;
    stack.Keypad().SetCallback(&listener);
    ASSERT_TRUE(sim.Start());

    ASSERT_TRUE(stack.RoundTrip(2000));
    const FPSIM::PanelState_t state = sim.Snapshot();
    EXPECT_EQ(state.counters.framesByOp[FP::FpControl::OP_CLEAR_DISPLAY], 1u);
    EXPECT_EQ(state.counters.badFrames, 0u);

    ASSERT_TRUE(sim.Press(FP::KEY_ENTER));
    EXPECT_EQ(listener.WaitFor(FP::KEY_ENTER), fptest::Keys{FP::KEY_ENTER});
    sim.Stop();
}

// Keys and start-up reports keep arriving while the stack is torn down: the
// teardown must finish, and nothing may reach the application afterwards.
TEST(PanelStack, TeardownUnderTrafficCallsNoListenerAfterwards) {
    for (int round = 0; round < 10; ++round) {
        Ends ends;
        FPSIM::PanelSim sim(ends.panel);
        ASSERT_TRUE(sim.Start());
        fptest::KeyListener listener;
        std::atomic<bool> stop{false};
        std::atomic<unsigned> sent{0};
        std::thread storm;
        {
            FP::PanelStack::Options options;
            options.startKeypad = true;
            FP::PanelStack stack(ends.unit, 20, 4, options);
            stack.Keypad().SetCallback(&listener);
            // A start-up report is recorded as "no key", so a late one counts too.
            stack.Control().SetInitHandler(
                FP::FpControl::InitDelegate([&listener] { listener.OnKeyPress(FP::KEY_NONE); }));
            storm = std::thread([&] {
                while (!stop.load()) {
                    sim.Press(static_cast<uint8_t>(FP::KEY_UP));
                    sim.SendFrame(FP::FpControl::OP_INIT, {});
                    sent.fetch_add(1);
                }
            });
            // Let some traffic through before tearing down mid-stream.
            const unsigned start = sent.load();
            while (sent.load() < start + 20)
                std::this_thread::yield();
        }
        listener.Close();
        // Nobody reads the unit's end any more: closing it fails the storm's
        // next write instead of leaving it blocked on a full socket.
        stop.store(true);
        ends.unit.Close();
        storm.join();
        sim.Stop();
        EXPECT_EQ(listener.lateCalls.load(), 0u) << "round " << round;
    }
}

}  // namespace

// Through a 115200-baud line: a restarted controller gets the whole panel at the
// next update, an unchanged one gets nothing.
TEST(PanelStack, SendingChangesOnlyResendsEverythingAfterTheControllerRestarts) {
    FPSIM::SerialPair line(115200);
    ASSERT_TRUE(line.IsOpen());
    FPSIM::PanelConfig_t config;
    config.width = 16;
    config.height = 2;
    FPSIM::PanelSim sim(line.PanelEnd(), config);
    FP::PanelStack::Options options;
    options.sendChangesOnly = true;
    FP::PanelStack stack(line.UnitEnd(), 16, 2, options);
    ASSERT_TRUE(sim.Start());
    ASSERT_TRUE(stack.RoundTrip(5000));  // past the emulator's start-up message
    FP::DisplayHw& display = stack.Display();
    display.WriteLine("Menu", 0, FP::LEFT_JUSTIFY, 0);
    display.WriteLine("Item", 1, FP::LEFT_JUSTIFY, 0);
    display.SendUpdate();
    auto texts = [&] {
        EXPECT_TRUE(stack.RoundTrip(5000));
        return sim.Snapshot().counters.framesByOp[FP::FpControl::OP_TEXT];
    };
    const uint64_t drawn = texts();
    EXPECT_EQ(drawn, 2u);
    display.SendUpdate();
    EXPECT_EQ(texts(), drawn);
    ASSERT_TRUE(sim.SendFrame(FP::FpControl::OP_INIT, {}));
    EXPECT_TRUE(stack.RoundTrip(5000));  // the restart has been handled
    display.SendUpdate();
    EXPECT_EQ(texts(), drawn + 2);
    EXPECT_EQ(sim.Snapshot().grid.RenderPlain(), "Menu            \nItem            ");
}
