#include "examples/demo/AboutScreen.h"

#include "examples/demo/DemoVars.h"
#include "examples/demo/RowFit.h"
#include "fp/lines/ScrollLine.h"
#include "fp/menu/DisplayLine.h"

namespace FPDEMO {

AboutScreen::AboutScreen() : SettingsScreen("About", "About", 400) {}

void AboutScreen::CreateLines() {
    auto* blurb = static_cast<FP::ScrollLine*>(RowFit::NewScrollRow());
    blurb->SetCurrentValue(
        "fp-demo: a sample unit built on the front-panel library - menus, status, settings, "
        "a setup wizard - on an emulated or a real panel.");
    menu.AddLine(blurb);
    auto* unit = new FP::DisplayLine();
    unit->SetReadOnly(true);
    shown_ = {AddBound(unit, "", Var::kUnitVersion, Var::kInstance)};
    RowFit::AddCaptionRow(menu, "Controller");
    shown_.push_back(AddBound(RowFit::NewScrollRow(), "", Var::kPanelVersion, Var::kInstance));
}

void AboutScreen::BaseConfigureMenu() {
    for (FP::BaseLine* line : shown_)
        line->SetDbActive(true);
}

}  // namespace FPDEMO
