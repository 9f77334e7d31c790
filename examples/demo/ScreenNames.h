#pragma once

namespace FPDEMO {

// The names screens answer from KeyPress to move between each other.
namespace Screen {
constexpr char kMain[] = "Main";
constexpr char kStatus[] = "Status";
constexpr char kNetwork[] = "Network";
constexpr char kDisplay[] = "Display";
constexpr char kDateTime[] = "DateTime";
constexpr char kWizard[] = "Wizard";
constexpr char kAbout[] = "About";
}  // namespace Screen

}  // namespace FPDEMO
