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

// One page of the panel: a named menu with the client, display and keypad it
// talks to, and how often the application should redraw it. KeyPress answers
// the name of the screen to show next, "No Screen" to stay.
class BaseScreen {
public:
    BaseScreen(int pollTime, bool poll);
    virtual ~BaseScreen();
    BaseScreen(const BaseScreen&) = delete;
    BaseScreen& operator=(const BaseScreen&) = delete;

    virtual std::string GetName() const { return name; }
    virtual void SetName(const std::string& n) { name = n; }
    virtual bool GetPoll() const { return poll; }
    virtual void SetPoll(bool p) { poll = p; }
    virtual int GetPollTime() const { return pollTime; }
    virtual void SetPollTime(int ms) { pollTime = ms; }
    virtual void Initialize();
    virtual void DeInitialize() {}
    virtual void DrawScreen();
    virtual void ForceUpdate();
    virtual MenuStyleBasic* GetMenu() { return &menu; }
    virtual std::string KeyPress(const KeyState_t& key);
    virtual bool GetEditEnabled() const { return menu.GetEditEnabled(); }
    virtual void SetEditEnabled(bool on) { menu.SetEditEnabled(on); }

    // Wire these before the first Initialize.
    void SetClient(FpClient* c);
    void SetDisplay(Display* d);
    void SetKeypad(Keypad* k) { keypad = k; }
    FpClient* GetClient() const { return client; }
    Display* GetDisplay() const { return display; }
    Keypad* GetKeypad() const { return keypad; }
    // For derived screens that are also driven from another thread.
    KT::CMutex* GetMutex() const { return mutex; }

protected:
    // Deletes before when the menu's title is no longer it: hooks that run
    // on every Initialize set a fresh title each time.
    void DropReplacedTitle(BaseLine* before);

    bool accessMode;
    bool drawUpdatedVars;
    MenuStyleBasic menu;
    FpClient* client;
    Display* display;
    Keypad* keypad;
    KT::CMutex* mutex;
    bool poll;
    int pollTime;
    std::string name;
};

}  // namespace FP
