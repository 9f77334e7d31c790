#include "fp/screens/BaseStatusScreen.h"

#include <cmath>

#include "fp/client/FpClient.h"
#include "fp/lines/ChoiceLine.h"
#include "fp/lines/EngineNumberLine.h"
#include "fp/lines/IpLine.h"
#include "fp/lines/ListLine.h"
#include "fp/lines/NumberLine.h"
#include "fp/lines/ScrollLine.h"
#include "fp/menu/DisplayLine.h"
#include "fp/screens/internal/BoundRows.h"

namespace FP {

namespace {
// More rows than this do not fit beside the title.
constexpr size_t kRowsShown = 5;
}  // namespace

BaseStatusScreen::BaseStatusScreen() : BaseEventScreen(100, true), initialized(false) {
    menu.SetCursorType(CURSOR_PAGE);
}

BaseStatusScreen::~BaseStatusScreen() {
    // Unregister before the menu goes, so no event draws a dying screen.
    DeInitialize();
    menu.RemoveLines();
}

void BaseStatusScreen::AddRequest(const std::string& dbName, const std::string& dbInstance) {
    BoundRows::AddRequest(variableRequest, dbName, dbInstance);
}

BaseLine* BaseStatusScreen::AddBound(BaseLine* line, const std::string& variableName,
                                     const std::string& dbName, const std::string& dbInstance) {
    line->SetDbInfo(dbName, dbInstance);
    line->SetReadOnly(true);
    menu.AddLine(line, variableName);
    lines.push_back(line);
    AddRequest(dbName, dbInstance);
    return line;
}

BaseLine* BaseStatusScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::vector<std::string> items,
                                           const std::string& suffix) {
    return AddBound(BoundRows::NewListLine(suffix, std::move(items), false), variableName, dbName,
                    dbInstance);
}

BaseLine* BaseStatusScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           const char** items, int count,
                                           const std::string& suffix) {
    return AddBound(BoundRows::NewListLine(suffix, items, count), variableName, dbName, dbInstance);
}

BaseLine* BaseStatusScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::map<int, std::string> items,
                                           const std::string& suffix) {
    return AddBound(BoundRows::NewListLine(suffix, std::move(items), false), variableName, dbName,
                    dbInstance);
}

ChoiceLine* BaseStatusScreen::CreateChoiceLine(const std::string& variableName,
                                               const std::string& dbName,
                                               const std::string& dbInstance,
                                               std::map<std::string, std::string> items,
                                               const std::string& suffix) {
    auto* line = BoundRows::NewListLine<ChoiceLine>(suffix, std::move(items));
    AddBound(line, variableName, dbName, dbInstance);
    return line;
}

ChoiceLine* BaseStatusScreen::CreateChoiceLine(const std::string& variableName,
                                               const std::string& dbName,
                                               const std::string& dbInstance,
                                               const std::map<int, std::string>& items,
                                               const std::string& suffix) {
    auto* line = BoundRows::NewListLine<ChoiceLine>(suffix, items);
    AddBound(line, variableName, dbName, dbInstance);
    return line;
}

BaseLine* BaseStatusScreen::CreateNumberLine(const std::string& variableName,
                                             const std::string& dbName,
                                             const std::string& dbInstance,
                                             const std::string& suffix, const bool& isSigned,
                                             const int& decimals, const double& scale) {
    auto* line = new NumberLine(isSigned, std::pow(10.0, -decimals), decimals, scale);
    line->SetSuffix(suffix);
    return AddBound(line, variableName, dbName, dbInstance);
}

EngineNumberLine* BaseStatusScreen::CreateScaledNumberLine(const std::string& variableName,
                                                           const std::string& dbName,
                                                           const std::string& dbInstance,
                                                           const std::string& suffix, bool isSigned,
                                                           int decimals, double scale) {
    auto* line = new EngineNumberLine(isSigned, decimals, EngineNumberLine::STORE_STEPS, scale);
    line->SetSuffix(suffix);
    AddBound(line, variableName, dbName, dbInstance);
    return line;
}

BaseLine* BaseStatusScreen::CreateIpLine(const std::string& variableName, const std::string& dbName,
                                         const std::string& dbInstance) {
    return AddBound(new IpLine(), variableName, dbName, dbInstance);
}

BaseLine* BaseStatusScreen::CreateDisplayLine(const std::string& variableName,
                                              const std::string& dbName,
                                              const std::string& dbInstance,
                                              const std::string& /*unused*/) {
    auto* line = new DisplayLine();
    line->SetHoverNavMask(0);
    line->SetEditNavMask(0);
    return AddBound(line, variableName, dbName, dbInstance);
}

BaseLine* BaseStatusScreen::CreateDisplayLine(const std::string& variableName,
                                              const std::string& text,
                                              const std::string& /*unused*/) {
    auto* line = new DisplayLine(text);
    menu.AddLine(line, variableName);
    line->SetReadOnly(true);
    lines.push_back(line);
    return line;
}

BaseLine* BaseStatusScreen::CreateDisplayLine(const std::string& variableName,
                                              const bool& selectable) {
    auto* line = new DisplayLine();
    line->SetSelectable(selectable);
    line->SetReadOnly(true);
    menu.AddLine(line, variableName);
    lines.push_back(line);
    return line;
}

BaseLine* BaseStatusScreen::CreateScrollLine(const std::string& text) {
    auto* line = new ScrollLine();
    line->SetCurrentValue(text);
    menu.AddLine(line);
    lines.push_back(line);
    return line;
}

void BaseStatusScreen::PushLines() {
    unsigned char mask = 0;
    if (lines.size() > kRowsShown)
        mask |= NavSymbol::kUpDown;
    if (selectScreen != kNoScreen)
        mask |= NavSymbol::kEnter;
    if (menu.GetExitScreen() != kNoScreen)
        mask |= NavSymbol::kExit;
    for (BaseLine* line : lines)
        line->SetHoverNavMask(mask);
}

void BaseStatusScreen::Initialize() {
    if (!initialized) {
        CreateLines();
        PushLines();
        initialized = true;
    }
    BoundRows::Read(client, variableRequest, variableValues);
    Register();
    BaseLine* title = menu.GetTitle();
    ConfigureMenu();
    DropReplacedTitle(title);
    menu.DrawScreen(DRAW_FULL);
}

void BaseStatusScreen::Register() {
    BoundRows::Watch(*this, variableValues);
}

void BaseStatusScreen::DeInitialize() {
    // Through the virtual slot here (unlike Register), so an override of
    // RemoveEventHandler sees every pair on the way out.
    BoundRows::ForEachPair(variableValues,
                           [this](const std::string& name, const std::string& instance) {
                               RemoveEventHandler(name, instance);
                           });
}

void BaseStatusScreen::HandleEvent(const std::string&, const TOV::COid&, const std::string&,
                                   const std::string&, const TOV::CParam&) {
    menu.DrawScreen(DRAW_FULL);
}

std::string BaseStatusScreen::KeyPress(const KeyState_t& key) {
    if (key.key == KEY_ENTER)
        return selectScreen;
    return menu.KeyPress(key);
}

}  // namespace FP
