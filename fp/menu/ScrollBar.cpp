#include "fp/menu/ScrollBar.h"

#include "fp/display/Display.h"
#include "fp/menu/Cursor.h"

namespace FP {

ScrollBar::ScrollBar() : ScrollBar(nullptr, nullptr) {}

ScrollBar::ScrollBar(Cursor* c, Display* d) : downChar('v'), upChar('^'), cursor(c), display(d) {}

void ScrollBar::DrawBar() {
    if (!cursor || !display) {
        return;
    }
    const int top = cursor->GetItemAtTopLine();
    const int w = static_cast<int>(display->GetDisplayWidth());
    const int h = static_cast<int>(display->GetDisplayHeight());
    if (top > 0) {
        display->WriteChar(upChar, 1, w - 2);
    }
    if (top - 1 + h < cursor->GetItemCount()) {
        display->WriteChar(downChar, h - 1, w - 2);
    }
}

}  // namespace FP
