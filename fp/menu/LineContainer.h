#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace FP {

class BaseLine;

// A menu's rows in two lists: allLines holds every row at its fixed place,
// liveLines the rows currently shown, in the same order. Entries carry their
// place in allLines as index, so hiding and showing a row edits liveLines
// only.
//
// Owns every line in allLines: DestroyContainer and ReplaceLine delete them;
// RemoveLine and EmptyContainer hand them back to the caller.
class LineContainer {
public:
    struct Line_t {
        BaseLine* line;
        std::string childMenu;
        int32_t index;
    };

    LineContainer();
    virtual ~LineContainer();
    LineContainer(const LineContainer&) = delete;
    LineContainer& operator=(const LineContainer&) = delete;

    bool AddLine(BaseLine* line, int index);
    bool AddLine(BaseLine* line, int index, const std::string& childMenu);
    // Cannot append: index must name an existing position.
    bool InsertLine(BaseLine* line, int index);
    // Deletes the line at that position and puts line there, in both lists.
    bool ReplaceLine(BaseLine* line, unsigned int index);
    bool SkipLine(int index);
    bool UseLine(int index);
    void UseAllLines();
    bool RemoveLine(int index);
    bool EmptyContainer();
    bool DestroyContainer();

    // Lookups by live position (operator[], GetLiveLine) or total position
    // (GetLine) answer null for a position that does not exist.
    BaseLine* operator[](int i) const { return GetLiveLine(i); }
    BaseLine* GetLiveLine(int i) const;
    BaseLine* GetLine(int i) const;
    int GetNumLiveLines() const { return static_cast<int>(liveLines.size()); }
    int GetNumTotalLines() const { return static_cast<int>(allLines.size()); }
    // Full-list place of the i-th shown row; 0 for a row that does not exist.
    int GetLineIndex(int i) const;
    int GetLiveLineIndex(BaseLine* line) const;
    int GetLineIndex(BaseLine* line) const;
    std::string GetChildMenu(int i) const;

private:
    std::vector<Line_t> liveLines;
    std::vector<Line_t> allLines;
};

}  // namespace FP
