#include "tests/support/Emulator.h"

#include <sstream>

namespace fptest {

std::vector<std::string> EmulatorPrefix() {
    std::vector<std::string> words;
#ifdef FP_TEST_EMULATOR
    std::istringstream in(FP_TEST_EMULATOR);
    std::string word;
    while (in >> word)
        words.push_back(word);
#endif
    return words;
}

}  // namespace fptest
