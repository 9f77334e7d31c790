#pragma once

#include "fp/screens/BaseConfigScreen.h"

namespace FPDEMO {

// The unit's date and time.
class DateTimeScreen : public FP::BaseConfigScreen {
public:
    DateTimeScreen();
    void CreateLines() override;
    void BaseConfigureMenu() override;

private:
    FP::BaseLine* date_ = nullptr;
    FP::BaseLine* time_ = nullptr;
};

}  // namespace FPDEMO
