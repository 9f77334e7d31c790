#pragma once

#include <string>

#include "fp/menu/MenuStyle.h"

namespace FP {

/// The concrete menu: title on line 0, the list below it with the '>' cursor
/// in column 0 and scroll arrows in the last-but-one column. Up and down move
/// the cursor, enter opens the child screen or edits the line, exit answers
/// the exit screen; while a line is edited its keys go to the line.
/// Threads and ownership: as MenuStyle.
class MenuStyleBasic : public MenuStyle {
public:
    MenuStyleBasic();

    /// Keeps the base's plain DrawScreen() visible next to the override.
    using MenuStyle::DrawScreen;
    /// Draws the visible lines (re-reading their values), the cursor and the
    /// arrows, then sends the update and the selected line's symbols.
    /// DRAW_FULL clears the display and draws the title first. While a line
    /// is edited only that line's row is redrawn.
    void DrawScreen(DrawScreen_e mode) override;
    /// Moves, edits or leaves the menu; answers the screen to change to, or
    /// kNoScreen.
    std::string KeyPress(const KeyState_t& event) override;
    /// Nothing to blank: a full draw clears the display itself.
    void ClearScreen() override {}

    /// The offset of live line i.
    void SetOffset(int i, int offset);
    /// Reloads the visible lines' values.
    void RefreshData();
    /// Sets the caption of live line i; draws nothing.
    void UpdateLine(const std::string& caption, int i);
    /// Deletes the line at full-list place i and puts line there, with
    /// caption unless it is empty. line gets no client or display here.
    bool ReplaceLine(BaseLine* line, int i, const std::string& caption);
    /// Redraws and sends the selected line's row.
    void UpdateLine(bool drawCursor);
    /// Redraws and sends visible row i.
    void UpdateLine(int i, bool drawCursor);

private:
    void DrawRow(BaseLine* line, int row, bool drawCursor);
    void SendNavSymbols(unsigned char mask);
};

}  // namespace FP
