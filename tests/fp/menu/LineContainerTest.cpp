#include <gtest/gtest.h>

#include "fp/core/Names.h"
#include "fp/menu/DisplayLine.h"
#include "fp/menu/LineContainer.h"

namespace {

// A line that counts its destructions.
struct CountedLine : FP::DisplayLine {
    CountedLine(const std::string& v, int* deaths) : FP::DisplayLine(v), deaths(deaths) {}
    ~CountedLine() override { ++*deaths; }
    int* deaths;
};

// Each line's value and its index in the whole list, live lines or all of them.
std::string Lines(const FP::LineContainer& c, bool live = true) {
    std::string s;
    for (int i = 0; i < (live ? c.GetNumLiveLines() : c.GetNumTotalLines()); ++i) {
        FP::BaseLine* l = live ? c.GetLiveLine(i) : c.GetLine(i);
        s += l->GetCurrentString() + std::to_string(live ? c.GetLineIndex(i) : c.GetLineIndex(l));
    }
    return s;
}

class LineContainerTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* v : {"A", "B", "C"}) {
            lines.push_back(new CountedLine(v, &deaths));
            c.AddLine(lines.back(), c.GetNumLiveLines());
        }
    }
    int deaths = 0;
    std::vector<CountedLine*> lines;
    FP::LineContainer c;
};

TEST_F(LineContainerTest, SkipAndUseKeepPlaces) {
    EXPECT_TRUE(c.SkipLine(1));
    EXPECT_FALSE(c.SkipLine(1));
    EXPECT_EQ(Lines(c), "A0C2");
    EXPECT_EQ(c.GetLiveLineIndex(lines[2]), 1);
    EXPECT_EQ(c.GetLiveLineIndex(lines[1]), -1);
    EXPECT_TRUE(c.UseLine(1));
    EXPECT_EQ(Lines(c), "A0B1C2");
    c.SkipLine(0);
    c.SkipLine(2);
    c.UseAllLines();
    EXPECT_EQ(Lines(c), "A0B1C2");
}

TEST_F(LineContainerTest, InsertAndRemoveRenumberBothLists) {
    auto* x = new CountedLine("x", &deaths);
    EXPECT_FALSE(c.InsertLine(x, 3));
    EXPECT_TRUE(c.InsertLine(x, 1));
    EXPECT_EQ(Lines(c), "A0x1B2C3");
    EXPECT_EQ(Lines(c, false), "A0x1B2C3");
    EXPECT_EQ(c.GetChildMenu(1), "");  // inserted lines lead to an empty name
    EXPECT_TRUE(c.RemoveLine(0));
    EXPECT_FALSE(c.RemoveLine(-1));
    EXPECT_EQ(Lines(c), "x0B1C2");
    EXPECT_EQ(Lines(c, false), "x0B1C2");
    EXPECT_EQ(deaths, 0);  // a removed line goes back to the caller
    delete lines[0];
}

TEST_F(LineContainerTest, OwnsEveryLineOnceAndAnswersNullOutside) {
    EXPECT_EQ(c.GetChildMenu(0), FP::kNoScreen);
    EXPECT_EQ(c.GetChildMenu(-1), FP::kNoScreen);
    EXPECT_EQ(c.GetLiveLine(3), nullptr);
    EXPECT_EQ(c[-1], nullptr);
    EXPECT_EQ(c.GetLine(7), nullptr);
    EXPECT_EQ(c.GetLineIndex(9), 0);
    EXPECT_FALSE(c.UseLine(9));

    // Replacing with A skipped: the old B dies, no live entry keeps it.
    c.SkipLine(0);
    EXPECT_TRUE(c.ReplaceLine(new CountedLine("y", &deaths), 1));
    EXPECT_EQ(deaths, 1);
    EXPECT_FALSE(c.ReplaceLine(lines[0], 3));
    for (int i = 0; i < c.GetNumLiveLines(); ++i)
        EXPECT_NE(c.GetLiveLine(i), lines[1]);

    c.DestroyContainer();  // skipped ones included
    EXPECT_EQ(deaths, 4);
    EXPECT_EQ(c.GetNumTotalLines(), 0);
}

}  // namespace
