#pragma once

#include <string>
#include <vector>

namespace FP {

/// Alignment and word wrapping for lines of a fixed number of cells.
/// Threads: a plain helper; one thread at a time.
class TextAdjustment {
public:
    /// Aligns within lines of width cells.
    explicit TextAdjustment(int width);

    /// These edit s in place; the result is the left padding chosen by the
    /// alignment (the caller's offset excluded).
    int PadLine(std::string& s, int pad);
    /// Left alignment: offset spaces in front.
    int LeftJustifyLine(std::string& s, int offset);
    /// Centred, then shifted by offset.
    int CenterLine(std::string& s, int offset);
    /// Right alignment, then shifted left by offset.
    int RightJustifyLine(std::string& s, int offset);

    /// Adds the delimited pieces of s to tokens, keeping what it held.
    static void Tokenize(const std::string& s, char delimiter, std::vector<std::string>& tokens);
    /// Wraps into lines shorter than width; an overlong word is kept whole.
    static void SplitString(const std::string& s, std::vector<std::string>& lines,
                            unsigned int width, char delimiter);

    /// The line width given at construction.
    int GetWidth() const { return width; }

private:
    int width;
};

}  // namespace FP
