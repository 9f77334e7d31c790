#pragma once

#include <cstdint>
#include <string>

#include "fp/core/KeyTypes.h"
#include "fp/menu/Cursor.h"
#include "fp/menu/LineContainer.h"
#include "fp/menu/MenuTypes.h"
#include "fp/menu/ScrollBar.h"

namespace FP {

class BaseLine;
class Display;
class FpClient;

/// The model of one menu: title, lines, a cursor over the live lines, scroll
/// bar, exit screen and edit mode. Draws nothing and ignores keys; concrete
/// styles do both.
/// Threads: the thread that drives the screens; nothing here locks, so calls
/// must not overlap.
/// Owns: its lines (through the container). Not the title line made by
/// SetTitle: the screen that holds the menu deletes it (BaseScreen does, on
/// destruction and when the title is replaced), so applications must not.
/// Borrows: the display and the client.
class MenuStyle {
public:
    /// No lines, no title, exit screen kNoScreen.
    MenuStyle();
    MenuStyle(const MenuStyle&) = delete;
    MenuStyle& operator=(const MenuStyle&) = delete;

    /// Draw the menu; both forms do nothing here, styles override them.
    ///@{
    virtual void DrawScreen() {}
    virtual void DrawScreen(DrawScreen_e /*mode*/) {}
    ///@}
    /// Answers the screen to change to, or kNoScreen ("No Screen").
    virtual std::string KeyPress(const KeyState_t& event);
    /// Blanks what the style drew; nothing to do here.
    virtual void ClearScreen() {}

    /// The display the menu draws into; the cursor and scroll bar get it too.
    /// Borrowed.
    ///@{
    void SetDisplay(Display* d);
    Display* GetDisplay() const { return display; }
    ///@}
    /// The client that lines added later read and write their values through.
    /// Borrowed.
    ///@{
    void SetClient(FpClient* c) { client = c; }
    FpClient* GetClient() const { return client; }
    ///@}

    /// A new centred title line showing text. The old title is not deleted
    /// here (see Owns above).
    void SetTitle(const std::string& text);
    /// A new centred title line: caption, then the value of dbName/dbInstance.
    void SetTitle(const std::string& caption, const std::string& dbName,
                  const std::string& dbInstance);
    /// The title line; the menu does not own it.
    BaseLine* GetTitle() const { return title; }
    /// The screen name that the exit key answers.
    ///@{
    void SetExitScreen(const std::string& screen) { exitScreen = screen; }
    const std::string& GetExitScreen() const { return exitScreen; }
    ///@}

    /// Appends line with the menu's client and display and loads its value.
    /// Takes ownership of line.
    void AddLine(BaseLine* line);
    /// The same with name as the line's caption.
    void AddLine(BaseLine* line, const std::string& name);
    /// The same, and enter on the line answers childMenu instead of editing.
    void AddLine(BaseLine* line, const std::string& name, const std::string& childMenu);
    /// Remembers the cursor index, then deletes every line.
    void RemoveLines();

    /// Hides or shows the row at a full-list place and resizes the cursor's
    /// list; false when the row was already in that state or does not exist.
    ///@{
    bool SkipLine(int index);
    bool UseLine(int index);
    ///@}
    /// Hides or shows line (SetSkipLine: hides when skip is true); one with a
    /// companion row takes the row after it along. A null line or one not in
    /// this menu is ignored.
    ///@{
    void SkipLine(BaseLine* line);
    void UseLine(BaseLine* line);
    void SetSkipLine(BaseLine* line, bool skip);
    ///@}

    /// Shown rows.
    int Count() const { return lines.GetNumLiveLines(); }
    /// All rows, hidden ones included.
    int GetTotalLines() const { return lines.GetNumTotalLines(); }
    /// Shown position of the selected row.
    int GetCursorIndex() const { return cursor.GetCursorIndex(); }
    /// Place of line among all rows, or among the shown rows; -1 when absent.
    ///@{
    int GetLineIndex(BaseLine* line) const { return lines.GetLineIndex(line); }
    int GetLiveLineIndex(BaseLine* line) const { return lines.GetLiveLineIndex(line); }
    ///@}
    /// True while line is shown.
    bool IsLiveLineActive(BaseLine* line) const { return lines.GetLiveLineIndex(line) >= 0; }
    /// The value of live line i, or "" when there is no such line.
    std::string GetCurrentValue(int i) const;
    /// True while a line is being edited.
    bool GetEditEnabled() const { return editing; }
    /// Enters or leaves edit mode exactly as the enter key would.
    void SetEditEnabled(bool on);
    /// The cursor index at the last RemoveLines.
    int GetSavedCursorIndex() const { return savedCursorIndex; }

    /// Cursor operations, passed to the menu's cursor unchanged; the moves
    /// answer true when the list must be redrawn.
    ///@{
    void ResetCursor() { cursor.ResetCursor(); }
    void SetCursorType(CursorType_e type) { cursor.SetCursorType(type); }
    bool MoveCursorUp() { return cursor.MoveCursorUp(); }
    bool MoveCursorDown() { return cursor.MoveCursorDown(); }
    void SetSelectedItem(int i) { cursor.SetSelectedItem(i); }
    ///@}
    /// Selects by the line's place in the full list, which is its live place
    /// only while no row above it is hidden.
    void SetSelectedItem(BaseLine* line);

protected:
    // No virtual destructor: a style is destroyed as its own type.
    ~MenuStyle() = default;

    /// The shown row under the cursor, or null when the menu is empty.
    BaseLine* SelectedLine() const { return lines.GetLiveLine(cursor.GetCursorIndex()); }

    ScrollBar scrollBar;       ///< arrows beside the list
    LineContainer lines;       ///< the rows; owns their lines
    Cursor cursor;             ///< selection over the shown rows
    BaseLine* title;           ///< title line, deleted by the screen, not here
    std::string exitScreen;    ///< what the exit key answers
    bool editing;              ///< a row is in edit mode
    Display* display;          ///< borrowed
    FpClient* client;          ///< borrowed; handed to lines as they are added
    int32_t savedCursorIndex;  ///< cursor index at the last RemoveLines
};

}  // namespace FP
