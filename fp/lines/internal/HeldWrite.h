#pragma once

namespace FP {

// For row kinds that store a value differently from the kind they extend:
// the commit key runs the base kind's handling with the binding switched
// off, so the base writes nothing and the caller writes by its own rule.
class HeldWrite {
public:
    HeldWrite() = delete;

    // press() is the base kind's KeyPress; dbActive is the row's flag.
    template <class Press>
    static bool Run(bool& dbActive, bool commit, Press&& press) {
        const bool active = dbActive;
        if (commit)
            dbActive = false;
        const bool result = press();
        dbActive = active;
        return result;
    }
};

}  // namespace FP
