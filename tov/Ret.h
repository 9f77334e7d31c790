#pragma once

#include <string>

#include "tov/Param.h"

namespace TOV {

// Result of every engine call: success flag, message (why it failed, or
// empty) and the value answered.
class CRet {
public:
    CRet() = default;
    CRet(bool success, const std::string& msg, const CParam& val = CParam())
        : success_(success), msg_(msg), val_(val) {}

    static CRet Ok(const CParam& val = CParam()) { return CRet(true, "", val); }
    static CRet Fail(const std::string& msg) { return CRet(false, msg); }

    bool Success() const { return success_; }
    const std::string& Msg() const { return msg_; }
    const CParam& Val() const { return val_; }
    CParam& Val() { return val_; }

private:
    bool success_ = false;
    std::string msg_;
    CParam val_;
};

}  // namespace TOV
