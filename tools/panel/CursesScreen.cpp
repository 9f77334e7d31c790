#include "tools/panel/CursesScreen.h"

#include <langinfo.h>

#include <clocale>
#include <cstring>

#include "fp/core/KeyTypes.h"
#include "tools/panel/KeyMap.h"
#include "tools/panel/PanelText.h"
#include "tools/panel/internal/ToolSupport.h"

// After the library's headers: curses' key macros would clash with their names.
#include <curses.h>

namespace FPPANEL {

namespace {

const int kTickMs = 20;
const size_t kLogLines = 3;

// Writes text at (y, x), cut at the right edge instead of wrapping.
void Put(int y, int x, const std::string& text) {
    if (y >= LINES || x >= COLS)
        return;
    mvaddnstr(y, x, text.c_str(), COLS - x);
}

}  // namespace

CursesScreen::CursesScreen(PanelView& panel, const PanelOptions_t& options,
                           const std::string& title)
    : server_(panel), title_(title), options_(options), tracker_(options.releaseMs) {
    std::setlocale(LC_ALL, "");
    utf8_ = std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
    set_escdelay(25);  // Esc is a panel key; do not let it lag
    initscr();
    raw();  // Ctrl-Q reaches us instead of flow control
    noecho();
    keypad(stdscr, TRUE);
    curs_set(0);
    timeout(kTickMs);
}

CursesScreen::~CursesScreen() {
    endwin();
}

void CursesScreen::AddLogLine(const std::string& line) {
    std::lock_guard<std::mutex> lock(logMutex_);
    log_.push_back(line);
    while (log_.size() > kLogLines)
        log_.pop_front();
    logChanged_ = true;
}

void CursesScreen::Send(const std::vector<HeldKeyTracker::Event_t>& events, uint64_t nowMs) {
    for (const auto& e : events) {
        e.down ? server_.KeyDown(e.key) : server_.KeyUp(e.key);
        if (recorder_)
            recorder_->OnKey(e, nowMs);
    }
}

void CursesScreen::RecordReadings(KeyAction_e action, uint64_t nowMs) {
    if (!recorder_)
        return;
    const FPSIM::PanelState_t state = server_.Snapshot();
    if (action == ACTION_TEMP_UP || action == ACTION_TEMP_DOWN) {
        recorder_->OnCommand("temp " + std::to_string(state.temperature), nowMs);
        return;
    }
    for (unsigned fan = 0; fan < state.fanSpeed.size(); ++fan)
        recorder_->OnCommand(
            "fan " + std::to_string(fan + 1) + " " + std::to_string(state.fanSpeed[fan]), nowMs);
}

void CursesScreen::Draw() {
    const FPSIM::PanelState_t state = server_.Snapshot();
    const PanelInfo_t info = server_.Info();
    const std::vector<std::string> indicators = PanelText::Indicators(state, info);
    const FPSIM::PanelGrid& grid = state.grid;
    erase();

    int y = 0;
    attron(A_BOLD);
    Put(y++, 0, title_ + "  " + indicators[0]);
    attroff(A_BOLD);
    y++;
    const std::string border = "+" + std::string(grid.Width(), '-') + "+";
    Put(y++, 0, border);
    for (unsigned row = 0; row < grid.Height() && y < LINES; ++row, ++y) {
        Put(y, 0, "|");
        for (unsigned col = 0; col < grid.Width() && int(col) + 1 < COLS; ++col) {
            const bool reverse = grid.Reverse(col, row);
            if (reverse)
                attron(A_REVERSE);
            Put(y, int(col) + 1, FPSIM::PanelGrid::Glyph(grid.Char(col, row), utf8_));
            if (reverse)
                attroff(A_REVERSE);
        }
        Put(y, int(grid.Width()) + 1, "|");
    }
    Put(y++, 0, border);
    y++;
    for (size_t i = 1; i < indicators.size(); ++i)
        Put(y++, 0, indicators[i]);
    Put(y++, 0,
        tracker_.Holding() ? std::string("key held: ") + FP::KeyName(tracker_.HeldKey())
                           : std::string("key held: -"));
    y++;
    attron(A_DIM);
    for (const char* const* line = KeyMap::Legend(); *line; ++line)
        Put(y++, 0, *line);
    attroff(A_DIM);
    y++;
    std::lock_guard<std::mutex> lock(logMutex_);
    for (const auto& line : log_)
        Put(y++, 0, line);
    logChanged_ = false;
    refresh();
}

void CursesScreen::Run(volatile std::sig_atomic_t& quit) {
    uint64_t seen = ~uint64_t(0);
    bool dirty = true;
    bool done = false;
    while (!quit && !done) {
        const int ch = getch();
        const uint64_t now = NowMs();
        if (ch == KEY_RESIZE) {
            dirty = true;
        } else if (ch != ERR) {
            const KeyAction_t a = KeyMap::FromCurses(ch);
            switch (a.action) {
                case ACTION_QUIT:
                    done = true;
                    break;
                case ACTION_PANEL_KEY:
                    Send(tracker_.OnKey(a.panelKey, now), now);
                    dirty = true;
                    break;
                case ACTION_TEMP_UP:
                case ACTION_TEMP_DOWN:
                    server_.AdjustTemperature(a.action == ACTION_TEMP_UP ? 1 : -1);
                    RecordReadings(a.action, now);
                    break;
                case ACTION_FAN_UP:
                case ACTION_FAN_DOWN:
                    server_.AdjustFanSpeeds(a.action == ACTION_FAN_UP ? 100 : -100);
                    RecordReadings(a.action, now);
                    break;
                case ACTION_NONE:
                    break;
            }
        }
        const uint64_t later = NowMs();
        const std::vector<HeldKeyTracker::Event_t> due = tracker_.Poll(later);
        if (!due.empty()) {
            Send(due, later);
            dirty = true;
        }
        if (recorder_)
            recorder_->Poll(later);
        {
            std::lock_guard<std::mutex> lock(logMutex_);
            dirty = dirty || logChanged_;
        }
        if (server_.ChangeCount() != seen || dirty) {
            seen = server_.ChangeCount();
            dirty = false;
            Draw();
        }
    }
    const uint64_t end = NowMs();
    Send(tracker_.ReleaseAll(), end);
    if (recorder_)
        recorder_->Finish(end);
}

}  // namespace FPPANEL
