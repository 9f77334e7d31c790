#pragma once

#include <optional>

#include "fp/display/DisplayHw.h"
#include "fp/input/Keypad.h"
#include "fp/link/FpAdapter.h"
#include "fp/link/FpControl.h"

namespace KT {
class CStreamSocket;
}

namespace FP {

/// The unit's side of one panel connection: the framed link, the controller
/// operations, the keypad and the hardware display, built in that order on an
/// open socket and torn down by the destructor.
///
/// Teardown rule: the adapter's read thread calls into the control through
/// handlers that stay registered for the adapter's whole life, so the adapter
/// must be destroyed before the control. The keypad and the display send and
/// listen through the control, so they go before the adapter. The destructor
/// first drops the keypad's listener and every restart listener; report
/// listeners given to Control().SubscribeToStatusUpdates() are called until
/// the adapter has stopped, so they must outlive the stack or be removed
/// (UnsubscribeFromStatusUpdates) before it is destroyed.
///
/// Threads: build, use and destroy on one application thread; the parts keep
/// their own rules (see FpAdapter, FpControl, Keypad).
/// Borrows: the socket, which must stay open and outlive the stack.
/// Owns: the adapter (and so its read thread), control, keypad and display.
class PanelStack {
public:
    /// Choices the callers differ on.
    struct Options {
        /// Start the keypad's watcher thread at once (otherwise call
        /// Keypad().StartThreads() or drive Keypad().RunOnce() directly).
        bool startKeypad = false;
        /// Send only the cells that change (DisplayHw::SEND_CHANGES) instead of
        /// whole windows, and send everything again when the controller
        /// restarts. Worth it on a slow serial line.
        bool sendChangesOnly = false;
    };

    /// Builds the stack on socket for a display of width x height cells.
    /// The display clears the panel as it is built.
    PanelStack(KT::CStreamSocket& socket, unsigned width, unsigned height);
    /// As above, with options.
    PanelStack(KT::CStreamSocket& socket, unsigned width, unsigned height, const Options& options);
    /// Tears the parts down in the order described above.
    ~PanelStack();
    PanelStack(const PanelStack&) = delete;
    PanelStack& operator=(const PanelStack&) = delete;

    /// The framed link.
    FpAdapter& Adapter() { return *adapter_; }
    /// The controller's operations and reports.
    FpControl& Control() { return *control_; }
    /// Key presses from the panel.
    FP::Keypad& Keypad() { return *keypad_; }
    /// The display as drawn on the panel.
    DisplayHw& Display() { return *display_; }

    /// A request round trip: once it is answered, the panel has applied every
    /// frame sent before it and the unit has handled every frame the panel
    /// sent before its answer. False when no answer came within timeoutMs.
    bool RoundTrip(unsigned timeoutMs);

private:
    // Final, so destroying it in place cannot leave a more derived part behind
    // (the display's destructor is not virtual).
    struct OwnedDisplay final : DisplayHw {
        using DisplayHw::DisplayHw;
    };

    // Held in place and reset by hand in ~PanelStack: declaration order would
    // destroy the control before the adapter whose read thread calls it.
    std::optional<FpAdapter> adapter_;
    std::optional<FpControl> control_;
    std::optional<FP::Keypad> keypad_;
    std::optional<OwnedDisplay> display_;
};

}  // namespace FP
