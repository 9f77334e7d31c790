#include "testing/LogCapture.h"

#include <log4cpp/AppenderSkeleton.hh>
#include <log4cpp/Category.hh>
#include <log4cpp/LoggingEvent.hh>
#include <log4cpp/Priority.hh>

namespace FP::Testing {

class LogCapture::Appender : public log4cpp::AppenderSkeleton {
public:
    explicit Appender(LogCapture& owner) : AppenderSkeleton("fp-testing-capture"), owner_(owner) {}
    void close() override {}
    bool requiresLayout() const override { return false; }
    void setLayout(log4cpp::Layout*) override {}

protected:
    void _append(const log4cpp::LoggingEvent& e) override {
        owner_.Add({log4cpp::Priority::getPriorityName(e.priority), e.categoryName, e.message});
    }

private:
    LogCapture& owner_;
};

LogCapture::LogCapture(const std::string& category)
    : category_(category.empty() ? log4cpp::Category::getRoot()
                                 : log4cpp::Category::getInstance(category)),
      priorityBefore_(category_.getPriority()),
      appender_(new Appender(*this)) {
    category_.setPriority(log4cpp::Priority::DEBUG);
    category_.addAppender(appender_);  // the category takes ownership
}

LogCapture::~LogCapture() {
    category_.removeAppender(appender_);
    category_.setPriority(priorityBefore_);
}

void LogCapture::Add(Entry e) {
    std::lock_guard<std::mutex> lock(mutex_);
    entries_.push_back(std::move(e));
}

std::vector<LogCapture::Entry> LogCapture::Entries() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return entries_;
}

std::vector<std::string> LogCapture::Messages() const {
    std::vector<std::string> out;
    for (auto& e : Entries())
        out.push_back(e.message);
    return out;
}

size_t LogCapture::Count(const std::string& text, bool prefix) const {
    size_t n = 0;
    for (auto& e : Entries()) {
        if (prefix ? e.message.compare(0, text.size(), text) == 0 : e.message == text)
            ++n;
    }
    return n;
}

void LogCapture::Clear() {
    std::lock_guard<std::mutex> lock(mutex_);
    entries_.clear();
}

}  // namespace FP::Testing
