// Every line kind on a display model, with a value, caption, suffix and
// limits from the input, then any key sequence (including codes past the
// last key) with redraws in between. Nothing may crash or read out of range,
// the drawn reverse cells stay on the display, and each kind's edit state
// stays inside its own bounds.
#include <memory>
#include <string>
#include <vector>

#include "fp/client/FpClient.h"
#include "fp/display/Display.h"
#include "fp/lines/DateLine.h"
#include "fp/lines/IpLine.h"
#include "fp/lines/ListLine.h"
#include "fp/lines/MacLine.h"
#include "fp/lines/NumberLine.h"
#include "fp/lines/ScrollLine.h"
#include "fp/lines/SelectLine.h"
#include "fp/lines/StringLine.h"
#include "fp/lines/TimeLine.h"
#include "fp/lines/YesNoLine.h"
#include "fp/menu/DisplayLine.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTargets.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace fpfuzz {

namespace {

class NullDisplay : public FP::Display {
public:
    NullDisplay(unsigned w, unsigned h) : Display(w, h) {}
    ~NullDisplay() = default;
    void SendBlankChars(unsigned, unsigned, unsigned) override {}
    void SendLineUpdate(const std::string&, unsigned) override {}
    void SendReverseWord(const std::string&, unsigned, unsigned) override {}
    void SendWindowUpdate(const std::string&) override {}
    void SendLockDisableSymbols(unsigned char) override {}
    void SendNavSymbols(unsigned char) override {}
};

// The two kinds applications must derive from.
class Select : public FP::SelectLine {
public:
    void DrawCursor(int row) override { cursor.DrawCursor(row, GetCurrentString()); }
    void EraseCursor(int row) override { cursor.EraseCursor(row); }
};
class Date : public FP::DateLine {
public:
    bool SetCurrentValue(const std::string& value) override {
        return DateLine::SetCurrentValue(value);
    }
};

enum Kind_e { LIST, SELECT, YESNO, NUMBER, STRING, IP, MAC, DATE, TIME, DISPLAY, SCROLL, KINDS };

std::unique_ptr<FP::BaseLine> Make(Kind_e kind, FuzzInput& in) {
    switch (kind) {
        case LIST: {
            std::vector<std::string> items(in.Below(6));
            for (std::string& s : items)
                s = in.Text(24);
            auto line = std::make_unique<FP::ListLine>(items, in.Byte() & 1);
            for (unsigned n = in.Below(3); n > 0; --n)
                line->SetSkipItem(static_cast<int>(in.Below(8)) - 1);
            return line;
        }
        case SELECT:
            return std::make_unique<Select>();
        case YESNO: {
            auto line = std::make_unique<FP::YesNoLine>();
            const std::string words[] = {in.Text(8), in.Text(8)};
            line->SetNumItems(2);
            line->SetMenuItems(words);
            return line;
        }
        case NUMBER: {
            const double units[] = {1.0, 0.1, 0.5, 0.01};
            const double scales[] = {0.0, 1.0, 0.1, 0.001};
            auto line = std::make_unique<FP::NumberLine>(in.Byte() & 1, units[in.Below(4)],
                                                         static_cast<int>(in.Below(4)),
                                                         scales[in.Below(4)]);
            line->SetMinMax(in.Int16(), in.Int16());
            if (in.Byte() & 1)
                line->SetNumItems(static_cast<int>(in.Below(12)));
            return line;
        }
        case STRING: {
            auto line = std::make_unique<FP::StringLine>();
            line->SetNumItems(static_cast<int>(in.Below(24)));
            line->SetCharacterSet(static_cast<FP::StringLine::CharacterSet_e>(in.Below(4)));
            return line;
        }
        case IP: {
            auto line = std::make_unique<FP::IpLine>();
            line->SetMinMax(in.Text(16), in.Text(16));
            return line;
        }
        case MAC: {
            auto line = std::make_unique<FP::MacLine>();
            line->SetDisplayInEditMode(in.Byte() & 1);
            return line;
        }
        case DATE: {
            auto line = std::make_unique<Date>();
            line->SetYear(2000 + in.Below(50));
            line->SetMonth(static_cast<int>(in.Below(14)));
            line->SetDay(static_cast<int>(in.Below(33)));
            return line;
        }
        case TIME: {
            auto line = std::make_unique<FP::TimeLine>();
            line->SetHour(static_cast<int>(in.Below(26)));
            line->SetMinute(static_cast<int>(in.Below(62)));
            line->SetSecond(static_cast<int>(in.Below(62)));
            return line;
        }
        case DISPLAY:
            return std::make_unique<FP::DisplayLine>();
        default:
            return std::make_unique<FP::ScrollLine>();
    }
}

void CheckDrawn(Kind_e kind, const NullDisplay& display) {
    for (const auto& w : display.GetReverseWords()) {
        FUZZ_CHECK(w.line < display.GetDisplayHeight());
        // A reverse word is an overlay sent on its own; the two-word choice
        // keeps its last word whole when it starts in the last cells, so only
        // its start must be on the row. Every other kind stays inside it.
        if (kind == YESNO)
            FUZZ_CHECK(w.column < display.GetDisplayWidth());
        else
            FUZZ_CHECK(w.column + w.text.size() <= display.GetDisplayWidth());
    }
}

void CheckState(Kind_e kind, FP::BaseLine& base, size_t valueLength, unsigned width) {
    const int cursor = base.GetCursorPos();
    switch (kind) {
        case LIST: {
            auto& line = static_cast<FP::ListLine&>(base);
            const auto& texts = line.GetItemTexts();
            const int index = line.GetEditIndex();
            FUZZ_CHECK(texts.empty() || (index >= 0 && static_cast<size_t>(index) < texts.size()));
            break;
        }
        case YESNO: {
            auto& line = static_cast<FP::YesNoLine&>(base);
            FUZZ_CHECK(line.GetSelectedIndex() >= 0 && line.GetSelectedIndex() < 2);
            break;
        }
        case STRING: {
            auto& line = static_cast<FP::StringLine&>(base);
            const size_t bound =
                std::max<size_t>(std::max<size_t>(line.GetNumItems(), valueLength), width);
            FUZZ_CHECK(line.GetEditText().size() <= bound);
            break;
        }
        case NUMBER: {
            auto& line = static_cast<FP::NumberLine&>(base);
            FUZZ_CHECK(line.GetEditString().size() <= 64);
            break;
        }
        case IP: {
            auto& line = static_cast<FP::IpLine&>(base);
            FUZZ_CHECK(cursor >= 0 && cursor < 15);
            FUZZ_CHECK(line.GetCurrentString().size() <= 15);
            break;
        }
        case MAC: {
            auto& line = static_cast<FP::MacLine&>(base);
            FUZZ_CHECK(cursor >= 0 && cursor < 17 && cursor % 3 != 2);
            FUZZ_CHECK(line.GetCurrentString().size() == 17);
            break;
        }
        case DATE: {
            auto& line = static_cast<Date&>(base);
            FUZZ_CHECK(cursor >= 0 && cursor < 10);
            FUZZ_CHECK(line.GetEditString().size() == 10 && line.GetCurrentString().size() == 10);
            break;
        }
        case TIME: {
            auto& line = static_cast<FP::TimeLine&>(base);
            FUZZ_CHECK(cursor >= 0 && cursor < 8);
            FUZZ_CHECK(line.GetEditString().size() == 8 && line.GetCurrentString().size() == 8);
            break;
        }
        case SCROLL: {
            auto& line = static_cast<FP::ScrollLine&>(base);
            // A shorter value may leave the position past its end (drawn as
            // nothing), but scrolling never runs past the longest text + suffix.
            FUZZ_CHECK(line.GetScrollPos() <= valueLength + line.GetSuffix().size());
            break;
        }
        default:
            break;
    }
}

// The embedded engine behind a real client, one variable "v" on "0".
struct Engine {
    explicit Engine(const std::string& initial) {
        store.Declare(TOV::CVarDecl("v").Default(initial));
        fp.Attach();
    }
    ~Engine() { fp.Detach(); }
    TOV::CDataStore store;
    TOV::CTovClient client{store, TOV::CTovClient::DELIVER_QUEUED};
    FP::FpClient fp{&client};
};

}  // namespace

int LineKeys(const uint8_t* data, size_t size) {
    FuzzInput in(data, size);
    const Kind_e kind = static_cast<Kind_e>(in.Below(KINDS));
    const unsigned width = 8 + in.Below(33);
    const unsigned height = 1 + in.Below(4);
    NullDisplay display(width, height);
    std::unique_ptr<FP::BaseLine> line = Make(kind, in);
    line->SetDisplay(&display);
    const uint8_t setup = in.Byte();
    if (setup & 1)
        line->SetVariableName(in.Text(24));
    if (setup & 2)
        line->SetSuffix(in.Text(8));
    line->SetOffset(static_cast<int>(in.Below(6)));
    line->SetAlignment(static_cast<FP::DisplayLineFormat_e>(in.Below(4)));
    line->SetReadOnly((setup & 0x1C) == 0x1C);

    const std::string value = in.Text(40);
    size_t longest = value.size();
    std::unique_ptr<Engine> engine;
    if (setup & 0x20) {
        engine = std::make_unique<Engine>(value);
        line->SetClient(&engine->fp);
        line->SetDbInfo("v", "0");
        line->SetSendDbData(true);
        line->SetDbActive(true);
        line->RefreshData();
    } else {
        line->SetCurrentValue(value);
    }

    while (!in.Empty()) {
        const uint8_t b = in.Byte();
        const int row = static_cast<int>(b % height);
        if (b >= 0xF8) {
            // A new value arriving in the middle of an edit.
            const std::string next = in.Text(40);
            longest = std::max(longest, next.size());
            line->SetCurrentValue(next);
        } else {
            const auto state = static_cast<FP::KeyState_e>(in.Below(3));
            line->KeyPress({static_cast<FP::Key_e>(b % 0x58), state});
        }
        display.ClearReverseAll();
        line->DrawLine(row);
        if (line->GetEditing())
            line->DrawCursor(row);
        CheckDrawn(kind, display);
        display.UpdateDisplay(display.GetSelectedWindow());
        CheckState(kind, *line, longest, width);
    }
    return 0;
}

}  // namespace fpfuzz
