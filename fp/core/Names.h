#pragma once

// The words every layer of the panel shares: navigation-symbol bits, the
// "stay" screen name and the library's user name toward the data engine.
// Header-only, no dependencies, so the link, the display, the menu and the
// screens can all use it without reaching up a layer.

namespace FP {

/// Bits of a line's hover and edit masks. Each lights one symbol in the
/// navigation area of the panel (or, for the lock and disabled bits, in the
/// top-left cell); the names follow the glyph the panel shows.
namespace NavSymbol {
constexpr unsigned char kLeftRight = 0x01;  ///< left/right arrows (glyph 0x80), first nav cell
constexpr unsigned char kUpDown = 0x02;     ///< up/down arrows (glyph 0x7F), second nav cell
constexpr unsigned char kEnter = 0x04;      ///< enter hint (glyph 0x81), third nav cell
constexpr unsigned char kLock = 0x08;       ///< lock symbol (glyph 0x82), top-left cell
constexpr unsigned char kDisabled = 0x10;   ///< disabled symbol (glyph 0x8A), top-left cell
constexpr unsigned char kCross = 0x20;      ///< second choice mark (glyph 0x85), third nav cell
constexpr unsigned char kExit = 0x40;       ///< back hint (glyph 0x83), first nav cell
constexpr unsigned char kCheck = 0x80;      ///< first choice mark (glyph 0x84), second nav cell
}  // namespace NavSymbol

/// The screen name that means "no screen" or "stay on this one".
constexpr const char* kNoScreen = "No Screen";

/// The user name under which the library reads and writes engine variables.
constexpr char FPUSER[] = "tov.fp";

}  // namespace FP
