#pragma once

#include <string>

#include "fp/lines/DateLine.h"
#include "fp/lines/internal/EngineFields.h"

namespace FP {

// Reads the "YYYY/MM/DD" text of a date variable into the fields.
struct EngineDateFormat {
    static bool Parse(const std::string& text, int fields[3]);
    static bool Set(DateLine& line, const int fields[3]);
};

/// A date row bound to a variable holding "YYYY/MM/DD": it shows the stored
/// date and writes the committed one. A stored text that is not a real
/// calendar date in the row's years (2010 to 2035) shows as "?", logged once
/// on "fp.lines".
/// Threads: the UI thread, like every row.
class EngineDateLine : public EngineFields<DateLine, EngineDateFormat> {
public:
    /// True for "YYYY/MM/DD" naming a day that exists (leap years counted);
    /// meant for the variable's validator too.
    static bool IsCalendarDate(const std::string& text);
};

}  // namespace FP
