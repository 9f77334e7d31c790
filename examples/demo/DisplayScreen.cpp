#include "examples/demo/DisplayScreen.h"

#include <map>

#include "examples/demo/DemoVars.h"
#include "fp/menu/BaseLine.h"

namespace FPDEMO {

DisplayScreen::DisplayScreen() : SettingsScreen("Display", "Display") {}

void DisplayScreen::CreateLines() {
    std::map<std::string, std::string> levels;
    for (char c = '1'; c <= '8'; ++c)
        levels[std::string(1, c)] = std::string(1, c);
    // The variable holds the level itself, so the row stores keys.
    CreateChoiceLine("Brightness:", Var::kBrightness, Var::kInstance, levels, "");
}

}  // namespace FPDEMO
