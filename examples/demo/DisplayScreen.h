#pragma once

#include "examples/demo/SettingsScreen.h"

namespace FPDEMO {

// Panel brightness. The unit applies a new value to the panel as soon as the
// engine accepts it (it watches the variable), not this screen.
class DisplayScreen : public SettingsScreen {
public:
    DisplayScreen();
    void CreateLines() override;
};

}  // namespace FPDEMO
