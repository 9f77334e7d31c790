#pragma once

#include <string>
#include <vector>

#include "fp/client/FpClient.h"
#include "fp/display/Display.h"
#include "fp/display/DisplayWindow.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace linetest {

// A display that keeps what lines draw: the character grid by row, and the
// reverse-video cells as "row,column:text", taken (and cleared) by Take().
class TextPanel : public FP::Display {
public:
    TextPanel(unsigned int w, unsigned int h) : Display(w, h) {}
    ~TextPanel() = default;

    std::string Row(unsigned int r) const {
        return std::string(GetSelectedWindow()->GetText() + r * GetDisplayWidth(),
                           GetDisplayWidth());
    }
    std::vector<std::string> TakeReverse() {
        std::vector<std::string> out;
        for (const ReverseWord_t& w : GetReverseWords()) {
            out.push_back(std::to_string(w.line) + "," + std::to_string(w.column) + ":" + w.text);
        }
        ClearReverseAll();
        return out;
    }

    void SendBlankChars(unsigned int, unsigned int, unsigned int) override {}
    void SendLineUpdate(const std::string&, unsigned int) override {}
    void SendReverseWord(const std::string&, unsigned int, unsigned int) override {}
    void SendWindowUpdate(const std::string&) override {}
    void SendLockDisableSymbols(unsigned char) override {}
    void SendNavSymbols(unsigned char) override {}
};

// The embedded data engine with one variable "v" (instance "0") holding
// start, reached through the panel's own client.
struct Engine {
    explicit Engine(const std::string& start) {
        store.Declare(TOV::CVarDecl("v").Default(start));
        fp.Attach();
    }
    ~Engine() { fp.Detach(); }
    std::string Value() { return fp.GetData(std::string("v"), "0"); }
    void Set(const std::string& value) { fp.SendDataWait("v", "0", value); }

    TOV::CDataStore store;
    TOV::CTovClient client{store, TOV::CTovClient::DELIVER_QUEUED};
    FP::FpClient fp{&client};
};

inline FP::KeyState_t Key(FP::Key_e k) {
    return FP::KeyState_t{k, FP::KEY_STATE_DOWN};
}

// Keys by letter: L U R D X(exit) E(enter).
inline bool Press(FP::BaseLine& line, const std::string& keys) {
    bool editing = line.GetEditing();
    for (char c : keys) {
        const std::string codes = "LURDXE";
        editing = line.KeyPress(Key(static_cast<FP::Key_e>(codes.find(c) + 1)));
    }
    return editing;
}

}  // namespace linetest
