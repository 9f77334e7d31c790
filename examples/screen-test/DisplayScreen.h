#pragma once

#include <string>

#include "fp/screens/BaseConfigScreen.h"
#include "tov/DataStore.h"

namespace MyUnit {

/// The engine variable the screen edits: the panel's brightness, 1 to 8.
constexpr const char* kBrightness = "disp.brightness";

/// Declares the variables the screen needs; false with the reason in error.
bool DeclareVars(TOV::CDataStore& store, std::string& error);

/// Sets the panel's brightness: Enter edits the level, Up/Down change it,
/// Enter again stores it, Esc drops the edit.
/// Threads: the UI thread only, like every screen.
class DisplayScreen : public FP::BaseConfigScreen {
public:
    DisplayScreen();
    /// The screen's one row, created on the first Initialize.
    void CreateLines() override;
};

}  // namespace MyUnit
