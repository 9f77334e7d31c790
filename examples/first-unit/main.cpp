// first-unit: a front panel with a status screen and a settings screen, on
// a real panel or on the fp-panel emulator.
//
//   first-unit [--panel ADDRESS] [--db FILE] [--log-config FILE] [--until-panel-quits]
#include <unistd.h>
#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>
#include <log4cpp/PatternLayout.hh>
#include <log4cpp/PropertyConfigurator.hh>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

#include "SettingsScreen.h"
#include "StatusScreen.h"
#include "UnitVars.h"
#include "tov/DataStore.h"
#include "unit/Unit.h"

namespace {

struct Options_t {
    std::string panel = "unix:/tmp/fp-panel.sock";
    std::string db = "first-unit.db";
    std::string logConfig;
    bool untilPanelQuits = false;  // for scripts: a lost link ends the run
};

bool ParseArgs(int argc, char** argv, Options_t& out) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--until-panel-quits") {
            out.untilPanelQuits = true;
            continue;
        }
        std::string* value = arg == "--panel"        ? &out.panel
                             : arg == "--db"         ? &out.db
                             : arg == "--log-config" ? &out.logConfig
                                                     : nullptr;
        if (!value || i + 1 >= argc)
            return false;
        *value = argv[++i];
    }
    return true;
}

// Warnings and errors to stderr, unless a log4cpp properties file says
// otherwise (set its priority to DEBUG to see the library's debug lines).
bool SetUpLogging(const std::string& configFile) {
    if (!configFile.empty()) {
        try {
            log4cpp::PropertyConfigurator::configure(configFile);
            return true;
        } catch (const log4cpp::ConfigureFailure& e) {
            std::fprintf(stderr, "first-unit: %s: %s\n", configFile.c_str(), e.what());
            return false;
        }
    }
    auto* appender = new log4cpp::OstreamAppender("stderr", &std::cerr);
    auto* layout = new log4cpp::PatternLayout();
    layout->setConversionPattern("%-5p [%c] %m%n");
    appender->setLayout(layout);
    log4cpp::Category& root = log4cpp::Category::getRoot();
    root.addAppender(appender);  // the root takes ownership
    root.setPriority(log4cpp::Priority::WARN);
    return true;
}

std::string Value(const TOV::CDataStore& store, const char* name) {
    return store.Read(name, TOV::COid(FirstUnit::Var::kInstance)).Val().GetValue();
}

}  // namespace

int main(int argc, char** argv) {
    Options_t options;
    if (!ParseArgs(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: first-unit [--panel unix:PATH | tcp:HOST:PORT | serial:DEVICE@BAUD] "
                     "[--db FILE] [--log-config FILE] [--until-panel-quits]\n");
        return 2;
    }
    if (!SetUpLogging(options.logConfig))
        return 1;
    // Stop signals are waited for below; block them before any thread starts.
    sigset_t stop;
    sigemptyset(&stop);
    sigaddset(&stop, SIGINT);
    sigaddset(&stop, SIGTERM);
    sigaddset(&stop, SIGUSR1);  // the link listener's way to end the run
    pthread_sigmask(SIG_BLOCK, &stop, nullptr);

    // 1. The data engine: declare the variables, then open the file that keeps them.
    TOV::CDataStore store;
    std::string error;
    if (!FirstUnit::DeclareVars(store, error)) {
        std::fprintf(stderr, "first-unit: %s\n", error.c_str());
        return 1;
    }
    const TOV::CRet opened = store.Open(options.db);
    if (!opened.Success()) {
        std::fprintf(stderr, "first-unit: %s: %s\n", options.db.c_str(), opened.Msg().c_str());
        return 1;
    }

    // 2. The unit: the panel link, the UI thread and the screens by name.
    FP::Unit::Options unitOptions;
    unitOptions.address = options.panel;
    FP::Unit unit(store, unitOptions);
    unit.AddScreen(std::unique_ptr<FP::BaseScreen>(new FirstUnit::StatusScreen));
    unit.AddScreen(std::unique_ptr<FP::BaseScreen>(new FirstUnit::SettingsScreen));
    bool wasUp = false;  // UI thread only
    unit.SetLinkListener([&](const FP::Unit::LinkEvent_t& e) {
        if (!e.up)
            std::fprintf(stderr, "first-unit: panel link down: %s\n", e.reason.c_str());
        if (!e.up && wasUp && options.untilPanelQuits)
            ::kill(::getpid(), SIGUSR1);
        wasUp = wasUp || e.up;
    });
    if (!unit.Start())
        return 1;

    // 3. Wait for a stop signal; the unit does the rest on its own threads.
    int signo = 0;
    sigwait(&stop, &signo);
    unit.Stop();
    std::printf("%s=%s\n%s=%s\n", FirstUnit::Var::kName,
                Value(store, FirstUnit::Var::kName).c_str(), FirstUnit::Var::kFanMode,
                Value(store, FirstUnit::Var::kFanMode).c_str());
    return 0;
}
