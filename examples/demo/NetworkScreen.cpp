#include "examples/demo/NetworkScreen.h"

#include <algorithm>
#include <map>
#include <utility>

#include "examples/demo/DemoVars.h"
#include "examples/demo/RowFit.h"
#include "fp/lines/MacLine.h"
#include "fp/menu/BaseLine.h"

namespace FPDEMO {

namespace {
const unsigned kHostNameLength = 16;
const unsigned kMacLength = 17;
}  // namespace

NetworkScreen::NetworkScreen() : SettingsScreen("Network", "Network") {}

void NetworkScreen::CreateLines() {
    const FP::Display* panel = GetDisplay();
    editable_ = {CreateChoiceLine("DHCP:", Var::kDhcp, Var::kInstance,
                                  std::map<int, std::string>{{0, "Off"}, {1, "On"}}, "")};
    // An edited address is 15 characters: with a caption it would run under
    // the arrow, so each address gets the row below its caption.
    const std::pair<const char*, const char*> addresses[] = {
        {"IP address", Var::kIpAddress}, {"Netmask", Var::kNetmask}, {"Gateway", Var::kGateway}};
    for (const auto& address : addresses) {
        RowFit::AddCaptionRow(menu, address.first);
        editable_.push_back(CreateIpLine("", address.second, Var::kInstance));
    }
    // A narrow panel edits one character less than the engine would take.
    RowFit::AddCaptionRow(menu, "Host name");
    editable_.push_back(
        CreateStringLine("", Var::kHostName, Var::kInstance,
                         static_cast<int>(std::min(kHostNameLength, RowFit::EditRoom(panel))),
                         FP::StringLine::Hostname));
    // The MAC address is burnt in: shown, never edited. Where it is wider
    // than the row it scrolls.
    RowFit::AddCaptionRow(menu, "MAC address");
    if (kMacLength <= RowFit::Room(panel)) {
        AddBound(new FP::MacLine(), "", Var::kMac, Var::kInstance)->SetReadOnly(true);
    } else {
        mac_ = AddBound(RowFit::NewScrollRow(), "", Var::kMac, Var::kInstance);
    }
}

void NetworkScreen::BaseConfigureMenu() {
    for (FP::BaseLine* line : editable_) {
        line->SetDbActive(true);
        line->SetSendDbData(true);
    }
    if (mac_)
        mac_->SetDbActive(true);
}

}  // namespace FPDEMO
