#pragma once

#include <string>
#include <vector>

#include "kt/Functor.h"

namespace TOV {

/// Decides whether a text is an acceptable value of a variable. Check
/// answers the empty string to accept, or the message telling why the value
/// is refused. Numeric checks are strict: the whole text must be the number,
/// with no blanks or trailing characters, so that readers converting it
/// cannot fail.
/// Threads: Check may run on any thread, several at once, as long as nobody
/// assigns to the validator meanwhile (the store calls it under its lock).
/// Owns: a copy of the custom function.
class CValidator {
public:
    /// A custom check: the message of the refusal, or "" to accept.
    using Function = KT::CFunctor<std::string(const std::string& value)>;

    /// Accepts every value.
    CValidator() = default;

    /// Whole numbers of any size that fits a long long.
    static CValidator Integer();
    /// Whole numbers from min to max, both included.
    static CValidator Integer(long long min, long long max);
    /// Decimal numbers.
    static CValidator Real();
    /// Decimal numbers from min to max, both included.
    static CValidator Real(double min, double max);
    /// Exactly one of the texts in allowed.
    static CValidator OneOf(const std::vector<std::string>& allowed);
    /// An ECMAScript regular expression that must match the whole value. An
    /// invalid expression refuses every value.
    static CValidator Pattern(const std::string& regex);
    /// Whatever check decides; it is called on the writer's thread with the
    /// store's lock held, so it must not call back into the store.
    static CValidator Custom(const Function& check);

    /// "" when value is acceptable for the variable name, else the reason.
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
