#include <gtest/gtest.h>

#include <memory>

#include "fp/lines/IpLine.h"
#include "fp/lines/MacLine.h"
#include "tests/fp/lines/LineFixture.h"

using linetest::Press;

TEST(IpLineTest, DigitStepsTypingAndClampingInEditMode) {
    struct Case {
        const char* start;
        const char* min;
        const char* max;
        const char* keys;  // after entering edit mode
        const char* shown;
        int cursor;
    } cases[] = {
        // Stepping holds each octet to 255.
        {"192.168.1.10", "0.0.0.0", "255.255.255.255", "+", "252.168.001.010", 0},
        {"192.168.1.10", "0.0.0.0", "255.255.255.255", "++", "052.168.001.010", 0},
        {"255.0.0.0", "0.0.0.0", "255.255.255.255", ">>+", "250.000.000.000", 2},
        {"250.0.0.0", "0.0.0.0", "255.255.255.255", ">>-", "255.000.000.000", 2},
        {"99.0.0.0", "0.0.0.0", "255.255.255.255", "-", "255.000.000.000", 0},
        {"200.0.0.0", "0.0.0.0", "255.255.255.255", ">-", "250.000.000.000", 1},
        {"0.0.0.0", "0.0.0.0", "255.255.255.255", ">>-", "009.000.000.000", 2},
        // Typing: digits that would pass 255 are ignored, others advance.
        {"1.2.3.4", "0.0.0.0", "255.255.255.255", "192", "192.002.003.004", 4},
        {"200.0.0.0", "0.0.0.0", "255.255.255.255", ">7", "200.000.000.000", 1},
        {"200.0.0.0", "0.0.0.0", "255.255.255.255", "3", "200.000.000.000", 0},
        {"250.0.0.0", "0.0.0.0", "255.255.255.255", ">>6", "250.000.000.000", 2},
        {"250.0.0.0", "0.0.0.0", "255.255.255.255", ">>5", "255.000.000.000", 4},
        {"99.0.0.0", "0.0.0.0", "255.255.255.255", "2", "255.000.000.000", 1},
        {"1.2.3.4", "0.0.0.0", "255.255.255.255", "<9", "001.002.003.009", 0},
        // Moving applies the limits octet by octet from the first.
        {"192.168.1.1", "0.0.0.0", "10.0.0.255", ">", "010.000.000.001", 1},
        {"1.2.3.4", "10.0.0.0", "255.255.255.255", "<", "010.002.003.004", 14},
        // A typed digit is checked against the limits only at the next move.
        {"100.0.0.0", "0.0.0.0", "100.0.0.0", "2", "200.000.000.000", 1},
        {"100.0.0.0", "0.0.0.0", "100.0.0.0", "2>", "100.000.000.000", 2},
        // The cursor skips the dots and wraps at both ends.
        {"1.2.3.4", "0.0.0.0", "255.255.255.255", ">>>", "001.002.003.004", 4},
        {"1.2.3.4", "0.0.0.0", "255.255.255.255", ">>><", "001.002.003.004", 2},
        {"1.2.3.4", "0.0.0.0", "255.255.255.255", ">>>>>>>>>>>>", "001.002.003.004", 0},
    };
    for (const auto& c : cases) {
        FP::IpLine line;
        line.SetMinMax(c.min, c.max);
        line.SetCurrentValue(c.start);
        SCOPED_TRACE(c.start);
        linetest::ExpectEdit(line, c.keys, &FP::BaseLine::GetCurrentString, c.shown, c.cursor);
    }
}

TEST(MacLineTest, HexStepsAndCursorSkipsColons) {
    struct Case {
        const char* start;
        const char* keys;
        const char* shown;
        int cursor;
    } cases[] = {
        {"00:00:00:00:00:0F", "<+", "00:00:00:00:00:00", 16},  // left wraps to the end
        {"09:00:00:00:00:00", ">+", "0A:00:00:00:00:00", 1},
        {"0A:00:00:00:00:00", ">-", "09:00:00:00:00:00", 1},
        {"00:00:00:00:00:00", "-", "F0:00:00:00:00:00", 0},
        {"ab:cd:ef:01:23:45", ">>", "AB:CD:EF:01:23:45", 3},
        {"ab:cd:ef:01:23:45", ">><", "AB:CD:EF:01:23:45", 1},
        {"00:00:00:00:00:00", "123", "00:00:00:00:00:00", 0},  // no digit entry
    };
    for (const auto& c : cases) {
        FP::MacLine line(c.start);
        line.SetRange("00:00:00:00:00:10", "00:00:00:00:00:20");  // never applied
        linetest::ExpectEdit(line, c.keys, &FP::BaseLine::GetCurrentString, c.shown, c.cursor);
    }
}

// Each address kind loads what the engine holds (zeros when it is malformed),
// writes only on a committing Enter, and keys outside edit mode write nothing.
TEST(AddressLinesTest, EngineRoundTrips) {
    struct Case {
        bool mac;
        const char *stored, *loaded, *keys, *written;
    } cases[] = {
        {false, "10.0.0.2", "10.0.0.2", "=+~", "10.0.0.2"},
        {false, "10.0.0.2", "10.0.0.2", "=+=-", "110.0.0.2"},  // '-' only changes the view
        {false, "10.0.0.999", "0.0.0.0", "=+>9=", "190.0.0.0"},
        {true, "not-a-mac", "00:00:00:00:00:00", "=-~", "not-a-mac"},
        {true, "not-a-mac", "00:00:00:00:00:00", "=->+=", "F1:00:00:00:00:00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.stored) + " " + c.keys);
        linetest::Engine engine(c.stored);
        std::unique_ptr<FP::BaseLine> line(c.mac ? static_cast<FP::BaseLine*>(new FP::MacLine)
                                                 : new FP::IpLine);
        engine.Bind(*line);
        EXPECT_EQ(line->GetCurrentString(), c.loaded);
        EXPECT_FALSE(Press(*line, c.keys));
        EXPECT_EQ(engine.Value(), c.written);
        line->SetReadOnly(true);
        Press(*line, "=+=");
        EXPECT_EQ(engine.Value(), c.written);
    }
    FP::IpLine ip;
    EXPECT_FALSE(ip.SetCurrentValue(42));
}

TEST(AddressLinesTest, DrawnWithTheEditedDigitReversed) {
    FP::Testing::RecordingDisplay display;
    FP::IpLine ip;
    linetest::Place(ip, display, "IP:");
    ip.SetCurrentValue("192.168.1.10");
    EXPECT_EQ(display.Draw(ip), " IP:192.168.1.10");
    Press(ip, "=>>>");
    EXPECT_EQ(display.Draw(ip), " IP:192.[1]68.001.010");
    EXPECT_EQ(display.GetReverseWords().size(), 1u);  // the edited cell goes out once

    FP::MacLine mac("00:1a:2b:3c:4d:5e");
    linetest::Place(mac, display, "MAC:");
    EXPECT_EQ(display.Draw(mac), " MAC:00:1A:2B:3C:4D:");
    Press(mac, "=<");
    EXPECT_EQ(display.Draw(mac), " MAC:00:1A:2B:3C:4D:");  // the cell lies past the row
    Press(mac, ">");
    EXPECT_EQ(display.Draw(mac), " MAC:[0]0:1A:2B:3C:4D:");
    EXPECT_EQ(display.GetReverseWords().size(), 1u);
    Press(mac, "<");
    mac.SetDisplayInEditMode(true);  // the caption makes way for the address
    EXPECT_EQ(display.Draw(mac), " 00:1A:2B:3C:4D:5[E]");
    EXPECT_EQ(display.Row(0), "");
}
