#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <string>

namespace log4cpp {
class Category;
struct LoggingEvent;
}  // namespace log4cpp

namespace FP {

/// Rate-limits one log category: lines that differ only in their numbers
/// count as the same line; past a burst within a window, further ones are
/// dropped and counted, and one line "N similar lines suppressed" reports
/// them once the window is over. Lines that pass go to the root category's
/// appenders, unchanged. Nothing in the code that logs changes.
/// Threads: any; loggers on any thread may pass through it at once.
/// Owns: the appender it adds to the category; removing it again on
/// destruction restores the category as it was.
class LogGuard {
public:
    /// The clock rate-limit windows are measured with.
    using Clock = std::chrono::steady_clock;

    /// How much gets through.
    struct Options {
        /// Lines of one kind let through per window.
        unsigned burst = 5;
        /// The window, in milliseconds.
        unsigned windowMs = 1000;
        /// Time source; the steady clock when empty (tests inject one).
        std::function<Clock::time_point()> now;
    };

    /// Guards the category named category.
    LogGuard(const std::string& category, const Options& options);
    /// Takes the guard off the category.
    ~LogGuard();
    LogGuard(const LogGuard&) = delete;
    LogGuard& operator=(const LogGuard&) = delete;

    /// Writes the summaries of windows that have ended. Called by the unit's
    /// timers; a storm that stops is summed up without waiting for a new line.
    void Flush();
    /// Lines dropped so far.
    unsigned long Suppressed() const;

private:
    struct Kind_t {
        Clock::time_point windowStart;
        unsigned passed = 0;
        unsigned long dropped = 0;
        int priority = 0;
    };
    class Appender;
    friend class Appender;

    void Take(const log4cpp::LoggingEvent& event);

    Clock::time_point Now() const;
    void Summarize(const std::string& key, Kind_t& kind);

    log4cpp::Category& category_;
    log4cpp::Category& root_;
    const Options options_;
    const bool additivity_;
    Appender* appender_;
    mutable std::mutex mutex_;
    std::map<std::string, Kind_t> kinds_;  // by the line with its digits blanked
    unsigned long suppressed_ = 0;
};

}  // namespace FP
