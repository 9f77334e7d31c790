#include "examples/demo/WizardScreen.h"

#include <log4cpp/Category.hh>

#include "examples/demo/DemoVars.h"
#include "examples/demo/ScreenNames.h"
#include "fp/client/FpClient.h"
#include "fp/menu/BaseLine.h"
#include "tov/Txn.h"

namespace FPDEMO {

namespace {
const int kHostNameLength = 16;
}

WizardScreen::WizardScreen() : BaseConfigScreen(2000, true), wizard_(&menu) {
    SetName(Screen::kWizard);
    menu.SetTitle("Setup Wizard");
    menu.SetExitScreen(Screen::kMain);
    wizard_.SetWizardDoneHandler(KT::CFunctor<TOV::CRet()>(this, &WizardScreen::Apply));
}

void WizardScreen::CreateLines() {
    steps_ = {
        CreateStringLine("Host:", Var::kHostName, Var::kInstance, kHostNameLength,
                         FP::StringLine::Hostname),
        CreateIpLine("IP:", Var::kIpAddress, Var::kInstance),
        CreateIpLine("Mask:", Var::kNetmask, Var::kInstance),
        CreateIpLine("Gw:", Var::kGateway, Var::kInstance),
    };
    for (FP::BaseLine* line : steps_)
        wizard_.AddLine(line);
}

void WizardScreen::BaseConfigureMenu() {
    // Rows read the engine but never write: the wizard applies them at the end.
    for (FP::BaseLine* line : steps_)
        line->SetDbActive(true);
}

TOV::CRet WizardScreen::Apply() {
    const std::string host = steps_[0]->GetCurrentString();
    const std::string address = steps_[1]->GetCurrentString();
    const std::string netmask = steps_[2]->GetCurrentString();
    const std::string gateway = steps_[3]->GetCurrentString();
    if (!InSubnet(address, netmask, gateway)) {
        // The panel says "Invalid Input"; the log says why.
        log4cpp::Category::getInstance("fp.demo").warn(
            "%s() Invalid Input: gateway %s is outside %s/%s", __func__, gateway.c_str(),
            address.c_str(), netmask.c_str());
        return TOV::CRet::Fail("gateway outside the subnet");
    }
    TOV::CTxn txn;
    txn.Add(Var::kHostName, TOV::COid(Var::kInstance), host);
    txn.Add(Var::kIpAddress, TOV::COid(Var::kInstance), address);
    txn.Add(Var::kNetmask, TOV::COid(Var::kInstance), netmask);
    txn.Add(Var::kGateway, TOV::COid(Var::kInstance), gateway);
    const TOV::CRet ret = client->SendTxn(FP::FPUSER, txn);
    applied_ = ret.Success();
    if (!applied_)
        log4cpp::Category::getInstance("fp.demo").warn("%s() Invalid Input: %s", __func__,
                                                       ret.Msg().c_str());
    return ret;
}

std::string WizardScreen::KeyPress(const FP::KeyState_t& key) {
    applied_ = false;
    const std::string next = wizard_.HandleKeyPress(key, display);
    // Done: back to the menu, which redraws the panel.
    return applied_ ? std::string(Screen::kMain) : next;
}

}  // namespace FPDEMO
