#include "fp/menu/WizardManager.h"

#include <algorithm>

#include "fp/core/Names.h"
#include "fp/display/Display.h"
#include "fp/menu/BaseLine.h"
#include "fp/menu/MenuStyle.h"
#include "kt/Thread.h"

namespace FP {

namespace {
// Long enough for each message to be read on the panel.
constexpr unsigned int kApplyingMs = 1100;
constexpr unsigned int kInvalidMs = 1500;
constexpr unsigned int kBackMs = 1000;
constexpr unsigned int kFirstRow = 2;
constexpr unsigned int kSecondRow = 3;
}  // namespace

WizardManager::WizardManager(MenuStyle* menu)
    : menu(menu), started(false), sleep([](unsigned int ms) { KT::CThread::Sleep(ms); }) {}

void WizardManager::AddLine(BaseLine* line) {
    line->SetSendDbData(false);
    wizardLines.push_back(line);
}

void WizardManager::HandleWizardStart() {
    started = true;
    for (BaseLine* line : wizardLines) {
        line->SetGetDataFromDb(false);
        line->SetDbActive(false);
    }
}

void WizardManager::HandleWizardDone() {
    started = false;
    for (BaseLine* line : wizardLines) {
        line->SetGetDataFromDb(true);
        line->SetDbActive(true);
    }
}

void WizardManager::ShowMessage(Display* display, const std::string& first,
                                const std::string& second, unsigned int ms) {
    display->ClearDisplay();
    display->WriteLine(first, kFirstRow, CENTER, 0);
    if (!second.empty())
        display->WriteLine(second, kSecondRow, CENTER, 0);
    display->SendUpdate();
    sleep(ms);
}

void WizardManager::Apply(Display* display) {
    menu->SetEditEnabled(false);
    if (display)
        ShowMessage(display, "Applying Changes...", "", kApplyingMs);
    const TOV::CRet result = doneHandler();
    HandleWizardDone();
    if (!result.Success()) {
        if (display)
            ShowMessage(display, "Invalid Input", "Changes Discarded", kInvalidMs);
        menu->DrawScreen(DRAW_FULL);
    }
}

std::string WizardManager::HandleKeyPress(const KeyState_t& event, Display* display) {
    // The selected row matters only if it is a wizard row, so look for the
    // wizard row that sits under the cursor.
    auto it = wizardLines.end();
    if (menu->GetEditEnabled()) {
        it = std::find_if(wizardLines.begin(), wizardLines.end(), [this](BaseLine* line) {
            return menu->GetLiveLineIndex(line) == menu->GetCursorIndex();
        });
    }
    if (it == wizardLines.end())
        return menu->KeyPress(event);

    if (event.key == KEY_ENTER) {
        if (!started)
            HandleWizardStart();
        BaseLine* next = (it + 1 != wizardLines.end()) ? *(it + 1) : nullptr;
        if (next && menu->IsLiveLineActive(next)) {
            menu->SetEditEnabled(false);
            menu->SetSelectedItem(next);
            menu->DrawScreen(DRAW_FULL);
            menu->SetEditEnabled(true);
            menu->DrawScreen(DRAW_FULL);
        } else {
            // The last step, or the next one is hidden: apply what we have.
            Apply(display);
        }
        return kNoScreen;
    }
    if (event.key == KEY_EXIT) {
        menu->SetEditEnabled(false);
        HandleWizardDone();
        if (display)
            ShowMessage(display, "Back Button Pressed", "Changes Discarded", kBackMs);
        menu->DrawScreen(DRAW_FULL);
        return kNoScreen;
    }
    return menu->KeyPress(event);
}

}  // namespace FP
