#pragma once

#include "fp/screens/BaseStatusScreen.h"

namespace FPDEMO {

// Versions, and a line that scrolls through what the demo is.
class AboutScreen : public FP::BaseStatusScreen {
public:
    AboutScreen();
    void CreateLines() override;
};

}  // namespace FPDEMO
