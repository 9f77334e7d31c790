#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kt/Delegate.h"
#include "kt/IpAddress.h"
#include "kt/MacAddress.h"
#include "kt/Slice.h"
#include "kt/Str.h"

namespace {

TEST(Slice, SubSlicesShareStorageAndStayInsideTheirView) {
    const unsigned char bytes[] = {1, 2, 3, 4, 5};
    KT::CSlice<unsigned char> whole(bytes, 5);
    KT::CSlice<unsigned char> mid = whole.SubSlice(1, 3);   // 2 3 4
    KT::CSlice<unsigned char> inner = mid.SubSlice(1, 99);  // clipped: 3 4
    EXPECT_TRUE(inner.SharesStorageWith(whole));
    EXPECT_EQ(inner.Length(), 2u);
    EXPECT_EQ(inner[0], 3);

    EXPECT_TRUE(inner.Set(1, 40));
    EXPECT_EQ(whole[3], 40);
    EXPECT_FALSE(inner.Set(2, 50));  // would be whole[4]
    EXPECT_EQ(whole[4], 5);
    EXPECT_EQ(mid[3], 0);
    EXPECT_EQ(whole[1000], 0);

    EXPECT_TRUE(whole.SubSlice(5, 1).Empty());
    EXPECT_EQ(whole.SubSlice(5, 1).Data(), nullptr);
    mid.Truncate(10);
    EXPECT_EQ(mid.Length(), 3u);
    mid.Truncate(1);
    EXPECT_EQ(mid[1], 0);
}

TEST(Delegate, CallsLastToFirstAndInsertFrontPrepends) {
    std::string calls;
    auto f = [&](char c) { return KT::CFunctor<void(int)>([&calls, c](int) { calls += c; }); };
    KT::CDelegate<void(int)> d;
    d.Add(f('a'));
    d.Add(f('b'));
    d.InsertFront(f('c'));
    KT::CDelegate<void(int)> front(f('x'));
    front.Add(f('y'));
    d.InsertFront(front);  // x y c a b
    d(0);
    EXPECT_EQ(calls, "bacyx");
    KT::CDelegate<void(int)>()(0);  // an empty delegate does nothing
}

TEST(Address, IpParsingTable) {
    for (const char* bad :
         {"256.1.1.1", "1.2.3", "1.2.3.4.5", "1..2.3", " 1.2.3.4", "1.2.3.0004", "a.b.c.d", ""}) {
        EXPECT_FALSE(KT::CIpAddress(bad).IsValid()) << bad;
        EXPECT_EQ(KT::CIpAddress(bad).GetIp(), "0.0.0.0") << bad;
    }
    // Leading zeros are read as decimal, and dropped when printed plain.
    EXPECT_EQ(KT::CIpAddress("255.255.255.255").GetIp(), "255.255.255.255");
    KT::CIpAddress ip("192.168.001.010");
    EXPECT_EQ(ip.GetIp(), "192.168.1.10");
    EXPECT_EQ(ip.GetIp(true), "192.168.001.010");
    EXPECT_EQ(ip[0], 192);
    EXPECT_EQ(ip[4], 0);
    ip[-1] = 7;
    ip[3] = 99;
    EXPECT_EQ(ip.GetIp(), "192.168.1.99");
    ip = "1.2.3";  // a bad reassignment leaves nothing of the old address
    EXPECT_FALSE(ip.IsValid());
    EXPECT_EQ((ip = std::string("10.0.0.1")).GetIp(), "10.0.0.1");
    EXPECT_LT(KT::CIpAddress("9.255.255.255"), KT::CIpAddress("10.0.0.0"));  // numeric order
    EXPECT_EQ(KT::CIpAddress("010.0.0.1"), KT::CIpAddress("10.0.0.1"));
}

TEST(Address, MacParsingTable) {
    struct Case {
        const char* text;
        bool valid;
    } cases[] = {{"00:1a:2B:3c:4D:5e", true},  {"00-1A-2B-3C-4D-5E", true},
                 {"00:1A:2B:3C:4D", false},    {"00:1A:2B:3C:4D:5G", false},
                 {"001A:2B:3C:4D:5E:", false}, {"00:1A:2B:3C:4D:5E:", false}};
    for (auto& c : cases) {
        KT::CMacAddress mac(c.text);
        EXPECT_EQ(mac.IsValid(), c.valid) << c.text;
        EXPECT_EQ(mac.ToString(), c.valid ? "00:1A:2B:3C:4D:5E" : "00:00:00:00:00:00") << c.text;
    }
    KT::CMacAddress mac("00:1A:2B:3C:4D:5E");
    EXPECT_EQ(mac.ToString(false), "00:1a:2b:3c:4d:5e");
    EXPECT_EQ(mac[5], 0x5E);
    EXPECT_EQ(mac[6], 0);
    EXPECT_LT(mac, KT::CMacAddress("00:1A:2B:3C:4D:5F"));
    EXPECT_NE(mac, KT::CMacAddress());
}

TEST(Str, FormatAndToNum) {
    EXPECT_EQ(KT::Str::Format("%s=%05.2f|%3d", "x", 3.14159, 7), "x=03.14|  7");
    EXPECT_EQ(KT::Str::Format("%s", std::string(1000, 'z').c_str()).size(), 1000u);
    EXPECT_EQ(KT::Str::Format(std::string("%d.%02d"), 1, 5), "1.05");

    struct Case {
        const char* text;
        bool ok;
        double d;
        bool intOk;
        int i;
    } cases[] = {
        {"3.140000", true, 3.14, false, 3},  {"3.14", false, 3.14, false, 3},
        {"-0.500000", true, -0.5, false, 0}, {"42", false, 42, true, 42},
        {"042", false, 42, false, 42},       {"-7", false, -7, true, -7},
        {"TRUE", true, 1, true, 1},          {"4x", false, 4, false, 4},
        {"abc", false, 0, false, 0},         {"", false, 0, false, 0},
    };
    for (auto& c : cases) {
        double d = -1;
        int i = -1;
        EXPECT_EQ(KT::Str::ToNum(d, c.text), c.ok) << c.text;
        EXPECT_DOUBLE_EQ(d, c.d) << c.text;
        EXPECT_EQ(KT::Str::ToNum(i, c.text), c.intOk) << c.text;
        EXPECT_EQ(i, c.i) << c.text;
    }
}

}  // namespace
