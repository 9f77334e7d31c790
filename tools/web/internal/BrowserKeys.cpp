#include "tools/web/internal/BrowserKeys.h"

// Last: curses' key macros would clash with the library's key names.
#include <curses.h>

namespace FPWEB {

namespace {

struct Named {
    const char* name;
    int ch;
};

// Control keys the page can report, as the terminal reports them. Ctrl-Q
// and F10 are left out: a browser must not stop the program.
int CursesCode(const std::string& key) {
    static const Named kNamed[] = {
        {"ArrowLeft", KEY_LEFT},
        {"ArrowUp", KEY_UP},
        {"ArrowRight", KEY_RIGHT},
        {"ArrowDown", KEY_DOWN},
        {"Escape", 27},
        {"Enter", '\n'},
        {"Backspace", KEY_BACKSPACE},
        {"Delete", KEY_DC},
        {"F5", KEY_F(5)},
        {"F2", KEY_F(2)},
        {"F3", KEY_F(3)},
        {"F6", KEY_F(6)},
        {"F7", KEY_F(7)},
        {"Space", ' '},
    };
    for (const Named& n : kNamed)
        if (key == n.name)
            return n.ch;
    if (key.size() == 1) {
        const char c = key[0];
        if (c == ' ' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'))
            return c;
    }
    return -1;
}

}  // namespace

FPPANEL::KeyAction_t BrowserKeys::FromKey(const std::string& key) {
    const int ch = CursesCode(key);
    return ch < 0 ? FPPANEL::KeyAction_t() : FPPANEL::KeyMap::FromCurses(ch);
}

}  // namespace FPWEB
