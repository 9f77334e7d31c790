#pragma once

#include <string>

#include "fp/lines/DateLine.h"
#include "fp/lines/TimeLine.h"
#include "fp/lines/detail/EngineFields.h"

namespace FP {

/// Splits "YYYY/MM/DD" into year, month and day; false unless it names a day
/// that exists (leap years counted).
bool ReadCalendarDate(const std::string& text, int fields[3]);
/// Splits "HH:MM:SS" into hour, minute and second; false unless the hour is
/// below 24 and the minute and second below 60.
bool ReadTimeOfDay(const std::string& text, int fields[3]);

/// A date row bound to a variable holding "YYYY/MM/DD": it shows the stored
/// date and writes the committed one. A stored text that is not a real
/// calendar date in the row's years (2010 to 2035) shows as "?", logged once
/// on "fp.lines". `EngineDateLine::Accepts` suits the variable's validator.
/// Threads: the UI thread, like every row.
using EngineDateLine = EngineFields<DateLine, ReadCalendarDate>;

/// A time-of-day row bound to a variable holding "HH:MM:SS" (24 hours): it
/// shows the stored time and writes the committed one. Any other stored text
/// shows as "?", logged once on "fp.lines". `EngineTimeLine::Accepts` suits
/// the variable's validator.
/// Threads: the UI thread, like every row.
using EngineTimeLine = EngineFields<TimeLine, ReadTimeOfDay>;

}  // namespace FP
