#include "fp/screens/BaseConfigScreen.h"

#include "fp/client/FpClient.h"
#include "fp/lines/IpLine.h"
#include "fp/lines/ListLine.h"
#include "fp/screens/internal/BoundRows.h"

namespace FP {

BaseConfigScreen::BaseConfigScreen(int pollTime, bool poll)
    : BaseEventScreen(pollTime, poll), initialized(false) {}

BaseConfigScreen::~BaseConfigScreen() {
    // Unregister before the menu goes, so no event draws a dying screen.
    DeInitialize();
    menu.RemoveLines();
}

BaseLine* BaseConfigScreen::AddBound(BaseLine* line, const std::string& variableName,
                                     const std::string& dbName, const std::string& dbInstance) {
    // Editing or not, the row tells the user that exit leads back.
    line->SetEditNavMask(line->GetEditNavMask() | NavSymbol::kExit);
    line->SetHoverNavMask(line->GetHoverNavMask() | NavSymbol::kExit);
    line->SetDbInfo(dbName, dbInstance);
    line->SetDbActive(false);
    menu.AddLine(line, variableName);
    boundRows_.push_back(line);
    BoundRows::AddRequest(variableRequest, dbName, dbInstance);
    return line;
}

BaseLine* BaseConfigScreen::CreateIpLine(const std::string& variableName, const std::string& dbName,
                                         const std::string& dbInstance) {
    return AddBound(new IpLine(), variableName, dbName, dbInstance);
}

BaseLine* BaseConfigScreen::CreateStringLine(const std::string& variableName,
                                             const std::string& dbName,
                                             const std::string& dbInstance, int numItems,
                                             const StringLine::CharacterSet_e& set) {
    auto* line = new StringLine();
    line->SetNumItems(numItems);
    line->SetCharacterSet(set);
    return AddBound(line, variableName, dbName, dbInstance);
}

BaseLine* BaseConfigScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::vector<std::string> items,
                                           const std::string& suffix) {
    return AddBound(BoundRows::NewListLine(suffix, std::move(items), false), variableName, dbName,
                    dbInstance);
}

BaseLine* BaseConfigScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::map<int, std::string> items,
                                           const std::string& suffix) {
    return AddBound(BoundRows::NewListLine(suffix, std::move(items), false), variableName, dbName,
                    dbInstance);
}

BaseLine* BaseConfigScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::map<std::string, std::string> items,
                                           const std::string& suffix) {
    // Only string-keyed lists translate between stored keys and shown texts.
    return AddBound(BoundRows::NewListLine(suffix, std::move(items), true), variableName, dbName,
                    dbInstance);
}

ChoiceLine* BaseConfigScreen::CreateChoiceLine(const std::string& variableName,
                                               const std::string& dbName,
                                               const std::string& dbInstance,
                                               std::map<std::string, std::string> items,
                                               const std::string& suffix) {
    return AddWriting(BoundRows::NewListLine<ChoiceLine>(suffix, std::move(items)), variableName,
                      dbName, dbInstance);
}

ChoiceLine* BaseConfigScreen::CreateChoiceLine(const std::string& variableName,
                                               const std::string& dbName,
                                               const std::string& dbInstance,
                                               const std::map<int, std::string>& items,
                                               const std::string& suffix) {
    return AddWriting(BoundRows::NewListLine<ChoiceLine>(suffix, items), variableName, dbName,
                      dbInstance);
}

EngineNumberLine* BaseConfigScreen::CreateNumberLine(
    const std::string& variableName, const std::string& dbName, const std::string& dbInstance,
    double min, double max, int decimals, const std::string& suffix,
    EngineNumberLine::Storage_e storage, double scale) {
    auto* line = new EngineNumberLine(min, max, decimals, storage, scale);
    line->SetSuffix(suffix);
    return AddWriting(line, variableName, dbName, dbInstance);
}

EngineDateLine* BaseConfigScreen::CreateDateLine(const std::string& variableName,
                                                 const std::string& dbName,
                                                 const std::string& dbInstance) {
    return AddWriting(new EngineDateLine(), variableName, dbName, dbInstance);
}

EngineTimeLine* BaseConfigScreen::CreateTimeLine(const std::string& variableName,
                                                 const std::string& dbName,
                                                 const std::string& dbInstance) {
    return AddWriting(new EngineTimeLine(), variableName, dbName, dbInstance);
}

void BaseConfigScreen::Initialize() {
    if (!initialized)
        CreateLines();
    BoundRows::Read(client, variableRequest, variableValues);
    initialized = true;
    Register();
    BaseLine* title = menu.GetTitle();
    BaseConfigureMenu();
    DropReplacedTitle(title);
    SetupScreenAccessMode();
    menu.ResetCursor();
    menu.DrawScreen(DRAW_FULL);
}

std::string BaseConfigScreen::KeyPress(const KeyState_t& key) {
    const unsigned long refusedBefore = client ? client->GetRefusalCount() : 0;
    const std::string next = BaseEventScreen::KeyPress(key);
    if (client && client->GetRefusalCount() != refusedBefore)
        ReloadRows();
    return next;
}

void BaseConfigScreen::ReloadRows() {
    // The no-argument load reads whether or not a row refreshes on draws,
    // which is what a row that just lost its edit needs.
    for (BaseLine* line : boundRows_)
        line->SetCurrentValue();
    menu.DrawScreen(DRAW_FULL);
}

void BaseConfigScreen::Register() {
    BoundRows::Watch(*this, variableValues);
}

void BaseConfigScreen::DeInitialize() {
    BoundRows::Unwatch(*this, variableValues);
}

}  // namespace FP
