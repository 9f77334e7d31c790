#include "fp/menu/MenuStyle.h"

#include "fp/core/Names.h"
#include "fp/display/Display.h"
#include "fp/menu/BaseLine.h"
#include "fp/menu/DisplayLine.h"

namespace FP {

MenuStyle::MenuStyle()
    : scrollBar(&cursor, nullptr),
      title(nullptr),
      exitScreen(kNoScreen),
      editing(false),
      display(nullptr),
      client(nullptr),
      savedCursorIndex(0) {
    cursor.SetCursorChar('>');
}

std::string MenuStyle::KeyPress(const KeyState_t& /*event*/) {
    return kNoScreen;
}

void MenuStyle::SetDisplay(Display* d) {
    display = d;
    cursor.SetDisplay(d);
    scrollBar.SetDisplay(d);
    // A title set before the display was known would otherwise draw nowhere.
    if (title) {
        title->SetDisplay(d);
    }
}

void MenuStyle::SetTitle(const std::string& text) {
    DisplayLine* line = new DisplayLine(text);
    line->SetDisplay(display);
    line->SetAlignment(CENTER);
    title = line;
}

void MenuStyle::SetTitle(const std::string& caption, const std::string& dbName,
                         const std::string& dbInstance) {
    DisplayLine* line = new DisplayLine(dbName, dbInstance);
    line->SetClient(client);
    line->SetDisplay(display);
    line->SetVariableName(caption);
    line->SetAlignment(CENTER);
    title = line;
}

void MenuStyle::AddLine(BaseLine* line) {
    AddLine(line, std::string(), kNoScreen);
}

void MenuStyle::AddLine(BaseLine* line, const std::string& name) {
    AddLine(line, name, kNoScreen);
}

void MenuStyle::AddLine(BaseLine* line, const std::string& name, const std::string& childMenu) {
    if (!line) {
        return;
    }
    line->SetClient(client);
    line->SetDisplay(display);
    if (!name.empty()) {
        line->SetVariableName(name);
    }
    lines.AddLine(line, lines.GetNumLiveLines(), childMenu);
    const int n = lines.GetNumLiveLines();
    cursor.SetItemCount(n);
    // The list area grows with the menu until it reaches the last line.
    if (display && n < static_cast<int>(display->GetDisplayHeight())) {
        cursor.SetDisplayLines(1, n);
    }
    line->SetCurrentValue();
}

void MenuStyle::RemoveLines() {
    savedCursorIndex = cursor.GetCursorIndex();
    lines.DestroyContainer();
}

bool MenuStyle::SkipLine(int index) {
    const bool done = lines.SkipLine(index);
    cursor.SetItemCount(lines.GetNumLiveLines());
    return done;
}

bool MenuStyle::UseLine(int index) {
    const bool done = lines.UseLine(index);
    cursor.SetItemCount(lines.GetNumLiveLines());
    return done;
}

void MenuStyle::SkipLine(BaseLine* line) {
    SetSkipLine(line, true);
}

void MenuStyle::UseLine(BaseLine* line) {
    SetSkipLine(line, false);
}

void MenuStyle::SetSkipLine(BaseLine* line, bool skip) {
    const int index = line ? lines.GetLineIndex(line) : -1;
    if (index < 0) {
        return;
    }
    bool (LineContainer::*apply)(int) = skip ? &LineContainer::SkipLine : &LineContainer::UseLine;
    (lines.*apply)(index);
    // A line's companion row lives or goes with it.
    if (line->GetCompanionRow()) {
        (lines.*apply)(index + 1);
    }
    cursor.SetItemCount(lines.GetNumLiveLines());
}

std::string MenuStyle::GetCurrentValue(int i) const {
    const BaseLine* line = lines.GetLiveLine(i);
    return line ? line->GetCurrentString() : std::string();
}

void MenuStyle::SetEditEnabled(bool on) {
    if (editing == on) {
        return;
    }
    KeyPress(KeyState_t{KEY_ENTER, KEY_STATE_UNKNOWN});
}

void MenuStyle::SetSelectedItem(BaseLine* line) {
    const int index = lines.GetLineIndex(line);
    if (index >= 0) {
        cursor.SetSelectedItem(index);
    }
}

}  // namespace FP
