#pragma once

#include <string>

#include "fp/core/Names.h"
#include "fp/screens/BaseScreen.h"
#include "tov/ManagedEventSink.h"
#include "tov/Param.h"

namespace FP {

// A screen bound to engine variables: it registers itself for their change
// events and redraws its menu on each. Events arrive on the engine's delivery
// thread, so an application that also draws from its own thread must keep the
// two apart (GetMutex, or queued delivery).
class BaseEventScreen : public BaseScreen, public TOV::IManagedEventSink {
public:
    BaseEventScreen(int pollTime, bool poll);

    void Initialize() override = 0;
    std::string KeyPress(const KeyState_t& key) override;

    using BaseScreen::DrawScreen;
    // line is accepted for derived screens; the menu has no use for it.
    virtual void DrawScreen(DrawScreen_e how, DrawLine_e line);
    virtual void AddEventHandler(const std::string& dbName, const std::string& dbInstance);
    virtual void RemoveEventHandler(const std::string& dbName, const std::string& dbInstance);
    // Any change of a watched variable redraws the whole screen.
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override;
    // The first call settles the mode and answers false; later calls answer
    // the access-mode flag, which derived screens set themselves.
    virtual bool SetupScreenAccessMode();
    virtual void DrawUpdatedVars(bool on) { drawUpdatedVars = on; }

protected:
    TOV::CParam accessRequest;
    int accessModeState;
};

}  // namespace FP
