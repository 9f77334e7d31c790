#include "tools/panel/KeyMap.h"

#include "fp/core/KeyTypes.h"

namespace {

// curses defines KEY_UP, KEY_EXIT and friends as macros, so the panel's codes
// are captured before curses.h is included below.
constexpr int kPanelLeft = FP::KEY_LEFT;
constexpr int kPanelUp = FP::KEY_UP;
constexpr int kPanelRight = FP::KEY_RIGHT;
constexpr int kPanelDown = FP::KEY_DOWN;
constexpr int kPanelExit = FP::KEY_EXIT;
constexpr int kPanelEnter = FP::KEY_ENTER;
constexpr int kPanelBackspace = FP::KEY_BACKSPACE;
constexpr int kPanel0 = FP::KEY_0;
constexpr int kPanel1 = FP::KEY_1;
constexpr int kPanelRefresh = FP::KEY_REFRESH;
constexpr int kPanelDelete = FP::KEY_DELETE;
constexpr int kPanelSpace = FP::KEY_SPACEBAR;
constexpr int kPanelLowerA = FP::KEY_a;
constexpr int kPanelUpperA = FP::KEY_A;
constexpr int kPanelLast = FP::KEY_LAST;

}  // namespace

#include <curses.h>

namespace FPPANEL {

namespace {

const int kCtrlQ = 'q' & 0x1F;
const int kEsc = 27;
const int kDel = 127;

KeyAction_t Panel(int key) {
    KeyAction_t a;
    a.action = ACTION_PANEL_KEY;
    a.panelKey = key;
    return a;
}

KeyAction_t Action(KeyAction_e action) {
    KeyAction_t a;
    a.action = action;
    return a;
}

const char* const kLegend[] = {
    "Arrows Enter Esc Backspace Delete Space: panel keys",
    "0-9 a-z A-Z: panel keys   F5: REFRESH",
    "F2/F3: temperature +1/-1   F6/F7: fans +100/-100",
    "Ctrl-Q or F10: quit",
    nullptr,
};

}  // namespace

KeyAction_t KeyMap::FromCurses(int ch) {
    switch (ch) {
        case KEY_LEFT:
            return Panel(kPanelLeft);
        case KEY_UP:
            return Panel(kPanelUp);
        case KEY_RIGHT:
            return Panel(kPanelRight);
        case KEY_DOWN:
            return Panel(kPanelDown);
        case kEsc:
            return Panel(kPanelExit);
        case KEY_ENTER:
        case '\n':
        case '\r':
            return Panel(kPanelEnter);
        // Terminals send DEL or ^H for the backspace key, depending on setup.
        case KEY_BACKSPACE:
        case kDel:
        case '\b':
            return Panel(kPanelBackspace);
        case KEY_DC:
            return Panel(kPanelDelete);
        case ' ':
            return Panel(kPanelSpace);
        case kCtrlQ:
            return Action(ACTION_QUIT);
        default:
            break;
    }
    if (ch == KEY_F(5))
        return Panel(kPanelRefresh);
    if (ch == KEY_F(10))
        return Action(ACTION_QUIT);
    if (ch == KEY_F(2))
        return Action(ACTION_TEMP_UP);
    if (ch == KEY_F(3))
        return Action(ACTION_TEMP_DOWN);
    if (ch == KEY_F(6))
        return Action(ACTION_FAN_UP);
    if (ch == KEY_F(7))
        return Action(ACTION_FAN_DOWN);
    // The panel puts 0 before 1-9, and lower-case letters before upper-case.
    if (ch == '0')
        return Panel(kPanel0);
    if (ch >= '1' && ch <= '9')
        return Panel(kPanel1 + (ch - '1'));
    if (ch >= 'a' && ch <= 'z')
        return Panel(kPanelLowerA + (ch - 'a'));
    if (ch >= 'A' && ch <= 'Z')
        return Panel(kPanelUpperA + (ch - 'A'));
    return KeyAction_t();
}

int KeyMap::FromName(const std::string& name) {
    if (name == "SPACE")
        return kPanelSpace;
    // Code 0 means no key; it is not something to press.
    for (int key = 1; key <= kPanelLast; ++key)
        if (name == FP::KeyName(key))
            return key;
    return -1;
}

const char* const* KeyMap::Legend() {
    return kLegend;
}

}  // namespace FPPANEL
