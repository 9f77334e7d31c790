// first-unit: a front panel with a status screen and a settings screen, on
// a real panel or on the fp-panel emulator.
//
//   first-unit [--panel unix:PATH | tcp:HOST:PORT] [--db FILE] [--log-config FILE]
#include <poll.h>

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>
#include <log4cpp/PatternLayout.hh>
#include <log4cpp/PropertyConfigurator.hh>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <initializer_list>
#include <iostream>
#include <map>
#include <memory>
#include <string>

#include "SettingsScreen.h"
#include "StatusScreen.h"
#include "UiQueue.h"
#include "UnitVars.h"
#include "fp/core/Names.h"
#include "fp/display/DisplayHw.h"
#include "fp/input/Keypad.h"
#include "fp/link/FpAdapter.h"
#include "fp/link/FpControl.h"
#include "fp/screens/FpClient.h"
#include "kt/StreamSocket.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace {

using Clock = std::chrono::steady_clock;

const unsigned kWidth = 20;
const unsigned kHeight = 4;
// The longest the UI thread sleeps: how soon it notices a signal or a
// closed link.
const auto kWatchPeriod = std::chrono::milliseconds(200);

volatile std::sig_atomic_t gStop = 0;

void OnStopSignal(int) {
    gStop = 1;
}

struct Options_t {
    std::string panel = "unix:/tmp/fp-panel.sock";
    std::string db = "first-unit.db";
    std::string logConfig;
};

bool ParseArgs(int argc, char** argv, Options_t& out) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
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

// True once the panel has hung up. poll() only looks, so the link's read
// thread still gets every byte.
bool LinkClosed(const KT::CStreamSocket& socket) {
    if (!socket.IsOpen())
        return true;
    if (!socket.IsSocket())
        return false;  // a serial line never says
    pollfd p{socket.GetFd(), POLLRDHUP, 0};
    return ::poll(&p, 1, 0) > 0 && (p.revents & (POLLRDHUP | POLLHUP | POLLERR | POLLNVAL));
}

std::string Value(const TOV::CDataStore& store, const char* name) {
    return store.Read(name, TOV::COid(FirstUnit::Var::kInstance)).Val().GetValue();
}

}  // namespace

int main(int argc, char** argv) {
    Options_t options;
    if (!ParseArgs(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: first-unit [--panel unix:PATH | tcp:HOST:PORT] [--db FILE] "
                     "[--log-config FILE]\n");
        return 2;
    }
    if (!SetUpLogging(options.logConfig))
        return 1;
    std::signal(SIGPIPE, SIG_IGN);  // a panel that goes away is a failed write, not a kill
    std::signal(SIGINT, OnStopSignal);
    std::signal(SIGTERM, OnStopSignal);

    // 1. The data engine: declare the variables, then open the file that
    // keeps them.
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
    // Queued: engine events wait for the UI thread instead of arriving on
    // the engine's own thread, because screens take no locks.
    TOV::CTovClient engine(store, TOV::CTovClient::DELIVER_QUEUED);
    FP::FpClient client(&engine);
    FirstUnit::UiQueue queue(engine);

    // 2. The panel stack, in this order; it comes down in reverse when main
    // returns.
    KT::CStreamSocket socket;
    if (!socket.Open(options.panel)) {
        std::fprintf(stderr, "first-unit: cannot connect to the panel at %s\n",
                     options.panel.c_str());
        return 1;
    }
    FP::FpAdapter adapter(socket);  // starts the link's read thread
    FP::FpControl control(adapter);
    FP::Keypad keypad(control);
    FP::DisplayHw display(control, kWidth, kHeight);
    control.SetInitHandler(KT::CFunctor<void()>(&queue, &FirstUnit::UiQueue::OnPanelRestart));
    keypad.SetCallback(&queue);
    keypad.StartThreads();

    // 3. The screens, by name.
    std::map<std::string, std::unique_ptr<FP::BaseScreen>> screens;
    for (FP::BaseScreen* screen : std::initializer_list<FP::BaseScreen*>{
             new FirstUnit::StatusScreen, new FirstUnit::SettingsScreen}) {
        screen->SetClient(&client);
        screen->SetDisplay(&display);
        screen->SetKeypad(&keypad);
        screens[screen->GetName()].reset(screen);
    }

    // 4. The UI thread (this one): the only thread that touches the screens.
    client.Attach();
    FP::BaseScreen* current = nullptr;
    Clock::time_point nextDraw;
    auto show = [&](const std::string& name) {
        auto found = screens.find(name);
        if (found == screens.end()) {
            log4cpp::Category::getInstance("first-unit")
                .warn("No screen named \"%s\".", name.c_str());
            return;
        }
        if (current)
            current->DeInitialize();
        current = found->second.get();
        current->Initialize();  // reads the values and draws
        nextDraw = Clock::now() + std::chrono::milliseconds(current->GetPollTime());
    };
    show(FirstUnit::Screen::kStatus);

    while (!gStop && !LinkClosed(socket)) {
        FirstUnit::UiEvent_t event{};
        if (queue.Take(event, std::min(nextDraw, Clock::now() + kWatchPeriod))) {
            switch (event.kind) {
                case FirstUnit::UiEvent_t::KEY: {
                    const std::string next =
                        current->KeyPress(FP::KeyState_t{event.key, FP::KEY_STATE_DOWN});
                    if (next != FP::kNoScreen && next != current->GetName())
                        show(next);
                    break;
                }
                case FirstUnit::UiEvent_t::ENGINE:
                    queue.DeliverEngineEvents();
                    break;
                case FirstUnit::UiEvent_t::PANEL_RESTART:
                    // The controller forgot what it showed: send every row again.
                    current->ForceUpdate();
                    current->DrawScreen();
                    break;
            }
        }
        if (Clock::now() >= nextDraw) {
            current->DrawScreen();
            nextDraw = Clock::now() + std::chrono::milliseconds(current->GetPollTime());
        }
    }

    current->DeInitialize();
    client.Detach();
    keypad.SetCallback(nullptr);
    control.ClearInitHandler();
    std::printf("%s=%s\n%s=%s\n", FirstUnit::Var::kName,
                Value(store, FirstUnit::Var::kName).c_str(), FirstUnit::Var::kFanMode,
                Value(store, FirstUnit::Var::kFanMode).c_str());
    return 0;
}
