#pragma once

#include <map>
#include <string>
#include <vector>

#include "fp/screens/BaseEventScreen.h"
#include "tov/Param.h"

namespace FP {

class BaseLine;
class ChoiceLine;
class EngineNumberLine;

/// A read-only screen of engine variables. The concrete screen makes its rows
/// in CreateLines with the factories below, top row first; each time the
/// screen comes up it reads them all in one request, watches each and redraws
/// on every change. It asks to be redrawn every 100 ms as well.
/// Threads: as BaseEventScreen: the UI thread, HandleEvent also on the
/// engine's delivery thread.
/// Owns: the rows the factories make (through its menu) and the title line;
/// the pointers the factories answer are for adjustments, never for delete.
class BaseStatusScreen : public BaseEventScreen {
public:
    BaseStatusScreen();
    /// Stops watching, then deletes the rows.
    ~BaseStatusScreen() override;

    /// The first time, makes the rows and their hover symbols; every time,
    /// reads the values, watches them, runs ConfigureMenu and draws.
    void Initialize() override;
    /// Stops watching every variable read by the last Initialize.
    void DeInitialize() override;
    /// Enter answers the select screen; the menu never sees it. Other keys
    /// go to the menu.
    std::string KeyPress(const KeyState_t& key) override;
    /// Redraws the whole menu on any change. Threads: see BaseEventScreen.
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override;
    /// Watches every (name, instance) that the last read returned.
    virtual void Register();
    /// The concrete screen's hook: make the rows with the factories.
    virtual void CreateLines() = 0;
    /// Hook for titles, exit screen and the like once the rows exist; runs on
    /// every Initialize. A title set here replaces (and frees) the last one.
    virtual void ConfigureMenu() {}

    /// A list row showing the text at the position the variable holds
    /// (counted from 1, in key order; see ListLine), then suffix.
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::vector<std::string> items,
                             const std::string& suffix);
    /// A list row over items[1] to items[count - 1] (entry 0 is not used).
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, const char** items, int count,
                             const std::string& suffix);
    /// A list row over numbered texts.
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::map<int, std::string> items,
                             const std::string& suffix);
    /// A row showing the text for the whole number the variable holds
    /// (items: number to text), or "?" for a number that is not among them.
    ChoiceLine* CreateChoiceLine(const std::string& variableName, const std::string& dbName,
                                 const std::string& dbInstance,
                                 const std::map<int, std::string>& items,
                                 const std::string& suffix);
    /// The same for a variable holding text keys (items: key to text).
    ChoiceLine* CreateChoiceLine(const std::string& variableName, const std::string& dbName,
                                 const std::string& dbInstance,
                                 std::map<std::string, std::string> items,
                                 const std::string& suffix);
    /// A number row with decimals places, scaled by scale, then suffix.
    BaseLine* CreateNumberLine(const std::string& variableName, const std::string& dbName,
                               const std::string& dbInstance, const std::string& suffix,
                               const bool& isSigned, const int& decimals, const double& scale);
    /// A number row that shows the stored whole count of scale steps as the
    /// scaled value, rounded half away from zero to decimals places, then
    /// suffix (CreateNumberLine's rows show the stored text unscaled).
    EngineNumberLine* CreateScaledNumberLine(const std::string& variableName,
                                             const std::string& dbName,
                                             const std::string& dbInstance,
                                             const std::string& suffix, bool isSigned, int decimals,
                                             double scale);
    /// An IPv4 address row.
    BaseLine* CreateIpLine(const std::string& variableName, const std::string& dbName,
                           const std::string& dbInstance);
    /// A text row showing the variable as it is, without hover symbols.
    BaseLine* CreateDisplayLine(const std::string& variableName, const std::string& dbName,
                                const std::string& dbInstance, const std::string& unused);
    /// A row of variableName and a fixed text, bound to no variable.
    BaseLine* CreateDisplayLine(const std::string& variableName, const std::string& text,
                                const std::string& unused);
    /// A row of variableName alone, bound to no variable; selectable decides
    /// whether the cursor may stop on it.
    BaseLine* CreateDisplayLine(const std::string& variableName, const bool& selectable);
    /// A row that scrolls text too long for the panel; bound to no variable.
    BaseLine* CreateScrollLine(const std::string& text);

    /// Gives every row the same hover symbols: more rows than fit, a select
    /// screen, an exit screen. Initialize runs it once, after CreateLines.
    void PushLines();

    /// The screen Enter leads to. Set kNoScreen before the first Initialize
    /// where Enter leads nowhere, or the rows show the enter hint.
    void SetSelectScreen(const std::string& screen) { selectScreen = screen; }
    /// The screen Enter leads to; empty until set.
    const std::string& GetSelectScreen() const { return selectScreen; }

protected:
    /// Binds line read-only to dbName/dbInstance, adds it to the menu under
    /// caption variableName and to the screen's read request. Takes ownership
    /// of line (through the menu) and answers it.
    BaseLine* AddBound(BaseLine* line, const std::string& variableName, const std::string& dbName,
                       const std::string& dbInstance);
    /// Adds a variable to the screen's read request without a row for it.
    void AddRequest(const std::string& dbName, const std::string& dbInstance);

    std::vector<BaseLine*> lines;  ///< every row made, in order; the menu owns them
    bool initialized;              ///< CreateLines has run
    std::string firstScreen;       ///< kept for derived screens; unused here
    std::string selectScreen;      ///< where enter leads (SetSelectScreen)
    std::string thirdScreen;       ///< kept for derived screens; unused here
    TOV::CParam variableRequest;   ///< the variables the rows show
    TOV::CParam variableValues;    ///< their values as last read; also what is watched
};

}  // namespace FP
