#include <gtest/gtest.h>

#include "fp/display/DisplayHw.h"
#include "fp/link/FpControl.h"
#include "tests/fp/link/FakeAdapter.h"

namespace {

using Frames = std::vector<std::string>;

// The frames of one plain text placed at (column, line).
Frames Text(const std::string& text, char column, char line) {
    return {std::string("X") + column, std::string("Y") + line, "T" + text};
}

Frames Join(std::initializer_list<Frames> parts) {
    Frames all;
    for (const Frames& p : parts) {
        all.insert(all.end(), p.begin(), p.end());
    }
    return all;
}

class DisplayHwTest : public ::testing::Test {
protected:
    fptest::FakeAdapter adapter;
    FP::FpControl control{adapter};
    FP::DisplayHw hw{control, 20, 4};
    // The clear sent on construction is counted through the real stack.
    const Frames atConstruction = adapter.Take();
};

}  // namespace

TEST_F(DisplayHwTest, LineZeroLeavesRoomForNavigationSymbols) {
    const std::string full = "abcdefghijklmnopqrst";
    hw.SendLineUpdate(full, 0);
    hw.SendLineUpdate(full + "XYZ", 1);
    hw.SendLineUpdate("ab", 0);
    EXPECT_EQ(adapter.Take(),
              Join({Text(full.substr(0, 17), 0, 0), Text(full, 0, 1), Text("ab", 0, 0)}));
}

TEST_F(DisplayHwTest, WindowUpdateSendsBlanksToTheFirstLineBelowTheText) {
    const std::string a(20, 'a'), b(20, 'b'), blank(20, ' ');
    hw.SendWindowUpdate(a + b + "ccc");
    EXPECT_EQ(adapter.Take(), Join({Text(a.substr(0, 17), 0, 0), Text(b, 0, 1), Text(blank, 0, 2),
                                    Text(blank, 0, 2)}));
}

// The protocol document replays the common symbol sets; these are the others.
TEST_F(DisplayHwTest, NavigationAndLockSymbols) {
    hw.SendNavSymbols(0x40);
    EXPECT_EQ(adapter.Take(), Join({Text("\x83  ", 17, 0), Text("\x83  ", 17, 0)}));
    hw.SendNavSymbols(0xFF);  // every low bit wins its cell over its high partner
    EXPECT_EQ(adapter.Take(), Join({Text("\x83\x84\x85", 17, 0), Text("\x80\x7F\x81", 17, 0)}));

    hw.SendLockDisableSymbols(0x07);
    EXPECT_EQ(adapter.Take(), Text(" ", 0, 0));

    hw.SetLockShown(true);
    hw.SetDisableShown(true);
    hw.SendNavSymbols(0x00);
    EXPECT_EQ(adapter.Take(), Join({Text("\x82", 0, 0), Text("\x8A", 0, 0), Text("   ", 17, 0),
                                    Text("   ", 17, 0)}));
}

TEST_F(DisplayHwTest, BoundaryIsAnInvertedColumnPastTheWindow) {
    hw.ShowBoundary();
    Frames boundary;
    for (char line = 0; line < 4; ++line) {
        boundary = Join({boundary, {"R\x01"}, Text(" ", 20, line), {"R\x02"}});
    }
    EXPECT_EQ(adapter.Take(), boundary);
}

TEST_F(DisplayHwTest, TinyPanels) {
    FP::DisplayHw flat(control, 2, 0);
    adapter.Take();
    flat.ShowBoundary();
    flat.SendWindowUpdate("abc");
    flat.SendLineUpdate("abc", 0);  // narrower than the symbol columns: no text
    EXPECT_EQ(adapter.Take(), Text("", 0, 0));

    FP::DisplayHw narrow(control, 0, 2);
    adapter.Take();
    narrow.SendWindowUpdate("abc");
    EXPECT_EQ(adapter.Take(), Join({Text("", 0, 0), Text("", 0, 0)}));
}
