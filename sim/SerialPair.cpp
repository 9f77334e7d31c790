#include "sim/SerialPair.h"

namespace FPSIM {

SerialPair::SerialPair(unsigned baud) {
    if (baud == 0) {
        open_ = KT::CStreamSocket::CreatePair(unitEnd_, panelEnd_);
        return;
    }
    if (!KT::CStreamSocket::CreatePair(unitEnd_, unitSide_) ||
        !KT::CStreamSocket::CreatePair(panelSide_, panelEnd_))
        return;
    line_.reset(new BaudLink(unitSide_, panelSide_, baud));
    open_ = line_->Start();
}

SerialPair::~SerialPair() {
    if (line_)
        line_->Stop();
}

}  // namespace FPSIM
