#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "kt/Functor.h"
#include "kt/ListenSocket.h"
#include "kt/StreamSocket.h"
#include "kt/Thread.h"
#include "sim/PanelSim.h"
#include "sim/SerialTap.h"
#include "tools/panel/PanelOptions.h"
#include "tools/panel/PanelText.h"
#include "tools/panel/PanelView.h"

namespace FPPANEL {

// Listens for the unit and serves one connection at a time with a fresh
// emulator; when the unit goes away it waits for the next connection. The
// simulated readings outlive connections. All public methods are safe to call
// from any thread.
class PanelServer : public PanelView {
public:
    using LogSink = KT::CFunctor<void(const std::string& line)>;

    explicit PanelServer(const PanelOptions_t& options);
    ~PanelServer() override;
    PanelServer(const PanelServer&) = delete;
    PanelServer& operator=(const PanelServer&) = delete;

    // Set before Start. Called on the server's threads.
    void SetLogSink(const LogSink& sink) { log_ = sink; }

    // Listens and starts the accept thread. False (with error set) if the
    // address cannot be listened on.
    bool Start(std::string& error);
    void Stop();

    // The current (or, between connections, the last) panel state; a blank
    // display before the first connection.
    FPSIM::PanelState_t Snapshot() const override;
    PanelInfo_t Info() const override;
    // Bumped on every change of state or connection, so a screen can tell
    // when to redraw without being called back.
    uint64_t ChangeCount() const override { return changes_.load(); }

    // Key messages; false when no unit is connected or the write failed.
    bool KeyDown(int key) override;
    bool KeyUp(int key) override;
    bool Press(int key);
    bool Hold(int key, unsigned ms);

    void SetTemperature(int16_t temperature);
    void AdjustTemperature(int delta) override;
    void SetFanSpeed(unsigned fan, uint16_t speed);  // fan 0..2
    void AdjustFanSpeeds(int delta) override;

private:
    bool AcceptRun();
    void OnSimChange(unsigned changes);
    void OnSimLog(const std::string& line);
    void Log(const std::string& line);

    const PanelOptions_t options_;
    LogSink log_;
    KT::CListenSocket listener_;
    std::unique_ptr<KT::CThread> acceptor_;

    mutable std::mutex mutex_;  // guards the connection and the readings
    std::unique_ptr<KT::CStreamSocket> socket_;
    std::unique_ptr<FPSIM::SerialTap> tap_;  // with --baud: the line the emulator reads
    std::unique_ptr<FPSIM::PanelSim> sim_;   // declared after its socket: goes first
    bool connected_ = false;
    uint64_t connections_ = 0;
    int16_t temperature_;
    std::array<uint16_t, 3> fanSpeed_;

    std::atomic<bool> linkDown_{false};
    std::atomic<uint64_t> changes_{0};
};

}  // namespace FPPANEL
