#pragma once

#include <map>
#include <string>
#include <vector>

#include "fp/lines/ChoiceLine.h"
#include "fp/lines/EngineClockLines.h"
#include "fp/lines/EngineNumberLine.h"
#include "fp/lines/StringLine.h"
#include "fp/screens/BaseEventScreen.h"
#include "tov/Oid.h"
#include "tov/Param.h"

namespace FP {

class BaseLine;

/// An editable screen of engine variables. The concrete screen makes its rows
/// in CreateLines with the factories below; each row writes its own edits
/// (the screen has no apply step). Each time it comes up it re-reads and
/// watches all its variables, starts the cursor at the top and draws.
/// Threads: as BaseEventScreen: the UI thread, HandleEvent also on the
/// engine's delivery thread.
/// Owns: the rows the factories make (through its menu) and the title line;
/// the pointers the factories answer are for adjustments, never for delete.
class BaseConfigScreen : public BaseEventScreen {
public:
    /// See BaseScreen for pollTime and poll.
    BaseConfigScreen(int pollTime, bool poll);
    /// Stops watching, then deletes the rows.
    ~BaseConfigScreen() override;

    /// Makes the rows on the first call only. Each call then re-reads and
    /// watches the values, runs BaseConfigureMenu, settles the access mode,
    /// moves the cursor back to the top row and draws.
    void Initialize() override;
    /// Stops watching every variable read by the last Initialize.
    void DeInitialize() override;
    /// Keys go to the menu. When the engine turned down a write the key made,
    /// every row is read again and the screen redrawn, so the panel shows
    /// what is stored rather than what was refused.
    std::string KeyPress(const KeyState_t& key) override;
    /// Watches every (name, instance) that the last read returned.
    virtual void Register();
    /// The concrete screen's hook: make the rows with the factories.
    virtual void CreateLines() = 0;
    /// Hook for titles, exit screen, hidden rows and the like; runs on every
    /// Initialize. A title set here replaces (and frees) the last one.
    virtual void BaseConfigureMenu() {}

    /// An editable IPv4 address row.
    BaseLine* CreateIpLine(const std::string& variableName, const std::string& dbName,
                           const std::string& dbInstance);
    /// An editable text row of up to numItems characters from set.
    BaseLine* CreateStringLine(const std::string& variableName, const std::string& dbName,
                               const std::string& dbInstance, int numItems,
                               const StringLine::CharacterSet_e& set);
    /// A choice among texts; the variable holds the chosen item's position
    /// in key order, counted from 1 (see ListLine).
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::vector<std::string> items,
                             const std::string& suffix);
    /// A choice among numbered texts; stores positions, not the numbers
    /// (see ListLine): use CreateChoiceLine to store the numbers.
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::map<int, std::string> items,
                             const std::string& suffix);
    /// A choice among texts keyed by strings. Like the other list rows it
    /// stores the chosen item's position in key order, counted from 1, not
    /// its key: CreateChoiceLine stores keys.
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance,
                             std::map<std::string, std::string> items, const std::string& suffix);
    /// A choice whose variable holds the chosen item's key (items: key to
    /// text). Unlike the list rows it reads on every draw and writes each
    /// commit without further set-up.
    ChoiceLine* CreateChoiceLine(const std::string& variableName, const std::string& dbName,
                                 const std::string& dbInstance,
                                 std::map<std::string, std::string> items,
                                 const std::string& suffix);
    /// The same with whole-number keys, stored in decimal.
    ChoiceLine* CreateChoiceLine(const std::string& variableName, const std::string& dbName,
                                 const std::string& dbInstance,
                                 const std::map<int, std::string>& items,
                                 const std::string& suffix);
    /// An editable number between min and max with decimals places, then
    /// suffix. storage says how the variable holds it: the shown decimal text,
    /// or whole steps of scale (scale is not used with STORE_TEXT). Like a
    /// choice row it reads on every draw and writes each commit. A scale that
    /// gives no steps is logged now and the row shows "?".
    EngineNumberLine* CreateNumberLine(const std::string& variableName, const std::string& dbName,
                                       const std::string& dbInstance, double min, double max,
                                       int decimals, const std::string& suffix,
                                       EngineNumberLine::Storage_e storage, double scale = 1.0);
    /// A date row over a variable holding "YYYY/MM/DD"; it reads on every
    /// draw and writes each commit.
    EngineDateLine* CreateDateLine(const std::string& variableName, const std::string& dbName,
                                   const std::string& dbInstance);
    /// A time row over a variable holding "HH:MM:SS"; it reads on every draw
    /// and writes each commit.
    EngineTimeLine* CreateTimeLine(const std::string& variableName, const std::string& dbName,
                                   const std::string& dbInstance);

protected:
    /// Binds line to dbName/dbInstance with the binding off, gives it the
    /// back hint, adds it to the menu under caption variableName and to the
    /// screen's read request. Takes ownership of line (through the menu) and
    /// answers it.
    BaseLine* AddBound(BaseLine* line, const std::string& variableName, const std::string& dbName,
                       const std::string& dbInstance);
    /// AddBound, then the binding on: the row reads on draws and writes commits.
    template <class Line>
    Line* AddWriting(Line* line, const std::string& variableName, const std::string& dbName,
                     const std::string& dbInstance) {
        AddBound(line, variableName, dbName, dbInstance);
        line->SetDbActive(true);
        line->SetSendDbData(true);
        return line;
    }

    /// Reloads every bound row from the engine and draws the whole screen;
    /// used after the engine refused a write, so rows show what is stored.
    void ReloadRows();

    TOV::CParam variableRequest;          ///< the variables the rows are bound to
    TOV::CParam variableValues;           ///< their values as last read; also what is watched
    std::vector<std::string> stringList;  ///< kept for derived screens; unused here
    bool initialized;                     ///< CreateLines has run
    TOV::COid objectId;                   ///< kept for derived screens; unused here
    std::string firstText;                ///< kept for derived screens; unused here
    std::string secondText;               ///< kept for derived screens; unused here

private:
    std::vector<BaseLine*> boundRows_;  // owned by the menu
};

}  // namespace FP
