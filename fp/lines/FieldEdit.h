#pragma once

#include <cstdint>
#include <string>

#include "fp/core/KeyTypes.h"
#include "fp/display/Display.h"
#include "fp/menu/Cursor.h"

namespace FP {

class BaseLine;

/// The three numeric fields behind a date or time line: the committed values
/// and a working copy, both also kept as text. The owning line keeps its own
/// API and just forwards; what differs between the kinds is the layout.
/// Threads: those of the line that holds it. Owns: its fields and texts.
class FieldEdit {
public:
    /// What distinguishes one kind of field text from another.
    struct Layout_t {
        const char* format;  ///< printf format of the three fields
        int textLength;      ///< length of a well-formed text
        int bottom[3];       ///< lowest value of each field
        int top[3];          ///< highest value of each field
        int start[3];        ///< where each field begins in the text
        int length[3];       ///< characters each field takes in the text
    };

    /// No range check: the fields are taken as given.
    FieldEdit(const Layout_t& layout, int first, int second, int third);

    /// A committed field; 0 for an index that names no field.
    int Committed(int field) const { return field >= 0 && field < 3 ? cur[field] : 0; }
    /// A value out of range, or an index that names no field, is ignored;
    /// the texts are not rebuilt.
    void SetCommitted(int field, int value);
    /// Committed and working texts.
    ///@{
    const std::string& CurString() const { return curString; }
    const std::string& TempString() const { return tempString; }
    ///@}
    /// Rebuild a text from its fields.
    ///@{
    void UpdateCurString();
    void UpdateTempString();
    ///@}

    /// The field a cursor index is in; a separator counts to the field after it.
    int Field(int index) const;
    /// Steps the working field under the cursor, wrapping at its ends.
    void Step(int index, int delta);
    /// To the start of the next field, or past the text from the last one.
    void JumpRight(Cursor& cursor) const;
    /// To the previous field; from the first this wraps round to the last.
    void JumpLeft(Cursor& cursor) const;
    /// The working copy starts again from the committed fields.
    void Begin();
    /// The working copy becomes the committed value.
    void Commit();
    /// Enter and exit of the owning line: enter starts an edit from the
    /// committed fields (a read-only line stays out of edit mode) or commits
    /// it; exit leaves the working fields as they are. Other keys do nothing.
    void EnterExit(const BaseLine& line, Key_e key, bool& editing);
    /// The shown text from column on, the field under the cursor reversed
    /// while editing, blanks up to lineWidth.
    void Draw(Display& display, int row, int column, bool editing, int index, int lineWidth) const;
    /// The whole row: cleared, offset blanks and caption, then Draw after them.
    void DrawRow(Display& display, int row, int offset, const std::string& caption, bool editing,
                 int index, int lineWidth) const;

private:
    Layout_t layout;
    int32_t cur[3];
    int32_t temp[3];
    std::string curString;
    std::string tempString;
};

}  // namespace FP
