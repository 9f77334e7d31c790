#include "fp/link/FpControl.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <utility>

#include "fp/link/FpAdapter.h"
#include "sim/FrameEncoder.h"
#include "testing/LogCapture.h"
#include "tests/fp/link/LinkPeer.h"

using FP::FpControl;
using fptest::Bytes;

namespace {

// The real adapter on a socket pair; the test plays the controller.
struct ControlTest : ::testing::Test {
    fptest::LinkPeer link;
    FP::Testing::LogCapture log{"fpcontrol"};
    FP::FpAdapter adapter{link.ours};
    FpControl control{adapter};

    // Runs a request on another thread, checks its frame and answers it.
    template <class F>
    auto Ask(F request, unsigned char op, Bytes const& answer) {
        auto result = std::async(std::launch::async, request);
        EXPECT_EQ(link.Take(3), (Bytes{0x09, op, 0x7E}));
        link.Send(FPSIM::FrameEncoder::Encode(op, answer));
        return result.get();
    }
};

// Each command's bytes, the plain answers and an empty slot id are replayed
// from the protocol document; these are the other answers at the edges.
TEST_F(ControlTest, EdgeAnswersAreDecodedAndEmptyOnesLogged) {
    EXPECT_EQ(Ask([&] { return control.GetVersion(); }, 'V', {'3', '4'}), "34");  // no 00
    EXPECT_TRUE(log.Entries().empty());

    // An answer without payload counts as no answer.
    EXPECT_EQ(Ask([&] { return control.GetTesselSlotVoltage(); }, 'D', {}), 0.0f);
    EXPECT_EQ(Ask([&] { return control.GetDisplayType(); }, 'I', {}), 0);
    EXPECT_EQ(Ask([&] { return control.GetVersion(); }, 'V', {}), "");
    EXPECT_EQ(log.Messages(),
              (std::vector<std::string>{"Failed to read Tessel Slot Voltage.",
                                        "GetDisplayType() Failed to receive a response.",
                                        "GetVersion() Failed to receive a response."}));
}

TEST_F(ControlTest, StatusSubscriptionAndReports) {
    fptest::Collected<int> temps;
    fptest::Collected<std::pair<int, int>> fans;
    FpControl::TemperatureDelegate onTemp([&](short t) { temps.Add(t); });
    FpControl::FanSpeedDelegate onFan([&](FpControl::Fan_e f, unsigned short s) {
        fans.Add({f, s});
    });

    control.SubscribeToStatusUpdates(0, true, {FpControl::FAN_1}, onTemp, onFan);
    control.SubscribeToStatusUpdates(5, false, {}, onTemp, onFan);
    EXPECT_TRUE(link.Drain().empty());

    control.SubscribeToStatusUpdates(5, true, {FpControl::FAN_3, FpControl::FAN_1}, onTemp, onFan);
    EXPECT_EQ(link.Drain(), (Bytes{0x09, 'P', 0, 0x7E, 0x09, 'P', 5, 0x0B, 0x7E}));
    EXPECT_TRUE(log.Contains("SubscribeToStatusUpdates() done"));

    // Whole reports are decoded in the protocol document's replay. Short ones
    // read their missing bytes as zero; 'G' was not subscribed.
    link.Send(
        {0x09, 'G', 1, 1, 0x7E, 0x09, 'H', 0x07, 0x7E, 0x09, 'C', 0xFF, 0x7E, 0x09, 'F', 0x7E});
    EXPECT_EQ(temps.WaitFor(1), (std::vector<int>{-256}));
    EXPECT_EQ(fans.WaitFor(2), (std::vector<std::pair<int, int>>{{2, 0x0700}, {0, 0}}));

    // Unsubscribed: reports are ignored. A key frame marks when they were seen.
    control.UnsubscribeFromStatusUpdates();
    EXPECT_EQ(link.Drain(), (Bytes{0x09, 'P', 0, 0x7E}));
    fptest::Collected<int> marker;
    control.SetKeyPressHandler(
        FpControl::KeyDelegate([&](FP::Key_e k, FP::KeyState_e) { marker.Add(k); }));
    link.Send({0x09, 'C', 0, 1, 0x7E, 0x09, 'F', 0, 1, 0x7E, 0x09, 'K', 1, 1, 0x7E});
    EXPECT_EQ(marker.WaitFor(1).size(), 1u);
    EXPECT_EQ(temps.WaitFor(1, 0).size(), 1u);
    EXPECT_EQ(fans.WaitFor(2, 0).size(), 2u);
}

// Key and start-up frames are decoded in the protocol document's replay, a
// cut-short key frame included; what it does not show is the listeners' order.
TEST_F(ControlTest, KeyListenersRunInTheOrderTheyWereAdded) {
    fptest::Collected<std::string> calls;
    auto listener = [&](std::string name) {
        return FpControl::KeyDelegate([&calls, name](FP::Key_e k, FP::KeyState_e s) {
            calls.Add(name + ":" + std::to_string(k) + "/" + std::to_string(s));
        });
    };
    control.SetKeyPressHandler(listener("first"));
    control.SetKeyPressHandler(listener("second"));  // goes in front, so runs last
    link.Send({0x09, 'K', FP::KEY_ENTER, FP::KEY_STATE_DOWN, 0x7E});
    EXPECT_EQ(calls.WaitFor(2), (std::vector<std::string>{"first:6/1", "second:6/1"}));
}

}  // namespace
