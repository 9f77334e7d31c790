#include "tests/support/ScreenText.h"

#include <algorithm>

namespace fptest {

void TextDisplay::SendLineUpdate(const std::string&, unsigned int line) {
    sentReverse.erase(std::remove_if(sentReverse.begin(), sentReverse.end(),
                                     [line](const ReverseWord_t& w) { return w.line == line; }),
                      sentReverse.end());
}

void TextDisplay::SendReverseWord(const std::string& text, unsigned int column, unsigned int line) {
    sentReverse.push_back(ReverseWord_t{text, line, column});
}

std::string ScreenText(const TextDisplay& display) {
    const unsigned int w = display.GetDisplayWidth();
    const unsigned int h = display.GetDisplayHeight();
    const FP::DisplayWindow* window = display.GetSelectedWindow();
    if (!window || w == 0) {
        return std::string();
    }
    std::vector<bool> reverse(w * h, false);
    auto mark = [&](const FP::Display::ReverseWord_t& word) {
        for (size_t k = 0; k < word.text.size(); ++k) {
            const size_t cell = word.line * w + word.column + k;
            if (cell < reverse.size()) {
                reverse[cell] = true;
            }
        }
    };
    for (const auto& word : display.GetReverseWords())
        mark(word);
    for (const auto& word : display.sentReverse)
        mark(word);

    std::string out;
    for (unsigned int row = 0; row < h; ++row) {
        const char* text = window->GetText(row);
        std::string line;
        for (unsigned int col = 0; col < w; ++col) {
            const bool rev = reverse[row * w + col];
            if (rev && (col == 0 || !reverse[row * w + col - 1]))
                line += '[';
            line += text[col] ? text[col] : ' ';
            if (rev && (col + 1 == w || !reverse[row * w + col + 1]))
                line += ']';
        }
        line.erase(line.find_last_not_of(' ') + 1);
        if (row > 0)
            out += '\n';
        out += line;
    }
    return out;
}

}  // namespace fptest
