#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "fp/menu/BaseLine.h"
#include "kt/Functor.h"

namespace FP {

// A choice among texts, each mapped to the engine value it represents (its
// key). Items appear sorted by key as plain strings, so numbered keys come
// as "1", "10", "11", "2", ... Committing writes where the chosen item
// stands in that order, counted from 1, and not its key: stored values
// depend on exactly this. A variable that holds keys wants a ChoiceLine.
class ListLine : public BaseLine {
public:
    explicit ListLine(bool convertTexts);
    ListLine(std::vector<std::string> items, bool convertTexts);
    ListLine(std::map<std::string, std::string> items, bool convertTexts);
    ListLine(std::map<int, std::string> items, bool convertTexts);
    // Entry 0 is not used: the texts are items[1] to items[count - 1].
    ListLine(const char** items, int count);
    ~ListLine() override;

    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    // Selects the item whose key is key. An unknown key is refused.
    bool SetCurrentValue(const std::string& key) override;
    std::string GetCurrentString() const override;
    void DrawLine(int row) override;
    void DrawCursor(int /*line*/) override {}
    void EraseCursor(int /*line*/) override {}

    virtual bool SetCurrentValue(int index);
    virtual bool SetCurrentValue(const char* text);
    virtual int GetCurrentNumber() const;
    virtual std::string GetItemString(unsigned int index) const;
    // text read as a base-10 index.
    virtual std::string GetItemString(const std::string& text) const;

    // Loads the items from keys; meant to be called once, by the constructors.
    void MapConstruct(std::map<std::string, std::string> keys);
    void SetNumItems(int n);
    // 1-based item numbers.
    void SetSkipItem(int n);
    void RemoveSkipItem(int n);
    // Visible position to item index, and back.
    int GetItem(int visible) const;
    int GetIndex(int item) const;
    // The text of the key-map entry at the current index.
    std::string GetValue() const;
    void KeyPressUp();
    void KeyPressDown();

    int GetNumItems() const { return itemCount; }
    int GetEditIndex() const { return editIndex; }
    size_t GetKeyMapSize() const { return keyMap.size(); }
    const std::vector<std::string>& GetItemTexts() const { return itemTexts; }
    const std::vector<std::string>& GetItemKeys() const { return itemKeys; }

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
