#include "examples/demo/AboutScreen.h"

#include "examples/demo/DemoVars.h"
#include "examples/demo/ScreenNames.h"
#include "fp/core/Names.h"

namespace FPDEMO {

AboutScreen::AboutScreen() {
    SetName(Screen::kAbout);
    SetSelectScreen(FP::kNoScreen);
    menu.SetTitle("About");
    menu.SetExitScreen(Screen::kMain);
    // Slow enough to read the scrolling line.
    SetPollTime(400);
}

void AboutScreen::CreateLines() {
    CreateScrollLine(
        "fp-demo: a sample unit built on the front-panel library - menus, status, settings, "
        "a setup wizard - on an emulated or a real panel.");
    CreateDisplayLine("", Var::kUnitVersion, Var::kInstance, "");
    CreateDisplayLine("Ctrl:", Var::kPanelVersion, Var::kInstance, "");
}

}  // namespace FPDEMO
