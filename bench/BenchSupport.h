#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "fp/panel/PanelStack.h"
#include "kt/StreamSocket.h"
#include "sim/PanelGrid.h"
#include "sim/PanelSim.h"
#include "sim/SerialPair.h"

namespace fpbench {

using Clock = std::chrono::steady_clock;

// Nanoseconds between two instants of the steady clock.
inline double Nanos(Clock::time_point from, Clock::time_point to) {
    return static_cast<double>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(to - from).count());
}

// The value below which the given share (0..1) of the samples lie; sorts them.
double Percentile(std::vector<double>& samples, double share);

// Bytes a minimal update needs to turn grid a into grid b: per run of changed
// cells a column, a row and a text frame (11 bytes of framing plus the text),
// and two more frames around a run in reverse video; runs closer than that
// framing are cheaper sent as one.
size_t MinimalBytes(const FPSIM::PanelGrid& a, const FPSIM::PanelGrid& b);

// The unit's link stack on one end of a socket pair, the emulator core on the
// other, as an application wires them. The emulator's clock is real unless
// told otherwise; the pair is direct unless given a baud rate.
class PanelLink {
public:
    explicit PanelLink(unsigned width = 20, unsigned height = 4,
                       FPSIM::Clock_e clock = FPSIM::TIME_REAL, unsigned baud = 0,
                       const FP::PanelStack::Options& options = FP::PanelStack::Options());
    ~PanelLink();

    FPSIM::PanelSim& Sim() { return *sim_; }
    FP::PanelStack& Stack() { return *stack_; }
    FP::FpAdapter& Adapter() { return stack_->Adapter(); }
    FP::FpControl& Control() { return stack_->Control(); }
    FP::DisplayHw& Display() { return stack_->Display(); }
    FP::Keypad& Keypad() { return stack_->Keypad(); }
    // The serial line between the two, or null for a direct pair.
    FPSIM::BaudLink* Line() { return pair_.Line(); }

private:
    FPSIM::SerialPair pair_;
    std::unique_ptr<FPSIM::PanelSim> sim_;
    std::unique_ptr<FP::PanelStack> stack_;
};

// The unit's link stack on one end of a socket pair whose other end a thread
// reads and throws away, counting the bytes: the panel as a sink.
class DrainedLink {
public:
    DrainedLink();
    ~DrainedLink();

    FP::FpAdapter& Adapter() { return stack_->Adapter(); }
    FP::FpControl& Control() { return stack_->Control(); }
    // The unit's end, for writing bytes past the adapter.
    KT::CStreamSocket& UnitEnd() { return unitEnd_; }
    // Bytes the drain has read so far.
    uint64_t Drained() const;
    // Waits until the drain has read at least bytes bytes in total.
    void WaitDrained(uint64_t bytes) const;

private:
    struct Drain;
    KT::CStreamSocket unitEnd_;
    KT::CStreamSocket panelEnd_;
    std::unique_ptr<Drain> drain_;
    std::unique_ptr<FP::PanelStack> stack_;
};

}  // namespace fpbench
