#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fp/display/DisplayWindow.h"
#include "fp/display/TextAdjustment.h"

namespace FP {

/// Alignment of a text on a display line; unknown values align left.
enum DisplayLineFormat_e { LEFT_JUSTIFY = 0, CENTER = 1, RIGHT_JUSTIFY = 2 };

/// Character grid that menus draw into. Text lands in the selected window;
/// the pure send hooks carry only what changed to a concrete panel.
/// Takes no locks: callers keep to one thread.
/// Threads: one thread at a time (the application's UI thread).
/// Owns: its windows.
class Display {
public:
    /// A word to show in reverse video, kept until the next update sends it.
    struct ReverseWord_t {
        /// The characters.
        std::string text;
        /// Row of the first character.
        unsigned int line;
        /// Column of the first character.
        unsigned int column;
    };

    /// A model of width x height cells with no window yet.
    Display(unsigned int width, unsigned int height);
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Number of rows.
    unsigned int GetDisplayHeight() const { return height; }
    /// Number of cells in a row.
    unsigned int GetDisplayWidth() const { return width; }

    /// Adds a window of the display's size under id.
    virtual void CreateDisplayWindow(int id);
    /// Adds a window of width x height cells under id.
    virtual void CreateDisplayWindow(int id, unsigned int width, unsigned int height);
    /// Makes the window with id the one written to, and sends it if it changed;
    /// false when there is none.
    virtual bool SelectWindow(int id);
    /// Moves the selected window's cursor.
    virtual void SetCursorPosition(unsigned int line, unsigned int column);
    /// Sends the whole selected window even when nothing changed.
    virtual void ForceUpdate();
    /// Blanks the selected window and drops pending reverse words.
    virtual void ClearDisplay();
    /// Blanks the physical panel; the model alone has nothing to do.
    virtual void ClearHwDisplay();
    /// Blanks one line of the selected window.
    virtual void ClearLine(unsigned int line);
    /// Hook: blank count cells on the panel from column on line.
    virtual void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) = 0;
    /// Sends the line the cursor is on.
    virtual void SendLine();
    /// Sends one line of the selected window.
    virtual void SendLine(unsigned int line);
    /// Hook: show text as the whole of line on the panel.
    virtual void SendLineUpdate(const std::string& text, unsigned int line) = 0;
    /// Column before line, unlike the write operations.
    virtual void SendReverseWord(const std::string& text, unsigned int column,
                                 unsigned int line) = 0;
    /// Sends the selected window if it changed, then the pending reverse words.
    virtual void SendUpdate();
    /// Receives every line of the window concatenated.
    virtual void SendWindowUpdate(const std::string& text) = 0;
    /// Result counts every wrapped piece, also those below the last line.
    virtual int WriteBlock(const std::string& text, unsigned int line, DisplayLineFormat_e format,
                           unsigned int offset, char splitChar);
    /// Writes one character into the selected window at line and column.
    virtual void WriteChar(unsigned char c, unsigned int line, unsigned int column);
    /// Queues one character to show in reverse video at the next update.
    virtual void WriteReverseChar(unsigned char c, unsigned int line, unsigned int column);
    /// Writes text as line of the selected window, aligned by format and shifted by offset.
    virtual void WriteLine(std::string text, unsigned int line, DisplayLineFormat_e format,
                           unsigned int offset);
    /// Writes text from line and column on, wrapping onto the following lines.
    virtual void WriteWord(const std::string& text, unsigned int line, unsigned int column);
    /// Queues text to show in reverse video at the next update.
    virtual void WriteReverseWord(const std::string& text, unsigned int line, unsigned int column);
    /// Hook: show the lock or disable symbol given by mask.
    virtual void SendLockDisableSymbols(unsigned char mask) = 0;
    /// Hook: show the navigation symbols whose bits are set in mask.
    virtual void SendNavSymbols(unsigned char mask) = 0;

    /// The first window with this id, or null.
    DisplayWindow* GetDisplayWindow(int id);
    /// Sends the window if it differs from what was last sent, then every
    /// pending reverse word.
    void UpdateDisplay(DisplayWindow* window);
    /// Queues text for reverse video whether or not a window is selected.
    void SetReverseWord(const std::string& text, unsigned int line, unsigned int column);
    /// Drops every pending reverse word.
    void ClearReverseAll();
    /// Turns multi-byte characters without a panel glyph into '-'.
    static void ReplaceUnknownChars(std::string& s);

    /// Set by whoever decides the panel is locked or disabled, before a redraw;
    /// the hardware display shows the matching symbols.
    void SetLockShown(bool shown) { lockShown = shown; }
    /// Whether the lock symbol is to be shown.
    bool GetLockShown() const { return lockShown; }
    /// Set before a redraw when the panel is disabled, as for the lock.
    void SetDisableShown(bool shown) { disableShown = shown; }
    /// Whether the disable symbol is to be shown.
    bool GetDisableShown() const { return disableShown; }

    /// The window written to, or null.
    DisplayWindow* GetSelectedWindow() const { return selectedWindow; }
    /// The reverse words waiting for the next update.
    const std::vector<ReverseWord_t>& GetReverseWords() const { return reverseWords; }

protected:
    /// Not virtual: a derived display is destroyed as itself, never through
    /// this base.
    ~Display();

    /// Whether the lock symbol is to be shown.
    bool lockShown;
    /// Whether the disable symbol is to be shown.
    bool disableShown;

private:
    DisplayWindow* selectedWindow;
    std::vector<DisplayWindow*> windows;
    std::vector<ReverseWord_t> reverseWords;
    std::string lineBuffer;
    std::string lastSentText;
    std::unique_ptr<TextAdjustment> textAdjustment;
    unsigned int height;
    unsigned int width;
};

}  // namespace FP
