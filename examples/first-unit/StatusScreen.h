#pragma once

#include "fp/screens/BaseStatusScreen.h"

namespace FirstUnit {

/// The unit's home screen: shows the settings, read only. Enter opens the
/// settings screen.
/// Threads: the UI thread only, like every screen.
class StatusScreen : public FP::BaseStatusScreen {
public:
    StatusScreen();
    /// Called once, on the first Initialize: the rows, in display order.
    void CreateLines() override;
};

}  // namespace FirstUnit
