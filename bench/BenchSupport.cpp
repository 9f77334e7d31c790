#include "bench/BenchSupport.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace fpbench {

double Percentile(std::vector<double>& samples, double share) {
    if (samples.empty())
        return 0;
    std::sort(samples.begin(), samples.end());
    size_t i = static_cast<size_t>(share * static_cast<double>(samples.size() - 1) + 0.5);
    return samples[std::min(i, samples.size() - 1)];
}

namespace {
void Die(const char* what) {
    std::fprintf(stderr, "bench: %s\n", what);
    std::exit(1);
}
}  // namespace

size_t MinimalBytes(const FPSIM::PanelGrid& a, const FPSIM::PanelGrid& b) {
    const size_t kRunCost = 11, kReverseCost = 8;
    size_t total = 0;
    for (unsigned row = 0; row < a.Height(); ++row) {
        int first = -1, last = -1;
        bool reverse = false;
        auto close = [&] {
            if (first >= 0)
                total += kRunCost + (reverse ? kReverseCost : 0) + size_t(last - first + 1);
            first = -1;
        };
        for (unsigned col = 0; col < a.Width(); ++col) {
            if (a.Char(col, row) == b.Char(col, row) && a.Reverse(col, row) == b.Reverse(col, row))
                continue;
            const size_t cost = kRunCost + (reverse ? kReverseCost : 0);
            // A gap only joins cells of the same video; resending it must be cheaper.
            bool join =
                first >= 0 && b.Reverse(col, row) == reverse && col - unsigned(last) - 1 < cost;
            for (unsigned g = unsigned(last) + 1; join && g < col; ++g)
                join = b.Reverse(g, row) == reverse;
            if (!join)
                close();
            if (first < 0) {
                first = int(col);
                reverse = b.Reverse(col, row);
            }
            last = int(col);
        }
        close();
    }
    return total;
}

PanelLink::PanelLink(unsigned width, unsigned height, FPSIM::Clock_e clock, unsigned baud,
                     const FP::PanelStack::Options& options)
    : pair_(baud) {
    if (!pair_.IsOpen())
        Die("no socket pair");
    FPSIM::PanelConfig_t config;
    config.width = width;
    config.height = height;
    config.clock = clock;
    sim_.reset(new FPSIM::PanelSim(pair_.PanelEnd(), config));
    stack_.reset(new FP::PanelStack(pair_.UnitEnd(), width, height, options));
}

PanelLink::~PanelLink() {
    sim_->Stop();
    stack_.reset();
    sim_.reset();
}

struct DrainedLink::Drain {
    std::thread thread;
    std::atomic<uint64_t> bytes{0};
    mutable std::mutex mutex;
    mutable std::condition_variable cond;
};

DrainedLink::DrainedLink() : drain_(new Drain) {
    if (!KT::CStreamSocket::CreatePair(unitEnd_, panelEnd_))
        Die("no socket pair");
    drain_->thread = std::thread([this] {
        KT::CSlice<unsigned char> buffer(64 * 1024);
        for (;;) {
            int n = panelEnd_.Read(buffer);
            if (n <= 0)
                return;
            drain_->bytes.fetch_add(static_cast<uint64_t>(n));
            std::lock_guard<std::mutex> lock(drain_->mutex);
            drain_->cond.notify_all();
        }
    });
    stack_.reset(new FP::PanelStack(unitEnd_, 20, 4));
}

DrainedLink::~DrainedLink() {
    stack_.reset();
    panelEnd_.Shutdown();
    drain_->thread.join();
}

uint64_t DrainedLink::Drained() const {
    return drain_->bytes.load();
}

void DrainedLink::WaitDrained(uint64_t bytes) const {
    std::unique_lock<std::mutex> lock(drain_->mutex);
    drain_->cond.wait(lock, [&] { return drain_->bytes.load() >= bytes; });
}

}  // namespace fpbench
