#pragma once

#include <string>

#include "fp/core/KeyTypes.h"

namespace FPDEMO {

// A date or time line that writes its value to its engine variable when an
// edit is committed; the library's date and time lines leave that to their
// owner.
template <class Line>
class CommittedLine : public Line {
public:
    bool SetCurrentValue(const std::string& value) override { return Line::SetCurrentValue(value); }
    bool KeyPress(const FP::KeyState_t& key) override {
        const bool wasEditing = this->GetEditing();
        const bool result = Line::KeyPress(key);
        if (wasEditing && key.key == FP::KEY_ENTER && !this->GetEditing())
            this->SendDbData(this->GetCurrentString());
        return result;
    }
};

}  // namespace FPDEMO
