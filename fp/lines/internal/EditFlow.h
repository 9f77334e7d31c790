#pragma once

#include <string>
#include <type_traits>

#include "fp/input/KeyTypes.h"

namespace FP {
namespace EditFlow {

// What enter or exit did to a line that edits a copy of its value.
enum Step_e { STEP_NONE, STEP_STARTED, STEP_COMMITTED, STEP_CANCELLED };

// Enter and exit for the line kinds that edit a copy. Enter outside edit
// mode starts an edit (a read-only line stays out of it) and then calls
// begin(), which refreshes the copy; enter inside clears the edit flag and
// calls commit(), which takes the copy over. When commit() answers a text,
// a writable line with an active binding hands it to its own SendDbData
// (the concrete type's, so a kind that hides the base's gets its own).
// Exit leaves the copy as it stands. Other keys are the caller's.
template <class Line, class Begin, class Commit>
Step_e Key(Line& line, Key_e key, bool& editing, Begin&& begin, Commit&& commit) {
    if (key == KEY_EXIT) {
        editing = false;
        return STEP_CANCELLED;
    }
    if (key != KEY_ENTER) {
        return STEP_NONE;
    }
    if (!editing) {
        if (!line.GetReadOnly()) {
            editing = true;
        }
        begin();
        return STEP_STARTED;
    }
    editing = false;
    if constexpr (std::is_void_v<decltype(commit())>) {
        commit();
    } else {
        const std::string value = commit();
        if (!line.GetReadOnly() && line.GetDbActive()) {
            line.SendDbData(value);
        }
    }
    return STEP_COMMITTED;
}

}  // namespace EditFlow
}  // namespace FP
