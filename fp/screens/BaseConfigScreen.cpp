#include "fp/screens/BaseConfigScreen.h"

#include "fp/client/FpClient.h"
#include "fp/lines/IpLine.h"
#include "fp/lines/ListLine.h"

namespace FP {

namespace {
// Hover and edit symbol telling the user that exit leads back.
constexpr unsigned char kExitHint = 0x40;
}  // namespace

BaseConfigScreen::BaseConfigScreen(int pollTime, bool poll)
    : BaseEventScreen(pollTime, poll), initialized(false) {}

BaseConfigScreen::~BaseConfigScreen() {
    // Unregister before the menu goes, so no event draws a dying screen.
    DeInitialize();
    menu.RemoveLines();
}

BaseLine* BaseConfigScreen::AddBound(BaseLine* line, const std::string& variableName,
                                     const std::string& dbName, const std::string& dbInstance) {
    line->SetEditNavMask(line->GetEditNavMask() | kExitHint);
    line->SetHoverNavMask(line->GetHoverNavMask() | kExitHint);
    line->SetDbInfo(dbName, dbInstance);
    line->SetDbActive(false);
    menu.AddLine(line, variableName);
    TOV::CParam entry;
    entry.Clear(0);
    entry.Assign(dbName + dbInstance);
    variableRequest.AddParam(entry);
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
    auto* line = new ListLine(std::move(items), false);
    line->SetSuffix(suffix);
    return AddBound(line, variableName, dbName, dbInstance);
}

BaseLine* BaseConfigScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::map<int, std::string> items,
                                           const std::string& suffix) {
    auto* line = new ListLine(std::move(items), false);
    line->SetSuffix(suffix);
    return AddBound(line, variableName, dbName, dbInstance);
}

BaseLine* BaseConfigScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::map<std::string, std::string> items,
                                           const std::string& suffix) {
    // Only string-keyed lists translate between stored keys and shown texts.
    auto* line = new ListLine(std::move(items), true);
    line->SetSuffix(suffix);
    return AddBound(line, variableName, dbName, dbInstance);
}

void BaseConfigScreen::Initialize() {
    if (!initialized)
        CreateLines();
    if (client)
        variableValues = client->GetVars(FPUSER, variableRequest).Val();
    initialized = true;
    Register();
    BaseLine* title = menu.GetTitle();
    BaseConfigureMenu();
    DropReplacedTitle(title);
    SetupScreenAccessMode();
    menu.ResetCursor();
    menu.DrawScreen(DRAW_FULL);
}

void BaseConfigScreen::Register() {
    for (size_t i = 0; i < variableValues.Length(); ++i) {
        const std::string name = variableValues.GetKey(i);
        const TOV::CParam& instances = variableValues[name];
        for (size_t j = 0; j < instances.Length(); ++j)
            BaseEventScreen::AddEventHandler(name, instances.GetKey(j));
    }
}

void BaseConfigScreen::DeInitialize() {
    for (size_t i = 0; i < variableValues.Length(); ++i) {
        const std::string name = variableValues.GetKey(i);
        const TOV::CParam& instances = variableValues[name];
        for (size_t j = 0; j < instances.Length(); ++j)
            BaseEventScreen::RemoveEventHandler(name, instances.GetKey(j));
    }
}

}  // namespace FP
