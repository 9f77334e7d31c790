#include "fp/screens/BaseScreen.h"

#include "fp/display/Display.h"
#include "fp/menu/BaseLine.h"
#include "kt/Mutex.h"

namespace FP {

BaseScreen::BaseScreen(int pollTime, bool poll)
    : accessMode(false),
      drawUpdatedVars(false),
      client(nullptr),
      display(nullptr),
      keypad(nullptr),
      mutex(new KT::CMutex("ScreenMutex")),
      poll(poll),
      pollTime(pollTime) {}

BaseScreen::~BaseScreen() {
    // The menu leaves its title to whoever set it; the screen set it (or its
    // derived screen did through GetMenu), so it goes with the screen.
    delete menu.GetTitle();
    delete mutex;
}

void BaseScreen::Initialize() {
    menu.DrawScreen(DRAW_FULL);
}

void BaseScreen::DrawScreen() {
    menu.DrawScreen(DRAW_FULL);
}

void BaseScreen::ForceUpdate() {
    display->ForceUpdate();
}

std::string BaseScreen::KeyPress(const KeyState_t& key) {
    return menu.KeyPress(key);
}

void BaseScreen::DropReplacedTitle(BaseLine* before) {
    if (before != menu.GetTitle())
        delete before;
}

void BaseScreen::SetClient(FpClient* c) {
    client = c;
    menu.SetClient(c);
}

void BaseScreen::SetDisplay(Display* d) {
    display = d;
    menu.SetDisplay(d);
}

}  // namespace FP
