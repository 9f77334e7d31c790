#pragma once

#include <string>
#include <vector>

namespace FPDEMO {

// Everything fp-demo is told on its command line.
struct DemoOptions_t {
    std::string panel;  // empty: the emulator in-process
    std::string db;     // empty: the default file; ":memory:" for none
    std::string log;    // empty: the default file
    bool headless = false;
    bool serve = false;  // stay up against --panel with no terminal, until a signal
    std::string keys;
    std::string snapshot;  // where to save the panel once the keys have played
    bool trace = false;
    bool ascii = false;
    bool debug = false;
    std::vector<std::string> printVars;
    std::string web;       // HOST:PORT: serve the panel to browsers instead of the terminal
    std::string webToken;  // what a browser needs to press keys
    unsigned width = 20;
    unsigned height = 4;
};

class DemoOptions {
public:
    enum Result_e { PARSE_OK, PARSE_HELP, PARSE_VERSION, PARSE_ERROR };
    static Result_e Parse(int argc, const char* const* argv, DemoOptions_t& out,
                          std::string& error);
    static std::string Usage(const std::string& program);
    // $XDG_STATE_HOME/fp-demo, or ~/.local/state/fp-demo.
    static std::string StateDir();
};

}  // namespace FPDEMO
