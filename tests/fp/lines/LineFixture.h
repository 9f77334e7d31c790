#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fp/menu/BaseLine.h"
#include "fp/screens/FpClient.h"
#include "testing/RecordingDisplay.h"
#include "tests/fp/menu/Keys.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace linetest {

// Presses keys named by characters: '<' left, '>' right, '+' up, '-' down,
// '=' enter, '~' exit, '#' backspace, '*' delete, ' ' space; digits and
// letters type themselves. Returns whether the line still edits.
inline bool Press(FP::BaseLine& line, const std::string& keys) {
    bool editing = line.GetEditing();
    for (char c : keys) {
        const size_t nav = std::string("<+>-~=#").find(c);  // key codes 1 to 7
        int code = nav != std::string::npos ? static_cast<int>(nav) + 1
                   : c == '*'               ? FP::KEY_DELETE
                   : c == ' '               ? FP::KEY_SPACEBAR
                   : c >= '0' && c <= '9'   ? FP::KEY_0 + (c - '0')
                   : c >= 'a' && c <= 'z'   ? FP::KEY_a + (c - 'a')
                   : c >= 'A' && c <= 'Z'   ? FP::KEY_A + (c - 'A')
                                            : FP::KEY_NONE;
        editing = line.KeyPress(fptest::Key(static_cast<FP::Key_e>(code)));
    }
    return editing;
}

// Puts line on display under caption, the way a menu adds it.
inline void Place(FP::BaseLine& line, FP::Display& display, const std::string& caption) {
    line.SetDisplay(&display);
    line.SetVariableName(caption);
}

// Enters edit mode, presses keys, and checks that the line still edits, the
// text that text (a getter of the line's kind) reads, and the cursor.
template <class Line, class Text>
void ExpectEdit(Line& line, const std::string& keys, Text text, const std::string& shown,
                int cursor) {
    SCOPED_TRACE("keys " + keys);
    EXPECT_TRUE(Press(line, "="));
    EXPECT_TRUE(Press(line, keys));
    EXPECT_EQ(std::string((line.*text)()), shown);
    EXPECT_EQ(line.GetCursorPos(), cursor);
}

// The embedded data engine behind a real FpClient, one variable "v" on
// instance "0" with the given default and validator.
struct Engine {
    explicit Engine(const std::string& initial, const TOV::CValidator& check = TOV::CValidator()) {
        EXPECT_TRUE(store.Declare(TOV::CVarDecl("v").Default(initial).Check(check)).Success());
        fp.Attach();
    }
    ~Engine() { fp.Detach(); }
    // Binds line to "v" the way a screen does, and loads its value.
    void Bind(FP::BaseLine& line) {
        line.SetClient(&fp);
        line.SetDbInfo("v", "0");
        line.SetSendDbData(true);
        line.RefreshData();
    }
    std::string Value() { return fp.GetData(std::string("v"), std::string("0")); }
    void Set(const std::string& value) { fp.SendDataWait("v", "0", value); }

    TOV::CDataStore store;
    TOV::CTovClient client{store, TOV::CTovClient::DELIVER_QUEUED};
    FP::FpClient fp{&client};
};

}  // namespace linetest
