#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "kt/Delegate.h"
#include "kt/Functor.h"
#include "kt/StreamSocket.h"
#include "kt/Thread.h"
#include "sim/FrameDecoder.h"
#include "sim/PanelState.h"

namespace FPSIM {

/// The panel controller's side of the link, emulated: it keeps the character
/// grid, LEDs and other indicators the unit sets, answers the unit's queries,
/// sends temperature and fan reports while the unit is subscribed, and sends
/// key messages on request.
///
/// It reads the socket it is given on a thread of its own. Time is either
/// driven by the owner (TIME_MANUAL: Advance()/Tick(), for tests) or real
/// (TIME_REAL: a second thread ticks every 10 ms). The subscription
/// interval byte is taken as tenths of a second.
///
/// A clear ('0') blanks the grid and moves the text position to (0, 0); the
/// font inversion stays as it was. Text advances the position by its length.
///
/// Threads: every public operation may be called from any thread; see
/// Stop() and AddObserver() for the exceptions and callback threads.
/// Borrows: the link socket, which must outlive this object.
class PanelSim {
public:
    /// Bits passed to observers: what changed since the last call.
    enum Change_e : unsigned {
        CHANGE_DISPLAY = 0x01,       ///< grid, text position or font
        CHANGE_INDICATORS = 0x02,    ///< LEDs, unit status, brightness, fan state
        CHANGE_SUBSCRIPTION = 0x04,  ///< the unit subscribed, unsubscribed or changed the rate
        CHANGE_REPORT = 0x08,        ///< reports were sent
        CHANGE_LINK = 0x10,          ///< the link went down (read end or write failed)
        CHANGE_VALUES = 0x20,        ///< answers or simulated readings were set
        CHANGE_COUNTERS = 0x40,      ///< bad input was counted
    };
    /// Called with the Change_e bits of a change.
    using Observer = KT::CFunctor<void(unsigned changes)>;
    /// Given one line about each notable event (bad input, link loss).
    using LogSink = KT::CFunctor<void(const std::string& line)>;

    /// An emulated panel on link, built from config; silent until Start().
    /// The socket stays the caller's and must outlive this object.
    explicit PanelSim(KT::CStreamSocket& link, const PanelConfig_t& config = PanelConfig_t());
    ~PanelSim();
    PanelSim(const PanelSim&) = delete;
    PanelSim& operator=(const PanelSim&) = delete;

    /// Sends the start-up message and starts the thread(s). False if already
    /// started or the start-up message could not be written.
    bool Start();
    /// Stops the threads; safe to call more than once. Call it from the owner's
    /// thread, not from an observer (which may run on the reader thread).
    void Stop();

    /// Observers and the log sink are called on whichever thread made the
    /// change (reader, ticker, or the caller), never with a lock held.
    /// Observers accumulate; a new log sink replaces the old one.
    ///@{
    void AddObserver(const Observer& observer);
    void SetLogSink(const LogSink& sink);
    ///@}

    /// Changes what the panel answers to the unit's queries and what the next
    /// reports carry; the unit sees it the next time it asks or is told.
    ///@{
    void SetSlotId(uint8_t id);
    void SetVoltage(float volts);
    void SetDisplayType(uint8_t type);
    void SetVersion(const std::string& version);
    void SetTemperature(int16_t temperature);
    void SetFanSpeed(unsigned fan, uint16_t speed);  ///< fan 0..2; others ignored
    ///@}

    /// Key messages: pressed, released, or both at once. False when the link
    /// refused the write.
    ///@{
    bool KeyDown(uint8_t key);
    bool KeyUp(uint8_t key);
    bool Press(uint8_t key);
    ///@}
    /// Down now, up once ms have passed on the emulator's clock.
    bool Hold(uint8_t key, unsigned ms);
    /// Bytes exactly as given, for malformed input.
    bool SendRaw(const std::vector<uint8_t>& bytes);
    /// Any frame, correctly framed and escaped, for opcodes with no helper.
    bool SendFrame(uint8_t op, const std::vector<uint8_t>& payload);

    /// Emulator time in milliseconds.
    uint64_t Now() const;
    /// Manual clock: moves time on by ms and does what fell due (every report
    /// round in between, key releases). Ignored with the real-time clock.
    void Advance(unsigned ms);
    /// Does what is due at the current time.
    void Tick();

    /// A consistent copy of the whole state, with nowMs set to the present.
    PanelState_t Snapshot() const;
    /// Waits until the reader has taken and applied at least bytes bytes in
    /// total; false on timeout.
    bool WaitForInput(uint64_t bytes, unsigned timeoutMs) const;

private:
    struct Release_t {
        uint64_t dueMs;
        uint8_t key;
    };
    // Work gathered under the lock and carried out after it is released.
    struct Outbox_t {
        std::vector<uint8_t> bytes;
        std::vector<std::string> log;
        unsigned changes = 0;
    };

    bool ReaderRun();
    bool TickerRun();
    uint64_t NowLocked() const;
    void Apply(const FrameDecoder::Frame& frame, Outbox_t& out);
    void ApplyText(const std::vector<uint8_t>& text, Outbox_t& out);
    void ApplySubscription(const FrameDecoder::Frame& frame, Outbox_t& out);
    void BadPayload(const FrameDecoder::Frame& frame, Outbox_t& out);
    void TickLocked(Outbox_t& out);
    void Flush(Outbox_t& out);
    void Notify(unsigned changes);
    // Applies set under the lock, then tells observers a value changed.
    template <class Set>
    void ChangeValue(Set set);
    void LinkDown(const std::string& why);

    KT::CStreamSocket& link_;
    const Clock_e clock_;
    const std::chrono::steady_clock::time_point epoch_;

    mutable std::mutex mutex_;
    mutable std::condition_variable inputCond_;
    PanelState_t state_;
    PanelConfig_t answers_;
    FrameDecoder decoder_;
    uint64_t manualNowMs_ = 0;
    uint64_t nextReportMs_ = 0;
    std::vector<Release_t> releases_;

    std::mutex listenersMutex_;
    KT::CDelegate<void(unsigned)> observers_;
    LogSink log_;

    std::unique_ptr<KT::CThread> reader_;
    std::unique_ptr<KT::CThread> ticker_;
};

}  // namespace FPSIM
