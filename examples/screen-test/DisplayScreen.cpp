#include "DisplayScreen.h"

#include <map>

namespace MyUnit {

bool DeclareVars(TOV::CDataStore& store, std::string& error) {
    const TOV::CRet ret = store.Declare(
        TOV::CVarDecl(kBrightness).Default("5").Check(TOV::CValidator::Integer(1, 8)));
    error = ret.Msg();
    return ret.Success();
}

DisplayScreen::DisplayScreen() : BaseConfigScreen(2000, true) {
    SetName("Display");
    menu.SetTitle("Display");
}

void DisplayScreen::CreateLines() {
    std::map<std::string, std::string> levels;
    for (char c = '1'; c <= '8'; ++c)
        levels[std::string(1, c)] = std::string(1, c);
    // The variable holds the level itself, so the row stores keys.
    CreateChoiceLine("Brightness:", kBrightness, "0", levels, "");
}

}  // namespace MyUnit
