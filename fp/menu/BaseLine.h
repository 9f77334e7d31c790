#pragma once

#include <cstdint>
#include <string>

#include "fp/core/KeyTypes.h"
#include "fp/display/Display.h"
#include "fp/menu/Cursor.h"

namespace FP {

class FpClient;

// Base of all menu rows: a label, a value rendered as text, an optional unit
// text, handlers per key, an edit state with its own character cursor, and
// optionally one engine variable that the row reads and writes.
class BaseLine {
public:
    BaseLine();
    virtual ~BaseLine();
    BaseLine(const BaseLine&) = delete;
    BaseLine& operator=(const BaseLine&) = delete;

    // Dispatches by key code (the state is not looked at); exit leaves edit
    // mode. Returns true while the line is still being edited.
    virtual bool KeyPress(const KeyState_t& key);
    virtual void KeyEnter() {}
    virtual void KeyUp() {}
    virtual void KeyDown() {}
    virtual void KeyLeft() {}
    virtual void KeyRight() {}
    // Takes a value given as text; false when the line kind refuses it.
    virtual bool SetCurrentValue(const std::string& value) = 0;
    // The value as it is shown.
    virtual std::string GetCurrentString() const = 0;
    // offset blanks, caption, value, suffix; cut to the width and aligned.
    virtual void DrawLine(int line);
    virtual void DrawCursor(int line) = 0;
    virtual void EraseCursor(int line) = 0;
    // Writes value back when the line is bound and allowed to write.
    virtual void SendDbData(const std::string& value);
    // The bound variable's value, or "" when the line is unbound.
    virtual std::string GetDbValue() const;

    // Loads the bound variable's value whether or not dbActive is set.
    void SetCurrentValue();
    // Reloads the value when the binding is active.
    void RefreshData();

    void SetVariableName(const std::string& name);
    const std::string& GetVariableName() const { return variableName; }
    bool HasVariableName() const { return hasVariableName; }
    void SetSuffix(const std::string& s);
    const std::string& GetSuffix() const { return suffix; }
    bool HasSuffix() const { return hasSuffix; }
    void SetOffset(int o) { offset = o; }
    int GetOffset() const { return offset; }
    void SetAlignment(DisplayLineFormat_e a) { alignment = a; }
    DisplayLineFormat_e GetAlignment() const { return alignment; }
    void SetReadOnly(bool ro) { readOnly = ro; }
    bool GetReadOnly() const { return readOnly; }
    void SetSelectable(bool s) { selectable = s; }
    bool GetSelectable() const { return selectable; }
    bool GetSendAllKeys() const { return sendAllKeys; }
    bool GetEditing() const { return editing; }
    void SetHoverNavMask(unsigned char m) { hoverNavMask = m; }
    unsigned char GetHoverNavMask() const { return hoverNavMask; }
    void SetEditNavMask(unsigned char m) { editNavMask = m; }
    unsigned char GetEditNavMask() const { return editNavMask; }
    void SetCompanionRow(bool c) { companionRow = c; }
    bool GetCompanionRow() const { return companionRow; }
    void SetValueFormat(const std::string& f) { valueFormat = f; }
    const std::string& GetValueFormat() const { return valueFormat; }
    int GetCursorPos() const { return cursor.GetCursorIndex(); }

    void SetDisplay(Display* d);
    Display* GetDisplay() const { return display; }
    void SetClient(FpClient* c) { client = c; }
    FpClient* GetClient() const { return client; }

    void SetDbInfo(std::string name, std::string instance);
    void SetDbName(std::string name);
    void SetDbInstance(std::string instance);
    const std::string& GetDbName() const { return dbName; }
    const std::string& GetDbInstance() const { return dbInstance; }
    void SetDbActive(bool a) { dbActive = a; }
    bool GetDbActive() const { return dbActive; }
    void SetSendDbData(bool s) { sendDbData = s; }
    bool GetSendDbData() const { return sendDbData; }
    void SetGetDataFromDb(bool g) { getDataFromDb = g; }
    bool GetGetDataFromDb() const { return getDataFromDb; }

protected:
    // Calls the handler of an arrow key; false for any other key.
    bool ArrowKey(Key_e key);
    bool IsBound() const { return !dbName.empty() && !dbInstance.empty(); }

    std::string variableName;
    uint8_t hoverNavMask;
    uint8_t editNavMask;
    DisplayLineFormat_e alignment;
    std::string suffix;
    int32_t offset;
    bool editing;
    bool hasVariableName;
    bool hasSuffix;
    bool sendAllKeys;
    bool selectable;
    Cursor cursor;
    FpClient* client;
    Display* display;
    int32_t lineWidth;
    std::string dbInstance;
    std::string dbName;
    bool readOnly;
    bool dbActive;
    bool sendDbData;
    bool getDataFromDb;
    std::string valueFormat;
    bool companionRow;
};

}  // namespace FP
