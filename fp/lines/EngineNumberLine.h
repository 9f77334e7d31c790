#pragma once

#include <string>

#include "fp/lines/NumberLine.h"
#include "fp/lines/detail/UnshownValue.h"

namespace FP {

/// A number row that shows and writes its variable the same way: reading
/// and writing go through one rule, chosen at construction, so what is
/// committed is what the row shows on the next read. Stored text that is not
/// a number, or an unusable scale, shows as "?" and is logged once (on
/// "fp.lines"); such a row writes nothing.
/// Threads: the UI thread, like every row.
class EngineNumberLine : public NumberLine {
public:
    /// How the variable holds the number.
    enum Storage_e {
        STORE_TEXT,   ///< the shown value as decimal text ("12.5")
        STORE_STEPS,  ///< a whole count of scale steps (12.5 with scale 0.1 is "125")
    };
    /// What the row shows when it cannot show the stored number.
    static constexpr const char* kUnknown = "?";

    /// An editable row between min and max with decimals places. scale is
    /// used with STORE_STEPS only; zero, negative or not finite there is
    /// reported here and leaves the row showing kUnknown.
    EngineNumberLine(double min, double max, int decimals, Storage_e storage, double scale);
    /// A row as wide as the status screen's number rows (nine characters).
    EngineNumberLine(bool isSigned, int decimals, Storage_e storage, double scale);

    /// A commit writes by the storage rule when the row is bound, active and
    /// writable; other keys as NumberLine.
    bool KeyPress(const KeyState_t& key) override;
    using NumberLine::SetCurrentValue;
    /// Takes decimal text; anything else leaves the row showing kUnknown.
    bool SetCurrentValue(const std::string& value) override;
    std::string GetCurrentString() const override;
    /// The stored value turned into the shown one (rounded half away from
    /// zero to the decimals), or the stored text when it is not a number.
    std::string GetDbValue() const override;

    /// False when the scale is unusable.
    bool IsUsable() const { return usable_; }
    /// The text a commit of value writes.
    std::string StoredText(double value) const;

private:
    void CheckScale();

    Storage_e storage_;
    double stepScale_;
    int places_;
    bool usable_ = true;
    UnshownValue unshown_;
};

}  // namespace FP
