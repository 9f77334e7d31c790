#include "examples/demo/DemoUnit.h"

#include <log4cpp/Category.hh>

#include <cstdlib>
#include <utility>

#include "examples/demo/AboutScreen.h"
#include "examples/demo/DateTimeScreen.h"
#include "examples/demo/DemoVars.h"
#include "examples/demo/DisplayScreen.h"
#include "examples/demo/MainMenuScreen.h"
#include "examples/demo/NetworkScreen.h"
#include "examples/demo/StatusScreen.h"
#include "examples/demo/WizardScreen.h"
#include "fp/core/Names.h"
#include "kt/Str.h"

namespace FPDEMO {

namespace {

const unsigned char kReportIntervalTenths = 10;

log4cpp::Category& Log() {
    return log4cpp::Category::getInstance("fp.demo");
}

unsigned char Level(const std::string& text) {
    return static_cast<unsigned char>(std::atoi(text.c_str()));
}

}  // namespace

DemoUnit::DemoUnit(TOV::CDataStore& store, const FP::Unit::Options& options)
    : TOV::IManagedEventSink("fp-demo"), store_(store), unit_(store, options) {
    auto* menu = new MainMenuScreen;
    unit_.AddScreen(std::unique_ptr<FP::BaseScreen>(menu));
    // The main menu's rows in order, each with the screen it opens; a screen
    // spells its own name, so the menu cannot point at one that is not there.
    const std::pair<const char*, FP::BaseScreen*> screens[] = {
        {"Status", new StatusScreen},       {"Network", new NetworkScreen},
        {"Display", new DisplayScreen},     {"Date & Time", new DateTimeScreen},
        {"Setup Wizard", new WizardScreen}, {"About", new AboutScreen}};
    for (const auto& entry : screens) {
        menu->AddEntry(entry.first, entry.second->GetName());
        unit_.AddScreen(std::unique_ptr<FP::BaseScreen>(entry.second));
    }
    unit_.SetLinkListener([this](const FP::Unit::LinkEvent_t& e) { OnLink(e); });
    unit_.SetPanelHook([this](FP::FpControl& control) { SetUpPanel(control); });
}

DemoUnit::~DemoUnit() {
    unit_.Stop();
}

bool DemoUnit::Start() {
    unit_.Subscribe(
        kReportIntervalTenths, true,
        {FP::FpControl::FAN_1, FP::FpControl::FAN_2, FP::FpControl::FAN_3},
        [this](short t) { Write(Var::kTemperature, std::to_string(t)); },
        [this](FP::FpControl::Fan_e fan, unsigned short speed) {
            static const char* const fans[] = {Var::kFan1, Var::kFan2, Var::kFan3};
            if (fan >= 0 && fan < 3)
                Write(fans[fan], std::to_string(speed));
        });
    unit_.SetBrightness(
        Level(store_.Read(Var::kBrightness, TOV::COid(Var::kInstance)).Val().GetValue()));
    // The unit is up: say so on the panel's status LED and run its fans.
    unit_.SetUnitStatus(FP::FpControl::STATUS_OK);
    unit_.SetLed(FP::FpControl::LED_0, true);
    unit_.SetFans(true);
    unit_.Post([this] {
        unit_.EngineClient().AddManagedEventHandler(Var::kBrightness, this, Var::kInstance);
    });
    return unit_.Start();
}

std::string DemoUnit::LinkReason() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return reason_;
}

void DemoUnit::OnLink(const FP::Unit::LinkEvent_t& e) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        reason_ = e.up ? std::string() : e.reason;
    }
    if (!notice_)
        return;
    if (!e.up)
        notice_("panel link lost (" + e.reason + "); reconnecting");
    else if (!e.reason.empty())
        notice_(e.reason);
    else if (unit_.Reconnects())
        notice_("panel link restored");
}

void DemoUnit::SetUpPanel(FP::FpControl& control) {
    Write(Var::kSlotId, std::to_string(control.GetTesselSlotId()));
    Write(Var::kSlotVoltage, KT::Str::Format("%.1f", control.GetTesselSlotVoltage()));
    const std::string version = control.GetVersion();
    Write(Var::kPanelVersion, version.empty() ? "-" : version);
}

void DemoUnit::Write(const char* name, const std::string& value) {
    const TOV::CRet ret = store_.Write(FP::FPUSER, name, TOV::COid(Var::kInstance), value);
    if (!ret.Success())
        Log().warn("%s() %s refused \"%s\": %s", __func__, name, value.c_str(), ret.Msg().c_str());
}

void DemoUnit::HandleEvent(const std::string& name, const TOV::COid&, const std::string&,
                           const std::string& value, const TOV::CParam&) {
    if (name == Var::kBrightness)
        unit_.SetBrightness(Level(value));
}

}  // namespace FPDEMO
