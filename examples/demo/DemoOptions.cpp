#include "examples/demo/DemoOptions.h"

#include <cstdlib>

#include "kt/LinkAddress.h"
#include "tools/panel/PanelOptions.h"

namespace FPDEMO {

std::string DemoOptions::StateDir() {
    const char* xdg = std::getenv("XDG_STATE_HOME");
    if (xdg && *xdg)
        return std::string(xdg) + "/fp-demo";
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : ".") + "/.local/state/fp-demo";
}

DemoOptions::Result_e DemoOptions::Parse(int argc, const char* const* argv, DemoOptions_t& out,
                                         std::string& error) {
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        auto value = [&](std::string& to) {
            if (i + 1 >= argc) {
                error = name + " needs a value";
                return false;
            }
            to = argv[++i];
            return true;
        };
        std::string v;
        if (name == "-h" || name == "--help") {
            return PARSE_HELP;
        } else if (name == "--version") {
            return PARSE_VERSION;
        } else if (name == "--panel") {
            if (!value(out.panel))
                return PARSE_ERROR;
            const KT::CLinkAddress parsed(out.panel);
            if (!parsed.IsValid()) {
                error = "bad panel address '" + out.panel + "': " + parsed.GetError() +
                        " (tcp:HOST:PORT, unix:PATH or serial:DEVICE[@BAUD])";
                return PARSE_ERROR;
            }
        } else if (name == "--db") {
            if (!value(out.db))
                return PARSE_ERROR;
        } else if (name == "--log") {
            if (!value(out.log))
                return PARSE_ERROR;
        } else if (name == "--keys") {
            if (!value(out.keys))
                return PARSE_ERROR;
            out.headless = true;
        } else if (name == "--snapshot") {
            if (!value(out.snapshot))
                return PARSE_ERROR;
            out.headless = true;
        } else if (name == "--print-var") {
            if (!value(v))
                return PARSE_ERROR;
            out.printVars.push_back(v);
            out.headless = true;
        } else if (name == "--size") {
            if (!value(v))
                return PARSE_ERROR;
            if (!FPPANEL::PanelOptions::ParseSize(v, out.width, out.height) || out.width < 16 ||
                out.height < 2) {
                error = "bad size '" + v + "' (WIDTHxHEIGHT, at least 16x2)";
                return PARSE_ERROR;
            }
        } else if (name == "--web" || name == "--web-token") {
            if (!value(name == "--web" ? out.web : out.webToken))
                return PARSE_ERROR;
        } else if (name == "--serve") {
            out.serve = true;
        } else if (name == "--headless") {
            out.headless = true;
        } else if (name == "--trace") {
            out.trace = true;
            out.headless = true;
        } else if (name == "--ascii") {
            out.ascii = true;
        } else if (name == "--debug") {
            out.debug = true;
        } else {
            error = "unknown option '" + name + "'";
            return PARSE_ERROR;
        }
    }
    if (out.serve && out.panel.empty()) {
        error = "--serve drives an external panel; give it --panel";
        return PARSE_ERROR;
    }
    if (!out.web.empty() && (!out.panel.empty() || !out.keys.empty())) {
        error = "--web shows the built-in panel live; it goes with neither --panel nor --keys";
        return PARSE_ERROR;
    }
    if (!out.snapshot.empty() && (!out.panel.empty() || !out.web.empty())) {
        error = "--snapshot pictures the built-in panel; it goes with neither --panel nor --web";
        return PARSE_ERROR;
    }
    return PARSE_OK;
}

std::string DemoOptions::Usage(const std::string& program) {
    const std::string state = StateDir();
    return "Usage: " + program +
           " [OPTIONS]\n"
           "A sample unit built on the front-panel library: menus, status, network and\n"
           "display settings, date and time, a setup wizard, on an emulated panel.\n"
           "\n"
           "In a terminal it shows the emulated panel; use the arrow keys, Enter and Esc.\n"
           "Without a terminal it plays a short guided tour and prints it.\n"
           "\n"
           "Options:\n"
           "  --panel ADDR       drive another panel instead of the built-in emulator:\n"
           "                     tcp:HOST:PORT, unix:PATH (e.g. an fp-panel) or\n"
           "                     serial:DEVICE[@BAUD] (a real panel); reconnects if it drops\n"
           "  --db PATH          settings file (default " +
           state +
           "/settings.db);\n"
           "                     ':memory:' keeps nothing\n"
           "  --log PATH         log file (default " +
           state +
           "/fp-demo.log)\n"
           "  --debug            log debug lines too\n"
           "  --web HOST:PORT    show the panel in a browser at http://HOST:PORT/ instead of\n"
           "                     the terminal, until Ctrl-C (e.g. --web 127.0.0.1:8080)\n"
           "  --web-token TEXT   browsers need TEXT to press keys (made up and printed\n"
           "                     when HOST is not a loopback address)\n"
           "  --serve            no screen: keep driving --panel until SIGINT or SIGTERM,\n"
           "                     printing link changes (for CI and services)\n"
           "  --headless         no screen: play --keys, print the panel, exit\n"
           "  --keys SCRIPT      keys to play, e.g. \"DOWN DOWN ENTER\"; names as fp-panel's\n"
           "                     (UP DOWN LEFT RIGHT ENTER EXIT BACKSPACE DELETE SPACE 0-9\n"
           "                     a-z A-Z); WAIT MS pauses. Implies --headless\n"
           "  --snapshot FILE    after the keys, save the panel to FILE: .txt, .svg or\n"
           "                     .png by its ending. Implies --headless\n"
           "  --trace            print the panel after every key, not just at the end\n"
           "  --print-var NAME   print an engine variable at the end (repeatable)\n"
           "  --ascii            panel symbols as ASCII stand-ins\n"
           "  --size WxH         panel size (default 20x4)\n"
           "  --version          print the version\n"
           "  -h, --help         this text\n"
           "\n"
           "Keys in the terminal: arrows, Enter, Esc (back), Backspace, Delete, digits,\n"
           "letters; F5 refresh; F2/F3 temperature, F6/F7 fans; Ctrl-Q or F10 quits.\n";
}

}  // namespace FPDEMO
