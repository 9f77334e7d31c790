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

PanelLink::PanelLink(unsigned width, unsigned height, FPSIM::Clock_e clock) {
    if (!KT::CStreamSocket::CreatePair(unitEnd_, panelEnd_))
        Die("no socket pair");
    FPSIM::PanelConfig_t config;
    config.width = width;
    config.height = height;
    config.clock = clock;
    sim_.reset(new FPSIM::PanelSim(panelEnd_, config));
    stack_.reset(new FP::PanelStack(unitEnd_, width, height));
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
