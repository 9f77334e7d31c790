#pragma once

#include <string>
#include <vector>

namespace FP {

// Pads, aligns and word-wraps text for a display of a fixed width.
class TextAdjustment {
public:
    explicit TextAdjustment(int width);

    // Each justification works in place and returns the leading spaces the
    // alignment added, not counting the caller's offset.
    int PadLine(std::string& s, int pad);
    int LeftJustifyLine(std::string& s, int offset);
    int CenterLine(std::string& s, int offset);
    int RightJustifyLine(std::string& s, int offset);

    // Appends the pieces of s between delimiters to tokens (not cleared first).
    static void Tokenize(const std::string& s, char delimiter, std::vector<std::string>& tokens);
    // Word wrap into lines shorter than width; a word longer than that stays whole.
    static void SplitString(const std::string& s, std::vector<std::string>& lines,
                            unsigned int width, char delimiter);

    int GetWidth() const { return width; }

private:
    int width;
};

}  // namespace FP
