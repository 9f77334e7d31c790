#include <gtest/gtest.h>

#include "fp/display/DisplayHw.h"
#include "fp/link/FpControl.h"

namespace {

// Records each command frame as its operation byte followed by its payload.
class RecordingAdapter : public FP::IFpAdapter {
public:
    void SetResponseHandler(unsigned char, Handler const&) override {}
    bool SendCommand(unsigned char op, Payload const& payload) override {
        std::string frame(1, static_cast<char>(op));
        frame.append(reinterpret_cast<const char*>(payload.Data()), payload.Length());
        frames.push_back(frame);
        return true;
    }
    Payload SendRequest(unsigned char, Payload const&) override { return Payload(); }
    Payload SendRequest(unsigned char, Payload const&, unsigned int) override { return Payload(); }

    std::vector<std::string> Take() { return std::move(frames); }

private:
    std::vector<std::string> frames;
};

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
    RecordingAdapter adapter;
    FP::FpControl control{adapter};
};

}  // namespace

TEST_F(DisplayHwTest, ConstructionClearsThePanelOnce) {
    FP::DisplayHw hw(control, 20, 4);
    EXPECT_EQ(adapter.Take(), Frames{"0"});
}

TEST_F(DisplayHwTest, LineZeroLeavesRoomForNavigationSymbols) {
    FP::DisplayHw hw(control, 20, 4);
    adapter.Take();
    const std::string full = "abcdefghijklmnopqrst";
    hw.SendLineUpdate(full, 0);
    hw.SendLineUpdate(full + "XYZ", 1);
    hw.SendLineUpdate("ab", 0);
    EXPECT_EQ(adapter.Take(),
              Join({Text(full.substr(0, 17), 0, 0), Text(full, 0, 1), Text("ab", 0, 0)}));
}

TEST_F(DisplayHwTest, WindowUpdateSendsBlanksToTheFirstLineBelowTheText) {
    FP::DisplayHw hw(control, 20, 4);
    adapter.Take();
    const std::string a(20, 'a'), b(20, 'b'), blank(20, ' ');
    hw.SendWindowUpdate(a + b + "ccc");
    EXPECT_EQ(adapter.Take(), Join({Text(a.substr(0, 17), 0, 0), Text(b, 0, 1), Text(blank, 0, 2),
                                    Text(blank, 0, 2)}));
}

TEST_F(DisplayHwTest, NavigationAndLockSymbols) {
    FP::DisplayHw hw(control, 20, 4);
    adapter.Take();
    hw.SendNavSymbols(0x41);
    EXPECT_EQ(adapter.Take(), Join({Text("\x83  ", 17, 0), Text("\x80  ", 17, 0)}));
    hw.SendNavSymbols(0x40);
    EXPECT_EQ(adapter.Take(), Join({Text("\x83  ", 17, 0), Text("\x83  ", 17, 0)}));
    hw.SendNavSymbols(0xA6);
    EXPECT_EQ(adapter.Take(), Join({Text(" \x84\x85", 17, 0), Text(" \x7F\x81", 17, 0)}));

    hw.SendLockDisableSymbols(0x18);
    hw.SendLockDisableSymbols(0x08);
    hw.SendLockDisableSymbols(0x07);
    EXPECT_EQ(adapter.Take(), Join({Text("\x8A", 0, 0), Text("\x82", 0, 0), Text(" ", 0, 0)}));

    hw.SetLockShown(true);
    hw.SetDisableShown(true);
    hw.SendNavSymbols(0x00);
    EXPECT_EQ(adapter.Take(), Join({Text("\x82", 0, 0), Text("\x8A", 0, 0), Text("   ", 17, 0),
                                    Text("   ", 17, 0)}));
}

TEST_F(DisplayHwTest, ReverseWordsAndBoundaryAreInverted) {
    FP::DisplayHw hw(control, 20, 2);
    adapter.Take();
    hw.ShowBoundary();
    const Frames boundary = Join({{"R\x01"},
                                  Text(" ", 20, 0),
                                  {"R\x02"},  //
                                  {"R\x01"},
                                  Text(" ", 20, 1),
                                  {"R\x02"}});
    EXPECT_EQ(adapter.Take(), boundary);

    // Through the model: the whole window, then the reverse word.
    hw.WriteLine("ok", 1, FP::LEFT_JUSTIFY, 0);
    hw.WriteReverseWord("ok", 1, 0);
    hw.SendUpdate();
    const std::string blank(20, ' ');
    EXPECT_EQ(adapter.Take(), Join({Text(blank.substr(0, 17), 0, 0),
                                    Text("ok" + blank.substr(2), 0, 1),
                                    {"R\x01"},
                                    Text("ok", 0, 1),
                                    {"R\x02"}}));
}
