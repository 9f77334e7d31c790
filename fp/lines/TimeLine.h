#pragma once

#include <string>

#include "fp/lines/FieldEdit.h"
#include "fp/menu/BaseLine.h"

namespace FP {

/// A time of day set field by field ("23:59:00"): left and right jump between
/// hour, minute and second, up and down step the field with wrap-around,
/// enter commits. The line writes nothing back; its owner
/// picks the committed fields up through the getters.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class TimeLine : public BaseLine {
public:
    /// All fields 0 ("00:00:00").
    TimeLine();
    /// No range check: the fields are taken as given.
    TimeLine(int hour, int minute, int second);
    ~TimeLine() override;

    /// Arrows change the working hour, minute and second even outside edit
    /// mode. Enter copies the committed time in and edits (unless read-only),
    /// or commits; exit keeps the working time for nothing.
    bool KeyPress(const KeyState_t& key) override;
    /// Step the hour, minute or second under the cursor, wrapping.
    ///@{
    void KeyUp() override;
    void KeyDown() override;
    ///@}
    /// Jump between hour, minute and second.
    ///@{
    void KeyLeft() override;
    void KeyRight() override;
    ///@}
    using BaseLine::SetCurrentValue;
    /// A time is not taken from text: always false.
    bool SetCurrentValue(const std::string& value) override;
    /// The committed text, also while editing.
    std::string GetCurrentString() const override { return fields.CurString(); }
    /// Caption and text; while editing the field under the cursor is reversed.
    void DrawLine(int row) override;
    /// DrawLine marks the edited field itself; there is no separate cursor.
    ///@{
    void DrawCursor(int /*row*/) override {}
    void EraseCursor(int /*row*/) override {}
    ///@}

    /// The committed hour, minute and second.
    ///@{
    int GetHour() const { return fields.Committed(0); }
    int GetMinute() const { return fields.Committed(1); }
    int GetSecond() const { return fields.Committed(2); }
    ///@}
    /// Out-of-range values are ignored. Only the committed field changes;
    /// the texts are rebuilt by the next step or commit.
    ///@{
    void SetHour(int hour);
    void SetMinute(int minute);
    void SetSecond(int second);
    ///@}
    /// A committed field by index (0 hour, 1 minute, 2 second), for code that treats the
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

private:
    FieldEdit fields;
};

}  // namespace FP
