#include "examples/demo/WizardScreen.h"

#include <log4cpp/Category.hh>

#include <algorithm>
#include <utility>

#include "examples/demo/DemoVars.h"
#include "examples/demo/MainMenuScreen.h"
#include "examples/demo/RowFit.h"
#include "fp/client/FpClient.h"
#include "fp/menu/BaseLine.h"
#include "tov/Txn.h"

namespace FPDEMO {

namespace {
const unsigned kHostNameLength = 16;
}  // namespace

WizardScreen::WizardScreen() : SettingsScreen("Wizard", "Setup Wizard"), wizard_(&menu) {
    wizard_.SetWizardDoneHandler(KT::CFunctor<TOV::CRet()>(this, &WizardScreen::Apply));
}

void WizardScreen::CreateLines() {
    // Same rows as the network screen: each value under its own caption, so
    // that 15-character addresses and their cursor stay on the panel.
    RowFit::AddCaptionRow(menu, "Host name");
    steps_ = {CreateStringLine(
        "", Var::kHostName, Var::kInstance,
        static_cast<int>(std::min(kHostNameLength, RowFit::EditRoom(GetDisplay()))),
        FP::StringLine::Hostname)};
    const std::pair<const char*, const char*> addresses[] = {
        {"IP address", Var::kIpAddress}, {"Netmask", Var::kNetmask}, {"Gateway", Var::kGateway}};
    for (const auto& address : addresses) {
        RowFit::AddCaptionRow(menu, address.first);
        steps_.push_back(CreateIpLine("", address.second, Var::kInstance));
    }
    for (FP::BaseLine* line : steps_)
        wizard_.AddLine(line);
}

void WizardScreen::BaseConfigureMenu() {
    // The full title would run into the navigation symbols of a narrow panel.
    if (RowFit::Width(GetDisplay()) < 20)
        menu.SetTitle("Wizard");
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
    return applied_ ? std::string(MainMenuScreen::kName) : next;
}

}  // namespace FPDEMO
