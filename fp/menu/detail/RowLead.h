#pragma once

#include <cstddef>
#include <string>

namespace FP {

// What stands on a line's row before its value: the blanks its offset asks
// for (a negative offset counts as none), then its caption.
inline std::string RowLead(int offset, const std::string& caption) {
    return std::string(offset > 0 ? static_cast<size_t>(offset) : 0, ' ') + caption;
}

}  // namespace FP
