#pragma once

// GoogleTest glue for ScreenHarness. Header only, so the harness library
// itself needs no GoogleTest; link your test with GTest::gmock.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "testing/PanelView.h"
#include "testing/ScreenHarness.h"

namespace FP::Testing {

/// A GoogleTest fixture holding a harness whose failures are test failures
/// that print the panel. Build it in the constructor of your fixture (or in
/// the test) with Make(), add screens, then Start().
/// Threads: the test's thread.
class ScreenTest : public ::testing::Test {
protected:
    /// Replaces the harness with a fresh one built with options.
    ScreenHarness& Make(const ScreenHarness::Options& options) {
        harness_.reset();
        harness_.reset(new ScreenHarness(options));
        harness_->SetFailureSink([](const std::string& message) { ADD_FAILURE() << message; });
        return *harness_;
    }
    /// The harness (made with default options on first use).
    ScreenHarness& Harness() { return harness_ ? *harness_ : Make(ScreenHarness::Options()); }

    /// Tears the harness down after each test, so no unit outlives it.
    void TearDown() override { harness_.reset(); }

private:
    std::unique_ptr<ScreenHarness> harness_;
};

/// Matches a PanelView whose row (from 0) reads text, trailing blanks cut;
/// a mismatch prints the whole panel.
MATCHER_P2(ShowsRow, row, text,
           "row " + std::to_string(row) + " reads \"" + std::string(text) + "\"") {
    const std::string shown = arg.Row(row);
    if (shown == text)
        return true;
    *result_listener << "row " << row << " reads \"" << shown << "\"";
    return false;
}

/// Matches a PanelView that shows text somewhere (within one row).
MATCHER_P(ShowsText, text, "shows \"" + std::string(text) + "\"") {
    for (unsigned row = 0; row < arg.Height(); ++row)
        if (arg.Row(row).find(text) != std::string::npos)
            return true;
    *result_listener << "no row holds it";
    return false;
}

/// Matches a PanelView whose rows, joined with '\n', read text exactly.
MATCHER_P(ShowsScreen, text, "shows exactly\n" + std::string(text)) {
    return arg.Text() == text;
}

/// Matches a PanelView whose row shows text in reverse video (the cursor).
MATCHER_P2(ShowsReverse, row, text,
           "row " + std::to_string(row) + " shows \"" + std::string(text) + "\" in reverse") {
    const std::string shown = arg.ReverseText(row);
    *result_listener << "its reverse cells read \"" << shown << "\"";
    return shown == text;
}

}  // namespace FP::Testing

/// Checks what the panel of harness shows on row; on failure prints the panel.
#define EXPECT_ROW(harness, row, text) \
    EXPECT_THAT((harness).Panel(), ::FP::Testing::ShowsRow((row), (text)))
