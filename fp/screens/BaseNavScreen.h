#pragma once

#include <string>
#include <vector>

#include "fp/screens/BaseScreen.h"

namespace FP {

class BaseLine;

/// One entry of a navigation screen: its row and the screen it leads to.
/// Owned by the navigation screen that made it. Threads: those of that screen.
struct NavigationMenu_t {
    BaseLine* line;      ///< the row; the menu owns it once SetupMenu ran
    std::string screen;  ///< name of the screen enter on the row answers
};

/// A menu whose rows each lead to another screen. The concrete screen makes
/// its entries in CreateLines with CreateLine, top row first; they are built
/// on the first Initialize only. Asks to be redrawn every 2 s.
/// Threads: the application's UI thread only.
/// Owns: its entries and their rows (rows that never reached the menu too).
class BaseNavScreen : public BaseScreen {
public:
    BaseNavScreen();
    /// Deletes the entries and any row the menu never took.
    ~BaseNavScreen() override;

    /// The first time, builds the entries and the menu; every time, draws.
    void Initialize() override;
    /// The concrete screen's hook: call CreateLine once per entry.
    virtual void CreateLines() = 0;
    /// Gives every entry's row to the menu, with its target screen, so that
    /// Enter on the row answers that screen.
    virtual void SetupMenu();

    /// Makes an entry showing label that leads to screen. Set the exit screen
    /// before this if the row should show the back hint.
    /// Owns: the entry stays the screen's; the pointer is for adjustments.
    NavigationMenu_t* CreateLine(const std::string& label, const std::string& screen);

protected:
    std::vector<NavigationMenu_t*> entries;  ///< owned; in the order CreateLine made them
    bool initialized;                        ///< the entries and menu have been built
};

}  // namespace FP
