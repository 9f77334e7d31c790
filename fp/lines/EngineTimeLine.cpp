#include "fp/lines/EngineTimeLine.h"

#include "fp/lines/internal/FixedFields.h"

namespace FP {

bool EngineTimeFormat::Parse(const std::string& text, int fields[3]) {
    static const int kWidths[3] = {2, 2, 2};
    return FixedFields::Read(text, ':', kWidths, fields) && fields[0] < 24 && fields[1] < 60 &&
           fields[2] < 60;
}

bool EngineTimeFormat::Set(TimeLine& line, const int fields[3]) {
    line.SetHour(fields[0]);
    line.SetMinute(fields[1]);
    line.SetSecond(fields[2]);
    return line.GetHour() == fields[0] && line.GetMinute() == fields[1] &&
           line.GetSecond() == fields[2];
}

bool EngineTimeLine::IsTimeOfDay(const std::string& text) {
    int fields[3];
    return EngineTimeFormat::Parse(text, fields);
}

}  // namespace FP
