#include "fp/lines/EngineTimeLine.h"

#include "fp/lines/internal/FixedFields.h"

namespace FP {

bool EngineTimeFormat::Parse(const std::string& text, int fields[3]) {
    static const int kWidths[3] = {2, 2, 2};
    return FixedFields::Read(text, ':', kWidths, fields) && fields[0] < 24 && fields[1] < 60 &&
           fields[2] < 60;
}

bool EngineTimeLine::IsTimeOfDay(const std::string& text) {
    return Accepts(text);
}

}  // namespace FP
