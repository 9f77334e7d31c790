#include "tov/Validator.h"

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <regex>

namespace TOV {

namespace {

// Whole-text conversions: no blanks, signs only in front, nothing after.
bool ParseInt(const std::string& text, long long& out) {
    if (text.empty() || std::isspace(static_cast<unsigned char>(text[0])))
        return false;
    char* end = nullptr;
    errno = 0;
    out = std::strtoll(text.c_str(), &end, 10);
    return errno == 0 && end == text.c_str() + text.size();
}

bool ParseReal(const std::string& text, double& out) {
    if (text.empty() || std::isspace(static_cast<unsigned char>(text[0])))
        return false;
    // Hexadecimal, "inf" and "nan" are accepted by strtod but by no reader.
    for (char c : text)
        if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+' ||
              c == 'e' || c == 'E'))
            return false;
    char* end = nullptr;
    errno = 0;
    out = std::strtod(text.c_str(), &end);
    return errno == 0 && end == text.c_str() + text.size() && std::isfinite(out);
}

}  // namespace

CValidator CValidator::Integer() {
    CValidator v;
    v.kind_ = INTEGER;
    return v;
}

CValidator CValidator::Integer(long long min, long long max) {
    CValidator v = Integer();
    v.bounded_ = true;
    v.minInt_ = min;
    v.maxInt_ = max;
    return v;
}

CValidator CValidator::Real() {
    CValidator v;
    v.kind_ = REAL;
    return v;
}

CValidator CValidator::Real(double min, double max) {
    CValidator v = Real();
    v.bounded_ = true;
    v.minReal_ = min;
    v.maxReal_ = max;
    return v;
}

CValidator CValidator::OneOf(const std::vector<std::string>& allowed) {
    CValidator v;
    v.kind_ = ONE_OF;
    v.allowed_ = allowed;
    return v;
}

CValidator CValidator::Pattern(const std::string& regex) {
    CValidator v;
    v.kind_ = PATTERN;
    v.pattern_ = regex;
    return v;
}

CValidator CValidator::Custom(const Function& check) {
    CValidator v;
    v.kind_ = CUSTOM;
    v.check_ = check;
    return v;
}

std::string CValidator::Check(const std::string& name, const std::string& value) const {
    const std::string what = "Invalid value '" + value + "' for " + name + ": ";
    switch (kind_) {
        case ANY:
            return "";
        case INTEGER: {
            long long n = 0;
            if (!ParseInt(value, n))
                return what + "not an integer";
            if (bounded_ && (n < minInt_ || n > maxInt_))
                return what + "out of range " + std::to_string(minInt_) + " to " +
                       std::to_string(maxInt_);
            return "";
        }
        case REAL: {
            double d = 0;
            if (!ParseReal(value, d))
                return what + "not a number";
            if (bounded_ && (d < minReal_ || d > maxReal_)) {
                char range[80];
                std::snprintf(range, sizeof range, "out of range %g to %g", minReal_, maxReal_);
                return what + range;
            }
            return "";
        }
        case ONE_OF:
            for (const std::string& a : allowed_)
                if (a == value)
                    return "";
            return what + "not one of the allowed values";
        case PATTERN:
            try {
                if (std::regex_match(value, std::regex(pattern_, std::regex::ECMAScript)))
                    return "";
                return what + "does not match the required format";
            } catch (const std::regex_error&) {
                return what + "the format check is invalid";
            }
        case CUSTOM: {
            std::string msg = check_(value);
            return msg.empty() ? "" : what + msg;
        }
    }
    return "";
}

}  // namespace TOV
