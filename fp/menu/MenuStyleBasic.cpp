#include "fp/menu/MenuStyleBasic.h"

#include "fp/core/Names.h"
#include "fp/display/Display.h"
#include "fp/menu/BaseLine.h"

namespace FP {

MenuStyleBasic::MenuStyleBasic() {
    cursor.SetCursorType(CURSOR_MENU);
    cursor.SetCursorPosition(0);
}

void MenuStyleBasic::SetOffset(int i, int offset) {
    if (BaseLine* line = lines.GetLiveLine(i)) {
        line->SetOffset(offset);
    }
}

void MenuStyleBasic::RefreshData() {
    const int top = cursor.GetItemAtTopLine();
    for (int i = 0; i < cursor.GetTotalLines(); ++i) {
        if (BaseLine* line = lines.GetLiveLine(top + i)) {
            line->RefreshData();
        }
    }
}

void MenuStyleBasic::UpdateLine(const std::string& caption, int i) {
    if (BaseLine* line = lines.GetLiveLine(i)) {
        line->SetVariableName(caption);
    }
}

bool MenuStyleBasic::ReplaceLine(BaseLine* line, int i, const std::string& caption) {
    if (line && !caption.empty()) {
        line->SetVariableName(caption);
    }
    return i >= 0 && lines.ReplaceLine(line, static_cast<unsigned int>(i));
}

void MenuStyleBasic::DrawRow(BaseLine* line, int row, bool drawCursor) {
    if (!display) {
        return;
    }
    if (line) {
        line->DrawLine(row);
    }
    if (cursor.GetCursorType() != CURSOR_NONE) {
        if (drawCursor) {
            cursor.DrawCursor(row, std::string());
        } else {
            cursor.EraseCursor(row);
        }
    }
    display->SendLine(static_cast<unsigned int>(row));
}

void MenuStyleBasic::UpdateLine(bool drawCursor) {
    DrawRow(SelectedLine(), cursor.GetCursorIndex() - cursor.GetItemAtTopLine() + 1, drawCursor);
}

void MenuStyleBasic::UpdateLine(int i, bool drawCursor) {
    DrawRow(lines.GetLiveLine(cursor.GetItemAtTopLine() + i), i + cursor.GetTopLine(), drawCursor);
}

void MenuStyleBasic::SendNavSymbols(unsigned char mask) {
    if (display) {
        display->SendNavSymbols(mask);
    }
}

void MenuStyleBasic::DrawScreen(DrawScreen_e mode) {
    if (!display) {
        return;
    }
    if (editing) {
        UpdateLine(false);
        if (BaseLine* line = SelectedLine()) {
            SendNavSymbols(line->GetEditNavMask());
        }
        return;
    }
    // Step off unselectable lines. Scroll and page cursors select nothing:
    // moving them would only slide the page on every draw, so they stay.
    const bool paging =
        cursor.GetCursorType() == CURSOR_SCROLL || cursor.GetCursorType() == CURSOR_PAGE;
    for (int tries = paging ? 0 : cursor.GetItemCount(); tries > 0; --tries) {
        BaseLine* line = SelectedLine();
        if (!line || line->GetSelectable()) {
            break;
        }
        cursor.MoveCursorDown();
        if (cursor.GetCursorIndex() == 0) {
            break;
        }
    }
    if (mode == DRAW_FULL) {
        display->ClearDisplay();
        if (title) {
            title->RefreshData();
            title->DrawLine(0);
        }
    }
    if (lines.GetNumLiveLines() > 0) {
        const int top = cursor.GetItemAtTopLine();
        for (int i = 0; i < cursor.GetTotalLines(); ++i) {
            if (BaseLine* line = lines.GetLiveLine(top + i)) {
                line->RefreshData();
                line->DrawLine(i + cursor.GetTopLine());
            }
        }
    }
    // An empty menu has nothing to point at; its cursor would land on the
    // title row.
    if (cursor.GetCursorType() != CURSOR_NONE && lines.GetNumLiveLines() > 0) {
        cursor.DrawCursor(cursor.GetCursorPosition(), std::string());
    }
    scrollBar.DrawBar();
    BaseLine* selected = SelectedLine();
    SendNavSymbols(selected ? selected->GetHoverNavMask() : 0);
    display->SendUpdate();
}

std::string MenuStyleBasic::KeyPress(const KeyState_t& event) {
    BaseLine* selected = SelectedLine();
    if (editing) {
        if (selected) {
            selected->KeyPress(event);
        }
        if (event.key == KEY_EXIT || event.key == KEY_ENTER) {
            editing = false;
            UpdateLine(true);
            if (selected) {
                SendNavSymbols(selected->GetHoverNavMask());
            }
        } else {
            UpdateLine(false);
        }
        return kNoScreen;
    }
    if (selected && selected->GetSendAllKeys()) {
        selected->KeyPress(event);
        UpdateLine(true);
    }
    switch (event.key) {
        case KEY_UP:
        case KEY_DOWN: {
            if (cursor.GetCursorType() == CURSOR_NONE) {
                break;
            }
            const bool up = event.key == KEY_UP;
            up ? cursor.MoveCursorUp() : cursor.MoveCursorDown();
            // Jump a single row that cannot be selected; the redraw deals
            // with longer stretches.
            BaseLine* line = SelectedLine();
            if (line && !line->GetSelectable()) {
                up ? cursor.MoveCursorUp() : cursor.MoveCursorDown();
            }
            DrawScreen(DRAW_FULL);
            break;
        }
        case KEY_EXIT:
            return exitScreen;
        case KEY_ENTER: {
            const std::string child = lines.GetChildMenu(cursor.GetCursorIndex());
            if (child != kNoScreen) {
                return child;
            }
            editing = selected ? selected->KeyPress(event) : false;
            DrawScreen(DRAW_REFRESH);
            break;
        }
        default:
            break;
    }
    return kNoScreen;
}

}  // namespace FP
