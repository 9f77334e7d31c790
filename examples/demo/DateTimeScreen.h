#pragma once

#include "examples/demo/SettingsScreen.h"

namespace FPDEMO {

// The unit's date and time, read from and written to the engine.
class DateTimeScreen : public SettingsScreen {
public:
    DateTimeScreen();
    void CreateLines() override;
    void BaseConfigureMenu() override;

private:
    bool narrow_ = false;  // no room for captions beside the values
};

}  // namespace FPDEMO
