#include "StatusScreen.h"

#include "UnitVars.h"
#include "fp/core/Names.h"

namespace FirstUnit {

StatusScreen::StatusScreen() {
    SetName(Screen::kStatus);
    SetSelectScreen(Screen::kSettings);  // where Enter goes
    menu.SetTitle("Status");
    menu.SetExitScreen(FP::kNoScreen);  // home: Esc stays here
}

void StatusScreen::CreateLines() {
    CreateDisplayLine("Name:", Var::kName, Var::kInstance, "");
    // Shows the text for the stored position ("2" reads "Quiet").
    CreateListLine("Fan:", Var::kFanMode, Var::kInstance, FanModeTexts(), "");
}

}  // namespace FirstUnit
