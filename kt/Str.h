#pragma once

#include <string>
#include <type_traits>

namespace KT {
namespace Str {

/// printf-style formatting into a string. A null format gives "".
std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// The same with a format held in a string (the number line keeps its format
/// in one). Restricted to std::string: open to any first argument, it would also
/// catch literal formats and call itself for ever.
template <class S, class... Args,
          class = std::enable_if_t<std::is_same<std::decay_t<S>, std::string>::value>>
std::string Format(const S& format, Args... args) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    return Format(format.c_str(), args...);
#pragma GCC diagnostic pop
}

/// Text to number. out receives what a stream extraction reads from text (0
/// when nothing can be read). The result is true when text is exactly the
/// canonical rendering of out (for double and float: fixed notation with 6
/// decimals; for integers: plain decimal), or when text is "true" or "false"
/// in any case, which give 1 and 0.
/// Defined for double, float, int, long and unsigned int.
template <class T>
bool ToNum(T& out, const std::string& text);

extern template bool ToNum<double>(double& out, const std::string& text);
extern template bool ToNum<float>(float& out, const std::string& text);
extern template bool ToNum<int>(int& out, const std::string& text);
extern template bool ToNum<long>(long& out, const std::string& text);
extern template bool ToNum<unsigned int>(unsigned int& out, const std::string& text);

}  // namespace Str
}  // namespace KT
