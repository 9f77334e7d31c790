#pragma once

#include <cstdint>
#include <string>

namespace FPPANEL {

// Everything fp-panel is told on its command line.
struct PanelOptions_t {
    std::string listen = "tcp:127.0.0.1:7070";
    unsigned width = 20;
    unsigned height = 4;
    uint8_t slotId = 1;
    float voltage = 12.0f;
    uint8_t displayType = 1;
    std::string version = "fp-panel 1.0";
    int16_t temperature = 25;
    uint16_t fanSpeed = 2000;
    unsigned releaseMs = 120;  // a key with no terminal repeat for this long goes up
    unsigned baud = 0;         // > 0: the connection runs at a serial line's pace
    bool headless = false;
    bool dumpOnChange = false;
    bool ascii = false;              // symbol glyphs as ASCII stand-ins in text dumps
    std::string script;              // headless commands from this file instead of standard input
    std::string record;              // the terminal session is written here as a script
    unsigned syncMs = 150;           // "sync": how long the unit must stay quiet
    unsigned syncTimeoutMs = 10000;  // "sync": how long it may take at most
    std::string web;                 // HOST:PORT for the browser view; empty: none
    std::string webToken;  // what a browser needs to press keys; empty: loopback needs none
};

// Parses the command line into options.
class PanelOptions {
public:
    enum Result_e { PARSE_OK, PARSE_HELP, PARSE_ERROR };

    // On PARSE_ERROR, error says what was wrong.
    static Result_e Parse(int argc, const char* const* argv, PanelOptions_t& out,
                          std::string& error);
    // "20x4" within the 1..256 the wire's single-byte positions can address.
    static bool ParseSize(const std::string& text, unsigned& width, unsigned& height);
    static std::string Usage(const std::string& program);
};

}  // namespace FPPANEL
