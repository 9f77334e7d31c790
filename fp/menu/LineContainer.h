#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace FP {

class BaseLine;

/// A menu's rows in two lists: allLines holds every row at its fixed place,
/// liveLines the rows currently shown, in the same order. Entries carry their
/// place in allLines as index, so hiding and showing a row edits liveLines
/// only.
/// Threads: those of the menu that holds it.
/// Owns: every line in allLines. DestroyContainer and ReplaceLine delete
/// them; RemoveLine and EmptyContainer hand them back to the caller.
class LineContainer {
public:
    /// One row: the line, the screen that enter on it opens (kNoScreen for
    /// none) and its place among all rows.
    struct Line_t {
        BaseLine* line;         ///< owned by the container
        std::string childMenu;  ///< screen opened by enter, or kNoScreen
        int32_t index;          ///< place among all rows
    };

    LineContainer();
    /// Deletes every line (DestroyContainer).
    virtual ~LineContainer();
    LineContainer(const LineContainer&) = delete;
    LineContainer& operator=(const LineContainer&) = delete;

    /// Appends line, shown and leading nowhere; takes ownership.
    bool AddLine(BaseLine* line, int index);
    /// Appends line, shown and leading to childMenu; takes ownership.
    bool AddLine(BaseLine* line, int index, const std::string& childMenu);
    /// Puts line at an existing position and shows it; the rows after it
    /// move down one. Cannot append. Takes ownership.
    bool InsertLine(BaseLine* line, int index);
    /// Deletes the line at that position and puts line there, in both lists.
    bool ReplaceLine(BaseLine* line, unsigned int index);
    /// Hides the row whose full-list place is index; false if it is not shown.
    bool SkipLine(int index);
    /// Shows that row again at its place among the shown rows.
    bool UseLine(int index);
    /// Shows every hidden row.
    void UseAllLines();
    /// Takes the row out of both lists without deleting its line; the
    /// caller owns it again.
    bool RemoveLine(int index);
    /// Empties both lists; the caller owns the lines again.
    bool EmptyContainer();
    /// Empties both lists and deletes every line, hidden ones too.
    bool DestroyContainer();

    /// Lookups by live position (operator[], GetLiveLine) or total position
    /// (GetLine) answer null for a position that does not exist.
    ///@{
    BaseLine* operator[](int i) const { return GetLiveLine(i); }
    BaseLine* GetLiveLine(int i) const;
    BaseLine* GetLine(int i) const;
    ///@}
    /// Number of shown rows, and of all rows.
    ///@{
    int GetNumLiveLines() const { return static_cast<int>(liveLines.size()); }
    int GetNumTotalLines() const { return static_cast<int>(allLines.size()); }
    ///@}
    /// Full-list place of the i-th shown row; 0 for a row that does not exist.
    int GetLineIndex(int i) const;
    /// Shown position of line, or -1.
    int GetLiveLineIndex(BaseLine* line) const;
    /// Full-list place of line, or -1.
    int GetLineIndex(BaseLine* line) const;
    /// The screen the i-th shown row leads to; kNoScreen when out of range.
    std::string GetChildMenu(int i) const;

private:
    std::vector<Line_t> liveLines;
    std::vector<Line_t> allLines;
};

}  // namespace FP
