#include "fp/display/DisplayWindow.h"

#include <cstring>

namespace FP {

DisplayWindow::DisplayWindow(int id, unsigned int width, unsigned int height)
    : text(new char[static_cast<std::size_t>(width) * height + 1]()),
      id(id),
      column(0),
      line(0),
      height(height),
      width(width) {}

DisplayWindow::~DisplayWindow() {
    delete[] text;
}

void DisplayWindow::SetCursorPosition(unsigned int newLine, unsigned int newColumn) {
    if (newLine < height) {
        line = newLine;
    }
    if (newColumn < width) {
        column = newColumn;
    }
}

void DisplayWindow::WriteChar(unsigned char c, unsigned int atLine, unsigned int atColumn) {
    if (atLine < height && atColumn < width) {
        text[static_cast<std::size_t>(atLine) * width + atColumn] = static_cast<char>(c);
    }
}

void DisplayWindow::WriteChar(unsigned char c, unsigned int atColumn) {
    WriteChar(c, line, atColumn);
}

void DisplayWindow::WriteChar(unsigned char c) {
    WriteChar(c, line, column);
}

void DisplayWindow::WriteLine(const char* s) {
    // A window without lines has no current line to write.
    if (line < height) {
        std::memcpy(text + static_cast<std::size_t>(line) * width, s, width);
    }
}

void DisplayWindow::WriteWord(const char* s) {
    std::size_t pos = static_cast<std::size_t>(line) * width + column;
    std::size_t total = static_cast<std::size_t>(width) * height;
    std::size_t len = std::strlen(s);
    if (len + pos < total) {
        std::memcpy(text + pos, s, len);
    } else if (pos + 1 >= total) {
        // A word that starts in the last cell and reaches the end is dropped.
        return;
    } else {
        std::memcpy(text + pos, s, total - pos);
    }
}

void DisplayWindow::ClearDisplay() {
    std::memset(text, ' ', static_cast<std::size_t>(width) * height);
}

void DisplayWindow::ClearLine() {
    if (line < height) {
        std::memset(text + static_cast<std::size_t>(line) * width, ' ', width);
    }
}

const char* DisplayWindow::GetText(unsigned int atLine) const {
    if (atLine >= height) {
        return text;
    }
    return text + static_cast<std::size_t>(atLine) * width;
}

unsigned int DisplayWindow::GetTextLength() const {
    return static_cast<unsigned int>(std::strlen(text));
}

}  // namespace FP
