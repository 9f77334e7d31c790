#include "examples/demo/MainMenuScreen.h"

#include "examples/demo/ScreenNames.h"

namespace FPDEMO {

MainMenuScreen::MainMenuScreen() {
    SetName(Screen::kMain);
    menu.SetTitle("Main Menu");
}

void MainMenuScreen::CreateLines() {
    CreateLine("Status", Screen::kStatus);
    CreateLine("Network", Screen::kNetwork);
    CreateLine("Display", Screen::kDisplay);
    CreateLine("Date & Time", Screen::kDateTime);
    CreateLine("Setup Wizard", Screen::kWizard);
    CreateLine("About", Screen::kAbout);
}

}  // namespace FPDEMO
