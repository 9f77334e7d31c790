#include "SettingsScreen.h"

#include "UnitVars.h"
#include "fp/menu/BaseLine.h"

namespace FirstUnit {

namespace {
const int kNameLength = 12;  // what the validator in UnitVars.cpp allows
const int kPollMs = 2000;    // settings change rarely; engine events redraw sooner
}  // namespace

SettingsScreen::SettingsScreen() : BaseConfigScreen(kPollMs, true) {
    SetName(Screen::kSettings);
    menu.SetTitle("Settings");
    menu.SetExitScreen(Screen::kStatus);
}

void SettingsScreen::CreateLines() {
    name_ = CreateStringLine("Name:", Var::kName, Var::kInstance, kNameLength,
                             FP::StringLine::Hostname);
    fanMode_ = CreateListLine("Fan:", Var::kFanMode, Var::kInstance, FanModeTexts(), "");
}

void SettingsScreen::BaseConfigureMenu() {
    // Rows are made with their engine binding switched off; without these
    // two calls an edit shows on the panel but is never written.
    for (FP::BaseLine* line : {name_, fanMode_}) {
        line->SetDbActive(true);
        line->SetSendDbData(true);
    }
}

}  // namespace FirstUnit
