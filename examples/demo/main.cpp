#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <log4cpp/Category.hh>
#include <log4cpp/FileAppender.hh>
#include <log4cpp/PatternLayout.hh>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>

#include "examples/demo/DemoOptions.h"
#include "examples/demo/DemoUnit.h"
#include "examples/demo/DemoVars.h"
#include "examples/demo/EmbeddedPanel.h"
#include "examples/demo/KeyScript.h"
#include "tools/panel/CursesScreen.h"
#include "tools/panel/PanelSnapshot.h"
#include "tools/panel/PanelText.h"
#include "tools/panel/ToolMain.h"
#include "tools/web/WebFrontEnd.h"

namespace {

volatile std::sig_atomic_t gQuit = 0;

int gQuitPipe[2] = {-1, -1};

void OnQuitSignal(int) {
    gQuit = 1;
    const int saved = errno;
    (void)!::write(gQuitPipe[1], "q", 1);
    errno = saved;
}

// mkdir -p for the directory part of path.
void MakeParents(const std::string& path) {
    for (size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1))
        ::mkdir(path.substr(0, slash).c_str(), 0700);
}

bool SetUpLog(const FPDEMO::DemoOptions_t& o, std::string& path) {
    path = o.log.empty() ? FPDEMO::DemoOptions::StateDir() + "/fp-demo.log" : o.log;
    MakeParents(path);
    auto* appender = new log4cpp::FileAppender("file", path);
    auto* layout = new log4cpp::PatternLayout();
    layout->setConversionPattern("%d{%Y-%m-%d %H:%M:%S.%l} %-5p [%c] %m%n");
    appender->setLayout(layout);
    log4cpp::Category& root = log4cpp::Category::getRoot();
    root.removeAllAppenders();
    root.addAppender(appender);
    root.setPriority(o.debug ? log4cpp::Priority::DEBUG : log4cpp::Priority::WARN);
    return ::access(path.c_str(), W_OK) == 0;
}

// Sleeps until SIGINT or SIGTERM, without waking in between. Any thread
// may take the signal, so the handler also writes to this pipe.
void WaitForQuit() {
    while (!gQuit) {
        char byte;
        if (::read(gQuitPipe[0], &byte, 1) < 0 && errno != EINTR)
            break;
    }
}

const FP::Key_e kNoKey = FP::KEY_NONE;
// How long a script waits for the panel to answer before giving up.
const unsigned kLinkWaitMs = 5000;

// What the headless run prints: the panel as the emulator shows it.
void PrintPanel(FPDEMO::EmbeddedPanel* panel, FPDEMO::DemoUnit& unit, bool ascii,
                const std::string& caption) {
    std::printf("== %s [%s]\n", caption.c_str(), unit.CurrentScreen().c_str());
    if (panel) {
        for (const std::string& line : FPPANEL::PanelText::Display(panel->Snapshot(), !ascii))
            std::printf("%s\n", line.c_str());
    } else {
        std::printf("(the panel is external: look at it)\n");
    }
    std::fflush(stdout);
}

// Plays one step; false when the unit did not keep up.
bool Play(const FPDEMO::ScriptStep_t& step, FPDEMO::EmbeddedPanel* panel, FPDEMO::DemoUnit& unit) {
    using Clock = std::chrono::steady_clock;
    if (step.key < 0) {
        const auto end = Clock::now() + std::chrono::milliseconds(step.waitMs);
        while (!gQuit && Clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return unit.Sync(5000) || !unit.LinkUp();
    }
    const unsigned before = unit.KeysReported();
    if (panel) {
        if (!panel->Sim().Press(uint8_t(step.key)))
            return false;
        // The key travels the link and the keypad before it is queued.
        const auto deadline = Clock::now() + std::chrono::seconds(5);
        while (unit.KeysReported() == before) {
            if (Clock::now() > deadline || gQuit)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    } else {
        unit.InjectKey(FP::Key_e(step.key));
    }
    // Wide: a wizard step shows its messages for over a second each.
    return unit.Sync(15000);
}

int RunScript(const std::string& script, const FPDEMO::DemoOptions_t& o,
              FPDEMO::EmbeddedPanel* panel, FPDEMO::DemoUnit& unit, bool tour) {
    std::vector<FPDEMO::ScriptStep_t> steps;
    std::string error;
    FPDEMO::KeyScript::Parse(script, steps, error);
    unit.Sync(5000);
    if (o.trace || tour)
        PrintPanel(panel, unit, o.ascii, "start");
    for (const FPDEMO::ScriptStep_t& step : steps) {
        if (gQuit)
            return 130;
        if (!Play(step, panel, unit)) {
            std::fprintf(stderr, "fp-demo: the unit did not answer a key in time\n");
            return 1;
        }
        if ((o.trace || tour) && step.key >= 0)
            PrintPanel(panel, unit, o.ascii, FP::KeyName(step.key));
    }
    if (!o.trace && !tour)
        PrintPanel(panel, unit, o.ascii, "end");
    return 0;
}

// Serves the built-in panel to browsers until a signal; then shows where the
// panel was left, so a script can compare it with what the page showed.
int ServeWeb(const FPWEB::WebOptions_t& options, FPDEMO::EmbeddedPanel& panel,
             FPDEMO::DemoUnit& unit, bool ascii) {
    FPWEB::WebFrontEnd web(panel, options);
    web.SetLogSink([](const std::string& line) {
        std::printf("fp-demo: %s\n", line.c_str());
        std::fflush(stdout);
    });
    std::string error;
    if (!web.Start(error)) {
        std::fprintf(stderr, "fp-demo: %s\n", error.c_str());
        return 1;
    }
    std::printf("fp-demo: open %s in a browser; Ctrl-C quits\n", web.Url().c_str());
    std::fflush(stdout);
    while (!gQuit)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    web.Stop();
    unit.Sync(5000);
    PrintPanel(&panel, unit, ascii, "end");
    return 0;
}

// Shown when there is no terminal to draw in and no script: a walk through
// the screens.
const char kTour[] = "ENTER EXIT DOWN ENTER DOWN EXIT DOWN DOWN DOWN ENTER EXIT DOWN ENTER";

}  // namespace

int main(int argc, char** argv) {
    FPDEMO::DemoOptions_t o;
    int status = 0;
    const FPDEMO::DemoOptions::Result_e parsed =
        FPPANEL::ReadCommandLine<FPDEMO::DemoOptions>("fp-demo", argc, argv, o, status);
    if (parsed == FPDEMO::DemoOptions::PARSE_VERSION)
        std::printf("fp-demo %s\n", FP_VERSION);
    if (parsed != FPDEMO::DemoOptions::PARSE_OK)
        return status;
    std::string error;
    std::vector<FPDEMO::ScriptStep_t> steps;
    if (!FPDEMO::KeyScript::Parse(o.keys, steps, error)) {
        std::fprintf(stderr, "fp-demo: --keys: %s\n", error.c_str());
        return 2;
    }
    FPWEB::WebOptions_t web;
    web.title = "fp-demo";
    if (!o.web.empty() && !FPWEB::WebOptions::FromCommandLine(o.web, o.webToken, web, error))
        return FPPANEL::BadCommandLine("fp-demo", error);
    if (::pipe2(gQuitPipe, O_CLOEXEC) != 0)
        return 1;
    FPPANEL::CatchQuitSignals(OnQuitSignal);

    std::string logPath;
    if (!SetUpLog(o, logPath))
        std::fprintf(stderr, "fp-demo: cannot write the log %s; logging nowhere\n",
                     logPath.c_str());

    TOV::CDataStore store;
    if (!FPDEMO::DeclareVars(store, error)) {
        std::fprintf(stderr, "fp-demo: %s\n", error.c_str());
        return 1;
    }
    const std::string db = o.db.empty() ? FPDEMO::DemoOptions::StateDir() + "/settings.db" : o.db;
    if (db != ":memory:") {
        MakeParents(db);
        const TOV::CRet opened = store.Open(db);
        if (!opened.Success()) {
            std::fprintf(stderr, "fp-demo: %s: %s\n", db.c_str(), opened.Msg().c_str());
            return 1;
        }
    }

    const bool terminal = isatty(STDIN_FILENO) && isatty(STDOUT_FILENO);
    const bool tour = !o.headless && !terminal && o.web.empty() && !o.serve;
    std::unique_ptr<FPDEMO::EmbeddedPanel> panel;
    FP::Unit::Options options;
    options.width = o.width;
    options.height = o.height;
    if (o.panel.empty()) {
        panel.reset(new FPDEMO::EmbeddedPanel(o.width, o.height));
        std::shared_ptr<std::unique_ptr<KT::CStreamSocket>> end(
            new std::unique_ptr<KT::CStreamSocket>(panel->TakeUnitEnd()));
        options.connector = [end](std::string& reason) {
            reason = "the built-in panel is gone";
            return std::move(*end);
        };
        if (!panel->Start()) {
            std::fprintf(stderr, "fp-demo: the built-in panel emulator did not start\n");
            return 1;
        }
    } else {
        options.address = o.panel;
    }
    FPDEMO::DemoUnit unit(store, options);

    std::unique_ptr<FPPANEL::CursesScreen> screen;
    FPPANEL::PanelOptions_t view;
    view.width = o.width;
    view.height = o.height;
    if (!o.headless && !tour && panel && o.web.empty()) {
        screen.reset(new FPPANEL::CursesScreen(*panel, view, "fp-demo"));
        unit.SetNotice([&screen](const std::string& line) { screen->AddLogLine(line); });
    } else {
        unit.SetNotice([](const std::string& line) {
            std::printf("fp-demo: %s\n", line.c_str());
            std::fflush(stdout);
        });
    }
    if (!unit.Start()) {
        screen.reset();
        std::fprintf(stderr, "fp-demo: no panel link: %s\n", unit.LinkReason().c_str());
        return 1;
    }
    // A script needs the panel; a panel that cannot be reached is an error, not a wait.
    const bool scripted = o.headless || tour;
    if (!unit.Unit().WaitLinkUp(scripted ? kLinkWaitMs : 0) && scripted) {
        unit.Stop();
        std::fprintf(stderr, "fp-demo: no panel at %s: %s\n", o.panel.c_str(),
                     unit.LinkReason().c_str());
        return 1;
    }
    if (!panel && !unit.LinkUp())
        std::printf("fp-demo: waiting for the panel at %s\n", o.panel.c_str());

    int rc = 0;
    if (!o.web.empty()) {
        rc = ServeWeb(web, *panel, unit, o.ascii);
    } else if (screen && !o.serve) {
        screen->Run(gQuit);
    } else if (scripted && !o.serve) {
        rc = RunScript(tour ? std::string(kTour) : o.keys, o, panel.get(), unit, tour);
        if (rc == 0 && !o.snapshot.empty() &&
            !FPPANEL::PanelSnapshot::Save(o.snapshot, panel->Snapshot(), !o.ascii, error)) {
            std::fprintf(stderr, "fp-demo: --snapshot: %s\n", error.c_str());
            rc = 1;
        }
    } else {
        std::printf("fp-demo: driving the panel at %s; Ctrl-C quits\n", o.panel.c_str());
        std::fflush(stdout);
        WaitForQuit();
    }
    unit.Stop();
    screen.reset();
    if (panel)
        panel->Stop();
    for (const std::string& name : o.printVars) {
        const TOV::CRet v = store.Read(name, TOV::COid("0"));
        if (v.Success())
            std::printf("%s=%s\n", name.c_str(), v.Val().GetValue().c_str());
        else
            std::printf("%s: %s\n", name.c_str(), v.Msg().c_str());
    }
    log4cpp::Category::shutdown();
    return rc;
}
