#include "tools/panel/HeadlessRunner.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "tools/panel/HeadlessCommand.h"

namespace FPPANEL {

namespace {

const int kPollMs = 20;

}  // namespace

HeadlessRunner::HeadlessRunner(PanelServer& server, const PanelOptions_t& options, int inFd,
                               FILE* out)
    : server_(server), options_(options), inFd_(inFd), out_(out) {}

void HeadlessRunner::Dump() {
    const std::string text = PanelText::Render(server_.Snapshot(), server_.Info(), !options_.ascii);
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
    if (PanelText::Render(server_.Snapshot(), server_.Info(), !options_.ascii) != lastDump_)
        Dump();
}

bool HeadlessRunner::HandleLine(const std::string& line) {
    const HeadlessCommand_t c = HeadlessCommand::Parse(line);
    bool sent = true;
    switch (c.kind) {
        case HeadlessCommand_t::NONE:
            break;
        case HeadlessCommand_t::BAD:
            std::fprintf(stderr, "fp-panel: %s\n", c.error.c_str());
            break;
        case HeadlessCommand_t::DUMP:
            Dump();
            break;
        case HeadlessCommand_t::QUIT:
            return false;
        case HeadlessCommand_t::PRESS:
            sent = server_.Press(c.key);
            break;
        case HeadlessCommand_t::DOWN:
            sent = server_.KeyDown(c.key);
            break;
        case HeadlessCommand_t::UP:
            sent = server_.KeyUp(c.key);
            break;
        case HeadlessCommand_t::HOLD:
            sent = server_.Hold(c.key, unsigned(c.value));
            break;
        case HeadlessCommand_t::TEMP:
            server_.SetTemperature(int16_t(c.value));
            break;
        case HeadlessCommand_t::FAN:
            server_.SetFanSpeed(c.fan, uint16_t(c.value));
            break;
    }
    if (!sent)
        std::fprintf(stderr, "fp-panel: key not sent, no unit connected: %s\n", line.c_str());
    return true;
}

void HeadlessRunner::Run(volatile std::sig_atomic_t& quit, volatile std::sig_atomic_t& dump) {
    bool reading = inFd_ >= 0;
    while (!quit) {
        if (dump) {
            dump = 0;
            Dump();
        }
        if (options_.dumpOnChange)
            DumpIfChanged();
        pollfd p{reading ? inFd_ : -1, POLLIN, 0};
        const int ready = ::poll(&p, 1, kPollMs);
        if (ready <= 0 || !(p.revents & (POLLIN | POLLHUP | POLLERR)))
            continue;
        char buffer[512];
        const ssize_t got = ::read(inFd_, buffer, sizeof buffer);
        if (got < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (got <= 0) {
            reading = false;  // keep serving the unit without input
            continue;
        }
        pending_.append(buffer, size_t(got));
        for (size_t nl; (nl = pending_.find('\n')) != std::string::npos;) {
            std::string line = pending_.substr(0, nl);
            pending_.erase(0, nl + 1);
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            if (!HandleLine(line))
                return;
        }
    }
}

}  // namespace FPPANEL
