#pragma once

#include <string>

#include "tov/DataStore.h"

namespace FPDEMO {

// The unit's engine variables. Readings from the panel are not kept on disk;
// settings are.
namespace Var {
constexpr char kTemperature[] = "sys.temperature";
constexpr char kFan1[] = "sys.fan1";
constexpr char kFan2[] = "sys.fan2";
constexpr char kFan3[] = "sys.fan3";
constexpr char kSlotVoltage[] = "sys.slotVoltage";
constexpr char kSlotId[] = "sys.slotId";
constexpr char kPanelVersion[] = "sys.panelVersion";
constexpr char kUnitVersion[] = "sys.unitVersion";
constexpr char kDhcp[] = "net.dhcp";
constexpr char kIpAddress[] = "net.ipAddress";
constexpr char kNetmask[] = "net.netmask";
constexpr char kGateway[] = "net.gateway";
constexpr char kHostName[] = "net.hostName";
constexpr char kMac[] = "net.mac";
constexpr char kBrightness[] = "disp.brightness";
constexpr char kDate[] = "clock.date";
constexpr char kTime[] = "clock.time";
constexpr char kInstance[] = "0";
}  // namespace Var

// Declares every variable; false (with why) if one is refused.
bool DeclareVars(TOV::CDataStore& store, std::string& error);

// True when gateway lies in the subnet of address/netmask (all dotted quads).
bool InSubnet(const std::string& address, const std::string& netmask, const std::string& gateway);

}  // namespace FPDEMO
