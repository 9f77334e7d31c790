// Text to number: an accepted text is the canonical rendering of the number
// read (or a true/false word), and that rendering is accepted again with the
// same number.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTargets.h"
#include "kt/Str.h"

namespace fpfuzz {

namespace {

bool BoolWord(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s == "true" || s == "false";
}

template <class T>
void CheckIntegral(const std::string& text, const char* format) {
    T v = 0;
    if (!KT::Str::ToNum(v, text))
        return;
    if (BoolWord(text)) {
        FUZZ_CHECK(v == 0 || v == 1);
        return;
    }
    FUZZ_CHECK(KT::Str::Format(format, v) == text);
    T again = 0;
    FUZZ_CHECK(KT::Str::ToNum(again, text) && again == v);
}

template <class T>
void CheckFloating(const std::string& text) {
    T v = 0;
    const bool ok = KT::Str::ToNum(v, text);
    if (!ok)
        return;
    if (BoolWord(text)) {
        FUZZ_CHECK(v == 0 || v == 1);
        return;
    }
    FUZZ_CHECK(std::isfinite(v));
    const std::string shown = KT::Str::Format("%.6f", static_cast<double>(v));
    FUZZ_CHECK(shown == text);
    T again = 0;
    FUZZ_CHECK(KT::Str::ToNum(again, shown) && again == v);
}

}  // namespace

int Numbers(const uint8_t* data, size_t size) {
    FuzzInput in(data, size);
    const std::string text = in.RestAsText();
    CheckFloating<double>(text);
    CheckFloating<float>(text);
    CheckIntegral<int>(text, "%d");
    CheckIntegral<long>(text, "%ld");
    CheckIntegral<unsigned int>(text, "%u");
    return 0;
}

}  // namespace fpfuzz
