#pragma once

#include "fp/screens/BaseConfigScreen.h"

namespace FP {
class BaseLine;
}

namespace FirstUnit {

/// Edits the unit's settings. Up/Down pick a row, Enter edits it, Enter again
/// stores the value, Esc drops the edit or goes back to the status screen.
/// Threads: the UI thread only, like every screen.
class SettingsScreen : public FP::BaseConfigScreen {
public:
    SettingsScreen();
    /// Called once, on the first Initialize: the rows, in display order.
    void CreateLines() override;
    /// Called on every Initialize: lets the rows write what is edited.
    void BaseConfigureMenu() override;

private:
    FP::BaseLine* name_ = nullptr;     // owned by the menu
    FP::BaseLine* fanMode_ = nullptr;  // owned by the menu
};

}  // namespace FirstUnit
