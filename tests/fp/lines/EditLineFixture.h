#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fp/client/FpClient.h"
#include "fp/display/Display.h"
#include "fp/menu/BaseLine.h"

namespace EditLines {

// A display that sends nothing and renders its rows as text, with the cells
// waiting to be shown in reverse video between brackets.
class TextDisplay : public FP::Display {
public:
    TextDisplay() : FP::Display(20, 4) {}
    void SendBlankChars(unsigned int, unsigned int, unsigned int) override {}
    // A new text of a row replaces the reverse cells shown on it.
    void SendLineUpdate(const std::string&, unsigned int line) override {
        for (size_t i = sent.size(); i-- > 0;) {
            if (sent[i].line == line)
                sent.erase(sent.begin() + static_cast<long>(i));
        }
    }
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override {
        sent.push_back({text, line, column});
    }
    void SendWindowUpdate(const std::string&) override {}
    void SendLockDisableSymbols(unsigned char) override {}
    void SendNavSymbols(unsigned char) override {}

    std::string Row(unsigned int row) const {
        std::string text(GetSelectedWindow()->GetText(row), GetDisplayWidth());
        std::string reversed(text.size(), 0);
        std::vector<ReverseWord_t> words = sent;
        words.insert(words.end(), GetReverseWords().begin(), GetReverseWords().end());
        for (const auto& w : words) {
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
        sent.clear();
        line.DrawLine(1);
        return Row(1);
    }

    std::vector<ReverseWord_t> sent;  // reverse cells already sent to the panel
};

// Presses keys named by characters: '<' left, '>' right, '+' up,
// '-' down, '=' enter, '~' exit, '#' backspace, '*' delete, ' ' space; digits
// and letters type themselves.
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
