#include "fp/lines/EngineClockLines.h"

#include "fp/lines/internal/FixedFields.h"

namespace FP {

bool ReadCalendarDate(const std::string& text, int fields[3]) {
    static const int kWidths[3] = {4, 2, 2};
    if (!FixedFields::Read(text, '/', kWidths, fields))
        return false;
    static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int year = fields[0], month = fields[1], day = fields[2];
    if (month < 1 || month > 12 || day < 1)
        return false;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return day <= kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

bool ReadTimeOfDay(const std::string& text, int fields[3]) {
    static const int kWidths[3] = {2, 2, 2};
    return FixedFields::Read(text, ':', kWidths, fields) && fields[0] < 24 && fields[1] < 60 &&
           fields[2] < 60;
}

}  // namespace FP
