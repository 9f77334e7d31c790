#pragma once

#include "fp/screens/BaseConfigScreen.h"

namespace FPDEMO {

// What every settings screen of the demo starts with: its name, its title,
// a poll that keeps the rows in step with the engine, and Exit back to the
// main menu.
class SettingsScreen : public FP::BaseConfigScreen {
public:
    SettingsScreen(const char* name, const char* title, int pollTime = 2000);
};

}  // namespace FPDEMO
