#pragma once

#include <map>
#include <string>
#include <vector>

#include "fp/lines/StringLine.h"
#include "fp/screens/BaseEventScreen.h"
#include "tov/Oid.h"
#include "tov/Param.h"

namespace FP {

class BaseLine;

// An editable screen of engine variables. The concrete screen creates its
// rows in CreateLines with the factories below; each row writes its own edits
// (the screen has no apply step). On every Initialize it fetches all
// its variables, watches them, puts the cursor on the first row and draws.
class BaseConfigScreen : public BaseEventScreen {
public:
    BaseConfigScreen(int pollTime, bool poll);
    ~BaseConfigScreen() override;

    void Initialize() override;
    void DeInitialize() override;
    virtual void Register();
    virtual void CreateLines() = 0;
    // Hook for titles, exit screen, hidden rows and the like.
    virtual void BaseConfigureMenu() {}

    BaseLine* CreateIpLine(const std::string& variableName, const std::string& dbName,
                           const std::string& dbInstance);
    BaseLine* CreateStringLine(const std::string& variableName, const std::string& dbName,
                               const std::string& dbInstance, int numItems,
                               const StringLine::CharacterSet_e& set);
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::vector<std::string> items,
                             const std::string& suffix);
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance, std::map<int, std::string> items,
                             const std::string& suffix);
    // Keys are the stored values, texts what the row shows.
    BaseLine* CreateListLine(const std::string& variableName, const std::string& dbName,
                             const std::string& dbInstance,
                             std::map<std::string, std::string> items, const std::string& suffix);

protected:
    BaseLine* AddBound(BaseLine* line, const std::string& variableName, const std::string& dbName,
                       const std::string& dbInstance);

    TOV::CParam variableRequest;
    TOV::CParam variableValues;
    // Kept for derived screens; unused here.
    std::vector<std::string> stringList;
    bool initialized;
    TOV::COid objectId;
    std::string firstText;
    std::string secondText;
};

}  // namespace FP
