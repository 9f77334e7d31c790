#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace log4cpp {
class Category;
}

namespace fptest {

// Records every message logged to one log4cpp category (and its children)
// while it is alive, so tests can check exact log lines.
class LogCapture {
public:
    struct Entry {
        std::string priority;  // "ERROR", "WARN", "DEBUG", ...
        std::string category;
        std::string message;
    };

    explicit LogCapture(const std::string& category);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::vector<Entry> Entries() const;
    std::vector<std::string> Messages() const;
    // Number of messages equal to text, or starting with it when prefix is true.
    size_t Count(const std::string& text, bool prefix = false) const;
    bool Contains(const std::string& text) const { return Count(text) > 0; }
    void Clear();

    void Add(Entry e);  // called by the appender

private:
    log4cpp::Category& category_;
    class Appender;
    Appender* appender_;
    mutable std::mutex mutex_;
    std::vector<Entry> entries_;
};

}  // namespace fptest
