#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fp/menu/BaseLine.h"

namespace FP {

/// A choice among panel glyphs, one character each (0x85 and 0x84 unless
/// changed). Applications derive from it to draw their own cursor. The
/// choice is local: it is never written to the engine.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class SelectLine : public BaseLine {
public:
    /// Choices 0x85 and 0x84, the first chosen.
    SelectLine();

    /// Up and down walk the choices; enter starts choosing or commits;
    /// exit goes back to the committed choice. A read-only line ignores
    /// enter and exit.
    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    /// Text values are accepted and ignored.
    bool SetCurrentValue(const std::string& value) override;
    /// The chosen character as "0x" + "0x%X" ("0x0x85"); the doubled prefix is
    /// what the applications expect.
    std::string GetCurrentString() const override;
    /// Caption, the chosen glyph (reversed while choosing) and suffix.
    void DrawLine(int row) override;

    /// Chooses choice index; false when out of range.
    bool SetCurrentValue(int index);
    /// The choice last committed or started from.
    int GetSelection() const { return selection; }
    /// Next and previous choice, wrapping.
    ///@{
    void KeyPressUp();
    void KeyPressDown();
    ///@}

protected:
    std::vector<unsigned char> choices;  ///< glyph codes, one per choice
    int32_t itemCount;                   ///< number of choices
    int32_t currentIndex;                ///< committed choice
    int32_t editIndex;                   ///< choice under the cursor while choosing
    int32_t selection;                   ///< what GetSelection answers

private:
    unsigned char ShownChoice() const;
};

}  // namespace FP
