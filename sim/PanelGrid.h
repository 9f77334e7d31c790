#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace FPSIM {

/// The panel's character cells: one byte and a reverse-video flag per cell.
/// Column and row are single bytes on the wire, so a grid is at most 256 x 256.
///
/// Renderings, one line per row, each row exactly Width() cells wide:
/// - RenderPlain: the characters only.
/// - RenderMarked: as plain, with every run of reverse cells wrapped in '['
///   and ']' (so a marked row is longer than the grid when it has such runs).
/// - ReverseMask: '#' for a reverse cell, '.' for a normal one.
/// Bytes are shown through Glyph().
///
/// Threads: one at a time; copies are independent.
class PanelGrid {
public:
    /// The largest width or height a grid can have.
    static constexpr unsigned kMaxSide = 256;

    /// A grid of normal-video spaces; each side is kept within 1..kMaxSide.
    PanelGrid(unsigned width = 20, unsigned height = 4);

    /// The size in cells, after clamping.
    ///@{
    unsigned Width() const { return width_; }
    unsigned Height() const { return height_; }
    ///@}

    /// All cells to normal-video spaces.
    void Clear();
    /// Writes text from (column, row) on; returns how many bytes fell outside
    /// the grid (past the right edge, or all of them on a row that does not exist).
    size_t Write(unsigned column, unsigned row, const uint8_t* text, size_t length, bool reverse);

    /// One cell's byte and reverse flag; 0 and false outside the grid.
    ///@{
    uint8_t Char(unsigned column, unsigned row) const;
    bool Reverse(unsigned column, unsigned row) const;
    ///@}
    /// The raw bytes of one row; empty for a row outside the grid.
    std::string RowBytes(unsigned row) const;

    /// One row in the renderings described above; empty for a row outside
    /// the grid. utf8 picks how symbol bytes are shown.
    ///@{
    std::string RenderPlain(unsigned row, bool utf8 = false) const;
    std::string RenderMarked(unsigned row, bool utf8 = false) const;
    std::string ReverseMask(unsigned row) const;
    ///@}
    /// Whole screen: the rows joined with '\n'.
    ///@{
    std::string RenderPlain(bool utf8 = false) const;
    std::string RenderMarked(bool utf8 = false) const;
    ///@}

    /// How a byte appears on a terminal. Printable ASCII is itself; the panel's
    /// symbols 0x7F-0x8A get a glyph (UTF-8, or an ASCII stand-in); anything
    /// else shows as a replacement mark.
    ///   byte  meaning             UTF-8  ASCII
    ///   0x7F  up/down             ↕      ^
    ///   0x80  left/right          ↔      -
    ///   0x81  enter               ↵      <
    ///   0x82  lock                ⚿      L
    ///   0x83  back / exit         ⎋      x
    ///   0x84  first choice mark   ✓      *
    ///   0x85  second choice mark  ✗      o
    ///   0x86-0x89 (no fixed use)  □      ?
    ///   0x8A  disabled            ⊘      !
    static const char* Glyph(uint8_t byte, bool utf8);

private:
    size_t Index(unsigned column, unsigned row) const { return size_t(row) * width_ + column; }
    std::string Render(bool marked, bool utf8) const;

    unsigned width_;
    unsigned height_;
    std::vector<uint8_t> chars_;
    std::vector<bool> reverse_;
};

}  // namespace FPSIM
