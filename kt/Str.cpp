#include "kt/Str.h"

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <iomanip>
#include <sstream>
#include <type_traits>

namespace KT {
namespace Str {

std::string Format(const char* format, ...) {
    if (!format)
        return std::string();
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    int length = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    if (length <= 0) {
        va_end(copy);
        return std::string();
    }
    std::string out(static_cast<size_t>(length) + 1, '\0');
    std::vsnprintf(&out[0], out.size(), format, copy);
    va_end(copy);
    out.resize(static_cast<size_t>(length));
    return out;
}

namespace {

bool BoolWord(const std::string& text, int& value) {
    if (text.size() != 4 && text.size() != 5)
        return false;
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (lower == "true") {
        value = 1;
        return true;
    }
    if (lower == "false") {
        value = 0;
        return true;
    }
    return false;
}

}  // namespace

template <class T>
bool ToNum(T& out, const std::string& text) {
    std::istringstream in(text);
    T v = 0;
    if (!(in >> v))
        v = 0;
    out = v;
    // Only the exact text a value prints back as counts as that value, so a
    // round trip through the engine never changes what the panel shows.
    std::ostringstream back;
    if (std::is_floating_point<T>::value)
        back << std::fixed << std::setprecision(6);
    back << v;
    if (back.str() == text)
        return true;
    int word;
    if (BoolWord(text, word)) {
        out = static_cast<T>(word);
        return true;
    }
    return false;
}

template bool ToNum<double>(double& out, const std::string& text);
template bool ToNum<float>(float& out, const std::string& text);
template bool ToNum<int>(int& out, const std::string& text);
template bool ToNum<long>(long& out, const std::string& text);
template bool ToNum<unsigned int>(unsigned int& out, const std::string& text);

}  // namespace Str
}  // namespace KT
