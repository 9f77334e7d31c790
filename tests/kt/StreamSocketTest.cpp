#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <future>
#include <string>

#include "kt/ListenSocket.h"
#include "kt/StreamSocket.h"

namespace {

using Bytes = std::string;

Bytes ReadSome(KT::CStreamSocket& s, size_t n) {
    Bytes out;
    KT::CSlice<unsigned char> buf(64);
    while (out.size() < n) {
        int got = s.Read(buf);
        if (got <= 0)
            break;
        out.append(reinterpret_cast<const char*>(buf.Data()), static_cast<size_t>(got));
    }
    return out;
}

class Connected : public ::testing::TestWithParam<std::string> {};

TEST_P(Connected, BothWaysThenPeerCloseAndShutdown) {
    std::string address = GetParam();
    if (address == "unix")
        address = "unix:/tmp/kt-sock-" + std::to_string(::getpid());
    KT::CListenSocket listener;
    ASSERT_TRUE(listener.Listen(address));
    KT::CStreamSocket client, server;
    ASSERT_TRUE(client.Open(listener.GetAddress()));
    ASSERT_TRUE(listener.Accept(server, 2000));

    EXPECT_TRUE(client.Write("ping\x00\x7e", 6));
    EXPECT_EQ(ReadSome(server, 6), Bytes("ping\x00\x7e", 6));
    EXPECT_TRUE(server.Write("pong", 4));
    EXPECT_EQ(ReadSome(client, 4), "pong");

    // The peer goes away: reads end, writes fail, and the process survives
    // even with the default SIGPIPE action.
    client.Close();
    KT::CSlice<unsigned char> buf(8);
    EXPECT_EQ(server.Read(buf), 0);
    auto old = std::signal(SIGPIPE, SIG_DFL);
    bool failed = false;
    for (int i = 0; i < 100 && !failed; ++i)
        failed = !server.Write("x", 1);
    std::signal(SIGPIPE, old);
    EXPECT_TRUE(failed);

    // Shutdown wakes a reader blocked on a live connection.
    KT::CStreamSocket other;
    ASSERT_TRUE(other.Open(listener.GetAddress()));
    ASSERT_TRUE(listener.Accept(server, 2000));
    auto reader = std::async(std::launch::async, [&] {
        KT::CSlice<unsigned char> b(8);
        return server.Read(b);
    });
    EXPECT_EQ(reader.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    server.Shutdown();
    ASSERT_EQ(reader.wait_for(std::chrono::seconds(2)), std::future_status::ready);
    EXPECT_EQ(reader.get(), 0);
    EXPECT_FALSE(server.Write("x", 1));
}

INSTANTIATE_TEST_SUITE_P(Kinds, Connected, ::testing::Values("tcp:127.0.0.1:0", "unix"));

TEST(StreamSocket, SerialTtyIsRawBothWays) {
    int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master, 0);
    ASSERT_EQ(::grantpt(master), 0);
    ASSERT_EQ(::unlockpt(master), 0);
    KT::CStreamSocket tty;
    ASSERT_TRUE(tty.Open(std::string("serial:") + ::ptsname(master) + "@115200"));
    EXPECT_FALSE(KT::CStreamSocket().OpenSerial(::ptsname(master), 12345));

    // Control characters pass untouched: no line editing, signals or CR/LF mapping.
    const Bytes raw("\x09\x7d\x7e\n\r\x03\x7f\x00", 8);
    KT::CStreamSocket masterEnd(master);  // closes the master when done
    ASSERT_TRUE(masterEnd.Write(raw.data(), raw.size()));
    EXPECT_EQ(ReadSome(tty, 8), raw);
    EXPECT_TRUE(tty.Write(raw.data(), raw.size()));
    EXPECT_EQ(ReadSome(masterEnd, 8), raw);
}

}  // namespace
