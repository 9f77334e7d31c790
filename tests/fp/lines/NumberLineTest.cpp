#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fp/lines/NumberLine.h"
#include "tests/fp/lines/LineFixture.h"

using linetest::Engine;
using linetest::Press;

TEST(NumberLine, FieldWidthAndSign) {
    FP::NumberLine line(true, 0.01, 2, 1.0);
    line.SetMinMax(-10, 200);  // the wider bound decides
    EXPECT_EQ(line.GetValidEntry(0), "+000.00");
    EXPECT_EQ(line.GetValidEntry(-11), "-010.00");
}

// Keys on a loaded line, unsigned whole numbers (0 to 500) or signed tenths
// stored scaled by ten: what it shows after them, whether it still edits, and
// what the engine holds.
TEST(NumberLine, DigitsAgainstTheEngine) {
    const struct {
        bool tenths;
        const char* start;
        const char* keys;
        const char* shown;
        bool editing;
        const char* stored;
    } cases[] = {
        {false, "42", "=+", "142", true, "42"},        {false, "42", "=>+=", "052", false, "52"},
        {false, "42", "=>>-=", "041", false, "41"},    {false, "42", "=<+=", "043", false, "43"},
        {false, "42", "=+++++=", "500", false, "500"},  // clamped to the maximum
        {false, "42", "=-=", "000", false, "0"},        // -142 clamped to the minimum
        {false, "42", "=+~", "042", false, "42"},       // exit writes nothing
        {true, "-5", "=+=", "+01.5", false, "15"},      // up across zero keeps the digits
        {true, "5", "=>-=", "-01.5", false, "-15"},     // and so does down
        {true, "0", "=>>-=", "-00.1", false, "-1"},     // the point is stepped over
        {true, "-990", "=-=", "-99.9", false, "-999"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.start) + " " + c.keys);
        Engine engine(c.start);
        FP::NumberLine line(c.tenths, c.tenths ? 0.1 : 1.0, c.tenths ? 1 : 0, c.tenths ? 0.1 : 1.0);
        line.SetMinMax(c.tenths ? -99.9 : 0, c.tenths ? 99.9 : 500);
        line.SetClient(&engine.fp);
        line.SetDbInfo("v", "0");
        line.SetCurrentValue(line.GetDbValue());
        EXPECT_EQ(Press(line, c.keys), c.editing);
        EXPECT_EQ(line.GetCurrentString(), c.shown);
        EXPECT_EQ(engine.Value(), c.stored);
    }
}

TEST(NumberLine, EngineScaleRoundingAndTruncation) {
    struct {
        double unit;
        int decimals;
        double scale;
        const char* stored;
        const char* read;
    } reads[] = {
        {0.5, 1, 1.0, "2.26", "02.5"},  {0.5, 1, 1.0, "2.2", "02.0"},
        {0.5, 1, 1.0, "-2.26", "-2.5"}, {0.5, 1, 1.0, "TRUE", "01.0"},
        {0.5, 1, 1.0, "abc", "00.0"},   {0.01, 2, 0.01, "1234", "12.34"},
        {-1, 2, 1.0, "1.239", "01.24"},  // a negative unit does not round
    };
    for (const auto& r : reads) {
        SCOPED_TRACE(r.stored);
        Engine engine(r.stored);
        FP::NumberLine line(false, r.unit, r.decimals, r.scale);
        line.SetNumItems(r.decimals + 3);
        line.SetClient(&engine.fp);
        line.SetDbInfo("v", "0");
        EXPECT_EQ(line.GetDbValue(), r.read);
    }

    Engine engine("7");
    FP::NumberLine line(false, 1.0, 1, 0.3);
    line.SetClient(&engine.fp);
    line.SendDbData("2.9");
    EXPECT_EQ(engine.Value(), "7");  // unbound: nothing written
    line.SetDbInfo("v", "0");
    const std::pair<const char*, const char*> writes[] = {
        {"2.9", "8"}, {"-2.9", "-8"}, {"1e12", "-8"}};  // the last is refused
    for (const auto& w : writes) {
        line.SendDbData(w.first);
        EXPECT_EQ(engine.Value(), w.second);
    }
    FP::NumberLine unscaled(false);
    unscaled.SetClient(&engine.fp);
    unscaled.SetDbInfo("v", "0");
    unscaled.SendDbData("5");
    EXPECT_EQ(engine.Value(), "-8");
}

TEST(NumberLine, NonNumbersFromTheEngineKeepTheValue) {
    Engine engine("12");
    FP::NumberLine line(false, 1.0, 0, 1.0);
    line.SetMinMax(0, 500);
    line.SetClient(&engine.fp);
    line.SetDbInfo("v", "0");
    line.RefreshData();
    EXPECT_EQ(line.GetCurrentString(), "012");
    for (const char* bad : {"abc", "abc", "1e40", "nan", ""}) {
        engine.Set(bad);
        line.RefreshData();
        EXPECT_EQ(line.GetCurrentString(), "012");
    }
    EXPECT_EQ(Press(line, "=+="), false);
    EXPECT_EQ(line.GetCurrentString(), "112");
}

TEST(NumberLine, DrawsFieldSuffixAndEditCells) {
    FP::Testing::RecordingDisplay panel(16, 4);
    FP::NumberLine line(true, 0.1, 1, 1.0);
    line.SetMinMax(-99.9, 99.9);
    linetest::Place(line, panel, "T");
    line.SetSuffix("C");
    line.SetCurrentValue(-1.5);
    EXPECT_EQ(panel.Draw(line, 2), " T-01.5C");

    Press(line, "=");  // the sign is stepped over
    // The edit cursor's own cell comes from the unsigned digits at a column
    // shifted by the sign and point, on the cursor's row 0; the line then
    // reverses the shown character itself.
    EXPECT_EQ(panel.Draw(line, 2), " T-[0]1.5C");
    EXPECT_EQ(panel.Row(0), "      [1]");
}
