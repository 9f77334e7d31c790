#pragma once

#include <atomic>
#include <vector>

#include "fp/input/Keypad.h"
#include "tests/fp/link/LinkPeer.h"

namespace fptest {

using Keys = std::vector<int>;

// Collects the keys a keypad reports, from whichever thread reports them. Once
// closed, any further report is a fault and only counted in lateCalls.
struct KeyListener : FP::IKeyPress {
    void OnKeyPress(FP::Key_e key) override {
        lateCalls += closed ? 1 : 0;
        keys.Add(key);
    }
    // Waits, up to a wide limit, until `last` is the latest key; all keys so far.
    Keys WaitFor(int last) {
        return keys.WaitUntil([last](Keys const& k) { return !k.empty() && k.back() == last; });
    }
    // The keys so far, which are then forgotten.
    Keys Take() { return keys.Take(); }
    void Close() { closed = true; }

    Collected<int> keys;
    std::atomic<unsigned> lateCalls{0};
    std::atomic<bool> closed{false};
};

}  // namespace fptest
