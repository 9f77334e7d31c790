#include "fp/menu/LineContainer.h"

#include "fp/core/Names.h"
#include "fp/menu/BaseLine.h"

namespace FP {

LineContainer::LineContainer() = default;

LineContainer::~LineContainer() {
    DestroyContainer();
}

bool LineContainer::AddLine(BaseLine* line, int index) {
    return AddLine(line, index, kNoScreen);
}

bool LineContainer::AddLine(BaseLine* line, int index, const std::string& childMenu) {
    liveLines.push_back(Line_t{line, childMenu, index});
    allLines.push_back(Line_t{line, childMenu, index});
    return true;
}

bool LineContainer::InsertLine(BaseLine* line, int index) {
    if (index < 0 || index >= GetNumTotalLines()) {
        return false;
    }
    allLines.insert(allLines.begin() + index, Line_t{line, std::string(), index});
    for (size_t k = index + 1; k < allLines.size(); ++k) {
        ++allLines[k].index;
    }
    for (Line_t& entry : liveLines) {
        if (entry.index >= index) {
            ++entry.index;
        }
    }
    return UseLine(index);
}

bool LineContainer::ReplaceLine(BaseLine* line, unsigned int index) {
    if (index >= allLines.size()) {
        return false;
    }
    BaseLine* old = allLines[index].line;
    if (old == line) {
        return true;
    }
    allLines[index].line = line;
    if (index < liveLines.size()) {
        liveLines[index].line = line;
    }
    // With earlier lines skipped the old line may stand live at another
    // position; point that entry at the new line too so that no live entry
    // keeps a deleted line.
    for (Line_t& entry : liveLines) {
        if (entry.line == old) {
            entry.line = line;
        }
    }
    delete old;
    return true;
}

bool LineContainer::SkipLine(int index) {
    for (auto it = liveLines.begin(); it != liveLines.end(); ++it) {
        if (it->index == index) {
            liveLines.erase(it);
            return true;
        }
    }
    return false;
}

bool LineContainer::UseLine(int index) {
    for (const Line_t& entry : liveLines) {
        if (entry.index == index) {
            return true;
        }
    }
    if (index < 0 || index >= GetNumTotalLines()) {
        return false;
    }
    auto pos = liveLines.begin();
    while (pos != liveLines.end() && pos->index <= index) {
        ++pos;
    }
    liveLines.insert(pos, allLines[index]);
    return true;
}

void LineContainer::UseAllLines() {
    if (allLines.empty() || allLines.size() == liveLines.size()) {
        return;
    }
    for (int i = 0; i < GetNumTotalLines(); ++i) {
        UseLine(i);
    }
}

bool LineContainer::RemoveLine(int index) {
    if (index < 0 || index >= GetNumTotalLines()) {
        return false;
    }
    for (auto it = allLines.begin(); it != allLines.end(); ++it) {
        if (it->index == index) {
            allLines.erase(it);
            break;
        }
    }
    for (Line_t& entry : allLines) {
        if (entry.index >= index) {
            --entry.index;
        }
    }
    SkipLine(index);
    for (Line_t& entry : liveLines) {
        if (entry.index >= index) {
            --entry.index;
        }
    }
    return true;
}

bool LineContainer::EmptyContainer() {
    liveLines.clear();
    allLines.clear();
    return true;
}

bool LineContainer::DestroyContainer() {
    liveLines.clear();
    while (!allLines.empty()) {
        BaseLine* line = allLines.front().line;
        allLines.erase(allLines.begin());
        delete line;
    }
    return true;
}

// Unchecked access would read past the list for a bad position (an empty
// menu, a stale index); answering null keeps such callers from crashing.
BaseLine* LineContainer::GetLiveLine(int i) const {
    return i >= 0 && i < GetNumLiveLines() ? liveLines[i].line : nullptr;
}

BaseLine* LineContainer::GetLine(int i) const {
    return i >= 0 && i < GetNumTotalLines() ? allLines[i].line : nullptr;
}

int LineContainer::GetLineIndex(int i) const {
    return i >= 0 && i < GetNumLiveLines() ? liveLines[i].index : 0;
}

int LineContainer::GetLiveLineIndex(BaseLine* line) const {
    for (size_t k = 0; k < liveLines.size(); ++k) {
        if (liveLines[k].line == line) {
            return static_cast<int>(k);
        }
    }
    return -1;
}

int LineContainer::GetLineIndex(BaseLine* line) const {
    for (const Line_t& entry : allLines) {
        if (entry.line == line && entry.index != -1) {
            return entry.index;
        }
    }
    return -1;
}

std::string LineContainer::GetChildMenu(int i) const {
    return i >= 0 && i < GetNumLiveLines() ? liveLines[i].childMenu : kNoScreen;
}

}  // namespace FP
