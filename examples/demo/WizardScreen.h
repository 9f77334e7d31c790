#pragma once

#include <vector>

#include "examples/demo/SettingsScreen.h"
#include "fp/menu/WizardManager.h"

namespace FPDEMO {

// First-time setup: host name, address, netmask and gateway entered one after
// the other and applied together, or not at all. A gateway outside the
// address's subnet is refused.
class WizardScreen : public SettingsScreen {
public:
    WizardScreen();
    void CreateLines() override;
    void BaseConfigureMenu() override;
    std::string KeyPress(const FP::KeyState_t& key) override;

private:
    TOV::CRet Apply();

    FP::WizardManager wizard_;
    std::vector<FP::BaseLine*> steps_;
    bool applied_ = false;
};

}  // namespace FPDEMO
