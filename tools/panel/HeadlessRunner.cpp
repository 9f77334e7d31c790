#include "tools/panel/HeadlessRunner.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "tools/panel/PanelSnapshot.h"
#include "tools/panel/ScreenCheck.h"
#include "tools/panel/internal/ToolSupport.h"

namespace FPPANEL {

namespace {

// Short enough that a wait or sync ends close to its time.
const int kTickMs = 10;

bool IsScreenRow(const std::string& line) {
    return !line.empty() && (line[0] == '|' || line[0] == '+');
}

}  // namespace

HeadlessRunner::HeadlessRunner(PanelServer& server, const PanelOptions_t& options, int inFd,
                               FILE* out)
    : server_(server),
      options_(options),
      inFd_(inFd),
      out_(out),
      strict_(inFd < 0 || !::isatty(inFd)),
      reading_(inFd >= 0) {}

std::string HeadlessRunner::Text() const {
    return PanelText::Render(server_.Snapshot(), server_.Info(), !options_.ascii);
}

void HeadlessRunner::Dump() {
    const std::string text = Text();
    lastDump_ = text;
    std::fputs(text.c_str(), out_);
    std::fputs("\n", out_);  // an empty line ends a dump
    std::fflush(out_);
}

void HeadlessRunner::DumpIfChanged() {
    const uint64_t changes = server_.ChangeCount();
    if (changes == seenChanges_)
        return;
    seenChanges_ = changes;
    // Many changes (a new reading, a report sent) leave the text as it was.
    if (Text() != lastDump_)
        Dump();
}

void HeadlessRunner::Observe(uint64_t nowMs) {
    const PanelInfo_t info = server_.Info();
    quiet_.Observe(nowMs, info.connected, info.connections, server_.Snapshot().counters.bytesIn);
}

HeadlessRunner::Step_e HeadlessRunner::Fail(const std::string& why, unsigned lineNo) {
    std::fprintf(stderr, "fp-panel: line %u: %s\n", lineNo, why.c_str());
    if (!strict_)
        return STEP_ON;
    std::fprintf(stderr, "fp-panel: the panel shows:\n%s", Text().c_str());
    std::fflush(stderr);
    return STEP_FAIL;
}

HeadlessRunner::Step_e HeadlessRunner::Sent(bool sent, const std::string& line, uint64_t nowMs) {
    quiet_.Touch(nowMs);
    return sent ? STEP_ON : Fail("key not sent, no unit connected: " + line, lineNo_);
}

HeadlessRunner::Step_e HeadlessRunner::CheckScreen() {
    collecting_ = false;
    const std::string d =
        ScreenCheck::CheckScreen(server_.Snapshot(), screenRows_, !options_.ascii);
    screenRows_.clear();
    return d.empty() ? STEP_ON : Fail("expect-screen failed:\n" + d, screenLineNo_);
}

HeadlessRunner::Step_e HeadlessRunner::Execute(const HeadlessCommand_t& c, const std::string& line,
                                               uint64_t nowMs) {
    std::string error;
    switch (c.kind) {
        case HeadlessCommand_t::NONE:
            return STEP_ON;
        case HeadlessCommand_t::BAD:
            return Fail(c.error, lineNo_);
        case HeadlessCommand_t::DUMP:
            Dump();
            return STEP_ON;
        case HeadlessCommand_t::QUIT:
            return STEP_QUIT;
        case HeadlessCommand_t::PRESS:
            return Sent(server_.Press(c.key), line, nowMs);
        case HeadlessCommand_t::DOWN:
            return Sent(server_.KeyDown(c.key), line, nowMs);
        case HeadlessCommand_t::UP:
            return Sent(server_.KeyUp(c.key), line, nowMs);
        case HeadlessCommand_t::HOLD: {
            const Step_e s = Sent(server_.Hold(c.key, unsigned(c.value)), line, nowMs);
            quiet_.ExpectUntil(nowMs + uint64_t(c.value));
            return s;
        }
        case HeadlessCommand_t::TEMP:
            server_.SetTemperature(int16_t(c.value));
            return STEP_ON;
        case HeadlessCommand_t::FAN:
            server_.SetFanSpeed(c.fan, uint16_t(c.value));
            return STEP_ON;
        case HeadlessCommand_t::WAIT:
            waitUntilMs_ = nowMs + uint64_t(c.value);
            return STEP_ON;
        case HeadlessCommand_t::SYNC:
            syncing_ = true;
            syncStartMs_ = nowMs;
            syncQuietMs_ = c.value > 0 ? unsigned(c.value) : options_.syncMs;
            return STEP_ON;
        case HeadlessCommand_t::EXPECT:
            error = ScreenCheck::CheckRow(server_.Snapshot(), c.row, ScreenCheck::ParseRow(c.text),
                                          !options_.ascii);
            return error.empty() ? STEP_ON : Fail("expect failed: " + error, lineNo_);
        case HeadlessCommand_t::EXPECT_SCREEN:
            collecting_ = true;
            screenLineNo_ = lineNo_;
            return STEP_ON;
        case HeadlessCommand_t::SNAPSHOT:
            if (!PanelSnapshot::Save(c.text, server_.Snapshot(), !options_.ascii, error))
                return Fail("snapshot: " + error, lineNo_);
            return STEP_ON;
    }
    return STEP_ON;
}

HeadlessRunner::Step_e HeadlessRunner::Advance(uint64_t nowMs) {
    if (nowMs < waitUntilMs_)
        return STEP_ON;
    waitUntilMs_ = 0;
    if (syncing_) {
        if (!quiet_.Quiet(nowMs, syncQuietMs_)) {
            if (nowMs - syncStartMs_ < options_.syncTimeoutMs)
                return STEP_ON;
            syncing_ = false;
            return Fail("sync: the unit did not settle within " +
                            std::to_string(options_.syncTimeoutMs) + " ms",
                        lineNo_);
        }
        syncing_ = false;
    }
    while (!lines_.empty()) {
        const std::string line = lines_.front();
        lines_.pop_front();
        ++lineNo_;
        if (collecting_) {
            if (IsScreenRow(line)) {
                screenRows_.push_back(line);
                continue;
            }
            const Step_e s = CheckScreen();
            if (s != STEP_ON)
                return s;
        }
        const Step_e s = Execute(HeadlessCommand::Parse(line), line, nowMs);
        if (s != STEP_ON)
            return s;
        if (waitUntilMs_ != 0 || syncing_)
            return STEP_ON;  // the rest waits its turn
    }
    if (reading_)
        return STEP_ON;
    if (collecting_) {
        const Step_e s = CheckScreen();
        if (s != STEP_ON)
            return s;
    }
    // Input that gave nothing at all (/dev/null) leaves a plain server.
    return !options_.script.empty() || lineNo_ > 0 ? STEP_QUIT : STEP_ON;
}

void HeadlessRunner::ReadInput() {
    pollfd p{reading_ ? inFd_ : -1, POLLIN, 0};
    const int ready = ::poll(&p, 1, kTickMs);
    if (ready <= 0 || !(p.revents & (POLLIN | POLLHUP | POLLERR)))
        return;
    char buffer[512];
    const ssize_t got = ::read(inFd_, buffer, sizeof buffer);
    if (got < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (got <= 0) {
        reading_ = false;
        if (!pending_.empty())
            lines_.push_back(pending_);  // a last line without its newline
        pending_.clear();
        return;
    }
    pending_.append(buffer, size_t(got));
    for (size_t nl; (nl = pending_.find('\n')) != std::string::npos;) {
        std::string line = pending_.substr(0, nl);
        pending_.erase(0, nl + 1);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines_.push_back(line);
    }
}

int HeadlessRunner::Run(volatile std::sig_atomic_t& quit, volatile std::sig_atomic_t& dump) {
    while (!quit) {
        const uint64_t now = NowMs();
        Observe(now);
        if (dump) {
            dump = 0;
            Dump();
        }
        if (options_.dumpOnChange)
            DumpIfChanged();
        switch (Advance(now)) {
            case STEP_QUIT:
                return 0;
            case STEP_FAIL:
                return 1;
            case STEP_ON:
                break;
        }
        ReadInput();
    }
    return 0;
}

}  // namespace FPPANEL
