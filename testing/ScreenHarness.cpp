#include "testing/ScreenHarness.h"

#include "sim/PanelPicture.h"

#include <cctype>
#include <iostream>

#include "fp/screens/BaseScreen.h"

namespace FP::Testing {
namespace {

const char kUser[] = "test";

bool SameName(const std::string& a, const char* b, bool anyCase) {
    size_t i = 0;
    for (; i < a.size() && b[i]; ++i)
        if (anyCase ? std::toupper(static_cast<unsigned char>(a[i])) !=
                          std::toupper(static_cast<unsigned char>(b[i]))
                    : a[i] != b[i])
            return false;
    return i == a.size() && !b[i];
}

}  // namespace

ScreenHarness::ScreenHarness(const Options& options)
    : options_(options), epoch_(FP::Unit::Clock::now()) {
    if (options_.declare && !options_.declare(store_, declareError_) && declareError_.empty())
        declareError_ = "a declaration was refused";
    FP::Unit::Options unit;
    unit.width = options_.width;
    unit.height = options_.height;
    unit.firstScreen = options_.firstScreen;
    unit.refusalShownMs = options_.refusalShownMs;
    // The link is a socket pair nobody else touches: no need to probe it,
    // and a restored link should be taken at once.
    unit.livenessPeriodMs = 0;
    unit.retryMinMs = 1;
    unit.retryMaxMs = 10;
    unit.now = [this] { return Now(); };
    unit.connector = [this](std::string& reason) {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!unitEnd_)
            reason = "the test dropped the link";
        return std::move(unitEnd_);
    };
    unit_.reset(new FP::Unit(store_, unit));
    unit_->SetLinkListener([this](const FP::Unit::LinkEvent_t& event) {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            ++(event.up ? linkEvents_ : linkDowns_);
        }
        linkChanged_.notify_all();
    });
    MakePanel();
}

ScreenHarness::ScreenHarness() : ScreenHarness(Options()) {}

ScreenHarness::~ScreenHarness() {
    unit_.reset();
    if (sim_)
        sim_->Stop();
}

FP::Unit::Clock::time_point ScreenHarness::Now() const {
    return epoch_ + std::chrono::milliseconds(offsetMs_.load());
}

void ScreenHarness::MakePanel() {
    if (sim_)
        sim_->Stop();
    std::unique_ptr<KT::CStreamSocket> unitEnd(new KT::CStreamSocket);
    std::unique_ptr<KT::CStreamSocket> panelEnd(new KT::CStreamSocket);
    KT::CStreamSocket::CreatePair(*unitEnd, *panelEnd);
    FPSIM::PanelConfig_t config;
    config.width = options_.width;
    config.height = options_.height;
    sim_.reset(new FPSIM::PanelSim(*panelEnd, config));
    panelEnd_ = std::move(panelEnd);  // after the old emulator stopped reading it
    sim_->Start();
    std::lock_guard<std::mutex> lock(mutex_);
    unitEnd_ = std::move(unitEnd);
}

void ScreenHarness::AddScreen(std::unique_ptr<BaseScreen> screen) {
    unit_->AddScreen(std::move(screen));
}

bool ScreenHarness::Fail(const std::string& what) {
    const std::string message = what + "\nThe panel shows:" + Panel().Picture();
    if (failureSink_)
        failureSink_(message);
    else
        std::cerr << message;
    return false;
}

bool ScreenHarness::Start() {
    if (!declareError_.empty())
        return Fail("The variables could not be declared: " + declareError_);
    if (started_)
        return Fail("Start() was called twice");
    if (!unit_->Start())
        return Fail("The unit did not start (no screen added?)");
    started_ = true;
    return WaitLinkEvents(1) && Idle();
}

bool ScreenHarness::WaitLinkEvents(unsigned count, bool up) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!linkChanged_.wait_for(lock, std::chrono::milliseconds(options_.timeoutMs),
                               [&] { return (up ? linkEvents_ : linkDowns_) >= count; })) {
        lock.unlock();
        return Fail(up ? "The unit did not set up the panel in time"
                       : "The unit did not notice that the link went down");
    }
    return true;
}

bool ScreenHarness::Idle() {
    if (!started_)
        return Fail("The harness was not started");
    if (!unit_->WaitKeysReported(keysSent_, options_.timeoutMs))
        return Fail("The unit did not receive every key sent (" +
                    std::to_string(unit_->KeysReported()) + " of " + std::to_string(keysSent_) +
                    ")");
    if (!unit_->WaitIdle(options_.timeoutMs))
        return Fail("The unit did not become idle in time");
    return true;
}

bool ScreenHarness::SendKey(bool down, bool up, Key_e key) {
    if (!started_)
        return Fail("The harness was not started");
    const std::string name = KeyName(key);
    if (down && !sim_->KeyDown(static_cast<uint8_t>(key)))
        return Fail("The panel could not send " + name);
    // Only a key-down is reported to the unit (a held key may repeat later).
    if (down)
        ++keysSent_;
    if (up && !sim_->KeyUp(static_cast<uint8_t>(key)))
        return Fail("The panel could not release " + name);
    return Idle();
}

bool ScreenHarness::Press(Key_e key) {
    return SendKey(true, true, key);
}

bool ScreenHarness::Press(const std::string& name) {
    // Single letters are case-sensitive keys of their own; longer names are not.
    for (int key = KEY_LEFT; key <= KEY_LAST; ++key)
        if (SameName(name, KeyName(key), name.size() > 1))
            return Press(Key_e(key));
    if (name.size() == 1 && name[0] >= '0' && name[0] <= '9')
        return Press(Key_e(KEY_0 + (name[0] - '0')));
    return Fail("No key is called \"" + name + "\"");
}

bool ScreenHarness::Press(std::initializer_list<const char*> names) {
    for (const char* name : names)
        if (!Press(std::string(name)))
            return false;
    return true;
}

bool ScreenHarness::Hold(Key_e key) {
    return SendKey(true, false, key);
}

bool ScreenHarness::Release(Key_e key) {
    return SendKey(false, true, key);
}

bool ScreenHarness::Advance(unsigned ms) {
    offsetMs_ += ms;
    sim_->Advance(ms);
    // Timers are looked at whenever the UI thread wakes; an empty call wakes it.
    unit_->Post([] {});
    return Idle();
}

PanelView ScreenHarness::Panel() const {
    return PanelView(sim_->Snapshot());
}

bool ScreenHarness::SavePicture(const std::string& path, std::string& error) const {
    return FPSIM::PanelPicture::Save(path, sim_->Snapshot(), error);
}

std::string ScreenHarness::CurrentScreen() const {
    return unit_->CurrentScreen();
}

std::string ScreenHarness::Get(const std::string& name, const std::string& instance) const {
    return store_.Read(name, TOV::COid(instance)).Val().GetValue();
}

bool ScreenHarness::Set(const std::string& name, const std::string& value,
                        const std::string& instance) {
    const TOV::CRet ret = store_.Write(kUser, name, TOV::COid(instance), value);
    if (!ret.Success())
        return Fail("The engine refused " + name + "=" + value + ": " + ret.Msg());
    return Idle();
}

void ScreenHarness::RefuseNextWrite(const std::string& reason) {
    store_.RefuseNextWrite(reason);
}

bool ScreenHarness::DropLink() {
    unsigned seen = 0;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        unitEnd_.reset();  // a link never handed out is simply not there
        seen = linkDowns_;
    }
    sim_->Stop();
    panelEnd_->Close();
    return WaitLinkEvents(seen + 1, false) && Idle();
}

bool ScreenHarness::RestoreLink() {
    unsigned seen = 0;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        seen = linkEvents_;
    }
    MakePanel();
    return WaitLinkEvents(seen + 1) && Idle();
}

bool ScreenHarness::RestartController() {
    unsigned seen = 0;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        seen = linkEvents_;
    }
    sim_->Stop();
    FPSIM::PanelConfig_t config;
    config.width = options_.width;
    config.height = options_.height;
    sim_.reset(new FPSIM::PanelSim(*panelEnd_, config));
    if (!sim_->Start())
        return Fail("The panel could not announce its restart");
    return WaitLinkEvents(seen + 1) && Idle();
}

}  // namespace FP::Testing
