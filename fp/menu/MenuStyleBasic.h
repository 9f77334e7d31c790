#pragma once

#include <string>

#include "fp/menu/MenuStyle.h"

namespace FP {

// The concrete menu: title on line 0, the list below it with the '>' cursor
// in column 0 and scroll arrows in the last-but-one column. Up and down move
// the cursor, enter opens the child screen or edits the line, exit answers
// the exit screen; while a line is edited its keys go to the line.
class MenuStyleBasic : public MenuStyle {
public:
    MenuStyleBasic();

    using MenuStyle::DrawScreen;
    void DrawScreen(DrawScreen_e mode) override;
    std::string KeyPress(const KeyState_t& event) override;
    void ClearScreen() override {}

    void SetOffset(int i, int offset);
    // Reloads the visible lines' values.
    void RefreshData();
    // Sets the caption of live line i; draws nothing.
    void UpdateLine(const std::string& caption, int i);
    // Deletes live line i's namesake among all lines and puts line there.
    bool ReplaceLine(BaseLine* line, int i, const std::string& caption);
    // Redraws and sends the selected line's row.
    void UpdateLine(bool drawCursor);
    // Redraws and sends visible row i.
    void UpdateLine(int i, bool drawCursor);

private:
    void DrawRow(BaseLine* line, int row, bool drawCursor);
    void SendNavSymbols(unsigned char mask);
};

}  // namespace FP
