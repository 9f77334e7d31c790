#pragma once

#include <string>

#include "tov/Param.h"

namespace TOV {

/// The result of every engine call: a success flag, a message (why it
/// failed, or empty) and the value answered.
/// Threads: a value type; one thread at a time per object. Owns: its value.
class CRet {
public:
    /// A failure without message.
    CRet() = default;
    /// Any result; the message and value are copied.
    CRet(bool success, const std::string& msg, const CParam& val = CParam())
        : success_(success), msg_(msg), val_(val) {}

    /// A success answering val.
    static CRet Ok(const CParam& val = CParam()) { return CRet(true, "", val); }
    /// A failure saying why.
    static CRet Fail(const std::string& msg) { return CRet(false, msg); }

    /// True when the call did what was asked.
    bool Success() const { return success_; }
    /// Why the call failed, or empty.
    const std::string& Msg() const { return msg_; }
    /// The value answered (empty when there is none).
    const CParam& Val() const { return val_; }
    /// The value answered, for the caller to take apart or change.
    CParam& Val() { return val_; }

private:
    bool success_ = false;
    std::string msg_;
    CParam val_;
};

}  // namespace TOV
