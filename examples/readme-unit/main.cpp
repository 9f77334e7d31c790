// A whole unit: one screen that edits a brightness setting, on the panel at
// the address given (fp-panel's default socket otherwise), until SIGINT/SIGTERM.
#include <csignal>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

#include "fp/screens/BaseConfigScreen.h"
#include "tov/DataStore.h"
#include "tov/VarDecl.h"
#include "unit/Unit.h"

class DisplayScreen : public FP::BaseConfigScreen {
public:
    DisplayScreen() : BaseConfigScreen(2000, true) {  // redrawn every 2 s
        SetName("Display");
        menu.SetTitle("Display");
    }
    void CreateLines() override {  // once, on the first Initialize
        std::map<std::string, std::string> levels;
        for (char c = '1'; c <= '8'; ++c)
            levels[std::string(1, c)] = std::string(1, c);
        CreateChoiceLine("Brightness:", "disp.brightness", "0", levels, "");
    }
};

int main(int argc, char** argv) {
    // Block the stop signals before any thread starts, then wait for one below.
    sigset_t stop;
    sigemptyset(&stop);
    sigaddset(&stop, SIGINT);
    sigaddset(&stop, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stop, nullptr);

    TOV::CDataStore store;  // in memory; store.Open("file.db") keeps the values
    store.Declare(
        TOV::CVarDecl("disp.brightness").Default("5").Check(TOV::CValidator::Integer(1, 8)));

    FP::Unit::Options options;  // reconnects, redraws, refusal messages: on by default
    if (argc > 1)
        options.address = argv[1];  // tcp:HOST:PORT, unix:PATH or serial:DEVICE@BAUD
    FP::Unit unit(store, options);
    unit.AddScreen(std::unique_ptr<FP::BaseScreen>(new DisplayScreen));
    unit.SetLinkListener([](const FP::Unit::LinkEvent_t& e) {
        std::printf("panel %s %s\n", e.up ? "up" : "down:", e.reason.c_str());
        std::fflush(stdout);
    });
    if (!unit.Start())
        return 1;  // a malformed address: the listener has said why
    int signo = 0;
    sigwait(&stop, &signo);
    unit.Stop();
    return 0;
}
