#pragma once

#include <string>

namespace FPPANEL {

// What a terminal key does in fp-panel: send a panel key, or act on the
// emulator itself.
enum KeyAction_e {
    ACTION_NONE,
    ACTION_PANEL_KEY,
    ACTION_QUIT,
    ACTION_TEMP_UP,
    ACTION_TEMP_DOWN,
    ACTION_FAN_UP,
    ACTION_FAN_DOWN,
};

struct KeyAction_t {
    KeyAction_e action = ACTION_NONE;
    int panelKey = 0;  // the key code on the wire, for ACTION_PANEL_KEY
};

// Translation of curses key codes and of key names typed on standard input.
class KeyMap {
public:
    static KeyAction_t FromCurses(int ch);
    // The panel key code for a key name as the library logs it ("UP",
    // "ENTER", "7", "q", "Q", ...); -1 for an unknown name.
    static int FromName(const std::string& name);
    // Lines describing the keys, for the screen's legend.
    static const char* const* Legend();
};

}  // namespace FPPANEL
