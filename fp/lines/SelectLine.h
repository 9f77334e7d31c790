#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fp/menu/BaseLine.h"

namespace FP {

// A choice among panel glyphs, one character each (0x85 and 0x84 unless
// changed). Applications derive from it to draw their own cursor. The
// choice is local: it is never written to the engine.
class SelectLine : public BaseLine {
public:
    SelectLine();

    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    // Text values are accepted and ignored.
    bool SetCurrentValue(const std::string& value) override;
    // The chosen character as "0x" + "0x%X" ("0x0x85"); the doubled prefix is
    // what the applications expect.
    std::string GetCurrentString() const override;
    void DrawLine(int row) override;

    bool SetCurrentValue(int index);
    int GetSelection() const { return selection; }
    void KeyPressUp();
    void KeyPressDown();

protected:
    std::vector<unsigned char> choices;
    int32_t itemCount;
    int32_t currentIndex;
    int32_t editIndex;
    int32_t selection;

private:
    unsigned char ShownChoice() const;
};

}  // namespace FP
