#include "tools/panel/KeyRecorder.h"

#include "fp/input/KeyTypes.h"
#include "fp/input/Keypad.h"

namespace FPPANEL {

namespace {

// Held shorter than the keypad's repeat delay, a key does nothing a plain
// press would not, so it replays as one.
const uint64_t kTapMs = FP::Keypad::kHoldDelayMs;

}  // namespace

KeyRecorder::KeyRecorder(std::ostream& out) : out_(out) {}

std::unique_ptr<KeyRecorder> KeyRecorder::Open(const std::string& path, std::string& error) {
    std::unique_ptr<std::ofstream> file(new std::ofstream(path, std::ios::trunc));
    if (!*file) {
        error = "cannot write " + path;
        return nullptr;
    }
    std::unique_ptr<KeyRecorder> recorder(new KeyRecorder(*file));
    recorder->file_ = std::move(file);
    return recorder;
}

KeyRecorder::~KeyRecorder() {
    Finish(lastMs_);
}

void KeyRecorder::Write(const std::string& line, uint64_t atMs) {
    if (!started_) {
        out_ << "# recorded by fp-panel; replay with fp-panel --script FILE\nsync\n";
        started_ = true;
    } else if (atMs > lastMs_) {
        out_ << "wait " << (atMs - lastMs_) << "\n";
    }
    if (atMs > lastMs_ || lastMs_ == 0)
        lastMs_ = atMs;
    out_ << line << "\n";
    out_.flush();  // a session killed mid-way keeps what it did
}

void KeyRecorder::FlushPending() {
    if (pendingKey_ < 0)
        return;
    Write(std::string("down ") + FP::KeyName(pendingKey_), pendingMs_);
    pendingKey_ = -1;
}

void KeyRecorder::OnKey(const HeldKeyTracker::Event_t& event, uint64_t nowMs) {
    if (finished_)
        return;
    Poll(nowMs);
    if (!event.down && event.key == pendingKey_) {
        pendingKey_ = -1;
        Write(FP::KeyName(event.key), pendingMs_);
        return;
    }
    FlushPending();
    if (event.down) {
        pendingKey_ = event.key;
        pendingMs_ = nowMs;
    } else {
        Write(std::string("up ") + FP::KeyName(event.key), nowMs);
    }
}

void KeyRecorder::OnCommand(const std::string& line, uint64_t nowMs) {
    if (finished_)
        return;
    FlushPending();
    Write(line, nowMs);
}

void KeyRecorder::Poll(uint64_t nowMs) {
    if (pendingKey_ >= 0 && nowMs - pendingMs_ >= kTapMs)
        FlushPending();
}

void KeyRecorder::Finish(uint64_t nowMs) {
    if (finished_ || !started_)
        return;
    if (pendingKey_ >= 0) {
        // Still down at the end: replay the press, and let it go at the end too.
        const int key = pendingKey_;
        FlushPending();
        Write(std::string("up ") + FP::KeyName(key), nowMs);
    }
    out_ << "sync\ndump\n";
    out_.flush();
    finished_ = true;
}

}  // namespace FPPANEL
