#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace fptest {

// A program a test runs in the background (behind the emulator prefix on a
// cross build). Killed and reaped at the latest when this object goes, so a
// failed assertion leaves no process behind.
class Child {
public:
    // in, out and err become its stdin, stdout and stderr; -1 keeps the test's.
    Child(const std::vector<std::string>& argv, int in, int out, int err);
    // No input; stdout and stderr both go to the file at outputPath.
    Child(const std::vector<std::string>& argv, const std::string& outputPath);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void Signal(int signo);
    // Its exit code once it ends; -1 when a signal ended it or it ran past `seconds`.
    int Wait(int seconds = 30);

private:
    void Start(const std::vector<std::string>& argv, int in, int out, int err);

    pid_t pid_ = -1;
};

}  // namespace fptest
