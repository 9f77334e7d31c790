#pragma once

#include <string>
#include <vector>

#include "kt/Functor.h"

namespace TOV {

// Decides whether a text is an acceptable value of a variable. Check answers
// the empty string to accept, or the message telling why the value is refused.
// Numeric checks are strict: the whole text must be the number, with no blanks
// or trailing characters, so that readers converting it cannot fail.
class CValidator {
public:
    // Message of the refusal, or "" to accept.
    using Function = KT::CFunctor<std::string(const std::string& value)>;

    CValidator() = default;  // accepts everything

    static CValidator Integer();
    static CValidator Integer(long long min, long long max);
    static CValidator Real();
    static CValidator Real(double min, double max);
    static CValidator OneOf(const std::vector<std::string>& allowed);
    // ECMAScript regular expression that must match the whole value. An
    // invalid expression refuses every value.
    static CValidator Pattern(const std::string& regex);
    static CValidator Custom(const Function& check);

    std::string Check(const std::string& name, const std::string& value) const;

private:
    enum Kind_e { ANY, INTEGER, REAL, ONE_OF, PATTERN, CUSTOM };

    Kind_e kind_ = ANY;
    bool bounded_ = false;
    long long minInt_ = 0, maxInt_ = 0;
    double minReal_ = 0, maxReal_ = 0;
    std::vector<std::string> allowed_;
    std::string pattern_;
    Function check_;
};

}  // namespace TOV
