#include "sim/SerialTap.h"

namespace FPSIM {

SerialTap::SerialTap(KT::CStreamSocket& far, unsigned baud) {
    line_.reset(new BaudLink(far, lineEnd_, baud));
    open_ = KT::CStreamSocket::CreatePair(lineEnd_, near_) && line_->Start();
}

SerialTap::~SerialTap() {
    line_->Stop();
}

}  // namespace FPSIM
