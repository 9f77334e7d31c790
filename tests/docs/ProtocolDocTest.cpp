// Replays every example of docs/protocol.md against the library and the
// emulator's codec, so the document cannot drift from the wire.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <future>
#include <map>
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
#include "tests/fp/link/LinkPeer.h"
#include "tests/support/LogCapture.h"

using FP::FpControl;
using fptest::Bytes;

namespace {

struct Example {
    int line = 0;  // of the opening fence, for messages
    std::string unit, result;
    Bytes bytes, panel;
    bool hasBytes = false, hasPanel = false;
    std::vector<std::string> events, logs;
};

Bytes ParseHex(const std::string& text) {
    Bytes out;
    std::istringstream in(text);
    std::string word;
    while (in >> word) {
        char* end = nullptr;
        unsigned long v = std::strtoul(word.c_str(), &end, 16);
        if (word.size() != 2 || *end != '\0')
            throw std::invalid_argument("not a hex byte: " + word);
        out.push_back(static_cast<unsigned char>(v));
    }
    return out;
}

// Reads the fenced "frame" blocks; a malformed block is reported in errors
// rather than skipped, so a typo cannot quietly drop an example.
std::vector<Example> ReadExamples(const std::string& path, std::vector<std::string>& errors) {
    std::ifstream in(path);
    if (!in)
        errors.push_back("cannot open " + path);
    std::vector<Example> out;
    std::string text;
    int lineNo = 0;
    Example* open = nullptr;
    while (std::getline(in, text)) {
        ++lineNo;
        if (!open) {
            // An example fenced under another name would silently go unchecked.
            for (const char* key : {"unit: ", "bytes: ", "panel: ", "event: "})
                if (text.rfind(key, 0) == 0)
                    errors.push_back("line " + std::to_string(lineNo) +
                                     ": example outside a frame block");
            if (text == "```frame") {
                out.emplace_back();
                open = &out.back();
                open->line = lineNo;
            }
            continue;
        }
        if (text == "```") {
            Example& e = *open;
            open = nullptr;
            bool unitOk = !e.unit.empty() && e.hasBytes && e.events.empty() &&
                          (e.hasPanel == !e.result.empty());
            bool panelOk = e.unit.empty() && e.hasPanel && !e.hasBytes && !e.events.empty() &&
                           e.result.empty();
            if (!unitOk && !panelOk)
                errors.push_back("line " + std::to_string(e.line) + ": incomplete example");
            continue;
        }
        size_t colon = text.find(": ");
        std::string key = text.substr(0, colon), value = text.substr(colon + 2);
        try {
            if (colon == std::string::npos)
                throw std::invalid_argument("no key");
            if (key == "unit")
                open->unit = value;
            else if (key == "bytes")
                open->bytes = ParseHex(value), open->hasBytes = true;
            else if (key == "panel")
                open->panel = ParseHex(value), open->hasPanel = true;
            else if (key == "result")
                open->result = value;
            else if (key == "event")
                open->events.push_back(value);
            else if (key == "log")
                open->logs.push_back(value);
            else
                throw std::invalid_argument("unknown key " + key);
        } catch (const std::exception& ex) {
            errors.push_back("line " + std::to_string(lineNo) + ": " + ex.what());
        }
    }
    if (open)
        errors.push_back("line " + std::to_string(open->line) + ": block not closed");
    return out;
}

// One argument of a documented call: a plain token, a string, or a list.
struct Arg {
    std::string text;
    std::vector<std::string> items;
};

struct Call {
    std::string name;  // "Class::Operation"
    std::vector<Arg> args;
};

std::string Trim(const std::string& s) {
    size_t b = s.find_first_not_of(' '), e = s.find_last_not_of(' ');
    return b == std::string::npos ? "" : s.substr(b, e - b + 1);
}

Call ParseCall(const std::string& text) {
    size_t open = text.find('('), close = text.rfind(')');
    if (open == std::string::npos || close != text.size() - 1)
        throw std::invalid_argument("not a call: " + text);
    Call call{text.substr(0, open), {}};
    for (size_t i = open + 1; i < close;) {
        char c = text[i];
        if (c == ' ' || c == ',') {
            ++i;
        } else if (c == '"') {
            Arg a;
            for (++i; i < close && text[i] != '"'; ++i) {
                a.text += text[i] == '\\' ? text[++i] : text[i];
            }
            ++i;
            call.args.push_back(a);
        } else if (c == '{') {
            size_t end = text.find('}', i);
            Arg a;
            std::istringstream items(text.substr(i + 1, end - i - 1));
            for (std::string item; std::getline(items, item, ',');)
                if (!Trim(item).empty())
                    a.items.push_back(Trim(item));
            call.args.push_back(a);
            i = end + 1;
        } else {
            size_t end = text.find_first_of(",)", i);
            call.args.push_back({Trim(text.substr(i, end - i)), {}});
            i = end;
        }
    }
    return call;
}

// Enumerators the document may name, besides plain numbers.
long Num(const Arg& a) {
    static const std::map<std::string, long> names = {
        {"FAN_1", FpControl::FAN_1},
        {"FAN_2", FpControl::FAN_2},
        {"FAN_3", FpControl::FAN_3},
        {"STATUS_OFF", FpControl::STATUS_OFF},
        {"STATUS_OK", FpControl::STATUS_OK},
        {"STATUS_WARNING", FpControl::STATUS_WARNING},
        {"STATUS_ERROR", FpControl::STATUS_ERROR},
        {"STATUS_BOOTING", FpControl::STATUS_BOOTING}};
    auto it = names.find(a.text);
    if (it != names.end())
        return it->second;
    // LED_n is LED number n.
    const std::string text = a.text.rfind("LED_", 0) == 0 ? a.text.substr(4) : a.text;
    char* end = nullptr;
    long v = std::strtol(text.c_str(), &end, 0);
    if (text.empty() || *end != '\0')
        throw std::invalid_argument("not a number: " + a.text);
    return v;
}

bool Flag(const Arg& a) {
    if (a.text != "true" && a.text != "false")
        throw std::invalid_argument("not a flag: " + a.text);
    return a.text == "true";
}

unsigned char Byte(const Arg& a) {
    return static_cast<unsigned char>(Num(a));
}

struct Target {
    FpControl& control;
    FP::DisplayHw& display;
};

// The documented operations and the number of arguments each takes. Each
// answers what the document writes as its result: a request its decoded
// answer, a command "" once it has been written.
using Invoke = std::function<std::string(const std::vector<Arg>&, Target&)>;
using A = const std::vector<Arg>&;

std::string Sent(bool ok) {
    return ok ? "" : "write failed";
}

const std::map<std::string, std::pair<size_t, Invoke>>& Operations() {
    static const std::map<std::string, std::pair<size_t, Invoke>> ops = {
        {"FpControl::GetTesselSlotId",
         {0, [](A, Target& t) { return std::to_string(t.control.GetTesselSlotId()); }}},
        {"FpControl::GetDisplayType",
         {0, [](A, Target& t) { return std::to_string(t.control.GetDisplayType()); }}},
        {"FpControl::GetTesselSlotVoltage",
         {0,
          [](A, Target& t) {
              return (std::ostringstream() << t.control.GetTesselSlotVoltage()).str();
          }}},
        {"FpControl::GetVersion",
         {0, [](A, Target& t) { return "\"" + t.control.GetVersion() + "\""; }}},
        {"FpControl::SetLed",
         {2,
          [](A a, Target& t) {
              return Sent(t.control.SetLed(FpControl::Led_e(Byte(a[0])), Flag(a[1])));
          }}},
        {"FpControl::SetUnitStatus",
         {1,
          [](A a, Target& t) {
              return Sent(t.control.SetUnitStatus(FpControl::UnitStatus_e(Byte(a[0]))));
          }}},
        {"FpControl::ClearDisplay",
         {0, [](A, Target& t) { return Sent(t.control.ClearDisplay()); }}},
        {"FpControl::SetBrightness",
         {1, [](A a, Target& t) { return Sent(t.control.SetBrightness(Byte(a[0]))); }}},
        {"FpControl::SetTesselFanState",
         {1, [](A a, Target& t) { return Sent(t.control.SetTesselFanState(Flag(a[0]))); }}},
        {"FpControl::InvertFont",
         {1, [](A a, Target& t) { return Sent(t.control.InvertFont(Flag(a[0]))); }}},
        {"FpControl::DisplayText",
         {4,
          [](A a, Target& t) {
              return Sent(t.control.DisplayText(a[0].text, Byte(a[1]), Byte(a[2]), Flag(a[3])));
          }}},
        {"FpControl::SubscribeToStatusUpdates",
         {3,
          [](A a, Target& t) {
              std::vector<FpControl::Fan_e> fans;
              for (const std::string& f : a[2].items)
                  fans.push_back(FpControl::Fan_e(Num({f, {}})));
              t.control.SubscribeToStatusUpdates(Byte(a[0]), Flag(a[1]), fans, {}, {});
              return std::string();
          }}},
        {"FpControl::UnsubscribeFromStatusUpdates",
         {0, [](A, Target& t) { return t.control.UnsubscribeFromStatusUpdates(), std::string(); }}},
        {"DisplayHw::SendNavSymbols",
         {1, [](A a, Target& t) { return t.display.SendNavSymbols(Byte(a[0])), std::string(); }}},
        {"DisplayHw::SendLockDisableSymbols",
         {1,
          [](A a, Target& t) {
              return t.display.SendLockDisableSymbols(Byte(a[0])), std::string();
          }}},
    };
    return ops;
}

// The emulator's codec must read the same frames out of the bytes and write
// them back identically: the examples are canonical frames, not merely bytes
// our own decoder happens to accept.
void ExpectCanonical(const Bytes& bytes, int line) {
    FPSIM::FrameDecoder decoder;
    std::vector<FPSIM::FrameDecoder::Frame> frames;
    decoder.Feed(bytes.data(), bytes.size(), frames);
    EXPECT_EQ(decoder.GetStats().garbage + decoder.BadFrames(), 0u) << "line " << line;
    Bytes again;
    for (const auto& f : frames) {
        std::vector<uint8_t> one = FPSIM::FrameEncoder::Encode(f.op, f.payload);
        again.insert(again.end(), one.begin(), one.end());
    }
    EXPECT_EQ(again, bytes) << "line " << line;
}

std::vector<Example> LoadOrFail() {
    std::vector<std::string> errors;
    std::vector<Example> examples = ReadExamples(FP_PROTOCOL_DOC, errors);
    for (const std::string& e : errors)
        ADD_FAILURE() << FP_PROTOCOL_DOC << " " << e;
    return examples;
}

struct ProtocolDocTest : ::testing::Test {
    fptest::LinkPeer link;
    fptest::LogCapture log{"fpcontrol"};
    FP::FpAdapter adapter{link.ours};
    FpControl control{adapter};
    std::vector<Example> examples = LoadOrFail();

    // Errors and warnings only: debug lines are not part of the contract.
    std::vector<std::string> Complaints() const {
        std::vector<std::string> out;
        for (const auto& e : log.Entries())
            if (e.priority == "ERROR" || e.priority == "WARN")
                out.push_back(e.message);
        return out;
    }
};

TEST_F(ProtocolDocTest, UnitToPanelExamplesMatchTheLibrary) {
    FP::DisplayHw display(control, 20, 4);
    link.Drain();  // the clear the display sends when built
    Target target{control, display};
    size_t checked = 0;
    for (const Example& e : examples) {
        if (e.unit.empty())
            continue;
        SCOPED_TRACE("line " + std::to_string(e.line) + ": " + e.unit);
        ++checked;
        log.Clear();
        Call call;
        try {
            call = ParseCall(e.unit);
        } catch (const std::exception& ex) {
            ADD_FAILURE() << ex.what();
            continue;
        }
        auto op = Operations().find(call.name);
        if (op == Operations().end()) {
            ADD_FAILURE() << "unknown operation " << call.name;
            continue;
        }
        ASSERT_EQ(call.args.size(), op->second.first);
        // Only requests come with an answer from the panel.
        const Invoke& run = op->second.second;
        std::string result;
        if (e.hasPanel) {
            auto pending = std::async(std::launch::async, [&] { return run(call.args, target); });
            EXPECT_EQ(link.Take(e.bytes.size()), e.bytes);
            link.Send(e.panel);
            result = pending.get();
            EXPECT_EQ(result, e.result);
            ExpectCanonical(e.panel, e.line);
        } else {
            result = run(call.args, target);
            EXPECT_EQ(result, "");
            EXPECT_EQ(link.Drain(), e.bytes);
        }
        EXPECT_TRUE(link.Drain().empty()) << "more bytes than documented";
        ExpectCanonical(e.bytes, e.line);
        EXPECT_EQ(Complaints(), e.logs);
    }
    EXPECT_GT(checked, 0u) << "no unit-to-panel examples in " << FP_PROTOCOL_DOC;
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
    adapter.SetResponseHandler(
        kSentinel,
        FP::IFpAdapter::Handler([add](FP::IFpAdapter::Payload const&) { add("sentinel"); }));
    link.Drain();

    size_t checked = 0, before = 0;
    for (const Example& e : examples) {
        if (!e.unit.empty())
            continue;
        SCOPED_TRACE("line " + std::to_string(e.line));
        ++checked;
        log.Clear();
        std::vector<std::string> expected = e.events;
        if (expected == std::vector<std::string>{"none"})
            expected.clear();
        expected.push_back("sentinel");
        link.Send(e.panel);
        link.Send({0x09, kSentinel, 0x7E});
        std::vector<std::string> all = seen.WaitFor(before + expected.size());
        std::vector<std::string> got(all.begin() + std::min(before, all.size()), all.end());
        got.resize(std::min(got.size(), expected.size()));
        EXPECT_EQ(got, expected);
        before = all.size();
        EXPECT_EQ(Complaints(), e.logs);
        FPSIM::FrameDecoder probe;
        std::vector<FPSIM::FrameDecoder::Frame> frames;
        probe.Feed(e.panel.data(), e.panel.size(), frames);
        if (probe.GetStats().garbage + probe.BadFrames() == 0)
            ExpectCanonical(e.panel, e.line);
    }
    EXPECT_GT(checked, 0u) << "no panel-to-unit examples in " << FP_PROTOCOL_DOC;
    EXPECT_TRUE(link.Drain().empty()) << "the unit answered a report";
}

}  // namespace
