#include "unit/Unit.h"

#include <pthread.h>
#include <log4cpp/Category.hh>

#include <algorithm>

#include "fp/core/Names.h"
#include "fp/display/TextAdjustment.h"
#include "fp/screens/BaseScreen.h"
#include "kt/LinkAddress.h"
#include "unit/LogGuard.h"
#include "unit/internal/PanelConnection.h"
#include "unit/internal/RelayDisplay.h"

namespace FP {

namespace {

// The display-type query is the cheapest request every controller answers.
const unsigned kFirstAnswerMs = 1000;
const unsigned kSyncRoundTripMs = 2000;
const int kSyncEventRounds = 16;
// Long enough to cost nothing when idle; Stop() wakes the wait anyway.
const unsigned kEngineWaitMs = 60000;

log4cpp::Category& Log() {
    return log4cpp::Category::getInstance("fp.unit");
}

void Name(const char* name) {
    pthread_setname_np(pthread_self(), name);
}

}  // namespace

Unit::Unit(TOV::CDataStore& store, const Options& options)
    : tov_(store, TOV::CTovClient::DELIVER_QUEUED),
      client_(&tov_),
      options_(options),
      display_(new RelayDisplay(options.width, options.height)) {
    if (options_.logBurst) {
        LogGuard::Options guard;
        guard.burst = options_.logBurst;
        guard.windowMs = options_.logWindowMs;
        guard.now = options_.now;
        logGuard_.reset(new LogGuard("fpcontrol", guard));
    }
    client_.SetRefusalListener([this](const FpClient::Refusal_t& refusal) {
        // The engine's reason ends its message ("...: out of range 1 to 8").
        const std::string::size_type colon = refusal.message.rfind(": ");
        refusal_ = colon == std::string::npos ? refusal.message : refusal.message.substr(colon + 2);
    });
}

Unit::~Unit() {
    Stop();
}

void Unit::AddScreen(std::unique_ptr<BaseScreen> screen) {
    screen->SetClient(&client_);
    screen->SetDisplay(display_.get());
    const std::string name = screen->GetName();
    if (firstScreen_.empty())
        firstScreen_ = name;
    screens_[name] = std::move(screen);
}

Unit::Clock::time_point Unit::Now() const {
    return options_.now ? options_.now() : Clock::now();
}

bool Unit::Start() {
    if (started_)
        return true;
    std::string reason;
    if (!options_.connector) {
        const KT::CLinkAddress parsed(options_.address);
        if (!parsed.IsValid())
            reason = "malformed address '" + options_.address + "': " + parsed.GetError();
    }
    if (screens_.empty())
        reason = "no screens";
    if (!reason.empty()) {
        Log().error("%s() Not started: %s", __func__, reason.c_str());
        if (linkListener_)
            linkListener_(LinkEvent_t{false, reason});
        return false;
    }
    started_ = true;
    lastKey_ = Now();
    linkThread_ = std::thread(&Unit::LinkRun, this);
    if (options_.uiThread) {
        ui_ = std::thread(&Unit::UiRun, this);
        pump_ = std::thread(&Unit::PumpRun, this);
    } else {
        client_.Attach();
        Switch(options_.firstScreen.empty() ? firstScreen_ : options_.firstScreen);
    }
    return true;
}

void Unit::Stop() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (stopping_ || !started_)
            return;
        stopping_ = true;
    }
    changed_.notify_all();
    linkWake_.notify_all();
    if (ui_.joinable()) {
        Enqueue(Event_t{Event_t::QUIT});
        ui_.join();
    } else {
        Finish();
    }
    if (pump_.joinable()) {
        // A wake that comes just before the pump starts waiting is lost; repeat it.
        std::unique_lock<std::mutex> lock(mutex_);
        while (!pumpDone_) {
            lock.unlock();
            tov_.WakeEventWaiters();
            lock.lock();
            changed_.wait_for(lock, std::chrono::milliseconds(10), [&] { return pumpDone_; });
        }
    }
    if (pump_.joinable())
        pump_.join();
    if (linkThread_.joinable())
        linkThread_.join();
    // Links still queued for the UI thread go now, not with the members.
    std::lock_guard<std::mutex> lock(mutex_);
    queue_.clear();
}

void Unit::Enqueue(Event_t event) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        // A key is counted only once it is queued, so a waiter that saw the
        // count and then posts a sync is sure to queue it behind the key.
        if (event.kind == Event_t::KEY)
            ++keysReported_;
        queue_.push_back(std::move(event));
    }
    changed_.notify_all();
}

void Unit::Post(std::function<void()> call) {
    Event_t e{Event_t::CALL};
    e.call = std::move(call);
    Enqueue(std::move(e));
}

void Unit::ShowScreen(const std::string& name) {
    Event_t e{Event_t::SHOW};
    e.text = name;
    Enqueue(std::move(e));
}

void Unit::OnKeyPress(Key_e key) {
    heard_ = true;
    // Tagged with its link, so keys of a panel that has gone are not played
    // on the next one.
    Enqueue(Event_t{Event_t::KEY, int(key), keypadLink_.load()});
}

void Unit::PressKey(Key_e key) {
    Enqueue(Event_t{Event_t::KEY, int(key), -1});
}

void Unit::OnTemperature(short value) {
    heard_ = true;
    Enqueue(Event_t{Event_t::TEMPERATURE, value});
}

void Unit::OnFanSpeed(FpControl::Fan_e fan, unsigned short speed) {
    heard_ = true;
    Enqueue(Event_t{Event_t::FAN, int(fan), int(speed)});
}

void Unit::OnRestart() {
    heard_ = true;
    Enqueue(Event_t{Event_t::RESTART});
}

void Unit::SetLed(FpControl::Led_e led, bool on) {
    Post([this, led, on] {
        panel_.leds[led] = on;
        if (link_)
            (void)link_->Stack().Control().SetLed(led,
                                                  on);  // a failed write shows up as a dead link
    });
}

void Unit::SetUnitStatus(FpControl::UnitStatus_e status) {
    Post([this, status] {
        panel_.statusSet = true;
        panel_.status = status;
        if (link_)
            (void)link_->Stack().Control().SetUnitStatus(status);
    });
}

void Unit::SetBrightness(unsigned char level) {
    Post([this, level] {
        panel_.brightnessSet = true;
        panel_.brightness = level;
        if (link_ && !idle_)
            (void)link_->Stack().Control().SetBrightness(level);
    });
}

void Unit::SetFans(bool on) {
    Post([this, on] {
        panel_.fansSet = true;
        panel_.fans = on;
        if (link_)
            (void)link_->Stack().Control().SetTesselFanState(on);
    });
}

void Unit::Subscribe(unsigned char intervalTenths, bool temperature,
                     const std::vector<FpControl::Fan_e>& fans, TemperatureListener onTemperature,
                     FanListener onFan) {
    Post([=] {
        onTemperature_ = onTemperature;
        onFan_ = onFan;
        panel_.interval = intervalTenths;
        panel_.temperature = temperature;
        panel_.fanReports = fans;
        if (link_)
            Restore();
    });
}

// ---- UI thread -------------------------------------------------------------

void Unit::UiRun() {
    Name("FP-UnitUi");
    client_.Attach();
    Switch(options_.firstScreen.empty() ? firstScreen_ : options_.firstScreen);
    for (;;) {
        Event_t event{Event_t::QUIT};
        const bool got = Next(event, true);
        if (got && event.kind == Event_t::QUIT)
            break;
        if (got)
            Handle(event);
        Timers();
    }
    Finish();
}

void Unit::Finish() {
    if (current_)
        current_->DeInitialize();
    current_ = nullptr;
    Release();
    if (options_.uiThread || started_)
        client_.Detach();
}

size_t Unit::RunPending() {
    if (options_.uiThread || !started_)
        return 0;
    size_t handled = tov_.DeliverEvents();
    Event_t event{Event_t::QUIT};
    while (Next(event, false)) {
        Handle(event);
        handled += 1 + tov_.DeliverEvents();
    }
    Timers();
    return handled;
}

bool Unit::Next(Event_t& event, bool wait) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (wait && queue_.empty()) {
        const Clock::time_point due = NextDue();
        if (due == Clock::time_point::max()) {
            changed_.wait(lock, [&] { return !queue_.empty(); });
        } else {
            const auto left = due - Now();
            if (left > Clock::duration::zero())
                changed_.wait_for(lock, left, [&] { return !queue_.empty(); });
        }
    }
    if (queue_.empty())
        return false;
    event = std::move(queue_.front());
    queue_.pop_front();
    return true;
}

Unit::Clock::time_point Unit::NextDue() const {
    Clock::time_point due = Clock::time_point::max();
    if (refusalShown_)
        due = std::min(due, refusalUntil_);
    else if (current_ && current_->GetPoll() && link_)
        due = std::min(due, nextDraw_);
    if (options_.idleTimeoutMs && !idle_)
        due = std::min(due, lastKey_ + std::chrono::milliseconds(options_.idleTimeoutMs));
    return due;
}

long Unit::NextDueMs() const {
    const Clock::time_point due = NextDue();
    if (due == Clock::time_point::max())
        return -1;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(due - Now()).count();
    return std::max<long>(0, static_cast<long>(left));
}

void Unit::Handle(Event_t& event) {
    switch (event.kind) {
        case Event_t::KEY:
            HandleKey(Key_e(event.a), event.b);
            break;
        case Event_t::ENGINE: {
            std::lock_guard<std::mutex> lock(mutex_);
            enginePending_ = false;
        }
            changed_.notify_all();
            tov_.DeliverEvents();
            break;
        case Event_t::LINK_UP:
            linkNumber_ = event.a;
            Install(event.link);
            break;
        case Event_t::LINK_DOWN:
            if (event.link) {
                if (event.link == link_)
                    Release();
                event.link.reset();
                std::lock_guard<std::mutex> lock(mutex_);
                ++released_;
            }
            linkWake_.notify_all();
            if (linkListener_)
                linkListener_(LinkEvent_t{false, event.text});
            break;
        case Event_t::RESTART:
            // The controller came back with nothing of what we had set.
            if (link_) {
                Restore();
                if (linkListener_)
                    linkListener_(LinkEvent_t{true, "the panel restarted"});
            }
            break;
        case Event_t::TEMPERATURE:
            if (onTemperature_)
                onTemperature_(short(event.a));
            break;
        case Event_t::FAN:
            if (onFan_)
                onFan_(FpControl::Fan_e(event.a), static_cast<unsigned short>(event.b));
            break;
        case Event_t::CALL:
            event.call();
            if (!refusal_.empty())
                ShowRefusal();
            break;
        case Event_t::SHOW:
            Switch(event.text);
            break;
        case Event_t::SYNC:
            // Engine events raised by what was handled before count as
            // posted before, so a waiter sees their redraws too. A bounded
            // number of rounds keeps a screen that writes on every event
            // from holding the waiter forever.
            for (int round = 0; round < kSyncEventRounds && tov_.DeliverEvents(); ++round) {
            }
            if (link_ && !link_->Stack().RoundTrip(kSyncRoundTripMs))
                Log().warn("%s() The panel did not answer.", __func__);
            {
                std::lock_guard<std::mutex> lock(mutex_);
                syncDone_ = std::max<unsigned long>(syncDone_, static_cast<unsigned long>(event.a));
            }
            changed_.notify_all();
            break;
        case Event_t::QUIT:
            break;
    }
}

void Unit::HandleKey(Key_e key, int link) {
    if (link != -1 && link != linkNumber_)
        return;  // a key of a panel that is gone
    lastKey_ = Now();
    if (idle_) {
        // The waking key only brings the panel back; acting on it would
        // change something the user could not see.
        idle_ = false;
        if (link_)
            (void)link_->Stack().Control().SetBrightness(panel_.brightness);
        Draw();
        return;
    }
    if (!current_)
        return;
    if (refusalShown_) {
        // A key dismisses the message; the screen is back before the key acts.
        refusalShown_ = false;
        Draw();
    }
    const std::string next = current_->KeyPress(KeyState_t{key, KEY_STATE_DOWN});
    if (next != kNoScreen && next != current_->GetName())
        Switch(next);
    if (!refusal_.empty())
        ShowRefusal();
}

void Unit::Timers() {
    const Clock::time_point now = Now();
    if (refusalShown_ && now >= refusalUntil_) {
        refusalShown_ = false;
        Draw();
    }
    if (options_.idleTimeoutMs && !idle_ &&
        now >= lastKey_ + std::chrono::milliseconds(options_.idleTimeoutMs)) {
        idle_ = true;
        refusalShown_ = false;
        if (!options_.homeScreen.empty() && current_ && current_->GetName() != options_.homeScreen)
            Switch(options_.homeScreen);
        if (link_)
            (void)link_->Stack().Control().SetBrightness(options_.idleBrightness);
    }
    if (current_ && current_->GetPoll() && !refusalShown_ && now >= nextDraw_)
        Draw();
}

void Unit::Draw() {
    if (!current_)
        return;
    if (link_)
        current_->DrawScreen();
    nextDraw_ = Now() + std::chrono::milliseconds(std::max(1, current_->GetPollTime()));
}

void Unit::Switch(const std::string& name) {
    auto it = screens_.find(name);
    if (it == screens_.end()) {
        Log().warn("%s() No screen named \"%s\".", __func__, name.c_str());
        return;
    }
    if (current_)
        current_->DeInitialize();
    current_ = it->second.get();
    {
        std::lock_guard<std::mutex> lock(mutex_);
        currentName_ = name;
    }
    refusalShown_ = false;
    current_->Initialize();
    nextDraw_ = Now() + std::chrono::milliseconds(std::max(1, current_->GetPollTime()));
}

std::string Unit::CurrentScreen() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return currentName_;
}

void Unit::Install(const std::shared_ptr<PanelConnection>& link) {
    link_ = link;
    display_->SetTarget(&link_->Stack().Display());
    Restore();
    if (linkListener_)
        linkListener_(LinkEvent_t{true, std::string()});
}

void Unit::Release() {
    linkNumber_ = 0;
    display_->SetTarget(nullptr);
    link_.reset();
}

void Unit::Restore() {
    FpControl& control = link_->Stack().Control();
    if (panel_.interval)
        control.SubscribeToStatusUpdates(
            panel_.interval, panel_.temperature, panel_.fanReports,
            KT::CFunctor<void(short)>(this, &Unit::OnTemperature),
            KT::CFunctor<void(FpControl::Fan_e, unsigned short)>(this, &Unit::OnFanSpeed));
    if (panel_.brightnessSet || idle_)
        (void)control.SetBrightness(idle_ ? options_.idleBrightness : panel_.brightness);
    if (panel_.statusSet)
        (void)control.SetUnitStatus(panel_.status);
    for (const auto& led : panel_.leds)
        (void)control.SetLed(FpControl::Led_e(led.first), led.second);
    if (panel_.fansSet)
        (void)control.SetTesselFanState(panel_.fans);
    if (panelHook_)
        panelHook_(control);
    // Whatever the panel showed is gone: blank it and send the whole screen.
    (void)control.ClearDisplay();
    link_->Stack().Display().ResendAll();  // in SEND_CHANGES it must forget what the panel showed
    display_->ForceUpdate();
    if (refusalShown_)
        refusalShown_ = false;
    Draw();
}

void Unit::ShowRefusal() {
    std::vector<std::string> rows;
    // The top row ends under the panel's symbols, so it only gets the title;
    // the reason is wrapped over the rows below.
    TextAdjustment::SplitString(refusal_, rows, options_.width + 1, ' ');
    refusal_.clear();
    display_->ClearDisplay();
    display_->WriteLine("Not saved", 0, CENTER, 0);
    for (unsigned row = 1; row < options_.height && row - 1 < rows.size(); ++row)
        display_->WriteLine(rows[row - 1], row, CENTER, 0);
    display_->SendNavSymbols(0);
    display_->SendUpdate();
    refusalShown_ = true;
    refusalUntil_ = Now() + std::chrono::milliseconds(options_.refusalShownMs);
}

bool Unit::WaitIdle(unsigned timeoutMs) {
    if (!options_.uiThread)
        return RunPending(), true;
    std::unique_lock<std::mutex> lock(mutex_);
    const unsigned long ticket = ++syncPosted_;
    Event_t e{Event_t::SYNC, static_cast<int>(ticket)};
    queue_.push_back(std::move(e));
    changed_.notify_all();
    return changed_.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                             [&] { return syncDone_ >= ticket; });
}

bool Unit::WaitKeysReported(unsigned count, unsigned timeoutMs) {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                             [&] { return keysReported_.load() >= count; });
}

bool Unit::WaitLinkUp(unsigned timeoutMs) {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                             [&] { return linkUp_.load(); });
}

unsigned long Unit::LogLinesSuppressed() const {
    return logGuard_ ? logGuard_->Suppressed() : 0;
}

// ---- engine pump -----------------------------------------------------------

void Unit::PumpRun() {
    Name("FP-UnitEngine");
    // Only notices that events wait; the UI thread delivers them.
    for (;;) {
        {
            std::unique_lock<std::mutex> lock(mutex_);
            changed_.wait(lock, [&] { return stopping_ || !enginePending_; });
            if (stopping_)
                break;
        }
        if (tov_.WaitEvents(kEngineWaitMs)) {
            std::lock_guard<std::mutex> lock(mutex_);
            if (!stopping_) {
                enginePending_ = true;
                queue_.push_back(Event_t{Event_t::ENGINE});
            }
        }
        changed_.notify_all();
    }
    std::lock_guard<std::mutex> lock(mutex_);
    pumpDone_ = true;
    changed_.notify_all();
}

// ---- link thread -----------------------------------------------------------

bool Unit::Pause(unsigned ms) {
    std::unique_lock<std::mutex> lock(mutex_);
    return !linkWake_.wait_for(lock, std::chrono::milliseconds(ms), [&] { return stopping_; });
}

bool Unit::Report(bool up, const std::string& reason) {
    // The same failure again and again is one line, not one per attempt.
    const std::string what = up ? std::string() : reason;
    if (what == lastReported_)
        return false;
    lastReported_ = what;
    if (up)
        Log().notice("%s() Panel link up.", __func__);
    else
        Log().warn("%s() Panel link down: %s", __func__, reason.c_str());
    return true;
}

std::shared_ptr<PanelConnection> Unit::Connect(std::string& reason, bool& permanent) {
    std::unique_ptr<KT::CStreamSocket> socket;
    permanent = false;
    if (options_.connector) {
        socket = options_.connector(reason);
    } else {
        PanelConnection::Failure_e failure = PanelConnection::FAIL_NONE;
        socket = PanelConnection::Open(options_.address, failure, reason);
        permanent =
            failure == PanelConnection::FAIL_MALFORMED || failure == PanelConnection::FAIL_BAUD;
    }
    if (!socket) {
        if (reason.empty())
            reason = "cannot open the link";
        return nullptr;
    }
    PanelStack::Options stackOptions;
    stackOptions.sendChangesOnly =
        options_.sendChangesOnSerial && !options_.connector &&
        KT::CLinkAddress(options_.address).GetScheme() == KT::CLinkAddress::SCHEME_SERIAL;
    std::shared_ptr<PanelConnection> link(
        new PanelConnection(std::move(socket), options_.width, options_.height, stackOptions));
    PanelStack& stack = link->Stack();
    stack.Control().SetInitHandler(KT::CFunctor<void()>(this, &Unit::OnRestart));
    keypadLink_ = ++links_;
    stack.Keypad().SetCallback(this);
    stack.Keypad().StartThreads();
    // An open device is not yet a panel: a silent one counts as down.
    if (!stack.RoundTrip(kFirstAnswerMs)) {
        reason = "no answer from the panel at " + options_.address;
        return nullptr;
    }
    return link;
}

std::string Unit::Watch(PanelConnection& link) {
    unsigned misses = 0;
    const unsigned period = options_.livenessPeriodMs ? options_.livenessPeriodMs : 1000;
    // An answer slower than half the period counts as missing, so a pulled
    // cable is noticed in about period x (1 + misses / 2).
    const unsigned answerMs = std::max(1u, period / 2);
    for (;;) {
        if (!misses && !Pause(period))
            return std::string();
        if (logGuard_)
            logGuard_->Flush();
        const std::string gone = link.Gone();
        if (!gone.empty())
            return gone;
        if (!options_.livenessPeriodMs)
            continue;
        if (heard_.exchange(false)) {
            misses = 0;
            continue;
        }
        if (link.Stack().RoundTrip(answerMs)) {
            misses = 0;
            continue;
        }
        if (++misses >= std::max(1u, options_.livenessMisses))
            return "no answer to " + std::to_string(misses) + " liveness requests";
        {
            std::lock_guard<std::mutex> lock(mutex_);
            if (stopping_)
                return std::string();
        }
    }
}

void Unit::LinkRun() {
    Name("FP-UnitLink");
    unsigned delay = options_.retryMinMs;
    bool first = true;
    for (;;) {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            if (stopping_)
                return;
        }
        std::string reason;
        bool permanent = false;
        std::shared_ptr<PanelConnection> link = Connect(reason, permanent);
        if (!link) {
            if (Report(false, reason)) {
                Event_t down{Event_t::LINK_DOWN};
                down.text = reason;
                Enqueue(std::move(down));
            }
            if (permanent)
                return;  // stays down: the address cannot start working by itself
            if (!Pause(delay))
                return;
            delay = std::min(options_.retryMaxMs, std::max(1u, delay * 2));
            continue;
        }
        delay = options_.retryMinMs;
        if (!first)
            ++reconnects_;
        first = false;
        heard_ = false;
        Report(true, std::string());
        {
            std::lock_guard<std::mutex> lock(mutex_);
            linkUp_ = true;
        }
        Event_t up{Event_t::LINK_UP, keypadLink_.load()};
        up.link = link;
        Enqueue(std::move(up));

        const std::string why = Watch(*link);
        {
            std::lock_guard<std::mutex> lock(mutex_);
            linkUp_ = false;
        }
        if (why.empty())
            break;  // stopping
        Report(false, why);
        // The UI thread lets go of the link before it is torn down here.
        unsigned long ticket;
        {
            std::lock_guard<std::mutex> lock(mutex_);
            ticket = released_;
        }
        Event_t down{Event_t::LINK_DOWN};
        down.link = link;
        down.text = why;
        // Ahead of whatever waits: the keys behind it are of the dead link anyway.
        std::unique_lock<std::mutex> lock(mutex_);
        queue_.push_front(std::move(down));
        changed_.notify_all();
        linkWake_.wait(lock, [&] { return stopping_ || released_ > ticket; });
    }
}

}  // namespace FP
