#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fp/display/Display.h"
#include "fp/menu/BaseLine.h"
#include "fp/screens/FpClient.h"

namespace EditLines {

// A display that sends nothing and renders its rows as text, with the cells
// waiting to be shown in reverse video between brackets.
class TextDisplay : public FP::Display {
public:
    TextDisplay() : FP::Display(20, 4) {}
    void SendBlankChars(unsigned int, unsigned int, unsigned int) override {}
    void SendLineUpdate(const std::string&, unsigned int) override {}
    void SendReverseWord(const std::string&, unsigned int, unsigned int) override {}
    void SendWindowUpdate(const std::string&) override {}
    void SendLockDisableSymbols(unsigned char) override {}
    void SendNavSymbols(unsigned char) override {}

    std::string Row(unsigned int row) const {
        std::string text(GetSelectedWindow()->GetText(row), GetDisplayWidth());
        std::string reversed(text.size(), 0);
        for (const auto& w : GetReverseWords()) {
            for (size_t i = 0; w.line == row && i < w.text.size(); ++i) {
                if (w.column + i < reversed.size()) {
                    reversed[w.column + i] = w.text[i];
                } else {
                    ADD_FAILURE() << "reverse cell past the row at column " << w.column + i;
                }
            }
        }
        std::string out;
        for (size_t i = 0; i < text.size(); ++i) {
            out += reversed[i] ? std::string("[") + reversed[i] + "]" : std::string(1, text[i]);
        }
        return out;
    }
    // Draws line on row 1 from a clean slate and returns the row.
    std::string Draw(FP::BaseLine& line) {
        ClearReverseAll();
        line.DrawLine(1);
        return Row(1);
    }
};

// Presses keys named by characters: '<' left, '>' right, '+' up,
// '-' down, '=' enter, '~' exit, '#' backspace, '*' delete, ' ' space; digits
// and letters type themselves.
inline bool Press(FP::BaseLine& line, const std::string& keys) {
    bool editing = line.GetEditing();
    for (char c : keys) {
        int code = FP::KEY_NONE;
        switch (c) {
            case '<':
                code = FP::KEY_LEFT;
                break;
            case '>':
                code = FP::KEY_RIGHT;
                break;
            case '+':
                code = FP::KEY_UP;
                break;
            case '-':
                code = FP::KEY_DOWN;
                break;
            case '=':
                code = FP::KEY_ENTER;
                break;
            case '~':
                code = FP::KEY_EXIT;
                break;
            case '#':
                code = FP::KEY_BACKSPACE;
                break;
            case '*':
                code = FP::KEY_DELETE;
                break;
            case ' ':
                code = FP::KEY_SPACEBAR;
                break;
            default:
                if (c >= '0' && c <= '9')
                    code = FP::KEY_0 + (c - '0');
                if (c >= 'a' && c <= 'z')
                    code = FP::KEY_a + (c - 'a');
                if (c >= 'A' && c <= 'Z')
                    code = FP::KEY_A + (c - 'A');
        }
        editing = line.KeyPress({static_cast<FP::Key_e>(code), FP::KEY_STATE_DOWN});
    }
    return editing;
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

    TOV::CDataStore store;
    TOV::CTovClient client{store, TOV::CTovClient::DELIVER_QUEUED};
    FP::FpClient fp{&client};
};

}  // namespace EditLines
