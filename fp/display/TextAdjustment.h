#pragma once

#include <string>
#include <vector>

namespace FP {

// Alignment and word wrapping for lines of a fixed number of cells.
class TextAdjustment {
public:
    explicit TextAdjustment(int width);

    // These edit s in place; the result is the left padding chosen by the
    // alignment (the caller's offset excluded).
    int PadLine(std::string& s, int pad);
    int LeftJustifyLine(std::string& s, int offset);
    int CenterLine(std::string& s, int offset);
    int RightJustifyLine(std::string& s, int offset);

    // Adds the delimited pieces of s to tokens, keeping what it held.
    static void Tokenize(const std::string& s, char delimiter, std::vector<std::string>& tokens);
    // Wraps into lines shorter than width; an overlong word is kept whole.
    static void SplitString(const std::string& s, std::vector<std::string>& lines,
                            unsigned int width, char delimiter);

    int GetWidth() const { return width; }

private:
    int width;
};

}  // namespace FP
