#include "fp/lines/ChoiceLine.h"

#include <algorithm>
#include <utility>

#include "fp/lines/internal/HeldWrite.h"
#include "kt/Str.h"

namespace FP {

namespace {

std::map<std::string, std::string> DecimalKeys(const std::map<int, std::string>& items) {
    std::map<std::string, std::string> keys;
    for (const auto& item : items)
        keys[KT::Str::Format("%d", item.first)] = item.second;
    return keys;
}

}  // namespace

// Texts are taken as given: keys, not texts, are what must match the engine.
ChoiceLine::ChoiceLine(std::map<std::string, std::string> items)
    : ListLine(std::move(items), false) {}

ChoiceLine::ChoiceLine(const std::map<int, std::string>& items) : ChoiceLine(DecimalKeys(items)) {}

bool ChoiceLine::KeyPress(const KeyState_t& key) {
    const bool commit = editing && key.key == KEY_ENTER;
    const bool result = HeldWrite::Run(dbActive, commit, [&] { return ListLine::KeyPress(key); });
    if (commit && !GetItemKeys().empty()) {
        unshown_.Clear();
        if (!readOnly && dbActive)
            SendDbData(GetCurrentKey());
    }
    return result;
}

bool ChoiceLine::SetCurrentValue(const std::string& key) {
    const auto& keys = GetItemKeys();
    const auto at = std::find(keys.begin(), keys.end(), key);
    if (at != keys.end() && SetCurrentValue(static_cast<int>(at - keys.begin()))) {
        unshown_.Clear();
        return true;
    }
    unshown_.Report(__func__, dbName, dbInstance, key, "which is none of the row's keys");
    return false;
}

std::string ChoiceLine::GetCurrentString() const {
    return unshown_.Active() && !editing ? std::string(kUnknown) : ListLine::GetCurrentString();
}

std::string ChoiceLine::GetCurrentKey() const {
    const int index = GetCurrentNumber();
    const auto& keys = GetItemKeys();
    return index >= 0 && static_cast<size_t>(index) < keys.size() ? keys[index] : std::string();
}

}  // namespace FP
