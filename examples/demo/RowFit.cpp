#include "examples/demo/RowFit.h"

#include "fp/core/Names.h"
#include "fp/display/Display.h"
#include "fp/lines/ScrollLine.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/MenuStyle.h"
#include "unit/Unit.h"

namespace FPDEMO {
namespace RowFit {

namespace {
// Cursor column in front, arrow cell and the column after it behind.
constexpr unsigned kBesideArrow = 3;
}  // namespace

unsigned Width(const FP::Display* display) {
    // Before a display is set: the width a unit drives unless told otherwise.
    return display ? display->GetDisplayWidth() : FP::Unit::Options().width;
}

unsigned Room(const FP::Display* display) {
    return Width(display) - kBesideArrow;
}

unsigned EditRoom(const FP::Display* display) {
    return Width(display) - 1;
}

std::string Caption(const FP::Display* display, const std::string& caption,
                    const std::string& shorter, unsigned valueLength) {
    const unsigned room = Room(display);
    if (caption.size() + valueLength <= room)
        return caption;
    if (shorter.size() + valueLength <= room)
        return shorter;
    return std::string();
}

FP::BaseLine* AddCaptionRow(FP::MenuStyle& menu, const std::string& caption) {
    auto* line = new FP::DisplayLine();
    line->SetReadOnly(true);
    line->SetSelectable(false);
    line->SetHoverNavMask(0);
    line->SetEditNavMask(0);
    menu.AddLine(line, caption);
    return line;
}

FP::BaseLine* NewScrollRow() {
    auto* line = new FP::ScrollLine();
    line->SetReadOnly(true);
    // Scrolling stops while one character is still past the last column; a
    // trailing blank lets the value's own last character reach the panel.
    line->SetSuffix(" ");
    return line;
}

}  // namespace RowFit
}  // namespace FPDEMO
