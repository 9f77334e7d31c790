#pragma once

#include <string>
#include <vector>

#include "fp/screens/BaseScreen.h"

namespace FP {

class BaseLine;

// One entry of a navigation screen: its row and the screen it leads to.
struct NavigationMenu_t {
    BaseLine* line;
    std::string screen;
};

// A menu whose rows each lead to another screen. The concrete screen creates
// its entries in CreateLines with CreateLine, in display order; they are
// built on the first Initialize only.
class BaseNavScreen : public BaseScreen {
public:
    BaseNavScreen();
    ~BaseNavScreen() override;

    void Initialize() override;
    virtual void CreateLines() = 0;
    virtual void SetupMenu();

    // Set the exit screen before this if the row should hint at it.
    NavigationMenu_t* CreateLine(const std::string& label, const std::string& screen);

protected:
    std::vector<NavigationMenu_t*> entries;
    bool initialized;
};

}  // namespace FP
