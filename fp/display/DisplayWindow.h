#pragma once

namespace FP {

/// A text buffer of height rows by width cells, rows stored back to back, with
/// a trailing NUL so the buffer doubles as a C string.
/// Threads: one thread at a time, like the Display that owns it.
class DisplayWindow {
public:
    /// A blank window of width x height cells, cursor at the top left.
    DisplayWindow(int id, unsigned int width, unsigned int height);
    virtual ~DisplayWindow();
    DisplayWindow(const DisplayWindow&) = delete;
    DisplayWindow& operator=(const DisplayWindow&) = delete;

    /// Out-of-range coordinates are ignored one by one; the old value stays.
    void SetCursorPosition(unsigned int line, unsigned int column);

    /// None of the writes moves the cursor.
    void WriteChar(unsigned char c, unsigned int line, unsigned int column);
    /// Writes c on the cursor's line at column.
    void WriteChar(unsigned char c, unsigned int column);
    /// Writes c at the cursor.
    void WriteChar(unsigned char c);
    /// Copies exactly width bytes over the current line.
    void WriteLine(const char* s);
    /// Writes at the cursor, wrapping onto the next lines and cut at the end of
    /// the buffer.
    void WriteWord(const char* s);

    /// Blanks every line.
    void ClearDisplay();
    /// Blanks the cursor's line.
    void ClearLine();

    /// The whole buffer, NUL-terminated.
    const char* GetText() const { return text; }
    /// Start of a line, or of the buffer for a line past the end.
    const char* GetText(unsigned int line) const;
    /// Number of cells (width times height).
    unsigned int GetTextLength() const;

    /// The id given at construction.
    int GetId() const { return id; }
    /// The cursor's column.
    unsigned int GetColumn() const { return column; }
    /// The cursor's line.
    unsigned int GetLine() const { return line; }
    /// Number of rows.
    unsigned int GetHeight() const { return height; }
    /// Number of cells in a row.
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
