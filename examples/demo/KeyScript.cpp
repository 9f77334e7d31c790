#include "examples/demo/KeyScript.h"

#include <sstream>

#include "tools/panel/KeyMap.h"

namespace FPDEMO {

namespace {
const unsigned long kMaxWaitMs = 600000;
}

bool KeyScript::Parse(const std::string& text, std::vector<ScriptStep_t>& steps,
                      std::string& error) {
    std::istringstream in(text);
    std::string token;
    while (in >> token) {
        ScriptStep_t step;
        if (token == "WAIT") {
            std::string ms;
            char* end = nullptr;
            const unsigned long n = (in >> ms) ? std::strtoul(ms.c_str(), &end, 10) : 0;
            if (ms.empty() || *end != '\0' || ms[0] == '-' || n > kMaxWaitMs) {
                error = "WAIT needs milliseconds (0 to 600000), not '" + ms + "'";
                return false;
            }
            step.waitMs = unsigned(n);
        } else {
            step.key = FPPANEL::KeyMap::FromName(token);
            if (step.key < 0) {
                error = "unknown key '" + token + "'";
                return false;
            }
        }
        steps.push_back(step);
    }
    return true;
}

}  // namespace FPDEMO
