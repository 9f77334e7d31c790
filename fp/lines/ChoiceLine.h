#pragma once

#include <map>
#include <string>

#include "fp/lines/ListLine.h"
#include "fp/lines/detail/UnshownValue.h"

namespace FP {

/// A choice among texts whose variable holds the chosen item's key: it reads
/// the key back, and a commit writes the key (a ListLine writes the item's
/// position instead). A stored value that is none of the keys shows as "?"
/// and is logged once, at warn level on "fp.lines".
/// Threads: the UI thread, like every row.
class ChoiceLine : public ListLine {
public:
    /// What the row shows while its stored value is none of its keys.
    static constexpr const char* kUnknown = "?";

    /// items: key (the stored value) to text (what the row shows). Items
    /// appear in the order of their keys compared as plain text.
    explicit ChoiceLine(std::map<std::string, std::string> items);
    /// The same with whole-number keys, written in decimal.
    explicit ChoiceLine(const std::map<int, std::string>& items);

    /// A commit writes the chosen key when the row is bound, active and
    /// writable; other keys as ListLine.
    bool KeyPress(const KeyState_t& key) override;
    using ListLine::SetCurrentValue;
    /// Selects the item with this key; any other value leaves the row
    /// showing kUnknown and answers false.
    bool SetCurrentValue(const std::string& key) override;
    /// The chosen text, or kUnknown while the stored value is not a key.
    std::string GetCurrentString() const override;
    /// The key of the committed item.
    std::string GetCurrentKey() const;

private:
    UnshownValue unshown_;
};

}  // namespace FP
