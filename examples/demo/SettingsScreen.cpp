#include "examples/demo/SettingsScreen.h"

#include "examples/demo/MainMenuScreen.h"

namespace FPDEMO {

SettingsScreen::SettingsScreen(const char* name, const char* title, int pollTime)
    : BaseConfigScreen(pollTime, true) {
    SetName(name);
    menu.SetTitle(title);
    menu.SetExitScreen(MainMenuScreen::kName);
}

}  // namespace FPDEMO
