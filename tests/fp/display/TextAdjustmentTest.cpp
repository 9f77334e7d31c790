#include <gtest/gtest.h>

#include "fp/display/Display.h"
#include "fp/display/TextAdjustment.h"

using FP::TextAdjustment;
using Lines = std::vector<std::string>;

TEST(TextAdjustment, JustifiesPadsAndNeverCuts) {
    const struct {
        int width;
        std::string text;
        int offset;
        int (TextAdjustment::*justify)(std::string&, int);
        std::string expected;
        int lead;
    } cases[] = {
        // Plain centring and right justification are seen through the display's tests.
        {10, "abc", 1, &TextAdjustment::LeftJustifyLine, " abc      ", 0},
        {10, "abcd", 2, &TextAdjustment::CenterLine, "     abcd ", 3},
        // Right-justified text moves past the width by the offset.
        {10, "abc", 2, &TextAdjustment::RightJustifyLine, "         abc", 7},
        {10, "abcdefghijkl", 1, &TextAdjustment::CenterLine, " abcdefghijkl", 0},
        {10, "abcdefghijkl", 1, &TextAdjustment::RightJustifyLine, " abcdefghijkl", 0},
        {10, "", 0, &TextAdjustment::CenterLine, "          ", 5},
        {0, "ab", 0, &TextAdjustment::RightJustifyLine, "ab", 0},
        {1, "", 0, &TextAdjustment::RightJustifyLine, " ", 1},
    };
    for (const auto& c : cases) {
        TextAdjustment adjust(c.width);
        std::string s = c.text;
        EXPECT_EQ((adjust.*c.justify)(s, c.offset), c.lead) << c.text << " w" << c.width;
        EXPECT_EQ(s, c.expected) << c.text << " w" << c.width;
    }
}

TEST(TextAdjustment, TokenizeAppendsPieces) {
    Lines tokens{"keep"};
    TextAdjustment::Tokenize("a,,b,", ',', tokens);
    EXPECT_EQ(tokens, (Lines{"keep", "a", "", "b"}));
    TextAdjustment::Tokenize("", ',', tokens);
    EXPECT_EQ(tokens.size(), 4u);
}

TEST(TextAdjustment, SplitStringBreaksBeforeTheWidthIsFilled) {
    struct Case {
        std::string text;
        unsigned int width;
        char delimiter;
        Lines expected;
    } const cases[] = {
        {"aaa bbb ccc", 8, ' ', {"aaa bbb", "ccc"}},
        {"aaa bbb ccc", 7, ' ', {"aaa", "bbb", "ccc"}},
        {"abcdefghijklmno", 8, ' ', {"abcdefghijklmno"}},
        {"a-b-c", 4, '-', {"a-b", "c"}},
        {"", 8, ' ', {}},
        {"ab cd", 0, ' ', {"ab", "cd"}},
    };
    for (const Case& c : cases) {
        Lines lines;
        TextAdjustment::SplitString(c.text, lines, c.width, c.delimiter);
        EXPECT_EQ(lines, c.expected) << c.text << " w" << c.width;
    }
}

TEST(ReplaceUnknownChars, ReplacesShowableSequencesOnly) {
    const struct {
        std::string in;
        std::string out;
    } cases[] = {
        {"", ""},
        {"\xE0\xA4\x85", "-"},
        {"x\x7Fy\x7F\xC3\xA9", "x-y\x7F\xC3\xA9"},  // stops at the first DEL
        {"\xE1\x80\x80", "\xE1\x80\x80"},
        {"\xE2\x82\xAC", "\xE2\x82\xAC"},  // second byte below 0xA0 is kept
        {"\xC3\xA9\xC3\xA9", "--"},
        // Truncated sequences at the end stay as they are.
        {"ab\xC3", "ab\xC3"},
        {"ab\xE2\x82", "ab\xE2\x82"},
        {"\xC1\x80", "\xC1\x80"},
    };
    for (const auto& c : cases) {
        std::string s = c.in;
        FP::Display::ReplaceUnknownChars(s);
        EXPECT_EQ(s, c.out);
    }
}
