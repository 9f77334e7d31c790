#include "tools/panel/ToolMain.h"

#include <csignal>

namespace FPPANEL {

int BadCommandLine(const char* tool, const std::string& error) {
    std::fprintf(stderr, "%s: %s (see --help)\n", tool, error.c_str());
    return 2;
}

void CatchSignal(int signo, void (*handler)(int)) {
    struct sigaction sa = {};
    sa.sa_handler = handler;
    sigemptyset(&sa.sa_mask);
    sigaction(signo, &sa, nullptr);
}

void CatchQuitSignals(void (*onQuit)(int)) {
    std::signal(SIGPIPE, SIG_IGN);
    CatchSignal(SIGINT, onQuit);
    CatchSignal(SIGTERM, onQuit);
}

}  // namespace FPPANEL
