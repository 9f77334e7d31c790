#include "fp/core/KeyTypes.h"

namespace FP {

namespace {

const char* const kNamedKeys[] = {
    "NONE", "LEFT", "UP", "RIGHT", "DOWN", "EXIT", "ENTER", "BACKSPACE", "0",      "1",       "2",
    "3",    "4",    "5",  "6",     "7",    "8",    "9",     "REFRESH",   "DELETE", "SPACEBAR"};

// Letter keys are named by the letter itself: lower case first, then upper.
struct LetterNames {
    char names[52][2];
    LetterNames() {
        for (int i = 0; i < 26; ++i) {
            names[i][0] = static_cast<char>('a' + i);
            names[i][1] = '\0';
            names[26 + i][0] = static_cast<char>('A' + i);
            names[26 + i][1] = '\0';
        }
    }
};

}  // namespace

const char* KeyName(int key) {
    static const LetterNames letters;
    if (key < 0 || key > KEY_LAST)
        return "ERROR";
    if (key < KEY_a)
        return kNamedKeys[key];
    return letters.names[key - KEY_a];
}

const char* KeyStateName(int state) {
    switch (state) {
        case KEY_STATE_UNKNOWN:
            return "Unknown";
        case KEY_STATE_DOWN:
            return "Down";
        case KEY_STATE_UP:
            return "Up";
        default:
            return "ERROR";
    }
}

}  // namespace FP
