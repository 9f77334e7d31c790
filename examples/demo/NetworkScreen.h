#pragma once

#include <vector>

#include "examples/demo/SettingsScreen.h"

namespace FPDEMO {

// The unit's network settings; each row writes its value when committed.
class NetworkScreen : public SettingsScreen {
public:
    NetworkScreen();
    void CreateLines() override;
    void BaseConfigureMenu() override;

private:
    std::vector<FP::BaseLine*> editable_;
    FP::BaseLine* mac_ = nullptr;  // the scrolling MAC row of a narrow panel
};

}  // namespace FPDEMO
