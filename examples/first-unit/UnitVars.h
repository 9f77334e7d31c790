#pragma once

#include <string>
#include <vector>

#include "tov/DataStore.h"

// The unit's settings and the names of its screens, shared by main() and the
// screens so that a typo is a compile error, not a blank row.
namespace FirstUnit {

namespace Var {
constexpr const char* kName = "unit.name";    ///< up to 12 of: letters, digits, '-', '_'
constexpr const char* kFanMode = "fan.mode";  ///< 1 = Auto, 2 = Quiet, 3 = Full
constexpr const char* kInstance = "0";        ///< the unit's own instance
}  // namespace Var

namespace Screen {
constexpr const char* kStatus = "Status";
constexpr const char* kSettings = "Settings";
}  // namespace Screen

/// The fan modes as a list row shows them. A list row stores the chosen
/// item's position counted from 1, so "Quiet" is stored as "2".
std::vector<std::string> FanModeTexts();

/// Declares the unit's variables on store. False with the reason in error
/// when a declaration is refused.
bool DeclareVars(TOV::CDataStore& store, std::string& error);

}  // namespace FirstUnit
