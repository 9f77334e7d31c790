#include "fp/display/Display.h"

#include <algorithm>
#include <cstring>

namespace FP {

Display::Display(unsigned int width, unsigned int height)
    : lockShown(false),
      disableShown(false),
      selectedWindow(nullptr),
      textAdjustment(new TextAdjustment(static_cast<int>(width))),
      height(height),
      width(width) {
    // Selected directly: the new window is empty, so selecting it through
    // SelectWindow would send nothing anyway.
    windows.push_back(new DisplayWindow(0, width, height));
    selectedWindow = windows.front();
    Display::ClearDisplay();
    Display::SetCursorPosition(0, 0);
}

Display::~Display() {
    for (DisplayWindow* window : windows) {
        delete window;
    }
}

void Display::CreateDisplayWindow(int id) {
    CreateDisplayWindow(id, width, height);
}

void Display::CreateDisplayWindow(int id, unsigned int windowWidth, unsigned int windowHeight) {
    windows.push_back(new DisplayWindow(id, windowWidth, windowHeight));
}

DisplayWindow* Display::GetDisplayWindow(int id) {
    for (DisplayWindow* window : windows) {
        if (window->GetId() == id) {
            return window;
        }
    }
    return nullptr;
}

bool Display::SelectWindow(int id) {
    selectedWindow = GetDisplayWindow(id);
    if (selectedWindow == nullptr) {
        return false;
    }
    UpdateDisplay(selectedWindow);
    return true;
}

void Display::SetCursorPosition(unsigned int line, unsigned int column) {
    if (selectedWindow != nullptr) {
        selectedWindow->SetCursorPosition(line, column);
    }
}

void Display::ForceUpdate() {
    if (selectedWindow != nullptr) {
        SendWindowUpdate(selectedWindow->GetText());
    }
}

void Display::ClearDisplay() {
    if (selectedWindow != nullptr) {
        selectedWindow->ClearDisplay();
    }
    reverseWords.clear();
}

void Display::ClearHwDisplay() {}

void Display::ClearLine(unsigned int line) {
    if (selectedWindow != nullptr) {
        SetCursorPosition(line, 0);
        selectedWindow->ClearLine();
    }
}

void Display::SendLine() {
    if (selectedWindow != nullptr) {
        SendLine(selectedWindow->GetLine());
    }
}

void Display::SendLine(unsigned int line) {
    if (selectedWindow != nullptr) {
        // The display's width is copied even from a window of another width,
        // but never past the end of that window's buffer.
        const char* start = selectedWindow->GetText(line);
        std::size_t used = static_cast<std::size_t>(start - selectedWindow->GetText());
        std::size_t cells =
            static_cast<std::size_t>(selectedWindow->GetWidth()) * selectedWindow->GetHeight();
        std::size_t count = std::min<std::size_t>(width, cells - used);
        lineBuffer.assign(start, strnlen(start, count));
        SendLineUpdate(lineBuffer, line);
    }
    for (auto it = reverseWords.begin(); it != reverseWords.end();) {
        if (it->line == line) {
            ReverseWord_t word = *it;
            it = reverseWords.erase(it);
            SendReverseWord(word.text, word.column, word.line);
        } else {
            ++it;
        }
    }
}

void Display::SendUpdate() {
    UpdateDisplay(selectedWindow);
}

void Display::UpdateDisplay(DisplayWindow* window) {
    if (window != nullptr && window->GetTextLength() > 0) {
        std::string text(window->GetText());
        if (lastSentText.empty() || lastSentText != text) {
            lastSentText = text;
            if (!lastSentText.empty()) {
                SendWindowUpdate(lastSentText);
            }
        }
    }
    std::vector<ReverseWord_t> pending;
    pending.swap(reverseWords);
    for (const ReverseWord_t& word : pending) {
        SendReverseWord(word.text, word.column, word.line);
    }
}

int Display::WriteBlock(const std::string& text, unsigned int line, DisplayLineFormat_e format,
                        unsigned int offset, char splitChar) {
    std::vector<std::string> pieces;
    unsigned int room = offset < width ? width - offset : 0;
    TextAdjustment::SplitString(text, pieces, room, splitChar);
    for (std::size_t k = 0; k < pieces.size() && line < height && k < height - line; ++k) {
        WriteLine(pieces[k], line + static_cast<unsigned int>(k), format, offset);
    }
    return static_cast<int>(pieces.size());
}

void Display::WriteChar(unsigned char c, unsigned int line, unsigned int column) {
    // An out-of-range coordinate keeps the cursor's old value, so the
    // character may land on the current line or column instead.
    SetCursorPosition(line, column);
    if (selectedWindow != nullptr) {
        selectedWindow->WriteChar(c);
    }
}

void Display::WriteReverseChar(unsigned char c, unsigned int line, unsigned int column) {
    if (selectedWindow != nullptr) {
        reverseWords.push_back({std::string(1, static_cast<char>(c)), line, column});
    }
}

void Display::WriteLine(std::string text, unsigned int line, DisplayLineFormat_e format,
                        unsigned int offset) {
    if (selectedWindow == nullptr) {
        return;
    }
    int shift = static_cast<int>(offset);
    switch (format) {
        case CENTER:
            textAdjustment->CenterLine(text, shift);
            break;
        case RIGHT_JUSTIFY:
            textAdjustment->RightJustifyLine(text, shift);
            break;
        default:
            textAdjustment->LeftJustifyLine(text, shift);
            break;
    }
    // The window copies a full line of its own width; a window wider than
    // the display gets spaces after the text.
    if (text.size() < selectedWindow->GetWidth()) {
        text.resize(selectedWindow->GetWidth(), ' ');
    }
    SetCursorPosition(line, 0);
    selectedWindow->WriteLine(text.c_str());
}

void Display::WriteWord(const std::string& text, unsigned int line, unsigned int column) {
    if (text.empty() || selectedWindow == nullptr) {
        return;
    }
    SetCursorPosition(line, column);
    selectedWindow->WriteWord(text.c_str());
}

void Display::WriteReverseWord(const std::string& text, unsigned int line, unsigned int column) {
    if (selectedWindow != nullptr) {
        SetReverseWord(text, line, column);
    }
}

void Display::SetReverseWord(const std::string& text, unsigned int line, unsigned int column) {
    if (!text.empty()) {
        reverseWords.push_back({text, line, column});
    }
}

void Display::ClearReverseAll() {
    reverseWords.clear();
}

void Display::ReplaceUnknownChars(std::string& s) {
    auto in = [](unsigned char c, unsigned char lo, unsigned char hi) {
        return c >= lo && c <= hi;
    };
    for (std::size_t i = 0; i < s.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        if (c == 0x7F) {
            // Only the first DEL is replaced; the rest of the text is left
            // as it is.
            s[i] = '-';
            return;
        }
        auto next = [&](std::size_t k) {
            return i + k < s.size() ? static_cast<unsigned char>(s[i + k]) : 0;
        };
        if (in(c, 0xC2, 0xDF) && in(next(1), 0x80, 0xBF)) {
            s[i] = '-';
            s.erase(i + 1, 1);
        } else if (in(c, 0xE0, 0xEF) && in(next(1), 0xA0, 0xBF) && in(next(2), 0x80, 0xBF)) {
            s[i] = '-';
            s.erase(i + 1, 2);
        }
    }
}

}  // namespace FP
