#pragma once

#include <string>

namespace FP {
class BaseLine;
class Display;
class MenuStyle;
}  // namespace FP

namespace FPDEMO {

// How much of a list row the demo's screens may fill on the panel they run
// on, and the rows they use when a caption and its value do not fit
// together. The arrow cell sits one column in from the right edge and the
// cursor in column 0, so a row's text has to stay clear of both.
namespace RowFit {

// Width of the panel the screen draws on (20 before a display is set).
unsigned Width(const FP::Display* display);
// Characters a row shows from column 1 without reaching the arrow cell.
unsigned Room(const FP::Display* display);
// While a row is edited the arrow is not drawn, so the text may run to the
// last column.
unsigned EditRoom(const FP::Display* display);
// caption when caption and a value of valueLength fit beside the arrow,
// otherwise the shorter one if that fits, otherwise empty (the screen then
// puts the caption on a row of its own).
std::string Caption(const FP::Display* display, const std::string& caption,
                    const std::string& shorter, unsigned valueLength);
// A row that names the value below it: never selected, nothing to edit.
FP::BaseLine* AddCaptionRow(FP::MenuStyle& menu, const std::string& caption);
// A read-only row that scrolls its value sideways; the panel shows the
// left/right hint while it is selected and the value is too long to show.
FP::BaseLine* NewScrollRow();

}  // namespace RowFit

}  // namespace FPDEMO
