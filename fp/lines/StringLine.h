#pragma once

#include <cstdint>
#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

/// A short text edited in place. Up/Down rotate the selected character within
/// the chosen alphabet, Left/Right step between characters, and letter or
/// digit keys insert themselves. Empty positions read '_' on the panel; that
/// filler is stripped from the value.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class StringLine : public BaseLine {
public:
    /// Alphabets that up and down cycle through: letters and digits, the
    /// characters allowed in a host name, or a wider printable set.
    enum CharacterSet_e : int32_t { AlphaNumeric = 1, Hostname = 2, AllChar = 3 };

    /// One position, alphanumeric.
    StringLine();
    ~StringLine() override;

    /// Outside edit mode only enter acts (starting an edit from the value).
    /// While editing: arrows move and cycle, letters and digits type, enter
    /// commits (writing it back when bound), exit drops the edit.
    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    /// Fills s up with '_' to the field length; never shortens it.
    bool SetCurrentValue(const std::string& s) override;
    /// The decimal text of v.
    bool SetCurrentValue(int v);
    /// The text without its trailing '_' ("" when it holds nothing else).
    std::string GetCurrentString() const override;
    /// Leading number of the text as it stands, 0 when there is none.
    int GetCurrentNumber() const;
    /// Caption, the padded text and suffix; while editing the character under
    /// the cursor is reversed (sent once).
    void DrawLine(int row) override;
    /// Reverses the character under the edit cursor, or shows it plain again.
    ///@{
    void DrawCursor(int row) override;
    void EraseCursor(int row) override;
    ///@}

    /// Field length in characters.
    ///@{
    void SetNumItems(int n);
    int GetNumItems() const { return maxLength; }
    ///@}
    /// The characters up and down cycle through.
    ///@{
    void SetCharacterSet(CharacterSet_e set) { characterSet = set; }
    CharacterSet_e GetCharacterSet() const { return characterSet; }
    ///@}
    /// The padded texts, as edited and as last committed.
    ///@{
    const std::string& GetEditText() const { return editText; }
    const std::string& GetCommittedText() const { return committedText; }
    ///@}

    /// Inserts c at the cursor (the padding drops off at the row end).
    void PutCharacter(char c);
    /// Removes the character before the cursor.
    void PutBackspace();
    /// Removes the character under the cursor.
    void PutDelete();
    /// Cycle the character under the cursor within one set, both ways.
    ///@{
    void AlphaNumericKeyUp();
    void AlphaNumericKeyDown();
    void HostnameKeyUp();
    void HostnameKeyDown();
    void AllCharKeyUp();
    void AllCharKeyDown();
    ///@}

private:
    // The edit character under the cursor, or null when the cursor is past
    // the text (a value shorter than the cursor's range).
    char* EditChar();
    void Step(bool up, bool (*accept)(unsigned char));
    int TextColumn() const;

    int32_t maxLength;
    CharacterSet_e characterSet;
    std::string committedText;
    std::string editText;
};

}  // namespace FP
