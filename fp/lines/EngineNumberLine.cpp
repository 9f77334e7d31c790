#include "fp/lines/EngineNumberLine.h"

#include <log4cpp/Category.hh>

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "fp/lines/internal/HeldWrite.h"
#include "kt/Str.h"

namespace FP {

namespace {

log4cpp::Category& Log() {
    return log4cpp::Category::getInstance("fp.lines");
}

// Strict: the whole text must be a finite number, blanks around allowed.
bool ParseNumber(const std::string& text, double& out) {
    const char* begin = text.c_str();
    char* end = nullptr;
    errno = 0;
    out = std::strtod(begin, &end);
    if (end == begin || errno == ERANGE || !std::isfinite(out))
        return false;
    while (*end == ' ')
        ++end;
    return *end == '\0';
}

double RoundTo(double value, int places) {
    const double p = std::pow(10.0, places);
    return std::round(value * p) / p;
}

}  // namespace

EngineNumberLine::EngineNumberLine(double min, double max, int decimals, Storage_e storage,
                                   double scale)
    : NumberLine(min < 0, std::pow(10.0, -decimals), decimals, scale),
      storage_(storage),
      stepScale_(scale),
      places_(decimals < 0 ? 0 : decimals) {
    SetMinMax(min, max);
    CheckScale();
}

EngineNumberLine::EngineNumberLine(bool isSigned, int decimals, Storage_e storage, double scale)
    : NumberLine(isSigned, std::pow(10.0, -decimals), decimals, scale),
      storage_(storage),
      stepScale_(scale),
      places_(decimals < 0 ? 0 : decimals) {
    CheckScale();
}

void EngineNumberLine::CheckScale() {
    if (storage_ != STORE_STEPS || (std::isfinite(stepScale_) && stepScale_ > 0))
        return;
    // Said once, here, rather than at every commit that could not be written.
    usable_ = false;
    readOnly = true;
    Log().error("%s() No steps of scale %g: the row shows \"%s\" and writes nothing", __func__,
                stepScale_, kUnknown);
}

std::string EngineNumberLine::StoredText(double value) const {
    if (storage_ == STORE_STEPS)
        return KT::Str::Format("%lld", std::llround(value / stepScale_));
    return KT::Str::Format("%.*f", places_, RoundTo(value, places_));
}

bool EngineNumberLine::KeyPress(const KeyState_t& key) {
    const bool commit = editing && key.key == KEY_ENTER;
    const bool result = HeldWrite::Run(dbActive, commit, [&] { return NumberLine::KeyPress(key); });
    if (commit && usable_) {
        unshown_.Clear();
        double value = 0;
        if (!readOnly && dbActive && ParseNumber(GetCommittedString(), value))
            BaseLine::SendDbData(StoredText(value));
    }
    return result;
}

bool EngineNumberLine::SetCurrentValue(const std::string& value) {
    double v = 0;
    if (ParseNumber(value, v)) {
        unshown_.Clear();
        return SetCurrentValue(v);
    }
    unshown_.Report(__func__, dbName, dbInstance, value, "which is not a number");
    return false;
}

std::string EngineNumberLine::GetCurrentString() const {
    if (!usable_ || (unshown_.Active() && !editing))
        return kUnknown;
    return NumberLine::GetCurrentString();
}

std::string EngineNumberLine::GetDbValue() const {
    const std::string stored = BaseLine::GetDbValue();
    double value = 0;
    if (!ParseNumber(stored, value))
        return stored;
    if (storage_ == STORE_STEPS)
        value *= stepScale_;
    return KT::Str::Format("%.*f", places_, RoundTo(value, places_));
}

}  // namespace FP
