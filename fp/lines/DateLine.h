#pragma once

#include <string>

#include "fp/lines/FieldEdit.h"
#include "fp/menu/BaseLine.h"

namespace FP {

// A calendar date set field by field ("2024/06/30"): left and right jump
// between year, month and day, up and down step the field with wrap-around,
// enter commits. The line writes nothing back; its owner
// picks the committed fields up through the getters.
//
// Abstract on purpose: the by-value SetCurrentValue below does not override
// the base's, so a subclass must say how a date arrives as text.
class DateLine : public BaseLine {
public:
    DateLine();
    // No range check: the fields are taken as given.
    DateLine(int year, int month, int day);

    bool KeyPress(const KeyState_t& key) override;
    void KeyUp() override;
    void KeyDown() override;
    void KeyLeft() override;
    void KeyRight() override;
    // The committed text, also while editing.
    std::string GetCurrentString() const override { return fields.CurString(); }
    void DrawLine(int row) override;
    void DrawCursor(int /*row*/) override {}
    void EraseCursor(int /*row*/) override {}

    int GetYear() const { return fields.Committed(0); }
    int GetMonth() const { return fields.Committed(1); }
    int GetDay() const { return fields.Committed(2); }
    // Out-of-range values are ignored. Only the committed field changes;
    // the texts are rebuilt by the next step or commit.
    void SetYear(int year);
    void SetMonth(int month);
    void SetDay(int day);
    const std::string& GetEditString() const { return fields.TempString(); }

    void UpdateCurString() { fields.UpdateCurString(); }
    void UpdateTempString() { fields.UpdateTempString(); }

    // By value on purpose: hiding the base's text setter keeps this class abstract.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
    bool SetCurrentValue(std::string value);
#pragma GCC diagnostic pop

private:
    FieldEdit fields;
};

}  // namespace FP
