#include <map>
#include <string>

#include <gtest/gtest.h>

#include "fp/menu/Cursor.h"

namespace {

using FP::Cursor;

// Steps on a cursor, each answering what the cursor returned: n/p next/previous
// position, u/d up/down, L last position, S<digit> select an item, C<digit> set
// the item count.
const std::map<char, bool (*)(Cursor&, int)> kSteps = {
    {'n', [](Cursor& c, int) { return c.SetCursorPosition(Cursor::CURSOR_NEXT); }},
    {'p', [](Cursor& c, int) { return c.SetCursorPosition(Cursor::CURSOR_PREVIOUS); }},
    {'u', [](Cursor& c, int) { return c.MoveCursorUp(); }},
    {'d', [](Cursor& c, int) { return c.MoveCursorDown(); }},
    {'L', [](Cursor& c, int) { return c.SelectLastPos(), false; }},
    {'S', [](Cursor& c, int n) { return c.SetSelectedItem(n), false; }},
    {'C', [](Cursor& c, int n) { return c.SetItemCount(n), false; }},
};

// Plays steps on c and answers what the last one returned.
bool Play(Cursor& c, const std::string& steps) {
    bool r = false;
    for (size_t i = 0; i < steps.size(); ++i) {
        const char step = steps[i];
        const int digit = step == 'S' || step == 'C' ? steps[++i] - '0' : 0;
        r = kSteps.at(step)(c, digit);
    }
    return r;
}

// Every case runs on display lines 1 to 3.
TEST(Cursor, Arithmetic) {
    const struct {
        const char* name;
        int items;
        FP::CursorType_e type;
        const char* steps;
        int index, position, top;
        bool result;
    } cases[] = {
        {"three steps scroll once", 5, FP::CURSOR_MENU, "nnn", 3, 3, 1, true},
        {"five steps wrap to the start", 5, FP::CURSOR_MENU, "nnnnn", 0, 1, 0, true},
        {"previous at the start wraps to the end", 5, FP::CURSOR_MENU, "p", 4, 3, 2, true},
        {"previous wraps within a short list", 2, FP::CURSOR_MENU, "u", 1, 2, 0, false},
        {"shrinking below the selection resets it", 5, FP::CURSOR_MENU, "nnnnC2", 0, 1, 0, false},
        {"selected item stands as low as possible", 5, FP::CURSOR_MENU, "S4", 4, 3, 2, false},
        {"selecting the top item near the end scrolls back one", 5, FP::CURSOR_PAGE, "S4dS3", 2, 3,
         2, false},
        {"last position is the last but one", 5, FP::CURSOR_MENU, "L", 3, 3, 1, false},
        {"last position of two items is the first", 2, FP::CURSOR_MENU, "L", 0, 1, 0, false},
        {"scroll type moves the top until the end shows", 5, FP::CURSOR_SCROLL, "ddd", 0, 1, 2,
         false},
        {"scroll type at the top stays", 5, FP::CURSOR_SCROLL, "u", 0, 1, 0, false},
        {"page type up moves but never asks for a redraw", 5, FP::CURSOR_PAGE, "du", 0, 1, 0,
         false},
        {"an empty list stays on item 0", 0, FP::CURSOR_MENU, "ud", 0, 1, 0, false},
    };
    for (const auto& tc : cases) {
        SCOPED_TRACE(tc.name);
        Cursor c;
        c.SetCursorType(tc.type);
        c.SetDisplayLines(1, 3);
        c.SetItemCount(tc.items);
        EXPECT_EQ(Play(c, tc.steps), tc.result);
        EXPECT_EQ(c.GetCursorIndex(), tc.index);
        EXPECT_EQ(c.GetCursorPosition(), tc.position);
        EXPECT_EQ(c.GetItemAtTopLine(), tc.top);
    }
}

}  // namespace
