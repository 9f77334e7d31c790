#pragma once

#include <log4cpp/Category.hh>

#include <string>

namespace FP {

// Whether a row is showing its placeholder because the stored value is one
// it cannot show. Each such value is logged once, however often a poll loop
// reads it again.
class UnshownValue {
public:
    bool Active() const { return active_; }
    // The row shows a value again (read or committed).
    void Clear() {
        active_ = false;
        last_.clear();
    }
    // why completes "<name>/<instance> holds "<text>", ..." in the log line.
    void Report(const char* caller, const std::string& dbName, const std::string& dbInstance,
                const std::string& text, const char* why) {
        active_ = true;
        if (text == last_)
            return;
        last_ = text;
        log4cpp::Category::getInstance("fp.lines")
            .warn("%s() %s/%s holds \"%s\", %s", caller, dbName.c_str(), dbInstance.c_str(),
                  text.c_str(), why);
    }

private:
    bool active_ = false;
    std::string last_;
};

}  // namespace FP
