#include <gtest/gtest.h>

#include "fp/lines/StringLine.h"
#include "tests/fp/lines/LineFixture.h"

using FP::StringLine;
using linetest::Press;

namespace {

std::string Cycle(StringLine::CharacterSet_e set, char start, const std::string& key, int n) {
    StringLine line;
    line.SetNumItems(1);
    line.SetCharacterSet(set);
    line.SetCurrentValue(std::string(1, start));
    Press(line, "=");
    std::string seen;
    for (int i = 0; i < n; ++i) {
        Press(line, key);
        seen += line.GetEditText()[0];
    }
    return seen;
}

}  // namespace

TEST(StringLineTest, EveryCharacterSetCyclesBothWays) {
    const std::string digits = "0123456789", upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                      lower = "abcdefghijklmnopqrstuvwxyz",
                      punct = " !\"#$%&'()*+,-./:;<=>?@[\\]^`{|}~";
    struct Case {
        StringLine::CharacterSet_e set;
        std::string cycle;  // the Up order
    } cases[] = {
        {StringLine::AlphaNumeric, digits + upper + lower},
        {StringLine::Hostname, "-" + digits + upper + "_" + lower},
        {StringLine::AllChar, punct + "_" + lower + upper + digits},
        {static_cast<StringLine::CharacterSet_e>(9), digits + upper + lower},
    };
    for (const auto& c : cases) {
        const int n = static_cast<int>(c.cycle.size());
        std::string up = c.cycle.substr(1) + c.cycle[0];
        EXPECT_EQ(Cycle(c.set, c.cycle[0], "+", n), up) << c.set;
        EXPECT_EQ(Cycle(c.set, c.cycle[0], "-", n), std::string(c.cycle.rbegin(), c.cycle.rend()))
            << c.set;
    }
    // The placeholder and characters outside a set step into it.
    EXPECT_EQ(Cycle(StringLine::AlphaNumeric, '_', "+", 1), "a");
    EXPECT_EQ(Cycle(StringLine::AlphaNumeric, '_', "-", 1), "Z");
    EXPECT_EQ(Cycle(StringLine::AllChar, '\x01', "+", 1), "\x02");
    EXPECT_EQ(Cycle(StringLine::AllChar, '\xff', "-", 1), "\xfe");
}

TEST(StringLineTest, EditingKeysAtTheEdges) {
    struct Case {
        const char* start;
        const char* keys;  // after entering edit mode
        const char* edit;
        int cursor;
        const char* value;
    } cases[] = {
        {"abc", "", "abc_____", 0, "abc"},
        {"ab", ">x", "axb______", 2, "axb"},           // typing inserts, padding moves right
        {"ab", "#", "ab______", 0, "ab"},              // backspace at 0 does nothing
        {"abc", ">>#", "ac______", 1, "ac"},           // backspace keeps the length
        {"abcdefgh", "<*", "abcdefg_", 7, "abcdefg"},  // delete at the last position
        {"abc", "*", "bc______", 0, "bc"},
        {"", "a b", "a_b________", 3, "a_b"},  // the space key types '_'
        {"", "Zz9", "Zz9________", 3, "Zz9"},
        {"abc", "<<<<<<<<", "abc_____", 0, "abc"},  // left wraps round the positions
        {"", "x_", "x________", 1, "x"},            // a typed '_' at the end is dropped
        {"abc", "\x12", "abc_____", 0, "abc"},      // refresh and unknown keys do nothing
    };
    for (const auto& c : cases) {
        StringLine line;
        line.SetNumItems(8);
        line.SetCurrentValue(c.start);
        SCOPED_TRACE(c.start);
        linetest::ExpectEdit(line, c.keys, &StringLine::GetEditText, c.edit, c.cursor);
        EXPECT_EQ(line.GetCurrentString(), c.value);
    }
}

TEST(StringLineTest, CommitWritesTheEngineAndExitDoesNot) {
    linetest::Engine engine("web01");
    StringLine line;
    line.SetNumItems(8);
    line.SetCharacterSet(StringLine::Hostname);
    engine.Bind(line);
    EXPECT_EQ(line.GetCommittedText(), "web01___");

    EXPECT_FALSE(Press(line, "=>>>>>x~"));
    EXPECT_EQ(line.GetCurrentString(), "web01");
    EXPECT_EQ(engine.Value(), "web01");

    line.RefreshData();  // as a menu redraw does; it also puts the cursor home
    EXPECT_FALSE(Press(line, "=>>>>>2="));
    EXPECT_EQ(line.GetCurrentString(), "web012");
    EXPECT_EQ(engine.Value(), "web012");

    line.SetReadOnly(true);
    EXPECT_FALSE(Press(line, "=x="));
    EXPECT_EQ(engine.Value(), "web012");
}

TEST(StringLineTest, RefusedWriteAndOverlongValueLeaveTheLineUsable) {
    linetest::Engine engine("abcdefghijklmnopqrstuvwxyz", TOV::CValidator::Pattern("[a-z]*"));
    FP::Testing::RecordingDisplay display;
    StringLine line;
    line.SetDisplay(&display);
    line.SetNumItems(8);
    line.SetSuffix("!");
    engine.Bind(line);
    // The value is kept whole but drawn no wider than its field.
    EXPECT_EQ(line.GetCurrentString(), "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(display.Draw(line), " abcdefgh!");
    Press(line, "=9=");  // the engine refuses the digit
    EXPECT_EQ(engine.Value(), "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(line.GetCurrentString().substr(0, 3), "9ab");
    // A line whose length grows after its value was set walks past the
    // text without touching it.
    line.SetCurrentValue("ab");
    line.SetNumItems(30);
    Press(line, "=<+-#*");
    EXPECT_EQ(line.GetCurrentString(), "ab");
}

TEST(StringLineTest, DrawsCaptionTextSuffixAndCursorAndCutsTypingAtTheRowEnd) {
    FP::Testing::RecordingDisplay display;
    StringLine line;
    linetest::Place(line, display, "Name:");
    line.SetSuffix("<");
    line.SetNumItems(6);
    line.SetCurrentValue("ab");
    EXPECT_EQ(display.Draw(line), " Name:ab____<");
    Press(line, "=>");
    EXPECT_EQ(display.Draw(line), " Name:a[b]____<");
    EXPECT_EQ(display.Row(0), "");  // nothing strays elsewhere

    // 20 columns less offset and caption leave 14 characters; typing more
    // than that never grows the text, and the cursor wraps to the start.
    line.SetSuffix("");
    line.SetNumItems(14);
    line.SetCurrentValue("");
    Press(line, "~=abcdefghijklmnopqrst");
    EXPECT_EQ(line.GetEditText(), "opqrstabcdefgh");
    EXPECT_EQ(display.Draw(line), " Name:opqrst[a]bcdefgh");
}
