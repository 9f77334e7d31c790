#include <gtest/gtest.h>

#include "fp/menu/DisplayLine.h"
#include "fp/menu/LineContainer.h"

namespace {

// A line that counts its destructions.
struct CountedLine : FP::DisplayLine {
    CountedLine(const std::string& v, int* deaths) : FP::DisplayLine(v), deaths(deaths) {}
    ~CountedLine() override { ++*deaths; }
    int* deaths;
};

std::string Live(const FP::LineContainer& c) {
    std::string s;
    for (int i = 0; i < c.GetNumLiveLines(); ++i)
        s += c.GetLiveLine(i)->GetCurrentString() + std::to_string(c.GetLineIndex(i));
    return s;
}

std::string All(const FP::LineContainer& c) {
    std::string s;
    for (int i = 0; i < c.GetNumTotalLines(); ++i) {
        s += c.GetLine(i)->GetCurrentString() + std::to_string(c.GetLineIndex(c.GetLine(i)));
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
    EXPECT_EQ(Live(c), "A0C2");
    EXPECT_EQ(c.GetLiveLineIndex(lines[2]), 1);
    EXPECT_EQ(c.GetLiveLineIndex(lines[1]), -1);
    EXPECT_TRUE(c.UseLine(1));
    EXPECT_EQ(Live(c), "A0B1C2");
    c.SkipLine(0);
    c.SkipLine(2);
    c.UseAllLines();
    EXPECT_EQ(Live(c), "A0B1C2");
}

TEST_F(LineContainerTest, InsertAndRemoveRenumberBothLists) {
    auto* x = new CountedLine("x", &deaths);
    EXPECT_FALSE(c.InsertLine(x, 3));
    EXPECT_TRUE(c.InsertLine(x, 1));
    EXPECT_EQ(Live(c), "A0x1B2C3");
    EXPECT_EQ(All(c), "A0x1B2C3");
    EXPECT_EQ(c.GetChildMenu(1), "");  // inserted lines lead to an empty name
    EXPECT_TRUE(c.RemoveLine(0));
    EXPECT_FALSE(c.RemoveLine(-1));
    EXPECT_EQ(Live(c), "x0B1C2");
    EXPECT_EQ(All(c), "x0B1C2");
    EXPECT_EQ(deaths, 0);  // a removed line goes back to the caller
    delete lines[0];
}

TEST_F(LineContainerTest, OwnsEveryLineOnceAndAnswersNullOutside) {
    EXPECT_EQ(c.GetChildMenu(0), "No Screen");
    EXPECT_EQ(c.GetChildMenu(-1), "No Screen");
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
