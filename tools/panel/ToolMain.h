#pragma once

#include <cstdio>
#include <string>

namespace FPPANEL {

// What fp-panel and fp-demo do in main() before they start: read the command
// line and set up their signals, the same way in both so the two programs
// behave alike. Call from the main thread only.

// Tells the user what was wrong with the command line, prefixed with the
// tool's name; returns the exit status for it.
int BadCommandLine(const char* tool, const std::string& error);

// Reads the command line with Parser (a class with the static Parse and Usage
// of the tools' option classes). --help prints the usage and a bad command
// line says why; status is then what main() returns. Any other result leaves
// status 0 and is for the caller.
template <class Parser, class Options>
typename Parser::Result_e ReadCommandLine(const char* tool, int argc, char** argv, Options& out,
                                          int& status) {
    std::string error;
    const typename Parser::Result_e result = Parser::Parse(argc, argv, out, error);
    status = 0;
    if (result == Parser::PARSE_HELP)
        std::fputs(Parser::Usage(argv[0]).c_str(), stdout);
    else if (result == Parser::PARSE_ERROR)
        status = BadCommandLine(tool, error);
    return result;
}

// Runs handler on signo. System calls it interrupts fail with EINTR instead
// of restarting, so blocking loops get to see the flag the handler sets.
void CatchSignal(int signo, void (*handler)(int));

// onQuit for SIGINT and SIGTERM, as CatchSignal; a peer that goes away shows
// up as a failed write rather than a SIGPIPE.
void CatchQuitSignals(void (*onQuit)(int));

}  // namespace FPPANEL
