#include "examples/demo/DateTimeScreen.h"

#include "examples/demo/DemoVars.h"
#include "examples/demo/RowFit.h"

namespace FPDEMO {

DateTimeScreen::DateTimeScreen() : SettingsScreen("DateTime", "Date & Time") {}

void DateTimeScreen::CreateLines() {
    // On a narrow panel the title says what the rows hold; a caption would
    // push the date's last digit under the arrow.
    narrow_ = RowFit::Caption(GetDisplay(), "Date:", "", 10).empty();
    CreateDateLine(narrow_ ? "" : "Date:", Var::kDate, Var::kInstance);
    CreateTimeLine(narrow_ ? "" : "Time:", Var::kTime, Var::kInstance);
}

void DateTimeScreen::BaseConfigureMenu() {
    // There the full title would run into the navigation symbols.
    if (narrow_)
        menu.SetTitle("Clock");
}

}  // namespace FPDEMO
