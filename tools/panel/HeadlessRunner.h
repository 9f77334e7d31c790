#pragma once

#include <csignal>
#include <cstdio>
#include <string>

#include "tools/panel/PanelOptions.h"
#include "tools/panel/PanelServer.h"

namespace FPPANEL {

// fp-panel without a screen: commands and key names come in on a descriptor
// (standard input), panel dumps go out to a stream (standard output).
class HeadlessRunner {
public:
    HeadlessRunner(PanelServer& server, const PanelOptions_t& options, int inFd, FILE* out);

    // Runs until a "quit" line or until quit becomes non-zero; a non-zero dump
    // asks for a dump (and is reset). End of input only stops the reading.
    void Run(volatile std::sig_atomic_t& quit, volatile std::sig_atomic_t& dump);
    // Handles one input line; false for "quit".
    bool HandleLine(const std::string& line);
    void Dump();

private:
    void DumpIfChanged();

    PanelServer& server_;
    const PanelOptions_t options_;
    int inFd_;
    FILE* out_;
    std::string pending_;
    uint64_t seenChanges_ = ~uint64_t(0);
    std::string lastDump_;
};

}  // namespace FPPANEL
