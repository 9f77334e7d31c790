#include "fp/panel/PanelStack.h"

namespace FP {

PanelStack::PanelStack(KT::CStreamSocket& socket, unsigned width, unsigned height)
    : PanelStack(socket, width, height, Options()) {}

PanelStack::PanelStack(KT::CStreamSocket& socket, unsigned width, unsigned height,
                       const Options& options) {
    adapter_.emplace(socket);
    control_.emplace(*adapter_);
    keypad_.emplace(*control_);
    display_.emplace(*control_, width, height);
    if (options.sendChangesOnly) {
        display_->SetUpdateMode(DisplayHw::SEND_CHANGES);
        // A restarted controller shows nothing of what was sent; the flag is
        // all the read thread touches, the UI thread does the sending.
        DisplayHw* display = &*display_;
        control_->SetInitHandler(KT::CFunctor<void()>([display] { display->ResendAll(); }));
    }
    if (options.startKeypad)
        keypad_->StartThreads();
}

PanelStack::~PanelStack() {
    // Silence the application first: frames keep arriving until the adapter
    // is gone, and they must not reach listeners that are being destroyed.
    keypad_->SetCallback(nullptr);
    control_->ClearInitHandler();
    display_.reset();
    keypad_.reset();
    adapter_.reset();
    control_.reset();
}

bool PanelStack::RoundTrip(unsigned timeoutMs) {
    return !adapter_->SendRequest(FpControl::OP_DISPLAY_TYPE, IFpAdapter::Payload(), timeoutMs)
                .Empty();
}

}  // namespace FP
