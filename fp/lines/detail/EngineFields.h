#pragma once

#include <string>

#include "fp/lines/detail/RowWriter.h"
#include "fp/lines/detail/UnshownValue.h"
#include "fp/menu/detail/RowLead.h"

namespace FP {

// What the engine-bound date and time rows share: the committed text is the
// stored value, a commit writes it, and stored text the row cannot show is
// drawn as "?" and logged once. Parse splits a stored text into the line's
// three fields and is false for text the row does not accept.
template <class Line, bool (*Parse)(const std::string& text, int fields[3])>
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

    // Whether text is a value the row can show; also fits a variable's validator.
    static bool Accepts(const std::string& text) {
        int fields[3];
        return Parse(text, fields);
    }

    bool SetCurrentValue(const std::string& text) override {
        int fields[3] = {0, 0, 0};
        if (Parse(text, fields) && SetFields(fields)) {
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
            this->SetField(i, fields[i]);
        }
        for (int i = 0; i < 3; ++i) {
            if (this->GetField(i) != fields[i]) {
                return false;
            }
        }
        return true;
    }

    UnshownValue unshown_;
};

}  // namespace FP
