#pragma once

#include <cstdint>

namespace FP {

/// Key codes as the panel sends them.
enum Key_e : int32_t {
    KEY_NONE = 0,
    KEY_LEFT = 1,
    KEY_UP = 2,
    KEY_RIGHT = 3,
    KEY_DOWN = 4,
    KEY_EXIT = 5,
    KEY_ENTER = 6,
    KEY_BACKSPACE = 7,
    KEY_0 = 8,
    KEY_1 = 9,
    KEY_2 = 10,
    KEY_3 = 11,
    KEY_4 = 12,
    KEY_5 = 13,
    KEY_6 = 14,
    KEY_7 = 15,
    KEY_8 = 16,
    KEY_9 = 17,
    KEY_REFRESH = 18,
    KEY_DELETE = 19,
    KEY_SPACEBAR = 20,
    KEY_a = 21,  // lower-case letters run 21 ('a') to 46 ('z')
    KEY_z = 46,
    KEY_A = 47,  // upper-case letters run 47 ('A') to 72 ('Z')
    KEY_Z = 72,
    KEY_LAST = 72
};

/// What happened to a key.
enum KeyState_e : int32_t { KEY_STATE_UNKNOWN = 0, KEY_STATE_DOWN = 1, KEY_STATE_UP = 2 };

/// One key event: the key and what happened to it.
struct KeyState_t {
    /// Which key.
    Key_e key;
    /// Pressed or released.
    KeyState_e state;
};

/// Name strings used in log lines: "NONE", "LEFT", ..., "a".."z", "A".."Z",
/// "ERROR" above 72; "Unknown", "Down", "Up", "ERROR" for states.
const char* KeyName(int key);
/// See KeyName().
const char* KeyStateName(int state);

/// The application's key listener.
/// Threads: called on the keypad's watcher thread.
class IKeyPress {
public:
    virtual ~IKeyPress() = default;
    /// A key was pressed (or repeats while held).
    virtual void OnKeyPress(Key_e key) = 0;
};

}  // namespace FP
