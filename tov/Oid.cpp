#include "tov/Oid.h"

namespace TOV {

std::string COid::Instance() const {
    if (!text_.empty() && text_[0] == '.')
        return text_.substr(1);
    return text_;
}

}  // namespace TOV
