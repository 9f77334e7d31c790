#include "examples/demo/DateTimeScreen.h"

#include "examples/demo/CommittedLine.h"
#include "examples/demo/DemoVars.h"
#include "examples/demo/ScreenNames.h"
#include "fp/lines/DateLine.h"
#include "fp/lines/TimeLine.h"

namespace FPDEMO {

DateTimeScreen::DateTimeScreen() : BaseConfigScreen(2000, true) {
    SetName(Screen::kDateTime);
    menu.SetTitle("Date & Time");
    menu.SetExitScreen(Screen::kMain);
}

void DateTimeScreen::CreateLines() {
    date_ = AddBound(new CommittedLine<FP::DateLine>(), "Date:", Var::kDate, Var::kInstance);
    time_ = AddBound(new CommittedLine<FP::TimeLine>(), "Time:", Var::kTime, Var::kInstance);
}

void DateTimeScreen::BaseConfigureMenu() {
    for (FP::BaseLine* line : {date_, time_}) {
        line->SetDbActive(true);
        line->SetSendDbData(true);
    }
}

}  // namespace FPDEMO
