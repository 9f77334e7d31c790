#include "examples/demo/DateTimeScreen.h"

#include "examples/demo/DemoVars.h"
#include "examples/demo/ScreenNames.h"

namespace FPDEMO {

DateTimeScreen::DateTimeScreen() : BaseConfigScreen(2000, true) {
    SetName(Screen::kDateTime);
    menu.SetTitle("Date & Time");
    menu.SetExitScreen(Screen::kMain);
}

void DateTimeScreen::CreateLines() {
    CreateDateLine("Date:", Var::kDate, Var::kInstance);
    CreateTimeLine("Time:", Var::kTime, Var::kInstance);
}

}  // namespace FPDEMO
