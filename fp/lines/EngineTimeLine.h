#pragma once

#include <string>

#include "fp/lines/TimeLine.h"
#include "fp/lines/detail/EngineFields.h"

namespace FP {

/// How EngineTimeLine turns a stored "HH:MM:SS" text into its fields, and names
/// the row's setters and getters in field order.
/// Threads: any; it holds no state.
struct EngineTimeFormat {
    /// Splits text into hour, minute and second; false for anything that is
    /// not a time of day.
    static bool Parse(const std::string& text, int fields[3]);
    /// The row's setters and getters, in field order.
    ///@{
    static constexpr void (TimeLine::*kSet[3])(int) = {&TimeLine::SetHour, &TimeLine::SetMinute,
                                                       &TimeLine::SetSecond};
    static constexpr int (TimeLine::*kGet[3])() const = {&TimeLine::GetHour, &TimeLine::GetMinute,
                                                         &TimeLine::GetSecond};
    ///@}
};

/// A time-of-day row bound to a variable holding "HH:MM:SS" (24 hours): it
/// shows the stored time and writes the committed one. Any other stored text
/// shows as "?", logged once on "fp.lines".
/// Threads: the UI thread, like every row.
class EngineTimeLine : public EngineFields<TimeLine, EngineTimeFormat> {
public:
    /// True for "HH:MM:SS" with hours below 24 and minutes and seconds below
    /// 60; meant for the variable's validator too.
    static bool IsTimeOfDay(const std::string& text);
};

}  // namespace FP
