#pragma once

#include <cstdint>
#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

// A time of day set field by field ("23:59:00"): left and right jump between
// hour, minute and second, up and down step the field with wrap-around,
// enter commits. The line writes nothing back; its owner
// picks the committed fields up through the getters.
class TimeLine : public BaseLine {
public:
    TimeLine();
    // No range check: the fields are taken as given.
    TimeLine(int hour, int minute, int second);
    ~TimeLine() override;

    bool KeyPress(const KeyState_t& key) override;
    void KeyUp() override;
    void KeyDown() override;
    void KeyLeft() override;
    void KeyRight() override;
    using BaseLine::SetCurrentValue;
    // A time is not taken from text: always false.
    bool SetCurrentValue(const std::string& value) override;
    // The committed text, also while editing.
    std::string GetCurrentString() const override { return curString; }
    void DrawLine(int row) override;
    void DrawCursor(int /*row*/) override {}
    void EraseCursor(int /*row*/) override {}

    int GetHour() const { return curHour; }
    int GetMinute() const { return curMinute; }
    int GetSecond() const { return curSecond; }
    // Out-of-range values are ignored. Only the committed field changes;
    // the texts are rebuilt by the next step or commit.
    void SetHour(int hour);
    void SetMinute(int minute);
    void SetSecond(int second);
    const std::string& GetEditString() const { return tempString; }

    void UpdateCurString();
    void UpdateTempString();

private:
    // 0 hour, 1 minute, 2 second, from the cursor index.
    int Field() const;
    void Step(int delta);

    std::string curString;
    std::string tempString;
    int32_t curHour;
    int32_t curMinute;
    int32_t curSecond;
    int32_t tempHour;
    int32_t tempMinute;
    int32_t tempSecond;
};

}  // namespace FP
