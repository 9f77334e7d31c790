#pragma once

#include <cstdint>

namespace FP {

/// How a menu or screen redraws: in place, or cleared with its title first.
/// Anything other than DRAW_FULL redraws in place.
enum DrawScreen_e : int32_t { DRAW_REFRESH = 0, DRAW_FULL = 1 };

/// A second draw mode that event screens accept and hand on; the menu engine
/// gives it no meaning. The underlying type is fixed so that any value a
/// screen passes is a valid DrawLine_e.
enum DrawLine_e : int32_t { DRAW_LINE_NONE = 0 };

/// What a cursor shows and how up and down move it. Inside the cursor every
/// value other than 2, 3 and 4 behaves like CURSOR_MENU.
enum CursorType_e : int32_t {
    CURSOR_NONE = -1,     ///< the menu draws no cursor and ignores up and down
    CURSOR_MENU = 0,      ///< cursorChar in the cursor column
    CURSOR_MENU_ALT = 1,  ///< the same
    CURSOR_EDIT = 2,      ///< the selected character of a value in reverse video
    CURSOR_SCROLL = 3,    ///< no visible cursor; up/down scroll the list
    CURSOR_PAGE = 4       ///< no visible cursor; up/down page the list
};

}  // namespace FP
