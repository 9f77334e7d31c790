#include "tools/panel/PanelServer.h"

#include <algorithm>

#include "tools/panel/internal/ToolSupport.h"

namespace FPPANEL {

namespace {

const int kAcceptPollMs = 100;
const unsigned kLinkPollMs = 20;

}  // namespace

PanelServer::PanelServer(const PanelOptions_t& options)
    : options_(options), temperature_(options.temperature) {
    fanSpeed_.fill(options.fanSpeed);
}

PanelServer::~PanelServer() {
    Stop();
}

bool PanelServer::Start(std::string& error) {
    if (acceptor_)
        return Fail(error, "already started");
    if (!listener_.Listen(options_.listen))
        return Fail(error, "cannot listen on " + options_.listen);
    acceptor_.reset(
        new KT::CThread("fp-panel-accept", 0, KT::CFunctor<bool()>(this, &PanelServer::AcceptRun)));
    if (!acceptor_->Run())
        return Fail(error, "cannot start the accept thread");
    Log("listening on " + options_.listen);
    return true;
}

void PanelServer::Stop() {
    if (acceptor_)
        acceptor_->Cancel();
    std::unique_ptr<FPSIM::PanelSim> sim;
    std::unique_ptr<FPSIM::SerialTap> tap;
    std::unique_ptr<KT::CStreamSocket> socket;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        sim = std::move(sim_);
        tap = std::move(tap_);
        socket = std::move(socket_);
        connected_ = false;
    }
    sim.reset();  // stops its threads before the socket goes
    tap.reset();
    listener_.Close();
}

bool PanelServer::AcceptRun() {
    std::unique_ptr<KT::CStreamSocket> socket(new KT::CStreamSocket());
    if (!listener_.Accept(*socket, kAcceptPollMs))
        return !KT::CThread::Current()->IsCancelRequested();

    FPSIM::PanelConfig_t config;
    config.width = options_.width;
    config.height = options_.height;
    config.slotId = options_.slotId;
    config.voltage = options_.voltage;
    config.displayType = options_.displayType;
    config.version = options_.version;
    config.clock = FPSIM::TIME_REAL;
    std::unique_ptr<FPSIM::SerialTap> tap;
    if (options_.baud > 0)
        tap.reset(new FPSIM::SerialTap(*socket, options_.baud));
    if (tap && !tap->IsOpen())
        Log("cannot start the emulated serial line");
    std::unique_ptr<FPSIM::PanelSim> sim(new FPSIM::PanelSim(tap ? tap->Near() : *socket, config));
    sim->AddObserver(FPSIM::PanelSim::Observer(this, &PanelServer::OnSimChange));
    sim->SetLogSink(FPSIM::PanelSim::LogSink(this, &PanelServer::OnSimLog));
    linkDown_ = false;

    std::unique_ptr<FPSIM::PanelSim> oldSim;
    std::unique_ptr<FPSIM::SerialTap> oldTap;
    std::unique_ptr<KT::CStreamSocket> oldSocket;
    FPSIM::PanelSim* current = sim.get();
    {
        std::lock_guard<std::mutex> lock(mutex_);
        sim->SetTemperature(temperature_);
        for (unsigned fan = 0; fan < fanSpeed_.size(); ++fan)
            sim->SetFanSpeed(fan, fanSpeed_[fan]);
        oldSim = std::move(sim_);
        oldTap = std::move(tap_);
        oldSocket = std::move(socket_);
        sim_ = std::move(sim);
        tap_ = std::move(tap);
        socket_ = std::move(socket);
        connected_ = true;
        ++connections_;
    }
    oldSim.reset();
    oldTap.reset();
    oldSocket.reset();
    ++changes_;

    // Start sends the start-up message, so a unit that restarts learns that
    // the panel is there.
    if (!current->Start())
        Log("cannot send the start-up message");
    else
        Log("unit connected");
    while (!linkDown_) {
        if (!KT::CThread::Sleep(kLinkPollMs))
            return false;  // cancelled; Stop() tears the connection down
    }
    current->Stop();
    {
        std::lock_guard<std::mutex> lock(mutex_);
        connected_ = false;
    }
    ++changes_;
    Log("unit disconnected; waiting for the next connection");
    return true;
}

void PanelServer::OnSimChange(unsigned changes) {
    if (changes & FPSIM::PanelSim::CHANGE_LINK)
        linkDown_ = true;
    ++changes_;
}

void PanelServer::OnSimLog(const std::string& line) {
    Log(line);
}

void PanelServer::Log(const std::string& line) {
    log_(line);
}

FPSIM::PanelState_t PanelServer::Snapshot() const {
    std::lock_guard<std::mutex> lock(mutex_);
    if (sim_)
        return sim_->Snapshot();
    FPSIM::PanelState_t state;
    state.grid = FPSIM::PanelGrid(options_.width, options_.height);
    state.temperature = temperature_;
    state.fanSpeed = fanSpeed_;
    return state;
}

PanelInfo_t PanelServer::Info() const {
    PanelInfo_t info;
    info.address = listener_.GetAddress();
    if (info.address.empty())
        info.address = options_.listen;
    info.slotId = options_.slotId;
    info.voltage = options_.voltage;
    info.displayType = options_.displayType;
    info.version = options_.version;
    std::lock_guard<std::mutex> lock(mutex_);
    info.connected = connected_;
    info.connections = connections_;
    return info;
}

bool PanelServer::KeyDown(int key) {
    std::lock_guard<std::mutex> lock(mutex_);
    return connected_ && sim_->KeyDown(uint8_t(key));
}

bool PanelServer::KeyUp(int key) {
    std::lock_guard<std::mutex> lock(mutex_);
    return connected_ && sim_->KeyUp(uint8_t(key));
}

bool PanelServer::Press(int key) {
    std::lock_guard<std::mutex> lock(mutex_);
    return connected_ && sim_->Press(uint8_t(key));
}

bool PanelServer::Hold(int key, unsigned ms) {
    std::lock_guard<std::mutex> lock(mutex_);
    return connected_ && sim_->Hold(uint8_t(key), ms);
}

void PanelServer::SetTemperature(int16_t temperature) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        temperature_ = temperature;
        if (sim_)
            sim_->SetTemperature(temperature);
    }
    ++changes_;
}

void PanelServer::AdjustTemperature(int delta) {
    int16_t t;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        t = int16_t(std::min(32767, std::max(-32768, temperature_ + delta)));
    }
    SetTemperature(t);
}

void PanelServer::SetFanSpeed(unsigned fan, uint16_t speed) {
    if (fan >= fanSpeed_.size())
        return;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        fanSpeed_[fan] = speed;
        if (sim_)
            sim_->SetFanSpeed(fan, speed);
    }
    ++changes_;
}

void PanelServer::AdjustFanSpeeds(int delta) {
    std::array<uint16_t, 3> speeds;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        speeds = fanSpeed_;
    }
    for (unsigned fan = 0; fan < speeds.size(); ++fan)
        SetFanSpeed(fan, uint16_t(std::min(65535, std::max(0, speeds[fan] + delta))));
}

}  // namespace FPPANEL
