#pragma once

#include <map>
#include <string>
#include <vector>

#include "fp/screens/BaseEventScreen.h"
#include "tov/Param.h"

namespace FP {

class BaseLine;

// A read-only screen of engine variables. The concrete screen creates its
// rows in CreateLines with the factories below, in display order; each time
// the screen comes up it reads them all at once, watches each for changes and
// redraws on every change. It asks to be redrawn every 100 ms as well.
class BaseStatusScreen : public BaseEventScreen {
public:
    BaseStatusScreen();
    ~BaseStatusScreen() override;

    void Initialize() override;
    void DeInitialize() override;
    // Enter goes to the select screen; the menu never sees it.
    std::string KeyPress(const KeyState_t& key) override;
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override;
    virtual void Register();
    virtual void CreateLines() = 0;
    // Hook for titles, exit screen and the like once the rows exist.
    virtual void ConfigureMenu() {}

    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::vector<std::string> items,
                             const std::string& suffix);
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, const char** items, int count,
                             const std::string& suffix);
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::map<int, std::string> items,
                             const std::string& suffix);
    BaseLine* CreateNumberLine(const std::string& variableName, const std::string& dbName,
                               const std::string& dbInstance, const std::string& suffix,
                               const bool& isSigned, const int& decimals, const double& scale);
    BaseLine* CreateIpLine(const std::string& variableName, const std::string& dbName,
                           const std::string& dbInstance);
    BaseLine* CreateDisplayLine(const std::string& variableName, const std::string& dbName,
                                const std::string& dbInstance, const std::string& unused);
    BaseLine* CreateDisplayLine(const std::string& variableName, const std::string& text,
                                const std::string& unused);
    BaseLine* CreateDisplayLine(const std::string& variableName, const bool& selectable);
    BaseLine* CreateScrollLine(const std::string& text);

    // Gives every row the same hover symbols: more rows than fit, a select
    // screen, an exit screen.
    void PushLines();

    void SetSelectScreen(const std::string& screen) { selectScreen = screen; }
    const std::string& GetSelectScreen() const { return selectScreen; }

protected:
    // Binds line and adds it to the menu and the screen's read request.
    BaseLine* AddBound(BaseLine* line, const std::string& variableName, const std::string& dbName,
                       const std::string& dbInstance);
    void AddRequest(const std::string& dbName, const std::string& dbInstance);

    std::vector<BaseLine*> lines;
    bool initialized;
    std::string firstScreen;
    std::string selectScreen;
    std::string thirdScreen;
    TOV::CParam variableRequest;
    TOV::CParam variableValues;
};

}  // namespace FP
