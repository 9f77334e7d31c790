#include "unit/LogGuard.h"

#include <log4cpp/AppenderSkeleton.hh>
#include <log4cpp/Category.hh>
#include <log4cpp/LoggingEvent.hh>

#include <cctype>

namespace FP {

// Hands every line of the category to the guard.
class LogGuard::Appender : public log4cpp::AppenderSkeleton {
public:
    explicit Appender(LogGuard& guard) : log4cpp::AppenderSkeleton("fp-log-guard"), guard_(guard) {}
    void close() override {}
    bool requiresLayout() const override { return false; }
    void setLayout(log4cpp::Layout*) override {}

protected:
    void _append(const log4cpp::LoggingEvent& event) override { guard_.Take(event); }

private:
    LogGuard& guard_;
};

namespace {

// Stray-byte lines differ only in positions and byte values: every run of
// digits counts as one placeholder.
std::string KindOf(const std::string& message) {
    std::string key;
    key.reserve(message.size());
    for (char c : message) {
        const bool digit = std::isdigit(static_cast<unsigned char>(c));
        if (!digit)
            key += c;
        else if (key.empty() || key.back() != '#')
            key += '#';
    }
    return key;
}

}  // namespace

LogGuard::LogGuard(const std::string& category, const Options& options)
    : category_(log4cpp::Category::getInstance(category)),
      // Looked up once: the lookup takes the hierarchy's lock, which must not
      // be taken while log4cpp holds the category's.
      root_(log4cpp::Category::getRoot()),
      options_(options),
      additivity_(category_.getAdditivity()),
      appender_(new Appender(*this)) {
    // The category's own lines stop at the guard, which passes on what it lets through.
    category_.setAdditivity(false);
    category_.addAppender(appender_);
}

LogGuard::~LogGuard() {
    category_.removeAppender(appender_);  // owned by the category: deleted here
    category_.setAdditivity(additivity_);
    std::lock_guard<std::mutex> lock(mutex_);
    for (auto& kind : kinds_)
        Summarize(kind.first, kind.second);
}

LogGuard::Clock::time_point LogGuard::Now() const {
    return options_.now ? options_.now() : Clock::now();
}

void LogGuard::Take(const log4cpp::LoggingEvent& event) {
    const Clock::time_point now = Now();
    const std::string key = KindOf(event.message);
    bool pass = false;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        Kind_t& kind = kinds_[key];
        if (now - kind.windowStart >= std::chrono::milliseconds(options_.windowMs)) {
            Summarize(key, kind);
            kind.windowStart = now;
            kind.passed = 0;
        }
        if (kind.passed < options_.burst) {
            ++kind.passed;
            pass = true;
        } else {
            ++kind.dropped;
            ++suppressed_;
            kind.priority = event.priority;
        }
    }
    if (pass)
        root_.callAppenders(event);
}

void LogGuard::Summarize(const std::string& key, Kind_t& kind) {
    if (!kind.dropped)
        return;
    const std::string line =
        std::to_string(kind.dropped) + " similar lines suppressed (\"" + key + "\")";
    kind.dropped = 0;
    root_.callAppenders(log4cpp::LoggingEvent(category_.getName(), line, "", kind.priority));
}

void LogGuard::Flush() {
    const Clock::time_point now = Now();
    std::lock_guard<std::mutex> lock(mutex_);
    for (auto it = kinds_.begin(); it != kinds_.end();) {
        if (now - it->second.windowStart < std::chrono::milliseconds(options_.windowMs)) {
            ++it;
            continue;
        }
        Summarize(it->first, it->second);
        // Kinds not seen for a whole window are forgotten, so the map stays small.
        it = kinds_.erase(it);
    }
}

unsigned long LogGuard::Suppressed() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return suppressed_;
}

}  // namespace FP
