#include "fp/screens/BaseStatusScreen.h"

#include <cmath>

#include "fp/client/FpClient.h"
#include "fp/lines/IpLine.h"
#include "fp/lines/ListLine.h"
#include "fp/lines/NumberLine.h"
#include "fp/lines/ScrollLine.h"
#include "fp/menu/DisplayLine.h"

namespace FP {

namespace {
// Hover symbols: more rows below, enter leads on, exit leads back.
constexpr unsigned char kMoreRows = 0x02;
constexpr unsigned char kSelectHint = 0x04;
constexpr unsigned char kExitHint = 0x40;
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
    TOV::CParam entry;
    entry.Clear(0);
    entry.Assign(dbName + dbInstance);
    variableRequest.AddParam(entry);
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
    auto* line = new ListLine(std::move(items), false);
    line->SetSuffix(suffix);
    return AddBound(line, variableName, dbName, dbInstance);
}

BaseLine* BaseStatusScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           const char** items, int count,
                                           const std::string& suffix) {
    auto* line = new ListLine(items, count);
    line->SetSuffix(suffix);
    return AddBound(line, variableName, dbName, dbInstance);
}

BaseLine* BaseStatusScreen::CreateListLine(const std::string& variableName,
                                           const std::string& dbName, const std::string& dbInstance,
                                           std::map<int, std::string> items,
                                           const std::string& suffix) {
    auto* line = new ListLine(std::move(items), false);
    line->SetSuffix(suffix);
    return AddBound(line, variableName, dbName, dbInstance);
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
        mask |= kMoreRows;
    if (selectScreen != "No Screen")
        mask |= kSelectHint;
    if (menu.GetExitScreen() != "No Screen")
        mask |= kExitHint;
    for (BaseLine* line : lines)
        line->SetHoverNavMask(mask);
}

void BaseStatusScreen::Initialize() {
    if (!initialized) {
        CreateLines();
        PushLines();
        initialized = true;
    }
    if (client)
        variableValues = client->GetVars(FPUSER, variableRequest).Val();
    Register();
    BaseLine* title = menu.GetTitle();
    ConfigureMenu();
    DropReplacedTitle(title);
    menu.DrawScreen(DRAW_FULL);
}

void BaseStatusScreen::Register() {
    for (size_t i = 0; i < variableValues.Length(); ++i) {
        const std::string name = variableValues.GetKey(i);
        const TOV::CParam& instances = variableValues[name];
        for (size_t j = 0; j < instances.Length(); ++j)
            BaseEventScreen::AddEventHandler(name, instances.GetKey(j));
    }
}

void BaseStatusScreen::DeInitialize() {
    for (size_t i = 0; i < variableValues.Length(); ++i) {
        const std::string name = variableValues.GetKey(i);
        const TOV::CParam& instances = variableValues[name];
        for (size_t j = 0; j < instances.Length(); ++j)
            RemoveEventHandler(name, instances.GetKey(j));
    }
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
