#pragma once

#include <string>
#include <vector>

namespace FPDEMO {

// A headless key script: panel key names, and "WAIT ms" pauses.
struct ScriptStep_t {
    int key = -1;  // panel key code, or -1 for a pause
    unsigned waitMs = 0;
};

class KeyScript {
public:
    // False, with error naming the bad token, if the script does not parse.
    static bool Parse(const std::string& text, std::vector<ScriptStep_t>& steps,
                      std::string& error);
};

}  // namespace FPDEMO
