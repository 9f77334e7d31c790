#include "examples/demo/DemoUnit.h"

#include <log4cpp/Category.hh>

#include <vector>

#include "examples/demo/AboutScreen.h"
#include "examples/demo/DateTimeScreen.h"
#include "examples/demo/DemoVars.h"
#include "examples/demo/DisplayScreen.h"
#include "examples/demo/MainMenuScreen.h"
#include "examples/demo/NetworkScreen.h"
#include "examples/demo/ScreenNames.h"
#include "examples/demo/StatusScreen.h"
#include "examples/demo/WizardScreen.h"
#include "fp/core/Names.h"
#include "fp/display/TextAdjustment.h"
#include "kt/Str.h"

namespace FPDEMO {

namespace {

using Clock = std::chrono::steady_clock;

const unsigned kReportIntervalTenths = 10;
const auto kRetryPeriod = std::chrono::milliseconds(1000);
// How often the link is looked at when the screen needs no redraw sooner.
const auto kWatchPeriod = std::chrono::milliseconds(250);
const unsigned kRoundTripMs = 2000;
const auto kRefusalShownFor = std::chrono::milliseconds(1500);

log4cpp::Category& Log() {
    return log4cpp::Category::getInstance("fp.demo");
}

}  // namespace

DemoUnit::DemoUnit(TOV::CDataStore& store, unsigned width, unsigned height)
    : TOV::IManagedEventSink("fp-demo"),
      store_(store),
      tov_(store, TOV::CTovClient::DELIVER_QUEUED),
      client_(&tov_),
      width_(width),
      height_(height),
      display_(width, height) {
    FP::BaseScreen* screens[] = {new MainMenuScreen, new StatusScreen,   new NetworkScreen,
                                 new DisplayScreen,  new DateTimeScreen, new WizardScreen,
                                 new AboutScreen};
    for (FP::BaseScreen* screen : screens) {
        screen->SetClient(&client_);
        screen->SetDisplay(&display_);
        screens_[screen->GetName()].reset(screen);
    }
    client_.SetRefusalListener([this](const FP::FpClient::Refusal_t& refusal) {
        // The engine's reason ends its message ("...: out of range 1 to 8").
        const std::string::size_type colon = refusal.message.rfind(": ");
        refusal_ = colon == std::string::npos ? refusal.message : refusal.message.substr(colon + 2);
    });
}

DemoUnit::~DemoUnit() {
    Stop();
}

bool DemoUnit::Start(const Connector& connector, bool retry) {
    connector_ = connector;
    retry_ = retry;
    if (!Connect() && !retry)
        return false;
    ui_ = std::thread(&DemoUnit::UiRun, this);
    pump_ = std::thread(&DemoUnit::PumpRun, this);
    return true;
}

void DemoUnit::Stop() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (stopping_)
            return;
        stopping_ = true;
    }
    Post(Event_t{Event_t::QUIT});
    queued_.notify_all();
    if (ui_.joinable())
        ui_.join();
    if (pump_.joinable())
        pump_.join();
    // No thread of ours is left; the link's threads go with it.
    Disconnect();
}

void DemoUnit::Post(const Event_t& event) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        queue_.push_back(event);
    }
    queued_.notify_one();
}

void DemoUnit::OnKeyPress(FP::Key_e key) {
    Post(Event_t{Event_t::KEY, int(key)});
    ++keysReported_;
}

void DemoUnit::OnTemperature(short value) {
    Post(Event_t{Event_t::TEMPERATURE, value});
}

void DemoUnit::OnFanSpeed(FP::FpControl::Fan_e fan, unsigned short speed) {
    Post(Event_t{Event_t::FAN, int(fan), int(speed)});
}

void DemoUnit::OnPanelInit() {
    Post(Event_t{Event_t::PANEL_INIT});
}

bool DemoUnit::Sync(unsigned timeoutMs) {
    std::unique_lock<std::mutex> lock(mutex_);
    const unsigned long ticket = ++syncPosted_;
    Event_t e{Event_t::SYNC};
    e.sync = ticket;
    queue_.push_back(e);
    queued_.notify_one();
    return synced_.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                            [&] { return syncDone_ >= ticket; });
}

std::string DemoUnit::CurrentScreen() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return currentName_;
}

void DemoUnit::PumpRun() {
    // Only notices that events wait; the UI thread delivers them.
    for (;;) {
        {
            std::unique_lock<std::mutex> lock(mutex_);
            queued_.wait(lock, [&] { return stopping_ || !enginePending_; });
            if (stopping_)
                return;
        }
        if (tov_.WaitEvents(200)) {
            std::lock_guard<std::mutex> lock(mutex_);
            enginePending_ = true;
            queue_.push_back(Event_t{Event_t::ENGINE});
        }
        queued_.notify_all();
    }
}

void DemoUnit::UiRun() {
    client_.Attach();
    tov_.AddManagedEventHandler(Var::kBrightness, this, Var::kInstance);
    ShowScreen(Screen::kMain);
    for (;;) {
        Event_t event{Event_t::QUIT};
        bool got = false;
        {
            std::unique_lock<std::mutex> lock(mutex_);
            const Clock::time_point wake = std::min(nextDraw_, Clock::now() + kWatchPeriod);
            queued_.wait_until(lock, wake, [&] { return !queue_.empty(); });
            if (!queue_.empty()) {
                event = queue_.front();
                queue_.pop_front();
                got = true;
            }
        }
        if (got && event.kind == Event_t::QUIT)
            break;
        if (got)
            Handle(event);
        Tick();
    }
    if (current_)
        current_->DeInitialize();
    tov_.RemoveManagedEventHandler(Var::kBrightness, this, Var::kInstance);
    client_.Detach();
    // Wake the pump so it sees stopping_.
    queued_.notify_all();
}

void DemoUnit::Handle(const Event_t& event) {
    switch (event.kind) {
        case Event_t::KEY: {
            if (!link_)
                break;  // keys of a panel that is gone
            if (refusalShown_) {
                // A key dismisses the message; the screen is back before it acts.
                refusalShown_ = false;
                current_->DrawScreen();
            }
            const std::string next =
                current_->KeyPress(FP::KeyState_t{FP::Key_e(event.a), FP::KEY_STATE_DOWN});
            if (next != FP::kNoScreen && next != current_->GetName()) {
                if (screens_.count(next))
                    ShowScreen(next);
                else
                    Log().warn("%s() No screen named \"%s\".", __func__, next.c_str());
            }
            if (!refusal_.empty())
                ShowRefusal();
            break;
        }
        case Event_t::ENGINE: {
            std::lock_guard<std::mutex> lock(mutex_);
            enginePending_ = false;
        }
            queued_.notify_all();
            tov_.DeliverEvents();
            break;
        case Event_t::PANEL_INIT:
            // The controller (re)started and lost everything we had set.
            if (link_)
                SetUpPanel();
            break;
        case Event_t::TEMPERATURE:
            Write(Var::kTemperature, std::to_string(event.a));
            break;
        case Event_t::FAN: {
            static const char* const fans[] = {Var::kFan1, Var::kFan2, Var::kFan3};
            if (event.a >= 0 && event.a < 3)
                Write(fans[event.a], std::to_string(event.b));
            break;
        }
        case Event_t::SYNC:
            if (link_ && !link_->RoundTrip(kRoundTripMs))
                Log().warn("%s() The panel did not answer.", __func__);
            {
                std::lock_guard<std::mutex> lock(mutex_);
                syncDone_ = std::max(syncDone_, event.sync);
            }
            synced_.notify_all();
            break;
        case Event_t::QUIT:
            break;
    }
}

void DemoUnit::Tick() {
    const Clock::time_point now = Clock::now();
    if (link_ && link_->PeerGone()) {
        Log().warn("%s() Panel link lost.", __func__);
        Disconnect();
        if (notice_)
            notice_("panel link lost; reconnecting");
        nextRetry_ = now + kRetryPeriod;
    }
    if (!link_ && retry_ && now >= nextRetry_) {
        nextRetry_ = now + kRetryPeriod;
        if (Connect()) {
            ++reconnects_;
            Log().warn("%s() Panel link restored.", __func__);
            if (notice_)
                notice_("panel link restored");
        }
    }
    if (refusalShown_ && now >= refusalUntil_) {
        refusalShown_ = false;
        nextDraw_ = now;
    }
    if (current_ && !refusalShown_ && now >= nextDraw_) {
        if (link_)
            current_->DrawScreen();
        nextDraw_ =
            now + std::chrono::milliseconds(current_->GetPoll() ? current_->GetPollTime() : 1000);
    }
}

bool DemoUnit::Connect() {
    std::unique_ptr<KT::CStreamSocket> socket = connector_ ? connector_() : nullptr;
    if (!socket)
        return false;
    link_.reset(new PanelLink(std::move(socket), width_, height_));
    FP::FpControl& control = link_->Control();
    control.SetInitHandler(KT::CFunctor<void()>(this, &DemoUnit::OnPanelInit));
    link_->Keypad().SetCallback(this);
    link_->Keypad().StartThreads();
    display_.SetTarget(&link_->Display());
    linkUp_ = true;
    // The first connection is set up before the UI thread runs; later ones on it.
    SetUpPanel();
    return true;
}

void DemoUnit::Disconnect() {
    display_.SetTarget(nullptr);
    link_.reset();
    linkUp_ = false;
}

void DemoUnit::SetUpPanel() {
    FP::FpControl& control = link_->Control();
    control.SubscribeToStatusUpdates(
        kReportIntervalTenths, true,
        {FP::FpControl::FAN_1, FP::FpControl::FAN_2, FP::FpControl::FAN_3},
        KT::CFunctor<void(short)>(this, &DemoUnit::OnTemperature),
        KT::CFunctor<void(FP::FpControl::Fan_e, unsigned short)>(this, &DemoUnit::OnFanSpeed));
    const std::string brightness =
        store_.Read(Var::kBrightness, TOV::COid(Var::kInstance)).Val().GetValue();
    control.SetBrightness((unsigned char)std::atoi(brightness.c_str()));
    // The unit is up: say so on the panel's status LED and run its fans.
    control.SetUnitStatus(FP::FpControl::STATUS_OK);
    control.SetLed(FP::FpControl::LED_0, true);
    control.SetTesselFanState(true);
    Write(Var::kSlotId, std::to_string(control.GetTesselSlotId()));
    Write(Var::kSlotVoltage, KT::Str::Format("%.1f", control.GetTesselSlotVoltage()));
    const std::string version = control.GetVersion();
    Write(Var::kPanelVersion, version.empty() ? "-" : version);
    // Whatever the panel showed is gone: send the whole screen again.
    display_.ForceUpdate();
    if (current_)
        current_->DrawScreen();
}

void DemoUnit::ShowRefusal() {
    std::vector<std::string> rows;
    // The top row ends under the panel's symbols, so it only gets the title;
    // the reason is wrapped over the rows below.
    FP::TextAdjustment::SplitString(refusal_, rows, width_ + 1, ' ');
    refusal_.clear();
    display_.ClearDisplay();
    display_.WriteLine("Not saved", 0, FP::CENTER, 0);
    for (unsigned row = 1; row < height_ && row - 1 < rows.size(); ++row)
        display_.WriteLine(rows[row - 1], row, FP::CENTER, 0);
    display_.SendNavSymbols(0);
    display_.SendUpdate();
    refusalShown_ = true;
    refusalUntil_ = Clock::now() + kRefusalShownFor;
}

void DemoUnit::ShowScreen(const std::string& name) {
    if (current_)
        current_->DeInitialize();
    current_ = screens_.at(name).get();
    {
        std::lock_guard<std::mutex> lock(mutex_);
        currentName_ = name;
    }
    current_->Initialize();
    nextDraw_ = Clock::now() + std::chrono::milliseconds(current_->GetPollTime());
}

void DemoUnit::Write(const char* name, const std::string& value) {
    // Straight to the store: this runs before the UI thread has attached too.
    const TOV::CRet ret = store_.Write(FP::FPUSER, name, TOV::COid(Var::kInstance), value);
    if (!ret.Success())
        Log().warn("%s() %s refused \"%s\": %s", __func__, name, value.c_str(), ret.Msg().c_str());
}

void DemoUnit::HandleEvent(const std::string& name, const TOV::COid&, const std::string&,
                           const std::string& value, const TOV::CParam&) {
    if (name == Var::kBrightness && link_)
        link_->Control().SetBrightness((unsigned char)std::atoi(value.c_str()));
}

}  // namespace FPDEMO
