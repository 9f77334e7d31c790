#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "sim/SerialPair.h"

namespace {

using Clock = std::chrono::steady_clock;

// Reads until count bytes arrived or the stream ended; returns what came.
std::string ReadAll(KT::CStreamSocket& socket, size_t count) {
    std::string got;
    KT::CSlice<unsigned char> buffer(256);
    while (got.size() < count) {
        const int n = socket.Read(buffer);
        if (n <= 0)
            break;
        got.append(reinterpret_cast<const char*>(buffer.Data()), size_t(n));
    }
    return got;
}

double MsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

TEST(BaudLinkTest, EachDirectionTakesTenBitTimesPerByteAndKeepsTheBytes) {
    FPSIM::SerialPair pair(19200);  // 0.52 ms a byte
    ASSERT_TRUE(pair.IsOpen());
    std::string down, up;
    for (int i = 0; i < 192; ++i)
        down += char(i);
    up = std::string(96, 'u');
    const Clock::time_point start = Clock::now();
    // Written in pieces: later pieces queue behind the first, as in a UART.
    for (size_t at = 0; at < down.size(); at += 64)
        ASSERT_TRUE(pair.UnitEnd().Write(down.data() + at, 64));
    ASSERT_TRUE(pair.PanelEnd().Write(up.data(), up.size()));
    std::string upGot;
    std::thread reader([&] { upGot = ReadAll(pair.UnitEnd(), up.size()); });
    EXPECT_EQ(down, ReadAll(pair.PanelEnd(), down.size()));
    const double downMs = MsSince(start);
    reader.join();
    EXPECT_EQ(up, upGot);
    EXPECT_GE(downMs, 99.0);    // 192 bytes at 19200 baud
    EXPECT_LT(downMs, 3000.0);  // wide: the machine is shared

    FPSIM::BaudLink::Delivered_t toPanel;
    ASSERT_TRUE(pair.Line()->WaitDelivered(FPSIM::BaudLink::FORWARD, 192, 1000, &toPanel));
    EXPECT_EQ(192u, toPanel.bytes);
    const double lastMs = std::chrono::duration<double, std::milli>(toPanel.last - start).count();
    EXPECT_GE(lastMs, 99.0);
    EXPECT_EQ(96u, pair.Line()->Delivered(FPSIM::BaudLink::BACKWARD).bytes);
    EXPECT_FALSE(pair.Line()->WaitDelivered(FPSIM::BaudLink::BACKWARD, 97, 10));
}

TEST(BaudLinkTest, ClosingOneEndEndsTheOtherAfterWhatWasInFlight) {
    FPSIM::SerialPair pair(9600);
    ASSERT_TRUE(pair.IsOpen());
    ASSERT_TRUE(pair.UnitEnd().Write("bye", 3));
    pair.UnitEnd().Shutdown();
    EXPECT_EQ("bye", ReadAll(pair.PanelEnd(), 100));  // then end of stream
}

TEST(BaudLinkTest, ZeroBaudIsADirectPair) {
    FPSIM::SerialPair direct;
    ASSERT_TRUE(direct.IsOpen());
    EXPECT_EQ(nullptr, direct.Line());
    ASSERT_TRUE(direct.UnitEnd().Write("x", 1));
    EXPECT_EQ("x", ReadAll(direct.PanelEnd(), 1));
}

}  // namespace
