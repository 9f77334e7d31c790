#pragma once

#include "fp/screens/BaseNavScreen.h"

namespace FPDEMO {

// The root of the demo: one row per screen.
class MainMenuScreen : public FP::BaseNavScreen {
public:
    MainMenuScreen();
    void CreateLines() override;
};

}  // namespace FPDEMO
