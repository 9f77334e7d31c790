#include "sim/SerialPair.h"

namespace FPSIM {

SerialPair::SerialPair(unsigned baud) {
    if (baud == 0) {
        open_ = KT::CStreamSocket::CreatePair(unitEnd_, panelEnd_);
        return;
    }
    if (!KT::CStreamSocket::CreatePair(unitEnd_, unitSide_))
        return;
    tap_.reset(new SerialTap(unitSide_, baud));
    open_ = tap_->IsOpen();
}

SerialPair::~SerialPair() = default;

}  // namespace FPSIM
