#include "fp/menu/BaseLine.h"

#include <utility>

#include "fp/client/FpClient.h"
#include "fp/menu/detail/RowLead.h"
#include "fp/menu/internal/EditCursor.h"

namespace FP {

// sendDbData and getDataFromDb start false: a line writes nothing back until
// its kind or screen asks for it.
BaseLine::BaseLine()
    : hoverNavMask(0),
      editNavMask(0),
      alignment(LEFT_JUSTIFY),
      offset(1),
      editing(false),
      hasVariableName(false),
      hasSuffix(false),
      sendAllKeys(false),
      selectable(true),
      client(nullptr),
      display(nullptr),
      lineWidth(0),
      readOnly(false),
      dbActive(false),
      sendDbData(false),
      getDataFromDb(false),
      companionRow(false) {}

BaseLine::~BaseLine() = default;

bool BaseLine::ArrowKey(Key_e key) {
    switch (key) {
        case KEY_LEFT:
            KeyLeft();
            return true;
        case KEY_UP:
            KeyUp();
            return true;
        case KEY_RIGHT:
            KeyRight();
            return true;
        case KEY_DOWN:
            KeyDown();
            return true;
        default:
            return false;
    }
}

bool BaseLine::KeyPress(const KeyState_t& key) {
    if (ArrowKey(key.key)) {
        return editing;
    }
    switch (key.key) {
        case KEY_ENTER:
            KeyEnter();
            break;
        case KEY_EXIT:
            editing = false;
            return false;
        default:
            break;
    }
    return editing;
}

void BaseLine::DrawLine(int line) {
    if (!display) {
        return;
    }
    const std::string value = GetCurrentString();
    const std::string lead = RowLead(offset, variableName);
    std::string text = lead + value;
    if (hasSuffix) {
        text += suffix;
    }
    if (text.size() > display->GetDisplayWidth()) {
        text.resize(display->GetDisplayWidth());
    }
    display->WriteLine(text, line, alignment, 0);
    if (editing) {
        DrawCursor(line);
        const int i = cursor.GetCursorIndex();
        // Only a character that exists is shown reversed.
        if (i >= 0 && static_cast<size_t>(i) < value.size()) {
            const int column = static_cast<int>(lead.size()) + i;
            EditCursor::CellOnce(*display, static_cast<unsigned char>(value[i]), line, column);
        }
    } else {
        EraseCursor(line);
    }
}

void BaseLine::SendDbData(const std::string& value) {
    if (IsBound() && sendDbData && client) {
        client->SendDataWait(dbName, dbInstance, value);
    }
}

std::string BaseLine::GetDbValue() const {
    if (!IsBound() || !client) {
        return std::string();
    }
    return client->GetData(dbName, dbInstance);
}

void BaseLine::SetCurrentValue() {
    if (IsBound()) {
        SetCurrentValue(GetDbValue());
    }
}

void BaseLine::RefreshData() {
    if (dbActive) {
        SetCurrentValue(GetDbValue());
    }
}

void BaseLine::SetVariableName(const std::string& name) {
    variableName = name;
    hasVariableName = true;
}

void BaseLine::SetSuffix(const std::string& s) {
    suffix = s;
    hasSuffix = true;
}

void BaseLine::SetDisplay(Display* d) {
    display = d;
    cursor.SetDisplay(d);
    lineWidth = d ? static_cast<int32_t>(d->GetDisplayWidth()) + 1 : 0;
}

void BaseLine::SetDbInfo(std::string name, std::string instance) {
    dbActive = true;
    dbName = std::move(name);
    dbInstance = std::move(instance);
}

void BaseLine::SetDbName(std::string name) {
    dbActive = true;
    dbName = std::move(name);
}

void BaseLine::SetDbInstance(std::string instance) {
    dbActive = true;
    dbInstance = std::move(instance);
}

}  // namespace FP
