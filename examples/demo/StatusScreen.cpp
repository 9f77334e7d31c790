#include "examples/demo/StatusScreen.h"

#include <string>
#include <utility>

#include "examples/demo/DemoVars.h"
#include "examples/demo/MainMenuScreen.h"
#include "examples/demo/RowFit.h"
#include "fp/core/Names.h"
#include "fp/menu/BaseLine.h"

namespace FPDEMO {

StatusScreen::StatusScreen() {
    SetName("Status");
    SetSelectScreen(FP::kNoScreen);
    menu.SetTitle("Status");
    menu.SetExitScreen(MainMenuScreen::kName);
}

void StatusScreen::CreateLines() {
    const FP::Display* panel = GetDisplay();
    // Widest readings: -128 C, 65535 rpm, a 15-character address.
    CreateDisplayLine(RowFit::Caption(panel, "Temp:", "T:", 6), Var::kTemperature, Var::kInstance,
                      "")
        ->SetSuffix(" C");
    const std::pair<const char*, const char*> fans[] = {
        {"Fan 1:", Var::kFan1}, {"Fan 2:", Var::kFan2}, {"Fan 3:", Var::kFan3}};
    for (const auto& fan : fans) {
        const std::string shorter = std::string("F") + fan.first[4] + ":";
        CreateDisplayLine(RowFit::Caption(panel, fan.first, shorter, 9), fan.second, Var::kInstance,
                          "")
            ->SetSuffix(" rpm");
    }
    CreateDisplayLine(RowFit::Caption(panel, "Slot V:", "V:", 6), Var::kSlotVoltage, Var::kInstance,
                      "")
        ->SetSuffix(" V");
    CreateDisplayLine("Slot:", Var::kSlotId, Var::kInstance, "");
    // The controller's version is long; the About screen scrolls it.
    CreateDisplayLine("IP address", false);
    CreateDisplayLine("", Var::kIpAddress, Var::kInstance, "");
}

}  // namespace FPDEMO
