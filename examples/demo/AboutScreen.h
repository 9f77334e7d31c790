#pragma once

#include <vector>

#include "examples/demo/SettingsScreen.h"

namespace FPDEMO {

// What the demo is, and its versions. Nothing here is edited; it is a
// configuration screen so that each row can be selected and a long one
// scrolled with Left and Right.
class AboutScreen : public SettingsScreen {
public:
    AboutScreen();
    void CreateLines() override;
    void BaseConfigureMenu() override;

private:
    std::vector<FP::BaseLine*> shown_;
};

}  // namespace FPDEMO
