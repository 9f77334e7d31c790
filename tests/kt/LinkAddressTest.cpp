#include <gtest/gtest.h>

#include <string>

#include "kt/LinkAddress.h"
#include "kt/ListenSocket.h"
#include "kt/StreamSocket.h"

namespace {

using Address = KT::CLinkAddress;

// Each good address, its parts as "scheme where port/baud", and how it prints back.
std::string Parts(const Address& a) {
    switch (a.GetScheme()) {
        case Address::SCHEME_TCP:
            return "tcp " + a.GetHost() + " " + std::to_string(a.GetPort());
        case Address::SCHEME_SERIAL:
            return "serial " + a.GetPath() + " " + std::to_string(a.GetBaud());
        case Address::SCHEME_UNIX:
            return "unix " + a.GetPath();
        default:
            return "none";
    }
}

TEST(LinkAddress, GoodAddressesParseAndPrintBack) {
    const char* const cases[][3] = {
        {"tcp:127.0.0.1:7070", "tcp 127.0.0.1 7070", "tcp:127.0.0.1:7070"},
        {"tcp:panel.local:1", "tcp panel.local 1", "tcp:panel.local:1"},
        {"tcp::0", "tcp  0", "tcp::0"},
        {"tcp:[::1]:65535", "tcp ::1 65535", "tcp:[::1]:65535"},
        {"tcp:::1:80", "tcp ::1 80", "tcp:[::1]:80"},
        {"unix:/run/fp.sock", "unix /run/fp.sock", "unix:/run/fp.sock"},
        {"unix:a:b", "unix a:b", "unix:a:b"},
        {"serial:/dev/ttyS0", "serial /dev/ttyS0 115200", "serial:/dev/ttyS0@115200"},
        {"serial:/dev/ttyUSB1@9600", "serial /dev/ttyUSB1 9600", "serial:/dev/ttyUSB1@9600"},
    };
    for (const auto& c : cases) {
        const Address a(c[0]);
        ASSERT_TRUE(a.IsValid()) << c[0] << ": " << a.GetError();
        EXPECT_EQ(Parts(a), c[1]);
        EXPECT_EQ(a.ToString(), c[2]);
    }
}

TEST(LinkAddress, MalformedAddressesSayWhy) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "empty address"},
        {"localhost", "missing scheme (tcp:, unix: or serial:)"},
        {"udp:h:1", "unknown scheme 'udp'"},
        {"tcp:host", "missing port"},
        {"tcp:[::1]7070", "missing port"},
        {"tcp:[::1:7070", "missing ']' after the IPv6 host"},
        {"tcp:[]:7070", "empty IPv6 host"},
        {"tcp:h:65536", "bad port '65536'"},
        {"tcp:h: 80", "bad port ' 80'"},
        {"tcp:h:99999999999999999999", "bad port '99999999999999999999'"},
        {"unix:", "missing path"},
        {"serial:@9600", "missing device"},
        {"serial:/dev/ttyS0@abc", "unsupported baud rate 'abc'"},
        {"serial:/dev/ttyS0@12345", "unsupported baud rate '12345'"},
    };
    for (const auto& c : cases) {
        Address a("tcp:h:1");
        EXPECT_FALSE(a.Parse(c.first)) << c.first;
        EXPECT_EQ(a.GetError(), c.second) << c.first;
        EXPECT_EQ(a.GetScheme(), Address::SCHEME_NONE) << c.first;
        EXPECT_EQ(a.ToString(), "") << c.first;
    }
}

// The sockets take the same addresses and say why they could not open one.
TEST(LinkAddress, SocketsAcceptBracketedV6AndReportFailures) {
    KT::CListenSocket v6;
    if (v6.Listen("tcp:[::1]:0")) {
        EXPECT_EQ(v6.GetAddress(), "tcp:[::1]:" + std::to_string(v6.GetPort()));
        KT::CStreamSocket client, server;
        ASSERT_TRUE(client.Open(v6.GetAddress())) << client.LastError();
        ASSERT_TRUE(v6.Accept(server, 5000));
        ASSERT_TRUE(client.Write("ok", 2));
        KT::CSlice<unsigned char> slice(2);
        EXPECT_EQ(server.Read(slice), 2);
    } else {
        EXPECT_NE(v6.LastError(), "");  // no IPv6 loopback here; at least say so
    }

    KT::CStreamSocket s;
    EXPECT_FALSE(s.Open("tcp:127.0.0.1"));
    EXPECT_EQ(s.LastError(), "bad address 'tcp:127.0.0.1': missing port");
    EXPECT_FALSE(s.Open("tcp:127.0.0.1:0"));
    EXPECT_NE(s.LastError().find("port 0"), std::string::npos) << s.LastError();

    // A port that was just free: nobody listens there any more.
    std::string closed;
    {
        KT::CListenSocket l;
        ASSERT_TRUE(l.Listen("tcp:127.0.0.1:0"));
        closed = l.GetAddress();
    }
    EXPECT_FALSE(s.Open(closed));
    EXPECT_EQ(s.LastError(), "cannot connect to " + closed + ": Connection refused");
    EXPECT_FALSE(s.Open("unix:/nonexistent/fp.sock"));
    EXPECT_EQ(s.LastError(),
              "cannot connect to unix:/nonexistent/fp.sock: No such file or directory");
    EXPECT_FALSE(s.Open("serial:/nonexistent/tty"));
    EXPECT_EQ(s.LastError(), "cannot open /nonexistent/tty: No such file or directory");

    KT::CListenSocket l;
    EXPECT_FALSE(l.Listen("serial:/dev/ttyS0"));
    EXPECT_EQ(l.LastError(), "bad address 'serial:/dev/ttyS0': only tcp: and unix: can listen");
}

}  // namespace
