#include "tests/support/Child.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/Emulator.h"
#include "tests/support/Waiting.h"

namespace fptest {

Child::Child(const std::vector<std::string>& argv, int in, int out, int err) {
    Start(argv, in, out, err);
}

Child::Child(const std::vector<std::string>& argv, const std::string& outputPath) {
    const int in = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int out = ::open(outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    Start(argv, in, out, out);
    ::close(in);
    ::close(out);
}

Child::~Child() {
    if (pid_ > 0) {
        Signal(SIGKILL);
        Wait();
    }
}

void Child::Start(const std::vector<std::string>& argv, int in, int out, int err) {
    // Built before the fork: the child may only exec or exit.
    std::vector<std::string> words = EmulatorPrefix();
    words.insert(words.end(), argv.begin(), argv.end());
    std::vector<char*> args;
    for (auto& w : words)
        args.push_back(&w[0]);
    args.push_back(nullptr);
    pid_ = ::fork();
    if (pid_ != 0)
        return;
    const int fds[] = {in, out, err};
    for (int target = 0; target < 3; ++target) {
        if (fds[target] >= 0)
            ::dup2(fds[target], target);
    }
    ::execvp(args[0], args.data());
    ::_exit(127);
}

void Child::Signal(int signo) {
    if (pid_ > 0)
        ::kill(pid_, signo);
}

int Child::Wait(int seconds) {
    int status = 0;
    const bool ended =
        pid_ > 0 && WaitFor([&] { return ::waitpid(pid_, &status, WNOHANG) == pid_; }, seconds);
    if (ended)
        pid_ = -1;
    return ended && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace fptest
