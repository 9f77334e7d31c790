#pragma once

#include "fp/screens/BaseStatusScreen.h"

namespace FPDEMO {

// Readings from the panel and the unit's identity, read only.
class StatusScreen : public FP::BaseStatusScreen {
public:
    StatusScreen();
    void CreateLines() override;
};

}  // namespace FPDEMO
