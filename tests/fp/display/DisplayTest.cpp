#include <gtest/gtest.h>

#include "fp/display/Display.h"
#include "testing/RecordingDisplay.h"

using Sent = std::vector<std::string>;

TEST(Display, UpdateSendsWindowOnceThenOnlyReverseWords) {
    FP::Testing::RecordingDisplay d(4, 2);
    EXPECT_EQ(d.TakeSends(), Sent{});
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"window [        ]"});

    d.WriteWord("ab", 1, 1);
    d.WriteReverseWord("b", 1, 2);
    d.WriteReverseChar('x', 0, 0);
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), (Sent{"window [     ab ]", "rev 1,2 [b]", "rev 0,0 [x]"}));

    d.SetReverseWord("q", 0, 3);
    d.SetReverseWord("", 0, 1);
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"rev 0,3 [q]"});
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{});

    // ForceUpdate resends without touching the pending reverse words.
    d.WriteReverseWord("ab", 1, 1);
    d.ForceUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"window [     ab ]"});
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"rev 1,1 [ab]"});
}

TEST(Display, SendLineKeepsReverseWordsOfOtherLines) {
    FP::Testing::RecordingDisplay d(4, 3);
    d.WriteLine("hi", 1, FP::RIGHT_JUSTIFY, 0);
    d.WriteReverseWord("h", 1, 2);
    d.WriteReverseWord("z", 2, 0);
    d.WriteReverseWord("i", 1, 3);
    d.SendLine(1);
    EXPECT_EQ(d.TakeSends(), (Sent{"line 1 [  hi]", "rev 1,2 [h]", "rev 1,3 [i]"}));
    d.SendLine();  // the cursor is still on line 1
    EXPECT_EQ(d.TakeSends(), Sent{"line 1 [  hi]"});
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), (Sent{"window [      hi    ]", "rev 2,0 [z]"}));
}

TEST(Display, WritesStayInsideTheWindow) {
    FP::Testing::RecordingDisplay d(4, 2);
    d.WriteWord("abcde", 0, 1);  // wraps onto line 1
    d.SetCursorPosition(1, 1);
    d.WriteChar('x', 7, 3);   // line out of range: written on the current line
    d.WriteChar('y', 0, 9);   // column out of range: current column
    d.WriteWord("zz", 1, 3);  // from the last cell to the end: dropped
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"window [ abyde x]"});
    d.WriteWord("pqr", 1, 2);  // cut at the end of the buffer
    d.SendLine(1);
    EXPECT_EQ(d.TakeSends(), Sent{"line 1 [depq]"});
}

TEST(Display, WriteBlockCountsAllPiecesButWritesOnlyWhatFits) {
    FP::Testing::RecordingDisplay d(6, 4);
    EXPECT_EQ(d.WriteBlock("aaa bbb ccc ddd eee", 1, FP::CENTER, 0, ' '), 5);
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"window [       aaa   bbb   ccc  ]"});
    // An offset wider than the display leaves no room, one word per piece.
    EXPECT_EQ(d.WriteBlock("a b", 0, FP::LEFT_JUSTIFY, 9, ' '), 2);
    EXPECT_EQ(d.WriteBlock("a b", 9, FP::LEFT_JUSTIFY, 0, ' '), 1);
}

TEST(Display, WindowSwitchingAndNullWindow) {
    FP::Testing::RecordingDisplay d(3, 1);
    d.SendUpdate();
    d.TakeSends();
    d.CreateDisplayWindow(5);
    d.CreateDisplayWindow(6, 8, 1);  // wider than the display
    EXPECT_TRUE(d.SelectWindow(5));
    EXPECT_EQ(d.TakeSends(), Sent{});  // still empty: nothing sent
    d.WriteLine("ab", 0, FP::LEFT_JUSTIFY, 0);
    d.SendUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"window [ab ]"});
    EXPECT_TRUE(d.SelectWindow(0));
    EXPECT_EQ(d.TakeSends(), Sent{"window [   ]"});
    EXPECT_TRUE(d.SelectWindow(6));
    d.WriteWord("abcdefgh", 0, 0);
    d.SendLine(0);  // cut to the display's width
    EXPECT_EQ(d.TakeSends(), Sent{"line 0 [abc]"});

    EXPECT_FALSE(d.SelectWindow(42));
    EXPECT_EQ(d.GetSelectedWindow(), nullptr);
    d.WriteChar('x', 0, 0);
    d.WriteWord("x", 0, 0);
    d.WriteLine("x", 0, FP::CENTER, 0);
    d.WriteReverseWord("x", 0, 0);
    d.WriteReverseChar('x', 0, 0);
    d.ClearLine(0);
    d.SetReverseWord("r", 0, 1);
    d.SendLine();
    d.SendLine(0);
    d.ForceUpdate();
    EXPECT_EQ(d.TakeSends(), Sent{"rev 0,1 [r]"});
    EXPECT_TRUE(d.SelectWindow(0));
    EXPECT_EQ(d.TakeSends(), Sent{});  // same text as last sent
}

// Degenerate sizes must not touch memory outside the buffers (run under ASan).
TEST(Display, DegenerateSizesStayInBounds) {
    FP::Testing::RecordingDisplay d(4, 1);
    d.CreateDisplayWindow(1, 5, 0);
    d.CreateDisplayWindow(2, 2, 1);
    d.CreateDisplayWindow(3, 0, 0);
    for (int id : {1, 2, 3}) {
        ASSERT_TRUE(d.SelectWindow(id));
        d.ClearDisplay();
        d.ClearLine(0);
        d.WriteLine("abcdef", 0, FP::CENTER, 2);
        d.WriteWord("abcdef", 0, 0);
        d.WriteChar('z', 0, 1);
        d.WriteBlock("ab cd ef", 0, FP::RIGHT_JUSTIFY, 1, ' ');
        d.SendLine(0);
        d.SendLine(3);
        d.ForceUpdate();
    }
    // The narrow window: the line is cut at the end of its buffer.
    EXPECT_TRUE(d.SelectWindow(2));
    d.WriteWord("xyz", 0, 0);
    d.TakeSends();
    d.SendLine(0);
    EXPECT_EQ(d.TakeSends(), Sent{"line 0 [xy]"});
}
