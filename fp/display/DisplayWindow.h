#pragma once

namespace FP {

// A text buffer of height rows by width cells, rows stored back to back, with
// a trailing NUL so the buffer doubles as a C string.
class DisplayWindow {
public:
    DisplayWindow(int id, unsigned int width, unsigned int height);
    virtual ~DisplayWindow();
    DisplayWindow(const DisplayWindow&) = delete;
    DisplayWindow& operator=(const DisplayWindow&) = delete;

    // Out-of-range coordinates are ignored one by one; the old value stays.
    void SetCursorPosition(unsigned int line, unsigned int column);

    // None of the writes moves the cursor.
    void WriteChar(unsigned char c, unsigned int line, unsigned int column);
    void WriteChar(unsigned char c, unsigned int column);
    void WriteChar(unsigned char c);
    // Copies exactly width bytes over the current line.
    void WriteLine(const char* s);
    // Writes at the cursor, wrapping onto the next lines and cut at the end of
    // the buffer.
    void WriteWord(const char* s);

    void ClearDisplay();
    void ClearLine();

    const char* GetText() const { return text; }
    // Start of a line, or of the buffer for a line past the end.
    const char* GetText(unsigned int line) const;
    unsigned int GetTextLength() const;

    int GetId() const { return id; }
    unsigned int GetColumn() const { return column; }
    unsigned int GetLine() const { return line; }
    unsigned int GetHeight() const { return height; }
    unsigned int GetWidth() const { return width; }

private:
    char* text;
    int id;
    unsigned int column;
    unsigned int line;
    unsigned int height;
    unsigned int width;
};

}  // namespace FP
