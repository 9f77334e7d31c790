#pragma once

#include <string>

namespace TOV {

// Identifies one object instance of a variable ("0" is the unit's own).
class COid {
public:
    COid() = default;
    COid(const std::string& text) : text_(text) {}  // NOLINT: built from text by design
    COid(const char* text) : text_(text ? text : "") {}

    const std::string& ToString() const { return text_; }
    bool Empty() const { return text_.empty(); }
    // The instance named: the text without one leading '.', so ".0" and "0"
    // address the same instance.
    std::string Instance() const;

    bool operator==(const COid& o) const { return text_ == o.text_; }
    bool operator!=(const COid& o) const { return text_ != o.text_; }
    bool operator<(const COid& o) const { return text_ < o.text_; }

private:
    std::string text_;
};

}  // namespace TOV
