#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <memory>
#include <string>

#include "tools/panel/CursesScreen.h"
#include "tools/panel/HeadlessRunner.h"
#include "tools/panel/KeyRecorder.h"
#include "tools/panel/PanelOptions.h"
#include "tools/panel/PanelServer.h"
#include "tools/panel/ToolMain.h"
#include "tools/web/WebFrontEnd.h"

namespace {

volatile std::sig_atomic_t gQuit = 0;
volatile std::sig_atomic_t gDump = 0;

void OnQuitSignal(int) {
    gQuit = 1;
}

void OnDumpSignal(int) {
    gDump = 1;
}

void LogToStderr(const std::string& line) {
    std::fprintf(stderr, "fp-panel: %s\n", line.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    FPPANEL::PanelOptions_t options;
    int status = 0;
    if (FPPANEL::ReadCommandLine<FPPANEL::PanelOptions>("fp-panel", argc, argv, options, status) !=
        FPPANEL::PanelOptions::PARSE_OK)
        return status;
    std::string error;
    FPWEB::WebOptions_t webOptions;
    if (!options.web.empty() &&
        !FPWEB::WebOptions::FromCommandLine(options.web, options.webToken, webOptions, error))
        return FPPANEL::BadCommandLine("fp-panel", error);
    FPPANEL::CatchQuitSignals(OnQuitSignal);
    FPPANEL::CatchSignal(SIGUSR1, OnDumpSignal);

    const bool headless = options.headless || !options.script.empty() || !isatty(STDIN_FILENO) ||
                          !isatty(STDOUT_FILENO);
    int input = STDIN_FILENO;
    if (!options.script.empty() && (input = ::open(options.script.c_str(), O_RDONLY)) < 0) {
        std::fprintf(stderr, "fp-panel: cannot read %s\n", options.script.c_str());
        return 2;
    }
    std::unique_ptr<FPPANEL::KeyRecorder> recorder;
    if (!options.record.empty() &&
        (headless || !(recorder = FPPANEL::KeyRecorder::Open(options.record, error)))) {
        std::fprintf(stderr, "fp-panel: --record: %s\n",
                     headless ? "needs the terminal screen" : error.c_str());
        return 2;
    }
    FPPANEL::PanelServer server(options);
    std::unique_ptr<FPPANEL::CursesScreen> screen;
    if (headless) {
        server.SetLogSink(FPPANEL::PanelServer::LogSink(&LogToStderr));
    } else {
        screen.reset(new FPPANEL::CursesScreen(server, options));
        screen->SetRecorder(recorder.get());
        server.SetLogSink(
            FPPANEL::PanelServer::LogSink(screen.get(), &FPPANEL::CursesScreen::AddLogLine));
    }
    if (!server.Start(error)) {
        screen.reset();
        std::fprintf(stderr, "fp-panel: %s\n", error.c_str());
        return 1;
    }
    int rc = 0;
    // The browser view draws the same server the terminal does.
    std::unique_ptr<FPWEB::WebFrontEnd> web;
    if (!options.web.empty()) {
        web.reset(new FPWEB::WebFrontEnd(server, webOptions));
        web->SetLogSink(headless ? FPWEB::WebFrontEnd::LogSink(&LogToStderr)
                                 : FPWEB::WebFrontEnd::LogSink(screen.get(),
                                                               &FPPANEL::CursesScreen::AddLogLine));
        if (!web->Start(error)) {
            server.Stop();
            screen.reset();
            std::fprintf(stderr, "fp-panel: %s\n", error.c_str());
            return 1;
        }
    }
    if (headless) {
        FPPANEL::HeadlessRunner runner(server, options, input, stdout);
        rc = runner.Run(gQuit, gDump);
    } else {
        screen->Run(gQuit);
    }
    if (web)
        web->Stop();
    server.Stop();
    screen.reset();
    return rc;
}
