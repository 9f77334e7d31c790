#include "examples/demo/DisplayScreen.h"

#include <map>

#include "examples/demo/DemoVars.h"
#include "examples/demo/ScreenNames.h"
#include "fp/menu/BaseLine.h"

namespace FPDEMO {

DisplayScreen::DisplayScreen() : BaseConfigScreen(2000, true) {
    SetName(Screen::kDisplay);
    menu.SetTitle("Display");
    menu.SetExitScreen(Screen::kMain);
}

void DisplayScreen::CreateLines() {
    std::map<std::string, std::string> levels;
    for (char c = '1'; c <= '8'; ++c)
        levels[std::string(1, c)] = std::string(1, c);
    // The variable holds the level itself, so the row stores keys.
    CreateChoiceLine("Brightness:", Var::kBrightness, Var::kInstance, levels, "");
}

}  // namespace FPDEMO
