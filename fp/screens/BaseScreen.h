#pragma once

#include <string>

#include "fp/core/KeyTypes.h"
#include "fp/menu/MenuStyleBasic.h"

namespace KT {
class CMutex;
}

namespace FP {

class BaseLine;
class Display;
class FpClient;
class Keypad;

/// One page of the panel: a named menu plus the data client, display and
/// keypad it works with, and the redraw period the application should keep.
/// KeyPress answers the name of the screen to show next, or kNoScreen to
/// stay. Applications derive their screens from this or its subclasses.
/// Threads: the application's UI thread, one call at a time; no method takes
/// a lock (see GetMutex).
/// Owns: its menu, and so every line given to the menu, the menu's title line
/// (deleted with the screen: applications must not delete it) and the screen
/// mutex. Borrows: the client, display and keypad, which must outlive it.
class BaseScreen {
public:
    /// pollTime: how often, in ms, the application should redraw this screen
    /// while it is shown; poll: whether it should at all.
    BaseScreen(int pollTime, bool poll);
    /// Deletes the menu's title line along with the menu and its lines.
    virtual ~BaseScreen();
    BaseScreen(const BaseScreen&) = delete;
    BaseScreen& operator=(const BaseScreen&) = delete;

    /// The name other screens and the application know this one by.
    virtual std::string GetName() const { return name; }
    /// Renames the screen.
    virtual void SetName(const std::string& n) { name = n; }
    /// Whether the application should redraw this screen periodically.
    virtual bool GetPoll() const { return poll; }
    /// Switches periodic redraws on or off.
    virtual void SetPoll(bool p) { poll = p; }
    /// The redraw period in milliseconds; nothing here runs a timer for it.
    virtual int GetPollTime() const { return pollTime; }
    /// Changes the redraw period (milliseconds).
    virtual void SetPollTime(int ms) { pollTime = ms; }
    /// Called by the application when the screen becomes current; draws it.
    virtual void Initialize();
    /// Called by the application before it leaves the screen; nothing here.
    virtual void DeInitialize() {}
    /// Draws the whole screen into the display model. Needs a display.
    virtual void DrawScreen();
    /// Resends the whole display to the panel. Needs a display.
    virtual void ForceUpdate();
    /// The screen's own menu, for titles, exit screen and lines.
    /// Borrows: the menu stays the screen's.
    virtual MenuStyleBasic* GetMenu() { return &menu; }
    /// Hands key to the menu and answers the screen to show next
    /// (kNoScreen: stay).
    virtual std::string KeyPress(const KeyState_t& key);
    /// Whether the menu lets the user edit lines.
    virtual bool GetEditEnabled() const { return menu.GetEditEnabled(); }
    /// Lets the menu edit lines, or stops it.
    virtual void SetEditEnabled(bool on) { menu.SetEditEnabled(on); }

    /// Sets the data client for the screen and its menu. Call before the first
    /// Initialize. Borrows: c.
    void SetClient(FpClient* c);
    /// Sets the display for the screen and its menu. Call before the first
    /// Initialize. Borrows: d.
    void SetDisplay(Display* d);
    /// Sets the keypad; the screen only keeps it for derived screens.
    /// Borrows: k.
    void SetKeypad(Keypad* k) { keypad = k; }
    /// The data client given to SetClient, or null.
    FpClient* GetClient() const { return client; }
    /// The display given to SetDisplay, or null.
    Display* GetDisplay() const { return display; }
    /// The keypad given to SetKeypad, or null.
    Keypad* GetKeypad() const { return keypad; }
    /// A mutex that no code of the library ever locks, so by itself it guards
    /// nothing. It is offered to derived screens and applications that call
    /// one screen from two threads (typically engine events through
    /// HandleEvent, and keys or redraws from the UI thread): they lock it
    /// themselves around every such call, e.g. in an override of HandleEvent
    /// before calling the base. Each screen has its own, so it does not keep
    /// two screens that share a display apart. Queued event delivery on the
    /// UI thread makes it unnecessary.
    /// Threads: any. Borrows: the mutex stays the screen's.
    KT::CMutex* GetMutex() const { return mutex; }

protected:
    /// Deletes before when the menu's title is no longer it. Derived screens
    /// call it after a hook that may set a new title on every Initialize, so
    /// the old title lines do not pile up.
    void DropReplacedTitle(BaseLine* before);

    bool accessMode;       ///< access-mode flag that derived screens set
    bool drawUpdatedVars;  ///< flag kept for derived screens; never read here
    MenuStyleBasic menu;   ///< the screen's menu; owns the lines
    FpClient* client;      ///< borrowed; null until SetClient
    Display* display;      ///< borrowed; null until SetDisplay
    Keypad* keypad;        ///< borrowed; null until SetKeypad
    KT::CMutex* mutex;     ///< owned; see GetMutex for who locks it
    bool poll;             ///< the application should redraw periodically
    int pollTime;          ///< redraw period in milliseconds
    std::string name;      ///< what GetName answers
};

}  // namespace FP
