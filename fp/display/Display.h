#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fp/display/DisplayWindow.h"
#include "fp/display/TextAdjustment.h"

namespace FP {

// Alignment of a text on a display line; unknown values align left.
enum DisplayLineFormat_e { LEFT_JUSTIFY = 0, CENTER = 1, RIGHT_JUSTIFY = 2 };

// Character grid that menus draw into. Text lands in the selected window;
// the pure send hooks carry only what changed to a concrete panel.
// Takes no locks: callers keep to one thread.
class Display {
public:
    struct ReverseWord_t {
        std::string text;
        unsigned int line;
        unsigned int column;
    };

    Display(unsigned int width, unsigned int height);
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    unsigned int GetDisplayHeight() const { return height; }
    unsigned int GetDisplayWidth() const { return width; }

    virtual void CreateDisplayWindow(int id);
    virtual void CreateDisplayWindow(int id, unsigned int width, unsigned int height);
    virtual bool SelectWindow(int id);
    virtual void SetCursorPosition(unsigned int line, unsigned int column);
    virtual void ForceUpdate();
    virtual void ClearDisplay();
    virtual void ClearHwDisplay();
    virtual void ClearLine(unsigned int line);
    virtual void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) = 0;
    virtual void SendLine();
    virtual void SendLine(unsigned int line);
    virtual void SendLineUpdate(const std::string& text, unsigned int line) = 0;
    // Column before line, unlike the write operations.
    virtual void SendReverseWord(const std::string& text, unsigned int column,
                                 unsigned int line) = 0;
    virtual void SendUpdate();
    // Receives every line of the window concatenated.
    virtual void SendWindowUpdate(const std::string& text) = 0;
    // Result counts every wrapped piece, also those below the last line.
    virtual int WriteBlock(const std::string& text, unsigned int line, DisplayLineFormat_e format,
                           unsigned int offset, char splitChar);
    virtual void WriteChar(unsigned char c, unsigned int line, unsigned int column);
    virtual void WriteReverseChar(unsigned char c, unsigned int line, unsigned int column);
    virtual void WriteLine(std::string text, unsigned int line, DisplayLineFormat_e format,
                           unsigned int offset);
    virtual void WriteWord(const std::string& text, unsigned int line, unsigned int column);
    virtual void WriteReverseWord(const std::string& text, unsigned int line, unsigned int column);
    virtual void SendLockDisableSymbols(unsigned char mask) = 0;
    virtual void SendNavSymbols(unsigned char mask) = 0;

    // The first window with this id, or null.
    DisplayWindow* GetDisplayWindow(int id);
    // Sends the window if it differs from what was last sent, then every
    // pending reverse word.
    void UpdateDisplay(DisplayWindow* window);
    void SetReverseWord(const std::string& text, unsigned int line, unsigned int column);
    void ClearReverseAll();
    // Turns multi-byte characters without a panel glyph into '-'.
    static void ReplaceUnknownChars(std::string& s);

    // Set by whoever decides the panel is locked or disabled, before a redraw;
    // the hardware display shows the matching symbols.
    void SetLockShown(bool shown) { lockShown = shown; }
    bool GetLockShown() const { return lockShown; }
    void SetDisableShown(bool shown) { disableShown = shown; }
    bool GetDisableShown() const { return disableShown; }

    DisplayWindow* GetSelectedWindow() const { return selectedWindow; }
    const std::vector<ReverseWord_t>& GetReverseWords() const { return reverseWords; }

protected:
    // Not virtual: a derived display is destroyed as itself, never through
    // this base.
    ~Display();

    bool lockShown;
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
