#pragma once

#include <cstdint>
#include <string>

#include "fp/core/KeyTypes.h"
#include "fp/display/Display.h"
#include "fp/menu/Cursor.h"

namespace FP {

class FpClient;

/// Base of all menu rows: a caption, the value rendered as text, an optional unit
/// text, handlers per key, an edit state with its own character cursor, and
/// optionally one engine variable that the row reads and writes.
/// Threads: the thread that drives the screens; nothing here locks, so calls
/// must not overlap.
/// Borrows: the display and the client (both must outlive the line). A line
/// handed to a menu belongs to that menu's container.
class BaseLine {
public:
    /// Left-aligned, offset 1, selectable, unbound, writing nothing back.
    BaseLine();
    virtual ~BaseLine();
    BaseLine(const BaseLine&) = delete;
    BaseLine& operator=(const BaseLine&) = delete;

    /// Dispatches by key code (the state is not looked at); exit leaves edit
    /// mode. Returns true while the line is still being edited.
    virtual bool KeyPress(const KeyState_t& key);
    /// Handlers for one key each, called by KeyPress; empty here, line kinds
    /// override the ones they react to.
    ///@{
    virtual void KeyEnter() {}
    virtual void KeyUp() {}
    virtual void KeyDown() {}
    virtual void KeyLeft() {}
    virtual void KeyRight() {}
    ///@}
    /// Takes a value given as text; false when the line kind refuses it.
    virtual bool SetCurrentValue(const std::string& value) = 0;
    /// The value as it is shown.
    virtual std::string GetCurrentString() const = 0;
    /// Offset blanks, caption, value, suffix; cut to the width and aligned.
    /// While editing, the character under the cursor is shown reversed (sent
    /// once, even when the line's own cursor already drew it).
    virtual void DrawLine(int line);
    /// Shows or removes the line's own cursor on display row line.
    ///@{
    virtual void DrawCursor(int line) = 0;
    virtual void EraseCursor(int line) = 0;
    ///@}
    /// Writes value back when the line is bound and allowed to write.
    virtual void SendDbData(const std::string& value);
    /// The bound variable's value, or "" when the line is unbound.
    virtual std::string GetDbValue() const;

    /// Loads the bound variable's value whether or not dbActive is set.
    void SetCurrentValue();
    /// Reloads the value when the binding is active.
    void RefreshData();

    /// The caption drawn before the value; Has* is true once one was set.
    ///@{
    void SetVariableName(const std::string& name);
    const std::string& GetVariableName() const { return variableName; }
    bool HasVariableName() const { return hasVariableName; }
    ///@}
    /// Text drawn after the value (a unit, say); Has* is true once one was set.
    ///@{
    void SetSuffix(const std::string& s);
    const std::string& GetSuffix() const { return suffix; }
    bool HasSuffix() const { return hasSuffix; }
    ///@}
    /// Blanks before the caption; column 0 is where the menu's cursor stands.
    ///@{
    void SetOffset(int o) { offset = o; }
    int GetOffset() const { return offset; }
    ///@}
    /// How the finished text sits in the row width (left, right or centred).
    ///@{
    void SetAlignment(DisplayLineFormat_e a) { alignment = a; }
    DisplayLineFormat_e GetAlignment() const { return alignment; }
    ///@}
    /// A read-only line does not enter edit mode and writes nothing back.
    ///@{
    void SetReadOnly(bool ro) { readOnly = ro; }
    bool GetReadOnly() const { return readOnly; }
    ///@}
    /// Whether the menu cursor may stop on this line.
    ///@{
    void SetSelectable(bool s) { selectable = s; }
    bool GetSelectable() const { return selectable; }
    ///@}
    /// True when the menu passes every key to the line, editing or not.
    bool GetSendAllKeys() const { return sendAllKeys; }
    /// True between entering edit mode and committing or leaving it.
    bool GetEditing() const { return editing; }
    /// Navigation symbols (FP::NavSymbol bits) shown while the line is
    /// selected (hover), and while it is edited (edit).
    ///@{
    void SetHoverNavMask(unsigned char m) { hoverNavMask = m; }
    unsigned char GetHoverNavMask() const { return hoverNavMask; }
    void SetEditNavMask(unsigned char m) { editNavMask = m; }
    unsigned char GetEditNavMask() const { return editNavMask; }
    ///@}
    /// A line with a companion row is hidden and shown together with the
    /// row after it.
    ///@{
    void SetCompanionRow(bool c) { companionRow = c; }
    bool GetCompanionRow() const { return companionRow; }
    ///@}
    /// A printf format that line kinds may use for their value.
    ///@{
    void SetValueFormat(const std::string& f) { valueFormat = f; }
    const std::string& GetValueFormat() const { return valueFormat; }
    ///@}
    /// Index of the character under the line's cursor.
    int GetCursorPos() const { return cursor.GetCursorIndex(); }

    /// The display to draw into; setting it also fixes the width the line
    /// pads to. Borrowed.
    ///@{
    void SetDisplay(Display* d);
    Display* GetDisplay() const { return display; }
    ///@}
    /// The client the binding reads and writes through. Borrowed.
    ///@{
    void SetClient(FpClient* c) { client = c; }
    FpClient* GetClient() const { return client; }
    ///@}

    /// Binds the line to a variable (name and instance) and activates the
    /// binding; the single-field forms activate it too.
    ///@{
    void SetDbInfo(std::string name, std::string instance);
    void SetDbName(std::string name);
    void SetDbInstance(std::string instance);
    ///@}
    /// The bound variable's name and instance; empty when unbound.
    ///@{
    const std::string& GetDbName() const { return dbName; }
    const std::string& GetDbInstance() const { return dbInstance; }
    ///@}
    /// An inactive binding is neither refreshed nor written on commit.
    ///@{
    void SetDbActive(bool a) { dbActive = a; }
    bool GetDbActive() const { return dbActive; }
    ///@}
    /// Whether SendDbData may write at all.
    ///@{
    void SetSendDbData(bool s) { sendDbData = s; }
    bool GetSendDbData() const { return sendDbData; }
    ///@}
    /// A hint for screens: whether the line should take its value from the
    /// engine. The wizard clears it while it runs and sets it again after.
    ///@{
    void SetGetDataFromDb(bool g) { getDataFromDb = g; }
    bool GetGetDataFromDb() const { return getDataFromDb; }
    ///@}

protected:
    /// Calls the handler of an arrow key; false for any other key.
    bool ArrowKey(Key_e key);
    /// True when both the variable name and its instance are set.
    bool IsBound() const { return !dbName.empty() && !dbInstance.empty(); }

    std::string variableName;       ///< caption drawn before the value
    uint8_t hoverNavMask;           ///< NavSymbol bits while selected
    uint8_t editNavMask;            ///< NavSymbol bits while editing
    DisplayLineFormat_e alignment;  ///< placement of the text in the row
    std::string suffix;             ///< text after the value
    int32_t offset;                 ///< blanks before the caption
    bool editing;                   ///< in edit mode
    bool hasVariableName;           ///< a caption was set
    bool hasSuffix;                 ///< a suffix was set
    bool sendAllKeys;               ///< the menu hands this line every key
    bool selectable;                ///< the menu cursor may stop here
    Cursor cursor;                  ///< the line's own character cursor
    FpClient* client;               ///< borrowed; used by the binding
    Display* display;               ///< borrowed; where the line draws
    int32_t lineWidth;              ///< columns to pad to, from the display
    std::string dbInstance;         ///< bound variable's instance
    std::string dbName;             ///< bound variable's name
    bool readOnly;                  ///< never edits, never writes
    bool dbActive;                  ///< binding is refreshed and written
    bool sendDbData;                ///< commits may write to the engine
    bool getDataFromDb;             ///< hint: value comes from the engine
    std::string valueFormat;        ///< printf format for the value, if any
    bool companionRow;              ///< hidden and shown with the next row
};

}  // namespace FP
