#pragma once

#include <string>

namespace FP {

// Reads three runs of digits of fixed widths joined by one separator, as in
// "2026/11/23" or "08:05:00"; nothing else is accepted.
class FixedFields {
public:
    FixedFields() = delete;

    static bool Read(const std::string& text, char separator, const int widths[3], int out[3]) {
        size_t at = 0;
        for (int f = 0; f < 3; ++f) {
            if (f > 0 && (at >= text.size() || text[at++] != separator))
                return false;
            int value = 0;
            for (int i = 0; i < widths[f]; ++i, ++at) {
                if (at >= text.size() || text[at] < '0' || text[at] > '9')
                    return false;
                value = value * 10 + (text[at] - '0');
            }
            out[f] = value;
        }
        return at == text.size();
    }
};

}  // namespace FP
