#pragma once

#include <string>

#include "fp/core/Names.h"
#include "fp/screens/BaseScreen.h"
#include "tov/ManagedEventSink.h"
#include "tov/Param.h"

namespace FP {

/// A screen bound to engine variables: it watches them through the data
/// client and redraws its whole menu whenever one changes. Base of the status
/// and configuration screens.
/// Threads: like BaseScreen (the UI thread), except HandleEvent, which the
/// engine calls on its delivery thread ("TOV-Delivery") unless the client was
/// built with DELIVER_QUEUED and the application calls DeliverEvents on its UI
/// thread. With direct delivery the redraw overlaps the UI thread's calls
/// unless the application serialises them (GetMutex); nothing here locks.
/// Borrows: as BaseScreen. The client keeps a pointer to this screen for as
/// long as it watches a variable; the status and configuration screens stop
/// watching in DeInitialize and again in their destructors.
class BaseEventScreen : public BaseScreen, public TOV::IManagedEventSink {
public:
    /// See BaseScreen for pollTime and poll.
    BaseEventScreen(int pollTime, bool poll);

    /// Each kind reads, watches and draws its variables here.
    void Initialize() override = 0;
    /// Hands key to the menu and answers the screen to show next.
    std::string KeyPress(const KeyState_t& key) override;

    /// Keeps the base's plain DrawScreen() visible next to the overload.
    using BaseScreen::DrawScreen;
    /// Draws the menu in mode how; line is accepted for derived screens and
    /// otherwise ignored.
    virtual void DrawScreen(DrawScreen_e how, DrawLine_e line);
    /// Starts watching dbName/dbInstance through the client (if any).
    virtual void AddEventHandler(const std::string& dbName, const std::string& dbInstance);
    /// Stops watching dbName/dbInstance through the client (if any).
    virtual void RemoveEventHandler(const std::string& dbName, const std::string& dbInstance);
    /// Any change of a watched variable redraws the whole screen, whatever the
    /// arguments say. Threads: the engine's delivery thread, or the thread
    /// that calls DeliverEvents with queued delivery (see the class note); it
    /// takes no lock before drawing.
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override;
    /// Reads accessRequest for engines that prepare the mode on access. The
    /// first call settles the mode and answers false; later calls answer the
    /// access-mode flag, which derived screens set themselves.
    virtual bool SetupScreenAccessMode();
    /// Stores a flag for derived screens; the library never reads it.
    virtual void DrawUpdatedVars(bool on) { drawUpdatedVars = on; }

protected:
    TOV::CParam accessRequest;  ///< what SetupScreenAccessMode reads; derived screens fill it
    int accessModeState;        ///< 1 once SetupScreenAccessMode has run
};

}  // namespace FP
