#include "testing/RecordingDisplay.h"

#include <algorithm>

#include "fp/menu/BaseLine.h"

namespace FP::Testing {

namespace {
std::string At(unsigned int line, unsigned int column) {
    return std::to_string(line) + "," + std::to_string(column);
}
}  // namespace

void RecordingDisplay::SendBlankChars(unsigned int count, unsigned int column, unsigned int line) {
    sends_.push_back("blank " + std::to_string(count) + "@" + At(line, column));
}

void RecordingDisplay::SendLineUpdate(const std::string& text, unsigned int line) {
    sends_.push_back("line " + std::to_string(line) + " [" + text + "]");
    sentReverse.erase(std::remove_if(sentReverse.begin(), sentReverse.end(),
                                     [line](const ReverseWord_t& w) { return w.line == line; }),
                      sentReverse.end());
}

void RecordingDisplay::SendReverseWord(const std::string& text, unsigned int column,
                                       unsigned int line) {
    sends_.push_back("rev " + At(line, column) + " [" + text + "]");
    sentReverse.push_back(ReverseWord_t{text, line, column});
}

void RecordingDisplay::SendWindowUpdate(const std::string& text) {
    sends_.push_back("window [" + text + "]");
    sentReverse.clear();
}

std::string RecordingDisplay::Row(unsigned int row) const {
    const unsigned int w = GetDisplayWidth();
    const DisplayWindow* window = GetSelectedWindow();
    if (!window || w == 0 || row >= GetDisplayHeight())
        return std::string();
    // The panel shows a reverse word's own characters, whatever the window
    // holds beneath them; cells past the row end are kept so that a word
    // running off the row shows in the text.
    const char* text = window->GetText(row);
    std::string cells(text, text + w);
    std::vector<bool> reverse(w, false);
    auto mark = [&](const ReverseWord_t& word) {
        for (size_t k = 0; word.line == row && k < word.text.size(); ++k) {
            const size_t at = word.column + k;
            if (at >= cells.size()) {
                cells.resize(at + 1, ' ');
                reverse.resize(at + 1, false);
            }
            reverse[at] = true;
            cells[at] = word.text[k];
        }
    };
    std::for_each(sentReverse.begin(), sentReverse.end(), mark);
    std::for_each(GetReverseWords().begin(), GetReverseWords().end(), mark);

    std::string line;
    for (size_t col = 0; col < cells.size(); ++col) {
        if (reverse[col] && (col == 0 || !reverse[col - 1]))
            line += '[';
        line += cells[col] ? cells[col] : ' ';
        if (reverse[col] && (col + 1 == cells.size() || !reverse[col + 1]))
            line += ']';
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string RecordingDisplay::Draw(BaseLine& line, unsigned int row) {
    ClearReverseAll();
    sentReverse.clear();
    line.DrawLine(row);
    return Row(row);
}

std::string RecordingDisplay::Text() const {
    std::string out;
    for (unsigned int row = 0; GetSelectedWindow() && row < GetDisplayHeight(); ++row)
        out += (row ? "\n" : "") + Row(row);
    return out;
}

}  // namespace FP::Testing
