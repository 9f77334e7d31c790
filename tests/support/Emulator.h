#pragma once

#include <string>
#include <vector>

namespace fptest {

// Words to put in front of a program the tests start themselves: empty on the
// build machine; on a cross build the user-mode emulator (with its options),
// since an emulated test cannot exec a foreign binary directly.
std::vector<std::string> EmulatorPrefix();

}  // namespace fptest
