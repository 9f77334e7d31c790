#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace log4cpp {
class Category;
}

namespace FP::Testing {

/// Keeps every message logged to one log4cpp category (and the categories
/// below it) while it lives, so a test can check what the library reported:
/// a refused write on "fp.client", a lost link on "fpcontrol", a value a row
/// cannot show on "fp.lines". The category logs everything down to debug
/// while captured and gets its earlier level back afterwards.
/// Threads: any; messages may arrive on any thread. Owns: its appender,
/// which it removes from the category when destroyed.
class LogCapture {
public:
    /// One captured message.
    struct Entry {
        std::string priority;  ///< "ERROR", "WARN", "INFO", "DEBUG", ...
        std::string category;  ///< the category that logged it
        std::string message;   ///< the text as logged
    };

    /// Captures category; the root category (everything) when empty.
    explicit LogCapture(const std::string& category);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// What was captured so far, oldest first.
    ///@{
    std::vector<Entry> Entries() const;
    std::vector<std::string> Messages() const;
    ///@}
    /// How many messages equal text, or start with it when prefix is true.
    size_t Count(const std::string& text, bool prefix = false) const;
    /// True when some message equals text.
    bool Contains(const std::string& text) const { return Count(text) > 0; }
    /// Forgets what was captured.
    void Clear();

private:
    class Appender;
    void Add(Entry e);

    log4cpp::Category& category_;
    int priorityBefore_;
    Appender* appender_;
    mutable std::mutex mutex_;
    std::vector<Entry> entries_;
};

}  // namespace FP::Testing
