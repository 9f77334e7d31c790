#include "tests/support/Emulator.h"

#include <unistd.h>

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

std::string EmulatorCommandPrefix() {
    std::string out;
    for (const auto& w : EmulatorPrefix())
        out += w + " ";
    return out;
}

pid_t Spawn(const std::vector<std::string>& argv, int in, int out, int err) {
    std::vector<std::string> words = EmulatorPrefix();
    words.insert(words.end(), argv.begin(), argv.end());
    const pid_t pid = ::fork();
    if (pid != 0)
        return pid;
    const int fds[] = {in, out, err};
    for (int target = 0; target < 3; ++target) {
        if (fds[target] >= 0)
            ::dup2(fds[target], target);
    }
    std::vector<char*> args;
    for (auto& w : words)
        args.push_back(&w[0]);
    args.push_back(nullptr);
    ::execvp(args[0], args.data());
    ::_exit(127);
}

}  // namespace fptest
