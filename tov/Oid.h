#pragma once

#include <string>

namespace TOV {

/// Names one instance of a variable ("0" is the unit's own), as text.
/// Threads: a value type; one thread at a time per object, copies are
/// independent.
class COid {
public:
    /// The empty identifier.
    COid() = default;
    /// Built from its text; converts implicitly so that "0" can be passed.
    COid(const std::string& text) : text_(text) {}  // NOLINT: built from text by design
    /// Built from its text; null gives the empty identifier.
    COid(const char* text) : text_(text ? text : "") {}

    /// The text as given.
    const std::string& ToString() const { return text_; }
    /// True when there is no text.
    bool Empty() const { return text_.empty(); }
    /// The instance named: the text without one leading '.', so ".0" and "0"
    /// address the same instance.
    std::string Instance() const;

    /// Compare the texts, so ".0" and "0" are different identifiers here;
    /// the ordering lets identifiers key sorted containers.
    ///@{
    bool operator==(const COid& o) const { return text_ == o.text_; }
    bool operator!=(const COid& o) const { return text_ != o.text_; }
    bool operator<(const COid& o) const { return text_ < o.text_; }
    ///@}

private:
    std::string text_;
};

}  // namespace TOV
