#pragma once

#include "fp/core/KeyTypes.h"

namespace fptest {

// A key going down, the only state menus, lines and screens act on.
inline FP::KeyState_t Key(FP::Key_e k) {
    return FP::KeyState_t{k, FP::KEY_STATE_DOWN};
}

}  // namespace fptest
