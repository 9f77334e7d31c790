// Replays every example of docs/protocol.md against the library and the
// emulator's codec, so the document cannot drift from the wire.

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <functional>
#include <future>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "fp/display/DisplayHw.h"
#include "fp/input/KeyTypes.h"
#include "fp/link/FpAdapter.h"
#include "fp/link/FpControl.h"
#include "sim/FrameDecoder.h"
#include "sim/FrameEncoder.h"
#include "testing/LogCapture.h"
#include "tests/fp/link/LinkPeer.h"

using FP::FpControl;
using fptest::Bytes;
using Args = std::vector<std::string>;

namespace {

const std::set<std::string> kKeys = {"unit", "bytes", "panel", "result", "event", "log"};

// One fenced "frame" block: each key with its values in document order.
struct Example {
    int line = 0;
    std::map<std::string, Args> fields;
    bool Has(const char* key) const { return fields.count(key) > 0; }
    std::string One(const char* key) const { return Has(key) ? fields.at(key)[0] : ""; }
    Args All(const char* key) const { return Has(key) ? fields.at(key) : Args{}; }
};

// A typo must fail the test, never drop an example quietly: unknown keys,
// keys outside a block, incomplete or unclosed blocks are all reported.
std::vector<Example> ReadExamples() {
    std::ifstream in(FP_PROTOCOL_DOC);
    EXPECT_TRUE(in) << "cannot open " << FP_PROTOCOL_DOC;
    std::vector<Example> out;
    bool open = false;
    int n = 0;
    for (std::string text; std::getline(in, text);) {
        ++n;
        const size_t colon = text.find(": ");
        const bool keyed = colon != std::string::npos && kKeys.count(text.substr(0, colon));
        if (!open) {
            EXPECT_FALSE(keyed) << "line " << n << ": example outside a frame block";
            if (text == "```frame")
                out.push_back({n, {}}), open = true;
        } else if (text != "```") {
            EXPECT_TRUE(keyed) << "line " << n << ": unknown key in " << text;
            if (keyed)
                out.back().fields[text.substr(0, colon)].push_back(text.substr(colon + 2));
        } else {
            open = false;
            const Example& e = out.back();
            bool single = true;
            for (const auto& f : e.fields)
                single &= f.first == "event" || f.first == "log" || f.second.size() == 1;
            const bool unit = e.Has("unit") && e.Has("bytes") && !e.Has("event") &&
                              e.Has("panel") == e.Has("result");
            const bool panel = !e.Has("unit") && !e.Has("bytes") && !e.Has("result") &&
                               e.Has("panel") && e.Has("event");
            EXPECT_TRUE(single && (unit || panel)) << "line " << e.line << ": incomplete example";
        }
    }
    EXPECT_FALSE(open) << "last frame block not closed";
    return out;
}

Bytes Hex(const std::string& text) {
    Bytes out;
    std::istringstream in(text);
    for (std::string w; in >> w;) {
        if (w.size() != 2 || !std::isxdigit(w[0]) || !std::isxdigit(w[1]))
            throw std::invalid_argument("not a hex byte: " + w);
        out.push_back(static_cast<unsigned char>(std::stoul(w, nullptr, 16)));
    }
    return out;
}

// Splits on commas outside quotes and braces, trimming each piece.
Args Split(const std::string& s) {
    Args out{""};
    bool quoted = false;
    int depth = 0;
    for (char c : s) {
        quoted ^= c == '"';
        depth += quoted ? 0 : (c == '{') - (c == '}');
        if (c == ',' && !quoted && depth == 0)
            out.emplace_back();
        else if (c != ' ' || quoted || !out.back().empty())
            out.back() += c;
    }
    for (std::string& a : out)
        a.erase(a.find_last_not_of(' ') + 1);
    return out.size() == 1 && out[0].empty() ? Args{} : out;
}

// The text between a leading open and its matching last character.
std::string Inside(const std::string& a, char open) {
    const char close = open == '(' ? ')' : open == '{' ? '}' : open;
    if (a.size() < 2 || a.front() != open || a.back() != close)
        throw std::invalid_argument("malformed argument " + a);
    return a.substr(1, a.size() - 2);
}

// A number, or an enumerator the document may name.
unsigned char Num(const std::string& a) {
    static const std::map<std::string, int> names = {{"FAN_1", FpControl::FAN_1},
                                                     {"FAN_2", FpControl::FAN_2},
                                                     {"FAN_3", FpControl::FAN_3},
                                                     {"STATUS_OFF", FpControl::STATUS_OFF},
                                                     {"STATUS_OK", FpControl::STATUS_OK},
                                                     {"STATUS_WARNING", FpControl::STATUS_WARNING},
                                                     {"STATUS_ERROR", FpControl::STATUS_ERROR},
                                                     {"STATUS_BOOTING", FpControl::STATUS_BOOTING}};
    if (names.count(a))
        return static_cast<unsigned char>(names.at(a));
    const std::string digits = a.rfind("LED_", 0) == 0 ? a.substr(4) : a;  // LED_n is LED n
    size_t used = 0;
    const long v = digits.empty() ? 0 : std::stol(digits, &used, 0);
    if (digits.empty() || used != digits.size())
        throw std::invalid_argument("not a number: " + a);
    return static_cast<unsigned char>(v);
}

bool Flag(const std::string& a) {
    if (a != "true" && a != "false")
        throw std::invalid_argument("not a flag: " + a);
    return a == "true";
}

std::string Sent(bool ok) {
    return ok ? "" : "write failed";
}

template <class T>
std::string Str(T v) {
    return (std::ostringstream() << +v).str();  // + prints a byte as a number
}

struct ProtocolDocTest : ::testing::Test {
    fptest::LinkPeer link;
    FP::Testing::LogCapture log{"fpcontrol"};
    FP::FpAdapter adapter{link.ours};
    FpControl control{adapter};
    FP::DisplayHw display{control, 20, 4};
    std::vector<Example> examples = ReadExamples();

    // Errors and warnings only: debug lines are not part of the contract.
    Args Complaints() const {
        Args out;
        for (const auto& e : log.Entries())
            if (e.priority == "ERROR" || e.priority == "WARN")
                out.push_back(e.message);
        return out;
    }

    // Each documented operation with its argument count; it answers what the
    // document writes as the result: a request its decoded answer, a command ""
    // once written.
    using R = const Args&;
    using Run = std::function<std::string(R)>;
    const std::map<std::string, std::pair<size_t, Run>> ops = {
        {"FpControl::GetTesselSlotId", {0, [this](R) { return Str(control.GetTesselSlotId()); }}},
        {"FpControl::GetDisplayType", {0, [this](R) { return Str(control.GetDisplayType()); }}},
        {"FpControl::GetTesselSlotVoltage",
         {0, [this](R) { return Str(control.GetTesselSlotVoltage()); }}},
        {"FpControl::GetVersion", {0, [this](R) { return '"' + control.GetVersion() + '"'; }}},
        {"FpControl::SetLed",
         {2,
          [this](R a) { return Sent(control.SetLed(FpControl::Led_e(Num(a[0])), Flag(a[1]))); }}},
        {"FpControl::SetUnitStatus",
         {1,
          [this](R a) { return Sent(control.SetUnitStatus(FpControl::UnitStatus_e(Num(a[0])))); }}},
        {"FpControl::ClearDisplay", {0, [this](R) { return Sent(control.ClearDisplay()); }}},
        {"FpControl::SetBrightness",
         {1, [this](R a) { return Sent(control.SetBrightness(Num(a[0]))); }}},
        {"FpControl::SetTesselFanState",
         {1, [this](R a) { return Sent(control.SetTesselFanState(Flag(a[0]))); }}},
        {"FpControl::InvertFont",
         {1, [this](R a) { return Sent(control.InvertFont(Flag(a[0]))); }}},
        {"FpControl::DisplayText",
         {4,
          [this](R a) {
              return Sent(control.DisplayText(Inside(a[0], '"'), Num(a[1]), Num(a[2]), Flag(a[3])));
          }}},
        {"FpControl::SubscribeToStatusUpdates",
         {3,
          [this](R a) {
              std::vector<FpControl::Fan_e> fans;
              for (const std::string& f : Split(Inside(a[2], '{')))
                  fans.push_back(FpControl::Fan_e(Num(f)));
              control.SubscribeToStatusUpdates(Num(a[0]), Flag(a[1]), fans, {}, {});
              return std::string();
          }}},
        {"FpControl::UnsubscribeFromStatusUpdates",
         {0, [this](R) { return control.UnsubscribeFromStatusUpdates(), std::string(); }}},
        {"DisplayHw::SendNavSymbols",
         {1, [this](R a) { return display.SendNavSymbols(Num(a[0])), std::string(); }}},
        {"DisplayHw::SendLockDisableSymbols",
         {1, [this](R a) { return display.SendLockDisableSymbols(Num(a[0])), std::string(); }}},
    };
};

// The emulator's codec must read the same frames and write them back byte for
// byte: the examples are canonical frames, not merely ones we happen to accept.
// Examples of malformed input are exempt when asked.
void ExpectCanonical(const Bytes& bytes, bool mayBeMalformed = false) {
    FPSIM::FrameDecoder decoder;
    std::vector<FPSIM::FrameDecoder::Frame> frames;
    decoder.Feed(bytes.data(), bytes.size(), frames);
    const size_t bad = decoder.GetStats().garbage + decoder.BadFrames();
    if (mayBeMalformed && bad)
        return;
    EXPECT_EQ(bad, 0u);
    Bytes again;
    for (const auto& f : frames) {
        const std::vector<uint8_t> one = FPSIM::FrameEncoder::Encode(f.op, f.payload);
        again.insert(again.end(), one.begin(), one.end());
    }
    EXPECT_EQ(again, bytes);
}

TEST_F(ProtocolDocTest, UnitToPanelExamplesMatchTheLibrary) {
    link.Drain();  // the clear the display sends when built
    size_t checked = 0;
    for (const Example& e : examples) {
        if (!e.Has("unit"))
            continue;
        const std::string call = e.One("unit");
        SCOPED_TRACE("line " + std::to_string(e.line) + ": " + call);
        ++checked;
        log.Clear();
        const size_t open = call.find('(');
        const auto op = ops.find(call.substr(0, open));
        ASSERT_NE(op, ops.end()) << "unknown operation";
        const Args args = Split(Inside(call.substr(open), '('));
        ASSERT_EQ(args.size(), op->second.first);
        const Bytes bytes = Hex(e.One("bytes"));
        // Only requests wait for an answer, so only they run on another thread.
        auto result = std::async(e.Has("panel") ? std::launch::async : std::launch::deferred,
                                 [&] { return op->second.second(args); });
        if (e.Has("panel")) {
            EXPECT_EQ(link.Take(bytes.size()), bytes);
            link.Send(Hex(e.One("panel")));
            ExpectCanonical(Hex(e.One("panel")));
        }
        EXPECT_EQ(result.get(), e.One("result"));
        if (!e.Has("panel")) {
            EXPECT_EQ(link.Drain(), bytes);
        }
        EXPECT_TRUE(link.Drain().empty()) << "more bytes than documented";
        ExpectCanonical(bytes);
        EXPECT_EQ(Complaints(), e.All("log"));
    }
    EXPECT_GT(checked, 0u) << "no unit-to-panel examples";
}

TEST_F(ProtocolDocTest, PanelToUnitExamplesDecodeAsDocumented) {
    fptest::Collected<std::string> seen;
    auto add = [&seen](std::string s) { seen.Add(std::move(s)); };
    control.SetKeyPressHandler(FpControl::KeyDelegate([add](FP::Key_e k, FP::KeyState_e s) {
        add(std::string("key ") + FP::KeyName(k) + " " + FP::KeyStateName(s));
    }));
    control.SetInitHandler(FpControl::InitDelegate([add] { add("init"); }));
    control.SubscribeToStatusUpdates(
        1, true, {FpControl::FAN_1, FpControl::FAN_2, FpControl::FAN_3},
        FpControl::TemperatureDelegate([add](short t) { add("temperature " + std::to_string(t)); }),
        FpControl::FanSpeedDelegate([add](FpControl::Fan_e f, unsigned short v) {
            add("fan " + std::to_string(f + 1) + " speed " + std::to_string(v));
        }));
    // Frames are handled in order on the read thread, so once this op's handler
    // has run, everything sent before it has been dealt with.
    const unsigned char kSentinel = 0x01;
    adapter.SetResponseHandler(kSentinel, [add](FP::IFpAdapter::Payload const&) { add("-"); });
    link.Drain();

    size_t checked = 0, before = 0;
    for (const Example& e : examples) {
        if (e.Has("unit"))
            continue;
        SCOPED_TRACE("line " + std::to_string(e.line));
        ++checked;
        log.Clear();
        Args expected = e.All("event");
        if (expected == Args{"none"})
            expected.clear();
        expected.push_back("-");
        const Bytes panel = Hex(e.One("panel"));
        link.Send(panel);
        link.Send({0x09, kSentinel, 0x7E});
        const Args all = seen.WaitFor(before + expected.size());
        Args got(all.begin() + std::min(before, all.size()), all.end());
        got.resize(std::min(got.size(), expected.size()));
        EXPECT_EQ(got, expected);
        before = all.size();
        EXPECT_EQ(Complaints(), e.All("log"));
        ExpectCanonical(panel, true);
    }
    EXPECT_GT(checked, 0u) << "no panel-to-unit examples";
    EXPECT_TRUE(link.Drain().empty()) << "the unit answered a report";
}

}  // namespace
