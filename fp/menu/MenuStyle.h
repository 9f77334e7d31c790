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

// The model of one menu: title, lines, a cursor over the live lines, scroll
// bar, exit screen and edit mode. Draws nothing and ignores keys; concrete
// styles do both.
//
// Owns its lines (through the container) but not its title: whoever set the
// title deletes it (GetTitle) when it is no longer shown.
class MenuStyle {
public:
    MenuStyle();
    MenuStyle(const MenuStyle&) = delete;
    MenuStyle& operator=(const MenuStyle&) = delete;

    virtual void DrawScreen() {}
    virtual void DrawScreen(DrawScreen_e /*mode*/) {}
    // Answers the screen to change to, or "No Screen".
    virtual std::string KeyPress(const KeyState_t& event);
    virtual void ClearScreen() {}

    void SetDisplay(Display* d);
    Display* GetDisplay() const { return display; }
    void SetClient(FpClient* c) { client = c; }
    FpClient* GetClient() const { return client; }

    // A centred title showing text.
    void SetTitle(const std::string& text);
    // A centred title: caption, then the value of dbName/dbInstance.
    void SetTitle(const std::string& caption, const std::string& dbName,
                  const std::string& dbInstance);
    BaseLine* GetTitle() const { return title; }
    void SetExitScreen(const std::string& screen) { exitScreen = screen; }
    const std::string& GetExitScreen() const { return exitScreen; }

    // Takes ownership of line.
    void AddLine(BaseLine* line);
    void AddLine(BaseLine* line, const std::string& name);
    void AddLine(BaseLine* line, const std::string& name, const std::string& childMenu);
    // Deletes every line.
    void RemoveLines();

    bool SkipLine(int index);
    bool UseLine(int index);
    // A line with a companion row takes the line after it along.
    void SkipLine(BaseLine* line);
    void UseLine(BaseLine* line);
    void SetSkipLine(BaseLine* line, bool skip);

    int Count() const { return lines.GetNumLiveLines(); }
    int GetTotalLines() const { return lines.GetNumTotalLines(); }
    int GetCursorIndex() const { return cursor.GetCursorIndex(); }
    int GetLineIndex(BaseLine* line) const { return lines.GetLineIndex(line); }
    int GetLiveLineIndex(BaseLine* line) const { return lines.GetLiveLineIndex(line); }
    bool IsLiveLineActive(BaseLine* line) const { return lines.GetLiveLineIndex(line) >= 0; }
    // The value of live line i, or "" when there is no such line.
    std::string GetCurrentValue(int i) const;
    bool GetEditEnabled() const { return editing; }
    // Enters or leaves edit mode exactly as the enter key would.
    void SetEditEnabled(bool on);
    int GetSavedCursorIndex() const { return savedCursorIndex; }

    void ResetCursor() { cursor.ResetCursor(); }
    void SetCursorType(CursorType_e type) { cursor.SetCursorType(type); }
    bool MoveCursorUp() { return cursor.MoveCursorUp(); }
    bool MoveCursorDown() { return cursor.MoveCursorDown(); }
    void SetSelectedItem(int i) { cursor.SetSelectedItem(i); }
    // Selects by the line's place in the full list, which is its live place
    // only while no row above it is hidden.
    void SetSelectedItem(BaseLine* line);

protected:
    // No virtual destructor: a style is destroyed as its own type.
    ~MenuStyle() = default;

    BaseLine* SelectedLine() const { return lines.GetLiveLine(cursor.GetCursorIndex()); }

    ScrollBar scrollBar;
    LineContainer lines;
    Cursor cursor;
    BaseLine* title;
    std::string exitScreen;
    bool editing;
    Display* display;
    FpClient* client;
    int32_t savedCursorIndex;
};

}  // namespace FP
