#include "tools/panel/QuietWatch.h"

namespace FPPANEL {

void QuietWatch::Observe(uint64_t nowMs, bool connected, uint64_t connections, uint64_t bytesIn) {
    if (connected != connected_ || connections != connections_ || bytesIn != bytesIn_)
        Touch(nowMs);
    connected_ = connected;
    connections_ = connections;
    bytesIn_ = bytesIn;
}

void QuietWatch::Touch(uint64_t nowMs) {
    ExpectUntil(nowMs);
}

void QuietWatch::ExpectUntil(uint64_t atMs) {
    if (atMs > lastActivityMs_)
        lastActivityMs_ = atMs;
}

bool QuietWatch::Quiet(uint64_t nowMs, unsigned quietMs) const {
    return connected_ && nowMs >= lastActivityMs_ && nowMs - lastActivityMs_ >= quietMs;
}

}  // namespace FPPANEL
