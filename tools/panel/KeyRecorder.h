#pragma once

#include <cstdint>
#include <fstream>
#include <memory>
#include <ostream>
#include <string>

#include "tools/panel/HeldKeyTracker.h"

namespace FPPANEL {

/// Writes an interactive session as a script that fp-panel --script replays:
/// a short press becomes its key name, a longer one "down KEY", "wait MS",
/// "up KEY", and the pauses between them "wait MS". Readings changed by hand
/// become "temp" and "fan" lines. The script opens and ends with "sync", so a
/// replay starts on a settled unit and its final "dump" shows where it ended.
///
/// Time is passed in (milliseconds from any fixed point), so tests step it.
/// Threads: one thread at a time. Owns: the file it opened, or borrows out.
class KeyRecorder {
public:
    /// Records into out, which must outlive the recorder.
    explicit KeyRecorder(std::ostream& out);
    /// Records into a new file at path; null (with error set) if it cannot be made.
    static std::unique_ptr<KeyRecorder> Open(const std::string& path, std::string& error);
    ~KeyRecorder();
    KeyRecorder(const KeyRecorder&) = delete;
    KeyRecorder& operator=(const KeyRecorder&) = delete;

    /// A key event as the panel was sent it.
    void OnKey(const HeldKeyTracker::Event_t& event, uint64_t nowMs);
    /// Any other script command, written as given ("temp 30").
    void OnCommand(const std::string& line, uint64_t nowMs);
    /// Writes a press that has been down too long to be a tap as a hold.
    void Poll(uint64_t nowMs);
    /// Closes the script; later events are ignored. The destructor calls it too.
    void Finish(uint64_t nowMs);

private:
    void Write(const std::string& line, uint64_t atMs);
    void FlushPending();

    std::unique_ptr<std::ofstream> file_;
    std::ostream& out_;
    bool started_ = false;
    bool finished_ = false;
    uint64_t lastMs_ = 0;  // time of the latest line written
    int pendingKey_ = -1;  // down, not yet known to be a tap or a hold
    uint64_t pendingMs_ = 0;
};

}  // namespace FPPANEL
