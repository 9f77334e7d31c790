#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "fp/menu/BaseLine.h"
#include "kt/Functor.h"

namespace FP {

/// A choice among texts, each mapped to the engine value it represents (its
/// key). Items appear sorted by key as plain strings, so numbered keys come
/// as "1", "10", "11", "2", ...
///
/// What is stored: committing writes the chosen item's 1-based position in
/// that sorted order, NOT its key, while reading looks the value up by key.
/// So a list keyed "1".."9" in order round-trips; any other keys (a map, or
/// ten or more entries) write back a number that is not the key read.
/// Stored values depend on exactly this, so it stays; a variable that holds
/// keys wants a ChoiceLine.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class ListLine : public BaseLine {
public:
    /// An empty list. With convertTexts, item texts have the characters the
    /// panel cannot show replaced.
    explicit ListLine(bool convertTexts);
    /// Items keyed "1", "2", ... by their place in the vector.
    ListLine(std::vector<std::string> items, bool convertTexts);
    /// Items keyed by the map's keys.
    ListLine(std::map<std::string, std::string> items, bool convertTexts);
    /// Items keyed by the decimal text of the map's keys.
    ListLine(std::map<int, std::string> items, bool convertTexts);
    /// Entry 0 is not used: the texts are items[1] to items[count - 1].
    ListLine(const char** items, int count);
    ~ListLine() override;

    /// Up and down walk the items (skipped ones left out), editing or not.
    /// Enter starts choosing or commits the choice; exit goes back to the
    /// committed item.
    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    /// Selects the item whose key is key. An unknown key is refused.
    bool SetCurrentValue(const std::string& key) override;
    /// The chosen item's text (the one being chosen while editing).
    std::string GetCurrentString() const override;
    /// Caption, then the item and suffix (reversed while editing), or "-"
    /// for an empty list.
    void DrawLine(int row) override;
    /// DrawLine marks the choice itself; there is no separate cursor.
    ///@{
    void DrawCursor(int /*line*/) override {}
    void EraseCursor(int /*line*/) override {}
    ///@}

    /// Selects item index (0-based); false when out of range or skipped.
    virtual bool SetCurrentValue(int index);
    /// Selects the first item with exactly this text.
    virtual bool SetCurrentValue(const char* text);
    /// Index of the chosen item (the one being chosen while editing).
    virtual int GetCurrentNumber() const;
    /// Item text by index, "" when out of range.
    virtual std::string GetItemString(unsigned int index) const;
    /// text read as a base-10 index.
    virtual std::string GetItemString(const std::string& text) const;

    /// Loads the items from keys; meant to be called once, by the constructors.
    void MapConstruct(std::map<std::string, std::string> keys);
    /// The number of items the cursor walks.
    void SetNumItems(int n);
    /// Leaves item n (1-based) out of the walk, or puts it back.
    ///@{
    void SetSkipItem(int n);
    void RemoveSkipItem(int n);
    ///@}
    /// Visible position to item index, and back.
    ///@{
    int GetItem(int visible) const;
    int GetIndex(int item) const;
    ///@}
    /// The text of the key-map entry at the current index.
    std::string GetValue() const;
    /// Next and previous shown item, wrapping.
    ///@{
    void KeyPressUp();
    void KeyPressDown();
    ///@}

    /// Number of items the cursor walks.
    int GetNumItems() const { return itemCount; }
    /// Index of the item being chosen while editing.
    int GetEditIndex() const { return editIndex; }
    /// Number of key-to-text entries loaded.
    size_t GetKeyMapSize() const { return keyMap.size(); }
    /// Item texts and their keys, in the sorted order the line shows them.
    ///@{
    const std::vector<std::string>& GetItemTexts() const { return itemTexts; }
    const std::vector<std::string>& GetItemKeys() const { return itemKeys; }
    ///@}

private:
    void SetupBase();
    bool IsSkipped(int index) const;
    // Takes the item under the cursor as the edited choice, if there is one.
    void FollowCursor();

    std::vector<KT::CFunctor<void(std::string)>> callbacks;
    std::vector<std::string> itemTexts;
    std::vector<std::string> itemKeys;
    std::map<std::string, std::string> keyMap;
    int32_t itemCount;
    int32_t currentIndex;
    int32_t editIndex;
    std::vector<int32_t> skipList;
    int32_t skipCount;
    bool convertTexts;
};

}  // namespace FP
