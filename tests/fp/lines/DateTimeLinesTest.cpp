#include <gtest/gtest.h>

#include "fp/lines/DateLine.h"
#include "fp/lines/TimeLine.h"
#include "tests/fp/lines/LineFixture.h"

using linetest::Press;

namespace {

// The date line leaves text input to its subclasses.
struct Date : FP::DateLine {
    using FP::DateLine::DateLine;
    bool SetCurrentValue(const std::string&) override { return false; }
};

struct Case {
    int a, b, c;
    const char* keys;  // after entering edit mode
    const char* edit;
    int cursor;
};

}  // namespace

TEST(DateTimeLinesTest, StepsWrapAndFieldJumps) {
    const Case dates[] = {
        {0, 0, 0, "+", "0001/00/00", 0},  // out of range: steps from where it is
        {0, 0, 0, "-", "2035/00/00", 0},
        {2010, 1, 1, "-", "2035/01/01", 0},
        {2035, 12, 31, "+", "2010/12/31", 0},
        {2035, 12, 31, ">+", "2035/01/31", 5},
        {2035, 12, 31, ">>+", "2035/12/01", 8},
        {2024, 2, 1, ">>-", "2024/02/31", 8},  // no month lengths
        {2024, 1, 1, ">>>", "2024/01/01", 0},
        {2024, 1, 1, "<", "2024/01/01", 8},
        {2024, 1, 1, "><+", "2025/01/01", 2},  // left from the month lands in the year
        {2024, 1, 1, "<<", "2024/01/01", 5},
    };
    for (const auto& c : dates) {
        Date line(c.a, c.b, c.c);
        linetest::ExpectEdit(line, c.keys, &FP::DateLine::GetEditString, c.edit, c.cursor);
    }
    const Case times[] = {
        {0, 0, 0, "-", "23:00:00", 0},   {23, 59, 59, "+", "00:59:59", 0},
        {0, 0, 0, ">-", "00:59:00", 3},  {0, 0, 0, ">>-", "00:00:59", 6},
        {0, 59, 0, ">+", "00:00:00", 3}, {0, 0, 0, ">>>", "00:00:00", 0},
        {0, 0, 0, "<", "00:00:00", 6},   {0, 0, 0, "<<", "00:00:00", 3},
        {12, 0, 0, "1a", "12:00:00", 0},  // other keys do nothing
    };
    for (const auto& c : times) {
        FP::TimeLine line(c.a, c.b, c.c);
        linetest::ExpectEdit(line, c.keys, &FP::TimeLine::GetEditString, c.edit, c.cursor);
    }
}

TEST(DateTimeLinesTest, CommitExitSettersAndReadOnly) {
    Date date(2024, 6, 30);
    EXPECT_TRUE(Press(date, "=+"));
    EXPECT_EQ(date.GetCurrentString(), "2024/06/30");  // committed text while editing
    EXPECT_FALSE(Press(date, "~"));
    EXPECT_EQ(date.GetYear(), 2024);
    EXPECT_FALSE(Press(date, "=+="));
    EXPECT_EQ(date.GetCurrentString(), "2025/06/30");
    EXPECT_EQ(date.GetYear(), 2025);

    // Setters check ranges, change the field only, and leave the texts to
    // the next step.
    date.SetYear(2036);
    date.SetYear(2009);
    date.SetMonth(2);
    date.SetDay(31);
    date.SetDay(32);
    EXPECT_EQ(date.GetYear(), 2025);
    EXPECT_EQ(date.GetMonth(), 2);
    EXPECT_EQ(date.GetDay(), 31);
    EXPECT_EQ(date.GetCurrentString(), "2025/06/30");
    Press(date, "=");
    EXPECT_EQ(date.GetEditString(), "2025/06/30");
    Press(date, ">>+<<+");  // day wraps to 1, the year field then steps
    EXPECT_EQ(date.GetEditString(), "2026/02/01");

    FP::TimeLine time(7, 8, 9);
    time.SetHour(24);
    time.SetMinute(60);
    time.SetSecond(-1);
    EXPECT_FALSE(time.SetCurrentValue("12:00:00"));
    time.RefreshData();
    EXPECT_EQ(time.GetCurrentString(), "07:08:09");
    time.SetReadOnly(true);
    EXPECT_FALSE(Press(time, "="));
}

TEST(DateTimeLinesTest, DrawnWithTheSelectedFieldReversed) {
    FP::Testing::RecordingDisplay display;
    Date date(2024, 6, 30);
    linetest::Place(date, display, "Date:");
    date.SetSuffix("x");  // never drawn
    EXPECT_EQ(display.Draw(date), " Date:2024/06/30");
    Press(date, "=>");
    EXPECT_EQ(display.Draw(date), " Date:2024/[06]/30");

    FP::TimeLine time(23, 5, 0);
    time.SetDisplay(&display);
    Press(time, "=<");
    EXPECT_EQ(display.Draw(time), " 23:05:[00]");

    // Values given without checks may print wider than the fields; the
    // drawing still stays on its row.
    Date odd(123456, -5, 7);
    linetest::Place(odd, display, "Date:");
    Press(odd, "=<");
    EXPECT_EQ(display.Draw(odd), " Date:123456/-[5/]07");
    EXPECT_EQ(display.Row(0), "");
}
