#pragma once

#include <string>

#include "fp/lines/DateLine.h"
#include "fp/lines/detail/EngineFields.h"

namespace FP {

/// How EngineDateLine turns a stored "YYYY/MM/DD" text into its fields, and names
/// the row's setters and getters in field order.
/// Threads: any; it holds no state.
struct EngineDateFormat {
    /// Splits text into year, month and day; false unless it names a day
    /// that exists.
    static bool Parse(const std::string& text, int fields[3]);
    /// The row's setters and getters, in field order.
    ///@{
    static constexpr void (DateLine::*kSet[3])(int) = {&DateLine::SetYear, &DateLine::SetMonth,
                                                       &DateLine::SetDay};
    static constexpr int (DateLine::*kGet[3])() const = {&DateLine::GetYear, &DateLine::GetMonth,
                                                         &DateLine::GetDay};
    ///@}
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
