#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "fp/lines/ListLine.h"
#include "fp/lines/SelectLine.h"
#include "fp/lines/YesNoLine.h"
#include "tests/fp/lines/LineFixture.h"

using linetest::Engine;
using linetest::Press;
using Cells = std::vector<std::string>;

namespace {

const Cells kEleven{"t1", "t2", "t3", "t4", "t5", "t6", "t7", "t8", "t9", "t10", "t11"};

struct GlyphLine : FP::SelectLine {
    void DrawCursor(int) override {}
    void EraseCursor(int) override {}
};

}  // namespace

TEST(ListLine, ItemsFollowKeyTextOrder) {
    FP::ListLine eleven(kEleven, false);
    EXPECT_EQ(eleven.GetItemTexts(),
              (Cells{"t1", "t10", "t11", "t2", "t3", "t4", "t5", "t6", "t7", "t8", "t9"}));

    FP::ListLine byInt(std::map<int, std::string>{{2, "b"}, {10, "j"}}, false);
    EXPECT_EQ(byInt.GetItemTexts(), (Cells{"j", "b"}));
    EXPECT_EQ(byInt.GetItemString("1"), "b");
    EXPECT_EQ(byInt.GetItemString("-1"), "");

    EXPECT_EQ(FP::ListLine(Cells{"Caf\xC3\xA9"}, true).GetItemString(0u), "Caf-");
    EXPECT_EQ(FP::ListLine(Cells{"Caf\xC3\xA9"}, false).GetItemString(0u), "Caf\xC3\xA9");
    const char* words[] = {"unused", "one", "two"};
    EXPECT_EQ(FP::ListLine(words, 3).GetItemTexts(), (Cells{"one", "two"}));
}

// Each case loads the engine's value, presses keys and checks what the line
// shows and what the engine holds afterwards.
TEST(ListLine, KeysAgainstTheEngine) {
    struct Case {
        const char* start;
        const char* keys;
        bool readOnly;
        const char* shown;
        bool editing;
        const char* stored;
    } cases[] = {
        {"10", "==", false, "t10", false, "2"},  // key "10" is the second item
        {"1", "=++=", false, "t11", false, "3"},
        {"1", "=-=", false, "t9", false, "11"},  // down wraps to the last item
        {"1", "=+", false, "t10", true, "1"},    // nothing written while editing
        {"1", "=+~", false, "t1", false, "1"},   // exit discards the choice
        {"4", "=+=", true, "t4", false, "4"},    // read-only never edits
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.start) + " " + c.keys);
        Engine engine(c.start);
        FP::ListLine line(kEleven, false);
        line.SetReadOnly(c.readOnly);
        engine.Bind(line);
        EXPECT_EQ(Press(line, c.keys), c.editing);
        EXPECT_EQ(line.GetCurrentString(), c.shown);
        EXPECT_EQ(engine.Value(), c.stored);
    }
}

TEST(ListLine, UnknownEngineValueLeavesTheLineAlone) {
    Engine engine("3");
    FP::ListLine line(Cells{"a", "b", "c"}, false);
    engine.Bind(line);
    EXPECT_EQ(line.GetCurrentString(), "c");
    engine.Set("99");
    line.RefreshData();
    EXPECT_FALSE(line.SetCurrentValue(std::string("0")));
    // The unknown keys stay with empty texts; "0" sorts first and shifts the
    // key-map walk of GetValue.
    EXPECT_EQ(line.GetKeyMapSize(), 5u);
    EXPECT_EQ(line.GetValue(), "b");
}

TEST(ListLine, SkippedItems) {
    FP::ListLine line(Cells{"a", "b", "c", "d", "e"}, false);
    line.SetSkipItem(3);
    line.SetSkipItem(3);
    line.RemoveSkipItem(5);
    EXPECT_EQ(line.GetNumItems(), 4);
    EXPECT_FALSE(line.SetCurrentValue(2));
    ASSERT_TRUE(line.SetCurrentValue(1));
    Press(line, "=+");
    EXPECT_EQ(line.GetCurrentString(), "d");
    Press(line, "-");
    EXPECT_EQ(line.GetCurrentString(), "b");
    Press(line, "--");  // wraps past "a" to the last item
    EXPECT_EQ(line.GetCurrentString(), "e");
    line.RemoveSkipItem(3);
    EXPECT_EQ(line.GetNumItems(), 5);
    EXPECT_TRUE(line.SetCurrentValue(2));
}

TEST(ListLine, DrawsCaptionValueSuffixAndPadding) {
    FP::Testing::RecordingDisplay panel(16, 4);
    panel.WriteWord("################", 2, 0);
    FP::ListLine line(Cells{"Auto", "ABCDEFGHIJKLMNOPQRS"}, false);
    linetest::Place(line, panel, "Mode ");
    line.SetSuffix(" x");
    EXPECT_EQ(panel.Draw(line), " Mode Auto x");
    Press(line, "=");
    EXPECT_EQ(panel.Draw(line), " Mode [Auto x]");
    Press(line, "+=");
    EXPECT_EQ(panel.Draw(line), " Mode ABCDEFGHIJ");
    EXPECT_EQ(panel.Row(2), "################");

    // An empty list shows a dash, still edits, and writes position 1.
    Engine engine("7");
    const char* none[] = {"unused"};
    FP::ListLine empty(none, 1);
    empty.SetDisplay(&panel);
    engine.Bind(empty);
    EXPECT_EQ(panel.Draw(empty, 3), " -");
    EXPECT_TRUE(Press(empty, "="));
    EXPECT_EQ(panel.Draw(empty, 3), " [-]");
    EXPECT_EQ(empty.GetCurrentString(), "");
    Press(empty, "=");
    EXPECT_EQ(engine.Value(), "1");
}

TEST(SelectLine, GlyphChoiceAndText) {
    FP::Testing::RecordingDisplay panel(8, 2);
    GlyphLine line;
    linetest::Place(line, panel, "G");
    EXPECT_EQ(line.GetCurrentString(), "0x0x85");
    EXPECT_EQ(panel.Draw(line, 0), " G\x85");

    EXPECT_TRUE(Press(line, "=+"));
    EXPECT_EQ(line.GetCurrentString(), "0x0x84");
    EXPECT_EQ(panel.Draw(line, 0), " G[\x84]");
    EXPECT_FALSE(Press(line, "="));
    EXPECT_EQ(line.GetSelection(), 1);

    EXPECT_FALSE(Press(line, "=+~"));  // exit restores the committed choice
    EXPECT_EQ(line.GetSelection(), 1);
    EXPECT_EQ(line.GetCurrentString(), "0x0x84");

    EXPECT_FALSE(line.SetCurrentValue(2));
    line.SetReadOnly(true);
    EXPECT_FALSE(Press(line, "="));
}

TEST(YesNoLine, LeftRightAndLayout) {
    FP::Testing::RecordingDisplay wide(16, 2);
    FP::YesNoLine line;
    line.SetDisplay(&wide);
    line.SetNumItems(2);
    EXPECT_EQ(line.GetCurrentString(), "No");
    EXPECT_EQ(wide.Draw(line), "   Yes    [No]");

    EXPECT_TRUE(Press(line, "<"));
    EXPECT_EQ(wide.Draw(line), "   [Yes]    No");
    Press(line, ">");
    EXPECT_EQ(line.GetCurrentString(), "No");
    Press(line, ">+-=");  // wraps; other keys change nothing
    EXPECT_EQ(line.GetCurrentString(), "Yes");
    EXPECT_FALSE(line.GetEditing());

    EXPECT_TRUE(line.SetCurrentValue(5));
    EXPECT_EQ(line.GetSelectedIndex(), 0);

    FP::Testing::RecordingDisplay narrow(8, 1);
    line.SetDisplay(&narrow);
    line.SetReadOnly(true);
    EXPECT_TRUE(Press(line, "<"));
    EXPECT_EQ(line.GetSelectedIndex(), 0);
    EXPECT_EQ(narrow.Draw(line, 0), "Yes");  // the last cell takes no word

    // A reverse word is an overlay, so the last cell still gets the whole "No".
    line.SetReadOnly(false);
    Press(line, ">");
    EXPECT_EQ(narrow.Draw(line, 0), "Yes    [No]");
}
