#include "examples/demo/NetworkScreen.h"

#include <map>

#include "examples/demo/DemoVars.h"
#include "examples/demo/ScreenNames.h"
#include "fp/lines/MacLine.h"
#include "fp/menu/BaseLine.h"

namespace FPDEMO {

namespace {
const int kHostNameLength = 16;
}

NetworkScreen::NetworkScreen() : BaseConfigScreen(2000, true) {
    SetName(Screen::kNetwork);
    menu.SetTitle("Network");
    menu.SetExitScreen(Screen::kMain);
}

void NetworkScreen::CreateLines() {
    editable_ = {
        CreateChoiceLine("DHCP:", Var::kDhcp, Var::kInstance,
                         std::map<int, std::string>{{0, "Off"}, {1, "On"}}, ""),
        CreateIpLine("IP:", Var::kIpAddress, Var::kInstance),
        CreateIpLine("Mask:", Var::kNetmask, Var::kInstance),
        CreateIpLine("Gw:", Var::kGateway, Var::kInstance),
        CreateStringLine("Host:", Var::kHostName, Var::kInstance, kHostNameLength,
                         FP::StringLine::Hostname),
    };
    // The MAC address is burnt in: shown, never edited.
    AddBound(new FP::MacLine(), "MAC:", Var::kMac, Var::kInstance)->SetReadOnly(true);
}

void NetworkScreen::BaseConfigureMenu() {
    for (FP::BaseLine* line : editable_) {
        line->SetDbActive(true);
        line->SetSendDbData(true);
    }
}

}  // namespace FPDEMO
