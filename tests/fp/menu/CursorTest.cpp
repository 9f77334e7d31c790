#include <algorithm>
#include <functional>

#include <gtest/gtest.h>

#include "fp/menu/Cursor.h"

namespace {

using FP::Cursor;

struct CursorCase {
    const char* name;
    int items;
    FP::CursorType_e type;
    std::function<bool(Cursor&)> steps;  // answers the last step's result
    int index, position, top;
    bool result;
};

bool Next(Cursor& c, int n) {
    bool r = false;
    while (n-- > 0)
        r = c.SetCursorPosition(Cursor::CURSOR_NEXT);
    return r;
}

// Every case runs on display lines 1 to 3.
TEST(Cursor, Arithmetic) {
    const CursorCase cases[] = {
        {"three steps scroll once", 5, FP::CURSOR_MENU, [](Cursor& c) { return Next(c, 3); }, 3, 3,
         1, true},
        {"five steps wrap to the start", 5, FP::CURSOR_MENU, [](Cursor& c) { return Next(c, 5); },
         0, 1, 0, true},
        {"previous at the start wraps to the end", 5, FP::CURSOR_MENU,
         [](Cursor& c) { return c.SetCursorPosition(Cursor::CURSOR_PREVIOUS); }, 4, 3, 2, true},
        {"previous wraps within a short list", 2, FP::CURSOR_MENU,
         [](Cursor& c) { return c.MoveCursorUp(); }, 1, 2, 0, false},
        {"shrinking below the selection resets it", 5, FP::CURSOR_MENU,
         [](Cursor& c) {
             Next(c, 4);
             c.SetItemCount(2);
             return false;
         },
         0, 1, 0, false},
        {"selected item stands as low as possible", 5, FP::CURSOR_MENU,
         [](Cursor& c) {
             c.SetSelectedItem(4);
             return false;
         },
         4, 3, 2, false},
        {"selecting the top item near the end scrolls back one", 5, FP::CURSOR_PAGE,
         [](Cursor& c) {
             c.SetSelectedItem(4);  // top 2
             c.MoveCursorDown();    // top 3
             c.SetSelectedItem(3);
             return false;
         },
         2, 3, 2, false},
        {"last position is the last but one", 5, FP::CURSOR_MENU,
         [](Cursor& c) {
             c.SelectLastPos();
             return false;
         },
         3, 3, 1, false},
        {"last position of two items is the first", 2, FP::CURSOR_MENU,
         [](Cursor& c) {
             c.SelectLastPos();
             return false;
         },
         0, 1, 0, false},
        {"scroll type moves the top until the end shows", 5, FP::CURSOR_SCROLL,
         [](Cursor& c) {
             c.MoveCursorDown();
             c.MoveCursorDown();
             return c.MoveCursorDown();
         },
         0, 1, 2, false},
        {"scroll type at the top stays", 5, FP::CURSOR_SCROLL,
         [](Cursor& c) { return c.MoveCursorUp(); }, 0, 1, 0, false},
        {"page type up moves but never asks for a redraw", 5, FP::CURSOR_PAGE,
         [](Cursor& c) {
             c.MoveCursorDown();
             return c.MoveCursorUp();
         },
         0, 1, 0, false},
        {"an empty list stays on item 0", 0, FP::CURSOR_MENU,
         [](Cursor& c) { return c.MoveCursorUp() || c.MoveCursorDown(); }, 0, 1, 0, false},
    };
    for (const auto& tc : cases) {
        SCOPED_TRACE(tc.name);
        Cursor c;
        EXPECT_EQ(c.GetItemCount(), 0);
        c.SetCursorType(tc.type);
        c.SetDisplayLines(1, 3);
        c.SetItemCount(tc.items);
        EXPECT_EQ(tc.steps(c), tc.result);
        EXPECT_EQ(c.GetCursorIndex(), tc.index);
        EXPECT_EQ(c.GetCursorPosition(), tc.position);
        EXPECT_EQ(c.GetItemAtTopLine(), tc.top);
        EXPECT_EQ(c.GetTotalLines(), std::min(c.GetItemCount(), 3));
    }
}

}  // namespace
