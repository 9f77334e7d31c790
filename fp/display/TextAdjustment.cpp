#include "fp/display/TextAdjustment.h"

#include <sstream>

namespace FP {

namespace {

// Spaces that bring a text of length len up to width, or 0 when it is not shorter.
int Shortfall(int width, std::string::size_type len) {
    if (width <= 0 || len >= static_cast<std::string::size_type>(width)) {
        return 0;
    }
    return width - static_cast<int>(len);
}

}  // namespace

TextAdjustment::TextAdjustment(int width) : width(width) {}

int TextAdjustment::PadLine(std::string& s, int pad) {
    if (pad >= 0) {
        s.insert(0, static_cast<std::string::size_type>(pad), ' ');
    }
    int fill = Shortfall(width, s.size());
    if (fill > 0) {
        s.append(static_cast<std::string::size_type>(fill), ' ');
    }
    return pad >= 0 ? pad : 0;
}

int TextAdjustment::LeftJustifyLine(std::string& s, int offset) {
    PadLine(s, offset);
    return 0;
}

int TextAdjustment::CenterLine(std::string& s, int offset) {
    int lead = Shortfall(width, s.size()) / 2;
    PadLine(s, lead + offset);
    return lead;
}

int TextAdjustment::RightJustifyLine(std::string& s, int offset) {
    // A positive offset pushes the text past the width on purpose; the display
    // cuts what does not fit.
    int lead = Shortfall(width, s.size());
    PadLine(s, lead + offset);
    return lead;
}

void TextAdjustment::Tokenize(const std::string& s, char delimiter,
                              std::vector<std::string>& tokens) {
    std::istringstream in(s);
    std::string token;
    while (std::getline(in, token, delimiter)) {
        tokens.push_back(token);
    }
}

void TextAdjustment::SplitString(const std::string& s, std::vector<std::string>& lines,
                                 unsigned int width, char delimiter) {
    std::vector<std::string> words;
    Tokenize(s, delimiter, words);
    if (words.empty()) {
        return;
    }
    std::string current;
    std::string::size_type length = 0;
    for (const std::string& word : words) {
        std::string::size_type candidate = length + word.size() + (current.empty() ? 0 : 1);
        // Strictly below: a line never fills the whole width, so a line that
        // would end exactly at the edge is broken instead.
        if (candidate < width) {
            if (!current.empty()) {
                current += delimiter;
            }
            current += word;
            length = candidate;
        } else {
            if (!current.empty()) {
                lines.push_back(current);
            }
            // A word too long for any line is kept whole rather than cut.
            current = word;
            length = word.size();
        }
    }
    lines.push_back(current);
}

}  // namespace FP
