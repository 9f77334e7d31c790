#include "tools/panel/QuietWatch.h"

namespace FPPANEL {

void QuietWatch::Observe(uint64_t nowMs, bool connected, uint64_t connections, uint64_t bytesIn) {
    const bool newLink = connected != connected_ || connections != connections_;
    // A fresh connection counts its bytes from zero.
    const bool received = newLink ? bytesIn > 0 : bytesIn != bytesIn_;
    if (newLink)
        Touch(nowMs);  // a unit that connects draws its screen
    if (received) {
        Activity(nowMs);
        answerDue_ = false;
    }
    connected_ = connected;
    connections_ = connections;
    bytesIn_ = bytesIn;
}

void QuietWatch::Touch(uint64_t nowMs) {
    Activity(nowMs);
    answerDue_ = true;
}

void QuietWatch::ExpectUntil(uint64_t atMs) {
    Activity(atMs);
    answerDue_ = false;  // a release draws nothing new
}

void QuietWatch::Activity(uint64_t atMs) {
    if (atMs > lastActivityMs_)
        lastActivityMs_ = atMs;
}

bool QuietWatch::Quiet(uint64_t nowMs, unsigned quietMs) const {
    const uint64_t need = uint64_t(quietMs) * (answerDue_ ? kNoAnswerFactor : 1);
    return connected_ && nowMs >= lastActivityMs_ && nowMs - lastActivityMs_ >= need;
}

}  // namespace FPPANEL
