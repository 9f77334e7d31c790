#include "examples/demo/MainMenuScreen.h"

namespace FPDEMO {

MainMenuScreen::MainMenuScreen() {
    SetName(kName);
    menu.SetTitle("Main Menu");
}

void MainMenuScreen::AddEntry(const std::string& caption, const std::string& screen) {
    entries_.emplace_back(caption, screen);
}

void MainMenuScreen::CreateLines() {
    for (const auto& entry : entries_)
        CreateLine(entry.first, entry.second);
}

}  // namespace FPDEMO
