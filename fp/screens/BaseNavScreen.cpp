#include "fp/screens/BaseNavScreen.h"

#include "fp/core/Names.h"
#include "fp/menu/DisplayLine.h"

namespace FP {

BaseNavScreen::BaseNavScreen() : BaseScreen(2000, true), initialized(false) {}

BaseNavScreen::~BaseNavScreen() {
    // The rows handed to the menu belong to its line container, which deletes
    // them with the menu; delete here only those that never reached it.
    for (NavigationMenu_t* entry : entries) {
        if (menu.GetLineIndex(entry->line) < 0)
            delete entry->line;
        delete entry;
    }
}

NavigationMenu_t* BaseNavScreen::CreateLine(const std::string& label, const std::string& screen) {
    auto* entry = new NavigationMenu_t{new DisplayLine(label), screen};
    // The back hint only where exit leads somewhere.
    if (menu.GetExitScreen() != kNoScreen)
        entry->line->SetHoverNavMask(entry->line->GetHoverNavMask() | NavSymbol::kExit);
    entries.push_back(entry);
    return entry;
}

void BaseNavScreen::SetupMenu() {
    for (NavigationMenu_t* entry : entries)
        menu.AddLine(entry->line, "", entry->screen);
}

void BaseNavScreen::Initialize() {
    if (!initialized) {
        CreateLines();
        SetupMenu();
        initialized = true;
    }
    DrawScreen();
}

}  // namespace FP
