// The link's own cost against what the machine cannot avoid: framing against
// copying the bytes, a request against a bare ping-pong of the same bytes,
// and a key message's way to the application against the 1 ms goal.
#include <benchmark/benchmark.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <cstring>
#include <initializer_list>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/BenchSupport.h"
#include "fp/input/Keypad.h"
#include "sim/FrameEncoder.h"

namespace {

using fpbench::Clock;
using fpbench::Nanos;

// Display text as the unit sends it; one byte in 32 needs escaping.
std::vector<unsigned char> TextPayload(size_t length) {
    std::vector<unsigned char> p(length);
    for (size_t i = 0; i < length; ++i)
        p[i] = (i % 32 == 31) ? FP::FpAdapter::kFrameEnd : static_cast<unsigned char>('A' + i % 26);
    return p;
}

FP::IFpAdapter::Payload ToSlice(const std::vector<unsigned char>& v) {
    FP::IFpAdapter::Payload s(v.size());
    for (size_t i = 0; i < v.size(); ++i)
        s.Set(i, v[i]);
    return s;
}

constexpr int kBatch = 64;

// Per-frame results of a batch benchmark: the library's time and each
// baseline's, and how many times the library's time each baseline is.
void ReportPerFrame(benchmark::State& state, size_t frameBytes, double libNs,
                    std::initializer_list<std::pair<const char*, double>> baselines) {
    const double frames = static_cast<double>(state.iterations()) * kBatch;
    state.SetBytesProcessed(static_cast<int64_t>(frames * static_cast<double>(frameBytes)));
    state.counters["frame_B"] = static_cast<double>(frameBytes);
    state.counters["lib_ns"] = libNs / frames;
    for (const auto& baseline : baselines) {
        state.counters[std::string(baseline.first) + "_ns"] = baseline.second / frames;
        state.counters[std::string("x_") + baseline.first] = libNs / baseline.second;
    }
}

// Encoding: SendCommand into a drained socket, against writing the same
// pre-built frame bytes into the same socket and against memcpy of them.
void BM_Encode(benchmark::State& state) {
    const auto payload = TextPayload(static_cast<size_t>(state.range(0)));
    const auto slice = ToSlice(payload);
    const auto frame = FPSIM::FrameEncoder::Encode(FP::FpControl::OP_TEXT, payload);
    fpbench::DrainedLink link;
    std::vector<unsigned char> copy(frame.size());
    double libNs = 0, writeNs = 0, copyNs = 0;
    uint64_t sent = 0;
    for (auto _ : state) {
        auto t0 = Clock::now();
        for (int i = 0; i < kBatch; ++i)
            link.Adapter().SendCommand(FP::FpControl::OP_TEXT, slice);
        auto t1 = Clock::now();
        for (int i = 0; i < kBatch; ++i)
            link.UnitEnd().Write(frame.data(), frame.size());
        auto t2 = Clock::now();
        for (int i = 0; i < kBatch; ++i) {
            std::memcpy(copy.data(), frame.data(), frame.size());
            benchmark::ClobberMemory();
        }
        auto t3 = Clock::now();
        libNs += Nanos(t0, t1);
        writeNs += Nanos(t1, t2);
        copyNs += Nanos(t2, t3);
        sent += 2 * kBatch * frame.size();
    }
    link.WaitDrained(sent);
    ReportPerFrame(state, frame.size(), libNs, {{"write", writeNs}, {"memcpy", copyNs}});
}
BENCHMARK(BM_Encode)->Arg(20)->Arg(200)->UseRealTime();

// Decoding: ReceiveBytes over a chunk of back-to-back frames, each handed to
// a registered handler, against memcpy of the chunk.
void BM_Decode(benchmark::State& state) {
    const auto payload = TextPayload(static_cast<size_t>(state.range(0)));
    const auto frame = FPSIM::FrameEncoder::Encode(FP::FpControl::OP_TEXT, payload);
    std::vector<unsigned char> chunk;
    for (int i = 0; i < kBatch; ++i)
        chunk.insert(chunk.end(), frame.begin(), frame.end());
    std::vector<unsigned char> copy(chunk.size());
    fpbench::DrainedLink link;
    uint64_t delivered = 0;
    link.Adapter().SetResponseHandler(
        FP::FpControl::OP_TEXT, [&](FP::IFpAdapter::Payload const& p) { delivered += p.Length(); });
    double libNs = 0, copyNs = 0;
    for (auto _ : state) {
        auto t0 = Clock::now();
        link.Adapter().ReceiveBytes(chunk.data(), chunk.size());
        auto t1 = Clock::now();
        std::memcpy(copy.data(), chunk.data(), chunk.size());
        benchmark::ClobberMemory();
        auto t2 = Clock::now();
        libNs += Nanos(t0, t1);
        copyNs += Nanos(t1, t2);
    }
    if (delivered != static_cast<uint64_t>(state.iterations()) * kBatch * payload.size())
        state.SkipWithError("frames lost in decoding");
    ReportPerFrame(state, frame.size(), libNs, {{"memcpy", copyNs}});
}
BENCHMARK(BM_Decode)->Arg(20)->Arg(200)->UseRealTime();

// A bare ping-pong over its own socket pair: the peer reads a request frame
// and writes back a prepared answer of the emulator's size. Relayed, a read
// thread on the caller's side takes the answer and wakes the caller, the
// least a link with a read thread of its own can do.
class RawPeer {
public:
    RawPeer(std::vector<uint8_t> request, std::vector<uint8_t> answer, bool relayed)
        : request_(std::move(request)), answer_(std::move(answer)) {
        if (::socketpair(AF_UNIX, SOCK_STREAM, 0, fds_) != 0)
            std::abort();
        thread_ = std::thread([this] {
            std::vector<uint8_t> buf(512);
            for (;;) {
                size_t got = 0;
                while (got < request_.size()) {
                    ssize_t n = ::read(fds_[1], buf.data(), buf.size());
                    if (n <= 0)
                        return;
                    got += static_cast<size_t>(n);
                }
                if (::write(fds_[1], answer_.data(), answer_.size()) < 0)
                    return;
            }
        });
        if (relayed)
            relay_ = std::thread([this] {
                while (ReadAnswer()) {
                    std::lock_guard<std::mutex> lock(mutex_);
                    ++answers_;
                    cond_.notify_one();
                }
            });
    }
    ~RawPeer() {
        ::shutdown(fds_[0], SHUT_RDWR);
        thread_.join();
        if (relay_.joinable())
            relay_.join();
        ::close(fds_[0]);
        ::close(fds_[1]);
    }
    void RoundTrip() {
        if (::write(fds_[0], request_.data(), request_.size()) < 0)
            std::abort();
        if (!relay_.joinable()) {
            if (!ReadAnswer())
                std::abort();
            return;
        }
        std::unique_lock<std::mutex> lock(mutex_);
        const uint64_t want = taken_ + 1;
        cond_.wait(lock, [&] { return answers_ >= want; });
        taken_ = want;
    }

private:
    bool ReadAnswer() {
        uint8_t buf[512];
        size_t got = 0;
        while (got < answer_.size()) {
            ssize_t n = ::read(fds_[0], buf, sizeof buf);
            if (n <= 0)
                return false;
            got += static_cast<size_t>(n);
        }
        return true;
    }

    std::vector<uint8_t> request_, answer_;
    int fds_[2];
    std::thread thread_, relay_;
    std::mutex mutex_;
    std::condition_variable cond_;
    uint64_t answers_ = 0, taken_ = 0;
};

// GetVersion against the emulator core, alternating with the bare ping-pong.
void BM_RoundTrip(benchmark::State& state) {
    fpbench::PanelLink link;
    link.Sim().Start();
    const std::string version = link.Control().GetVersion();
    if (version.empty()) {
        state.SkipWithError("no answer from the emulator");
        return;
    }
    const auto request = FPSIM::FrameEncoder::Encode(FP::FpControl::OP_VERSION);
    const auto answer = FPSIM::FrameEncoder::Encode(
        FP::FpControl::OP_VERSION, std::vector<uint8_t>(version.begin(), version.end()));
    RawPeer raw(request, answer, false);
    RawPeer relayed(request, answer, true);
    // Medians: on a shared machine a few round trips wait for a core, and
    // those would swamp a mean.
    std::vector<double> lib, bare, relay;
    for (auto _ : state) {
        auto t0 = Clock::now();
        benchmark::DoNotOptimize(link.Control().GetVersion());
        auto t1 = Clock::now();
        raw.RoundTrip();
        auto t2 = Clock::now();
        relayed.RoundTrip();
        auto t3 = Clock::now();
        lib.push_back(Nanos(t0, t1) / 1000);
        bare.push_back(Nanos(t1, t2) / 1000);
        relay.push_back(Nanos(t2, t3) / 1000);
    }
    const double libUs = fpbench::Percentile(lib, 0.5), rawUs = fpbench::Percentile(bare, 0.5),
                 relayUs = fpbench::Percentile(relay, 0.5);
    state.counters["lib_us"] = libUs;
    state.counters["raw_us"] = rawUs;
    state.counters["relay_us"] = relayUs;
    state.counters["x_raw"] = rawUs > 0 ? libUs / rawUs : 0;
    state.counters["x_relay"] = relayUs > 0 ? libUs / relayUs : 0;
}
BENCHMARK(BM_RoundTrip)->UseRealTime();

// From the emulator writing a key-down frame to the application's listener.
class KeyClock : public FP::IKeyPress {
public:
    void OnKeyPress(FP::Key_e) override {
        at.store(Clock::now().time_since_epoch().count());
        seen.fetch_add(1);
    }
    std::atomic<Clock::rep> at{0};
    std::atomic<int> seen{0};
};

void BM_KeyLatency(benchmark::State& state) {
    fpbench::PanelLink link;
    FP::Keypad keypad(link.Control());
    KeyClock listener;
    keypad.SetCallback(&listener);
    keypad.StartThreads();
    link.Sim().Start();
    std::vector<double> samples;
    for (auto _ : state) {
        const int before = listener.seen.load();
        const auto t0 = Clock::now();
        link.Sim().KeyDown(FP::KEY_UP);
        while (listener.seen.load() == before)
            std::this_thread::yield();
        samples.push_back(Nanos(t0, Clock::time_point(Clock::duration(listener.at.load()))) / 1000);
        link.Sim().KeyUp(FP::KEY_UP);
        // Let the release pass through so the next down is a new press.
        link.Control().GetDisplayType();
    }
    state.counters["median_us"] = fpbench::Percentile(samples, 0.5);
    state.counters["p99_us"] = fpbench::Percentile(samples, 0.99);
    state.counters["max_us"] = samples.empty() ? 0 : samples.back();
    state.counters["p99_x_1ms"] = fpbench::Percentile(samples, 0.99) / 1000;
}
BENCHMARK(BM_KeyLatency)->UseRealTime()->Iterations(2000);

}  // namespace

BENCHMARK_MAIN();
