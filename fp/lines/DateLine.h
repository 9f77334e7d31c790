#pragma once

#include <cstdint>
#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

// A calendar date set field by field ("2024/06/30"): left and right jump
// between year, month and day, up and down step the field with wrap-around,
// enter commits. The line writes nothing back; its owner
// picks the committed fields up through the getters.
//
// Abstract on purpose: the by-value SetCurrentValue below does not override
// the base's, so a subclass must say how a date arrives as text.
class DateLine : public BaseLine {
public:
    DateLine();
    // No range check: the fields are taken as given.
    DateLine(int year, int month, int day);

    bool KeyPress(const KeyState_t& key) override;
    void KeyUp() override;
    void KeyDown() override;
    void KeyLeft() override;
    void KeyRight() override;
    bool SetCurrentValue(std::string value);
    // The committed text, also while editing.
    std::string GetCurrentString() const override { return curString; }
    void DrawLine(int row) override;
    void DrawCursor(int /*row*/) override {}
    void EraseCursor(int /*row*/) override {}

    int GetYear() const { return curYear; }
    int GetMonth() const { return curMonth; }
    int GetDay() const { return curDay; }
    // Out-of-range values are ignored. Only the committed field changes;
    // the texts are rebuilt by the next step or commit.
    void SetYear(int year);
    void SetMonth(int month);
    void SetDay(int day);
    const std::string& GetEditString() const { return tempString; }

    void UpdateCurString();
    void UpdateTempString();

private:
    // 0 year, 1 month, 2 day, from the cursor index.
    int Field() const;
    void Step(int delta);

    std::string curString;
    std::string tempString;
    int32_t curYear;
    int32_t curMonth;
    int32_t curDay;
    int32_t tempYear;
    int32_t tempMonth;
    int32_t tempDay;
};

}  // namespace FP
