#include "fp/menu/DisplayLine.h"

#include <utility>

#include "fp/core/Names.h"
#include "kt/Str.h"

namespace FP {

DisplayLine::DisplayLine() {
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask = 0;
    editing = false;
}

DisplayLine::DisplayLine(const std::string& v) : DisplayLine() {
    SetCurrentValue(v);
}

DisplayLine::DisplayLine(const std::string& dbName, std::string dbInstance) : DisplayLine() {
    SetDbName(dbName);
    SetDbInstance(std::move(dbInstance));
}

DisplayLine::~DisplayLine() = default;

bool DisplayLine::KeyPress(const KeyState_t& key) {
    if (readOnly) {
        return editing;
    }
    if (key.key == KEY_ENTER) {
        editing = !editing;
    } else if (key.key == KEY_EXIT && editing) {
        editing = false;
    }
    return editing;
}

bool DisplayLine::SetCurrentValue(const std::string& v) {
    value = v;
    return true;
}

bool DisplayLine::SetCurrentValue(int n) {
    return SetCurrentValue(KT::Str::Format("%d", n));
}

}  // namespace FP
