#include "examples/demo/StatusScreen.h"

#include "examples/demo/DemoVars.h"
#include "examples/demo/ScreenNames.h"
#include "fp/core/Names.h"
#include "fp/menu/BaseLine.h"

namespace FPDEMO {

StatusScreen::StatusScreen() {
    SetName(Screen::kStatus);
    SetSelectScreen(FP::kNoScreen);
    menu.SetTitle("Status");
    menu.SetExitScreen(Screen::kMain);
}

void StatusScreen::CreateLines() {
    CreateDisplayLine("Temp:", Var::kTemperature, Var::kInstance, "")->SetSuffix(" C");
    CreateDisplayLine("Fan 1:", Var::kFan1, Var::kInstance, "")->SetSuffix(" rpm");
    CreateDisplayLine("Fan 2:", Var::kFan2, Var::kInstance, "")->SetSuffix(" rpm");
    CreateDisplayLine("Fan 3:", Var::kFan3, Var::kInstance, "")->SetSuffix(" rpm");
    CreateDisplayLine("Slot V:", Var::kSlotVoltage, Var::kInstance, "")->SetSuffix(" V");
    CreateDisplayLine("Slot:", Var::kSlotId, Var::kInstance, "");
    CreateDisplayLine("Ctrl:", Var::kPanelVersion, Var::kInstance, "");
    CreateDisplayLine("IP:", Var::kIpAddress, Var::kInstance, "");
}

}  // namespace FPDEMO
