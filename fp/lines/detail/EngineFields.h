#pragma once

#include <string>

#include "fp/lines/detail/RowWriter.h"
#include "fp/lines/detail/UnshownValue.h"
#include "fp/menu/detail/RowLead.h"

namespace FP {

// What the engine-bound date and time rows share: the committed text is the
// stored value, a commit writes it, and stored text the row cannot show is
// drawn as "?" and logged once. Kind supplies Parse(text, fields) (false for
// text it does not accept) and the line's three setters and getters in field
// order (kSet, kGet).
template <class Line, class Kind>
class EngineFields : public Line {
public:
    static constexpr const char* kUnknown = "?";

    bool KeyPress(const KeyState_t& key) override {
        const bool committing = this->editing && key.key == KEY_ENTER;
        const bool result = Line::KeyPress(key);
        if (committing && !this->editing) {
            unshown_.Clear();
            if (!this->readOnly && this->dbActive)
                this->SendDbData(Line::GetCurrentString());
        }
        return result;
    }

    // Whether text is a value the row can show.
    static bool Accepts(const std::string& text) {
        int fields[3];
        return Kind::Parse(text, fields);
    }

    bool SetCurrentValue(const std::string& text) override {
        int fields[3] = {0, 0, 0};
        if (Kind::Parse(text, fields) && SetFields(fields)) {
            this->UpdateCurString();
            unshown_.Clear();
            return true;
        }
        unshown_.Report(__func__, this->dbName, this->dbInstance, text,
                        "which the row cannot show");
        return false;
    }

    std::string GetCurrentString() const override {
        return unshown_.Active() && !this->editing ? std::string(kUnknown)
                                                   : Line::GetCurrentString();
    }

    void DrawLine(int row) override {
        if (!unshown_.Active() || this->editing || !this->display) {
            Line::DrawLine(row);
            return;
        }
        Display& d = *this->display;
        d.ClearLine(static_cast<unsigned>(row));
        const std::string text =
            RowLead(this->offset, this->hasVariableName ? this->variableName : std::string()) +
            kUnknown;
        RowWriter::Write(d, text, row, 0);
        RowWriter::Pad(d, row, static_cast<int>(text.size()), this->lineWidth);
    }

private:
    // The setters keep their range and drop anything outside it without a
    // word, so a getter that reads back something else marks a refused field.
    bool SetFields(const int fields[3]) {
        for (int i = 0; i < 3; ++i) {
            (this->*Kind::kSet[i])(fields[i]);
        }
        for (int i = 0; i < 3; ++i) {
            if ((this->*Kind::kGet[i])() != fields[i]) {
                return false;
            }
        }
        return true;
    }

    UnshownValue unshown_;
};

}  // namespace FP
