#include "fp/screens/BaseEventScreen.h"

#include "fp/client/FpClient.h"

namespace FP {

namespace {
// The draw-line mode an event redraw passes; the menu ignores it.
constexpr DrawLine_e kEventDrawLine = static_cast<DrawLine_e>(5);
}  // namespace

BaseEventScreen::BaseEventScreen(int pollTime, bool poll)
    : BaseScreen(pollTime, poll), TOV::IManagedEventSink("<CNotSet>"), accessModeState(0) {}

std::string BaseEventScreen::KeyPress(const KeyState_t& key) {
    return menu.KeyPress(key);
}

void BaseEventScreen::DrawScreen(DrawScreen_e how, DrawLine_e /*line*/) {
    menu.DrawScreen(how);
}

void BaseEventScreen::AddEventHandler(const std::string& dbName, const std::string& dbInstance) {
    if (client)
        client->AddManagedEventHandler(dbName, this, dbInstance);
}

void BaseEventScreen::RemoveEventHandler(const std::string& dbName, const std::string& dbInstance) {
    if (client)
        client->RemoveManagedEventHandler(dbName, this, dbInstance);
}

void BaseEventScreen::HandleEvent(const std::string&, const TOV::COid&, const std::string&,
                                  const std::string&, const TOV::CParam&) {
    DrawScreen(DRAW_FULL, kEventDrawLine);
}

bool BaseEventScreen::SetupScreenAccessMode() {
    if (client) {
        // Read for derived screens' engines that prepare the mode on access;
        // the answer itself is not used here.
        TOV::CParam unused = client->GetVars(FPUSER, accessRequest).Val();
        (void)unused;
    }
    if (accessModeState != 1) {
        accessModeState = 1;
        accessMode = false;
        return false;
    }
    return accessMode;
}

}  // namespace FP
