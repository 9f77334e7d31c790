#pragma once

#include <string>

#include "fp/lines/FieldEdit.h"
#include "fp/menu/BaseLine.h"

namespace FP {

/// A calendar date set field by field ("2024/06/30"): left and right jump
/// between year, month and day, up and down step the field with wrap-around,
/// enter commits. The line writes nothing back; its owner
/// picks the committed fields up through the getters.
///
/// Abstract on purpose: the by-value SetCurrentValue below does not override
/// the base's, so a subclass must say how a date arrives as text.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class DateLine : public BaseLine {
public:
    /// All fields 0 ("0000/00/00").
    DateLine();
    /// No range check: the fields are taken as given.
    DateLine(int year, int month, int day);

    /// Arrows act on the working fields, editing or not. Enter starts an
    /// edit from the committed fields (not on a read-only line) or commits;
    /// exit leaves the working fields as they are.
    bool KeyPress(const KeyState_t& key) override;
    /// Step the field under the cursor, wrapping at its range.
    ///@{
    void KeyUp() override;
    void KeyDown() override;
    ///@}
    /// Jump to the previous or next field.
    ///@{
    void KeyLeft() override;
    void KeyRight() override;
    ///@}
    /// The committed text, also while editing.
    std::string GetCurrentString() const override { return fields.CurString(); }
    /// Caption and text; while editing the field under the cursor is reversed.
    void DrawLine(int row) override;
    /// DrawLine marks the edited field itself; there is no separate cursor.
    ///@{
    void DrawCursor(int /*row*/) override {}
    void EraseCursor(int /*row*/) override {}
    ///@}

    /// The committed year, month and day.
    ///@{
    int GetYear() const { return fields.Committed(0); }
    int GetMonth() const { return fields.Committed(1); }
    int GetDay() const { return fields.Committed(2); }
    ///@}
    /// Out-of-range values are ignored. Only the committed field changes;
    /// the texts are rebuilt by the next step or commit.
    ///@{
    void SetYear(int year);
    void SetMonth(int month);
    void SetDay(int day);
    ///@}
    /// A committed field by index (0 year, 1 month, 2 day), for code that treats the
    /// fields alike; the named setters' range rule, and an index
    /// outside 0 to 2 is ignored (read as 0).
    ///@{
    void SetField(int index, int value) { fields.SetCommitted(index, value); }
    int GetField(int index) const { return fields.Committed(index); }
    ///@}
    /// The working text.
    const std::string& GetEditString() const { return fields.TempString(); }

    /// Rebuild the committed or the working text from its fields.
    ///@{
    void UpdateCurString() { fields.UpdateCurString(); }
    void UpdateTempString() { fields.UpdateTempString(); }
    ///@}

    /// By value on purpose: hiding the base's text setter keeps this class abstract.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
    bool SetCurrentValue(std::string value);
#pragma GCC diagnostic pop

private:
    FieldEdit fields;
};

}  // namespace FP
