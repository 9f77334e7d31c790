#pragma once

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <string>
#include <vector>

#include "tools/panel/HeadlessCommand.h"
#include "tools/panel/PanelOptions.h"
#include "tools/panel/PanelServer.h"
#include "tools/panel/QuietWatch.h"

namespace FPPANEL {

/// fp-panel without a screen: commands come in on a descriptor (standard
/// input or a script file), panel dumps go out to a stream.
///
/// Input that is not a terminal is a script: a bad command, a failed
/// expectation, a key that could not be sent or a sync that timed out ends
/// the run with status 1 and the panel printed on stderr. A script ends at
/// the end of its input; standard input that ends before giving any command
/// leaves fp-panel serving the unit until it is signalled.
/// Threads: the caller's only. Borrows: the server, the descriptor, the stream.
class HeadlessRunner {
public:
    HeadlessRunner(PanelServer& server, const PanelOptions_t& options, int inFd, FILE* out);

    /// Runs until "quit", the end of the script, a failure, or quit becoming
    /// non-zero; a non-zero dump asks for a dump (and is reset). Returns the
    /// exit status: 1 after a failure, else 0.
    int Run(volatile std::sig_atomic_t& quit, volatile std::sig_atomic_t& dump);
    /// Prints the panel and an empty line to the output stream.
    void Dump();

private:
    enum Step_e { STEP_ON, STEP_QUIT, STEP_FAIL };

    Step_e Advance(uint64_t nowMs);
    Step_e Execute(const HeadlessCommand_t& c, const std::string& line, uint64_t nowMs);
    Step_e CheckScreen();
    Step_e Fail(const std::string& why, unsigned lineNo);
    Step_e Sent(bool sent, const std::string& line, uint64_t nowMs);
    void Observe(uint64_t nowMs);
    void ReadInput();
    void DumpIfChanged();
    std::string Text() const;

    PanelServer& server_;
    const PanelOptions_t options_;
    const int inFd_;
    FILE* out_;
    const bool strict_;  // not a person typing: errors end the run
    bool reading_;
    std::string pending_;            // input not yet split into lines
    std::deque<std::string> lines_;  // lines not yet run
    unsigned lineNo_ = 0;

    QuietWatch quiet_;
    uint64_t waitUntilMs_ = 0;  // a "wait" runs until then
    bool syncing_ = false;
    uint64_t syncStartMs_ = 0;
    unsigned syncQuietMs_ = 0;
    bool collecting_ = false;  // gathering the rows after "expect-screen"
    unsigned screenLineNo_ = 0;
    std::vector<std::string> screenRows_;

    uint64_t seenChanges_ = ~uint64_t(0);
    std::string lastDump_;
};

}  // namespace FPPANEL
