#include "sim/BaudLink.h"

#include <poll.h>

#include <algorithm>
#include <ctime>
#include <vector>

namespace FPSIM {

namespace {

const size_t kReadChunk = 512;
const unsigned kBitsPerByte = 10;

// Waits until the given instant, or until the calling CThread is cancelled
// (then false). Sleeps on the cancel descriptor so a stop is prompt even at
// very slow rates.
bool SleepUntil(BaudLink::Clock::time_point when) {
    const int cancelFd = KT::CThread::CurrentCancelFd();
    for (;;) {
        const auto left = when - BaudLink::Clock::now();
        if (left <= BaudLink::Clock::duration::zero())
            return true;
        const auto ns = std::chrono::duration_cast<std::chrono::nanoseconds>(left).count();
        timespec timeout{static_cast<time_t>(ns / 1000000000), static_cast<long>(ns % 1000000000)};
        pollfd fd{cancelFd, POLLIN, 0};
        if (::ppoll(&fd, cancelFd >= 0 ? 1 : 0, &timeout, nullptr) > 0)
            return false;
    }
}

}  // namespace

struct BaudLink::Lane {
    Lane(KT::CStreamSocket& from, KT::CStreamSocket& to) : from(from), to(to) {}

    KT::CStreamSocket& from;
    KT::CStreamSocket& to;
    Clock::time_point lineFree;  // when the last byte accepted so far is through; reader only
    mutable std::mutex mutex;
    mutable std::condition_variable cond;
    Delivered_t delivered;  // guarded by mutex
    std::unique_ptr<KT::CThread> thread;
};

BaudLink::BaudLink(KT::CStreamSocket& first, KT::CStreamSocket& second, unsigned baud)
    : baud_(baud), byteTime_(ByteTime(baud)) {
    lanes_[FORWARD].reset(new Lane(first, second));
    lanes_[BACKWARD].reset(new Lane(second, first));
}

BaudLink::~BaudLink() {
    Stop();
}

BaudLink::Clock::duration BaudLink::ByteTime(unsigned baud) {
    if (baud == 0)
        return Clock::duration::zero();
    return std::chrono::duration_cast<Clock::duration>(
        std::chrono::nanoseconds((uint64_t(kBitsPerByte) * 1000000000ull + baud / 2) / baud));
}

bool BaudLink::Start() {
    static const char* const kNames[2] = {"fpsim-baud-fwd", "fpsim-baud-back"};
    for (int d = FORWARD; d <= BACKWARD; ++d) {
        Lane& lane = *lanes_[d];
        if (lane.thread)
            return false;
        lane.thread.reset(new KT::CThread(
            kNames[d], 0, KT::CFunctor<bool()>([this, &lane] { return Carry(lane); })));
        if (!lane.thread->Run())
            return false;
    }
    return true;
}

void BaudLink::Stop() {
    for (auto& lane : lanes_) {
        if (lane->thread)
            lane->thread->Cancel();
    }
}

bool BaudLink::Carry(Lane& lane) {
    KT::CSlice<unsigned char> buffer(kReadChunk);
    const int got = lane.from.Read(buffer);
    if (got <= 0) {
        KT::CThread* self = KT::CThread::Current();
        if (!(self && self->IsCancelRequested()))
            lane.to.Shutdown();  // the far end sees the line close too
        return false;
    }
    // The line is either idle (the bytes start now) or still busy with
    // earlier ones (they queue behind them).
    const Clock::time_point start = std::max(Clock::now(), lane.lineFree);
    const size_t count = size_t(got);
    lane.lineFree = start + byteTime_ * count;
    size_t sent = 0;
    while (sent < count) {
        // Everything whose last bit is through by now goes out in one write.
        const auto elapsed = Clock::now() - start;
        size_t through = byteTime_ == Clock::duration::zero()
                             ? count
                             : std::min<size_t>(count, size_t(elapsed / byteTime_));
        if (through <= sent) {
            if (!SleepUntil(start + byteTime_ * (sent + 1)))
                return false;
            continue;
        }
        if (!lane.to.Write(buffer.Data() + sent, through - sent))
            return false;
        const Clock::time_point now = Clock::now();
        {
            std::lock_guard<std::mutex> lock(lane.mutex);
            lane.delivered.bytes += through - sent;
            lane.delivered.last = now;
        }
        lane.cond.notify_all();
        sent = through;
    }
    return true;
}

BaudLink::Delivered_t BaudLink::Delivered(Direction_e direction) const {
    const Lane& lane = *lanes_[direction];
    std::lock_guard<std::mutex> lock(lane.mutex);
    return lane.delivered;
}

bool BaudLink::WaitDelivered(Direction_e direction, uint64_t bytes, unsigned timeoutMs,
                             Delivered_t* reached) const {
    const Lane& lane = *lanes_[direction];
    std::unique_lock<std::mutex> lock(lane.mutex);
    const bool done = lane.cond.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                                         [&] { return lane.delivered.bytes >= bytes; });
    if (reached)
        *reached = lane.delivered;
    return done;
}

}  // namespace FPSIM
