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

struct Binding_t {
    int ch;
    KeyAction_t action;
};

// Terminal keys with a fixed meaning. Terminals send DEL or ^H for the
// backspace key, depending on setup, so all three count.
const Binding_t kBindings[] = {
    {KEY_LEFT, Panel(kPanelLeft)},
    {KEY_UP, Panel(kPanelUp)},
    {KEY_RIGHT, Panel(kPanelRight)},
    {KEY_DOWN, Panel(kPanelDown)},
    {kEsc, Panel(kPanelExit)},
    {KEY_ENTER, Panel(kPanelEnter)},
    {'\n', Panel(kPanelEnter)},
    {'\r', Panel(kPanelEnter)},
    {KEY_BACKSPACE, Panel(kPanelBackspace)},
    {kDel, Panel(kPanelBackspace)},
    {'\b', Panel(kPanelBackspace)},
    {KEY_DC, Panel(kPanelDelete)},
    {' ', Panel(kPanelSpace)},
    {KEY_F(5), Panel(kPanelRefresh)},
    {kCtrlQ, Action(ACTION_QUIT)},
    {KEY_F(10), Action(ACTION_QUIT)},
    {KEY_F(2), Action(ACTION_TEMP_UP)},
    {KEY_F(3), Action(ACTION_TEMP_DOWN)},
    {KEY_F(6), Action(ACTION_FAN_UP)},
    {KEY_F(7), Action(ACTION_FAN_DOWN)},
};

const char* const kLegend[] = {
    "Arrows Enter Esc Backspace Delete Space: panel keys",
    "0-9 a-z A-Z: panel keys   F5: REFRESH",
    "F2/F3: temperature +1/-1   F6/F7: fans +100/-100",
    "Ctrl-Q or F10: quit",
    nullptr,
};

}  // namespace

KeyAction_t KeyMap::FromCurses(int ch) {
    for (const Binding_t& binding : kBindings)
        if (binding.ch == ch)
            return binding.action;
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
