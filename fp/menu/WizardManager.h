#pragma once

#include <string>
#include <vector>

#include "fp/core/KeyTypes.h"
#include "kt/Functor.h"
#include "tov/Ret.h"

namespace FP {

class BaseLine;
class Display;
class MenuStyle;

/// Walks some rows of a menu as a wizard: enter on an edited wizard row moves
/// the edit to the next one, enter on the last applies them all through the
/// done handler, exit while editing discards. While it runs the rows neither
/// reload nor write their values, so the user's entries survive until then.
/// Threads: the thread that drives the screens. It blocks that thread while
/// a message stays on the panel (about one second).
/// Borrows: the menu and the wizard lines (the menu owns those).
class WizardManager {
public:
    /// menu must outlive the manager.
    explicit WizardManager(MenuStyle* menu);

    /// Applies every wizard row's value; its result decides what is shown.
    void SetWizardDoneHandler(KT::CFunctor<TOV::CRet()> handler) { doneHandler = handler; }
    /// How the manager waits while a message is shown; CThread::Sleep unless
    /// replaced (tests record instead of waiting).
    void SetSleeper(KT::CFunctor<void(unsigned int)> sleeper) { sleep = sleeper; }

    /// Makes line the next wizard step and stops it writing on its own. The
    /// caller adds line to the menu too; steps follow the order of calls.
    void AddLine(BaseLine* line);
    /// Stops the wizard lines reloading from the engine.
    void HandleWizardStart();
    /// Lets them reload again.
    void HandleWizardDone();
    /// True between HandleWizardStart and HandleWizardDone.
    bool IsStarted() const { return started; }

    /// Takes the menu's keys while the wizard may act on them; answers the
    /// screen to change to, as the menu's KeyPress does. display may be null.
    std::string HandleKeyPress(const KeyState_t& event, Display* display);

private:
    void Apply(Display* display);
    void ShowMessage(Display* display, const std::string& first, const std::string& second,
                     unsigned int ms);

    std::vector<BaseLine*> wizardLines;
    MenuStyle* menu;
    bool started;
    KT::CFunctor<TOV::CRet()> doneHandler;
    KT::CFunctor<void(unsigned int)> sleep;
};

}  // namespace FP
