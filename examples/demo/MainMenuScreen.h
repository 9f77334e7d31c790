#pragma once

#include <string>
#include <utility>
#include <vector>

#include "fp/screens/BaseNavScreen.h"

namespace FPDEMO {

// The root of the demo: one row per screen, in the order they were added.
class MainMenuScreen : public FP::BaseNavScreen {
public:
    // Where every other screen goes back to.
    static constexpr char kName[] = "Main";

    MainMenuScreen();
    // A row captioned caption that opens the screen named screen.
    void AddEntry(const std::string& caption, const std::string& screen);
    void CreateLines() override;

private:
    std::vector<std::pair<std::string, std::string>> entries_;  // caption, screen
};

}  // namespace FPDEMO
