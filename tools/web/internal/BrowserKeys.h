#pragma once

#include <string>

#include "tools/panel/KeyMap.h"

namespace FPWEB {

// Browser key names (KeyboardEvent.key) through the terminal's key map, so a
// key does the same thing in both views.
class BrowserKeys {
public:
    // ACTION_NONE for a key the terminal does not know either.
    static FPPANEL::KeyAction_t FromKey(const std::string& key);
};

}  // namespace FPWEB
