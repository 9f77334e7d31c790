#pragma once

#include <functional>

namespace fptest {

// Polls done() every few milliseconds until it holds; false once `seconds`
// have passed. The default is wide on purpose: sanitizer builds on a shared
// machine run many times slower than a plain one.
bool WaitFor(const std::function<bool()>& done, int seconds = 20);

}  // namespace fptest
