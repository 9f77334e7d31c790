#include "sim/PanelSim.h"

#include <cstdio>
#include <cstring>

#include "sim/FrameEncoder.h"

namespace FPSIM {

namespace {

const size_t kReadChunk = 256;
const unsigned kTickMs = 10;

void Append(std::vector<uint8_t>& to, const std::vector<uint8_t>& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}

std::vector<uint8_t> BigEndian16(uint16_t v) {
    return {uint8_t(v >> 8), uint8_t(v & 0xFF)};
}

std::string Hex(uint8_t b) {
    char text[8];
    std::snprintf(text, sizeof text, "0x%02X", b);
    return text;
}

using Bytes = std::vector<uint8_t>;

// Messages that set one thing on the panel: a payload of a fixed size whose
// last byte must lie in [min, max], and what it changes.
struct Setting_t {
    uint8_t op;
    size_t size;
    uint8_t min;
    uint8_t max;
    unsigned change;
    void (*set)(PanelState_t& state, const Bytes& p);
};

const Setting_t kSettings[] = {
    {'X', 1, 0, 255, PanelSim::CHANGE_DISPLAY,
     [](PanelState_t& state, const Bytes& p) { state.column = p[0]; }},
    {'Y', 1, 0, 255, PanelSim::CHANGE_DISPLAY,
     [](PanelState_t& state, const Bytes& p) { state.row = p[0]; }},
    // Font: 1 reverse video, 2 normal.
    {'R', 1, 1, 2, PanelSim::CHANGE_DISPLAY,
     [](PanelState_t& state, const Bytes& p) { state.inverted = p[0] == 1; }},
    // LED number, then 1 on or 2 off.
    {'L', 2, 1, 2, PanelSim::CHANGE_INDICATORS,
     [](PanelState_t& state, const Bytes& p) { state.leds[p[0]] = p[1] == 1; }},
    {'U', 1, 0, 255, PanelSim::CHANGE_INDICATORS,
     [](PanelState_t& state, const Bytes& p) { state.unitStatus = p[0]; }},
    {'B', 1, 0, 255, PanelSim::CHANGE_INDICATORS,
     [](PanelState_t& state, const Bytes& p) { state.brightness = p[0]; }},
    {'E', 1, 0, 1, PanelSim::CHANGE_INDICATORS,
     [](PanelState_t& state, const Bytes& p) { state.fanState = p[0]; }},
};

}  // namespace

PanelSim::PanelSim(KT::CStreamSocket& link, const PanelConfig_t& config)
    : link_(link),
      clock_(config.clock),
      epoch_(std::chrono::steady_clock::now()),
      answers_(config) {
    state_.grid = PanelGrid(config.width, config.height);
}

PanelSim::~PanelSim() {
    Stop();
}

bool PanelSim::Start() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (state_.started)
            return false;
        state_.started = true;
        state_.linkUp = true;
    }
    if (!SendFrame('i', {}))
        return false;
    reader_.reset(
        new KT::CThread("fpsim-reader", 0, KT::CFunctor<bool()>(this, &PanelSim::ReaderRun)));
    reader_->Run();
    if (clock_ == TIME_REAL) {
        ticker_.reset(
            new KT::CThread("fpsim-ticker", 0, KT::CFunctor<bool()>(this, &PanelSim::TickerRun)));
        ticker_->Run();
    }
    return true;
}

void PanelSim::Stop() {
    if (ticker_)
        ticker_->Cancel();
    if (reader_)
        reader_->Cancel();
}

void PanelSim::AddObserver(const Observer& observer) {
    std::lock_guard<std::mutex> lock(listenersMutex_);
    observers_.Add(observer);
}

void PanelSim::SetLogSink(const LogSink& sink) {
    std::lock_guard<std::mutex> lock(listenersMutex_);
    log_ = sink;
}

void PanelSim::Notify(unsigned changes) {
    if (!changes)
        return;
    KT::CDelegate<void(unsigned)> observers;
    {
        std::lock_guard<std::mutex> lock(listenersMutex_);
        observers = observers_;
    }
    observers(changes);
}

template <class Set>
void PanelSim::ChangeValue(Set set) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        set();
    }
    Notify(CHANGE_VALUES);
}

void PanelSim::SetSlotId(uint8_t id) {
    ChangeValue([&] { answers_.slotId = id; });
}

void PanelSim::SetVoltage(float volts) {
    ChangeValue([&] { answers_.voltage = volts; });
}

void PanelSim::SetDisplayType(uint8_t type) {
    ChangeValue([&] { answers_.displayType = type; });
}

void PanelSim::SetVersion(const std::string& version) {
    ChangeValue([&] { answers_.version = version; });
}

void PanelSim::SetTemperature(int16_t temperature) {
    ChangeValue([&] { state_.temperature = temperature; });
}

void PanelSim::SetFanSpeed(unsigned fan, uint16_t speed) {
    if (fan < state_.fanSpeed.size())
        ChangeValue([&] { state_.fanSpeed[fan] = speed; });
}

bool PanelSim::SendRaw(const std::vector<uint8_t>& bytes) {
    if (bytes.empty())
        return true;
    if (link_.Write(bytes.data(), bytes.size()))
        return true;
    LinkDown("SendRaw() write failed");
    return false;
}

bool PanelSim::SendFrame(uint8_t op, const std::vector<uint8_t>& payload) {
    return SendRaw(FrameEncoder::Encode(op, payload));
}

bool PanelSim::KeyDown(uint8_t key) {
    return SendFrame('K', {key, 1});
}

bool PanelSim::KeyUp(uint8_t key) {
    return SendFrame('K', {key, 2});
}

bool PanelSim::Press(uint8_t key) {
    return KeyDown(key) && KeyUp(key);
}

bool PanelSim::Hold(uint8_t key, unsigned ms) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        releases_.push_back({NowLocked() + ms, key});
    }
    return KeyDown(key);
}

uint64_t PanelSim::NowLocked() const {
    if (clock_ == TIME_MANUAL)
        return manualNowMs_;
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 epoch_)
        .count();
}

uint64_t PanelSim::Now() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return NowLocked();
}

void PanelSim::Advance(unsigned ms) {
    if (clock_ != TIME_MANUAL)
        return;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        manualNowMs_ += ms;
    }
    Tick();
}

void PanelSim::Tick() {
    Outbox_t out;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        TickLocked(out);
    }
    Flush(out);
}

void PanelSim::TickLocked(Outbox_t& out) {
    const uint64_t now = NowLocked();
    state_.nowMs = now;
    for (auto it = releases_.begin(); it != releases_.end();) {
        if (it->dueMs <= now) {
            Append(out.bytes, FrameEncoder::Encode('K', {it->key, 2}));
            it = releases_.erase(it);
        } else {
            ++it;
        }
    }
    if (!state_.subscribed || !state_.linkUp)
        return;
    const uint64_t period = uint64_t(state_.interval) * 100;
    while (nextReportMs_ <= now) {
        if (state_.mask & 0x01) {
            Append(out.bytes, FrameEncoder::Encode('C', BigEndian16(uint16_t(state_.temperature))));
            state_.lastTemperature = state_.temperature;
            ++state_.counters.reportsSent;
        }
        for (unsigned fan = 0; fan < 3; ++fan) {
            if (state_.mask & (0x02 << fan)) {
                Append(out.bytes,
                       FrameEncoder::Encode(uint8_t('F' + fan), BigEndian16(state_.fanSpeed[fan])));
                state_.lastFanSpeed[fan] = state_.fanSpeed[fan];
                ++state_.counters.reportsSent;
            }
        }
        state_.lastReportMs = nextReportMs_;
        out.changes |= CHANGE_REPORT;
        nextReportMs_ += period;
        // A real-time stall is not made up for with a burst of stale reports.
        if (clock_ == TIME_REAL && nextReportMs_ <= now)
            nextReportMs_ = now + period;
    }
}

void PanelSim::Flush(Outbox_t& out) {
    if (!out.bytes.empty() && !link_.Write(out.bytes.data(), out.bytes.size()))
        LinkDown("write failed");
    LogSink log;
    {
        std::lock_guard<std::mutex> lock(listenersMutex_);
        log = log_;
    }
    for (const auto& line : out.log)
        log(line);
    Notify(out.changes);
}

void PanelSim::LinkDown(const std::string& why) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!state_.linkUp)
            return;
        state_.linkUp = false;
    }
    Outbox_t out;
    out.log.push_back("link down: " + why);
    out.changes = CHANGE_LINK;
    Flush(out);
}

bool PanelSim::TickerRun() {
    if (!KT::CThread::Sleep(kTickMs))
        return false;  // cancelled
    Tick();
    return true;
}

bool PanelSim::ReaderRun() {
    KT::CSlice<unsigned char> buffer(kReadChunk);
    const int got = link_.Read(buffer);
    if (got <= 0) {
        KT::CThread* self = KT::CThread::Current();
        if (!(self && self->IsCancelRequested()))
            LinkDown("the unit closed the link");
        return false;
    }
    Outbox_t out;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        std::vector<FrameDecoder::Frame> frames;
        const uint64_t badBefore = decoder_.BadFrames();
        const uint64_t garbageBefore = decoder_.GetStats().garbage;
        decoder_.Feed(buffer.Data(), size_t(got), frames);
        const FrameDecoder::Stats& stats = decoder_.GetStats();
        PanelCounters_t& c = state_.counters;
        c.badFrames = decoder_.BadFrames();
        c.oversizeFrames = stats.oversize;
        c.garbageBytes = stats.garbage;
        if (c.badFrames != badBefore) {
            out.log.push_back("dropped " + std::to_string(c.badFrames - badBefore) +
                              " malformed frame(s)");
            out.changes |= CHANGE_COUNTERS;
        }
        if (c.garbageBytes != garbageBefore) {
            out.log.push_back("skipped " + std::to_string(c.garbageBytes - garbageBefore) +
                              " byte(s) outside a frame");
            out.changes |= CHANGE_COUNTERS;
        }
        for (const auto& frame : frames)
            Apply(frame, out);
        c.bytesIn += uint64_t(got);
    }
    inputCond_.notify_all();
    Flush(out);
    return true;
}

void PanelSim::BadPayload(const FrameDecoder::Frame& frame, Outbox_t& out) {
    ++state_.counters.badPayloads;
    out.log.push_back("bad payload for '" + std::string(1, char(frame.op)) + "' (" +
                      std::to_string(frame.payload.size()) + " byte(s))");
    out.changes |= CHANGE_COUNTERS;
}

void PanelSim::Apply(const FrameDecoder::Frame& frame, Outbox_t& out) {
    const std::vector<uint8_t>& p = frame.payload;
    ++state_.counters.framesByOp[frame.op];
    for (const Setting_t& setting : kSettings) {
        if (setting.op != frame.op)
            continue;
        if (p.size() != setting.size || p.back() < setting.min || p.back() > setting.max)
            return BadPayload(frame, out);
        setting.set(state_, p);
        out.changes |= setting.change;
        return;
    }
    switch (frame.op) {
        case '0':
            state_.grid.Clear();
            state_.column = 0;
            state_.row = 0;
            out.changes |= CHANGE_DISPLAY;
            return;
        case 'T':
            return ApplyText(p, out);
        case 'P':
            return ApplySubscription(frame, out);
        case 'A':
            Append(out.bytes, FrameEncoder::Encode('A', {answers_.slotId}));
            return;
        case 'I':
            Append(out.bytes, FrameEncoder::Encode('I', {answers_.displayType}));
            return;
        case 'D': {
            uint32_t bits;
            std::memcpy(&bits, &answers_.voltage, sizeof bits);
            Append(out.bytes, FrameEncoder::Encode('D', {uint8_t(bits >> 24), uint8_t(bits >> 16),
                                                         uint8_t(bits >> 8), uint8_t(bits)}));
            return;
        }
        case 'V':
            Append(out.bytes,
                   FrameEncoder::Encode('V', std::vector<uint8_t>(answers_.version.begin(),
                                                                  answers_.version.end())));
            return;
        default:
            ++state_.counters.unknownOps;
            out.log.push_back("ignored unknown opcode " + Hex(frame.op));
            out.changes |= CHANGE_COUNTERS;
            return;
    }
}

void PanelSim::ApplyText(const std::vector<uint8_t>& text, Outbox_t& out) {
    const size_t dropped =
        state_.grid.Write(state_.column, state_.row, text.data(), text.size(), state_.inverted);
    state_.column += unsigned(text.size());
    if (state_.column > PanelGrid::kMaxSide)
        state_.column = PanelGrid::kMaxSide;
    out.changes |= CHANGE_DISPLAY;
    if (dropped) {
        state_.counters.droppedChars += dropped;
        out.changes |= CHANGE_COUNTERS;
    }
}

void PanelSim::ApplySubscription(const FrameDecoder::Frame& frame, Outbox_t& out) {
    const std::vector<uint8_t>& payload = frame.payload;
    const bool unsubscribe = payload.size() == 1 && payload[0] == 0;
    if (!unsubscribe && payload.size() != 2)
        return BadPayload(frame, out);
    // A zero interval could never report; take it as a plain unsubscription.
    state_.subscribed = !unsubscribe && payload[0] != 0;
    state_.interval = state_.subscribed ? payload[0] : 0;
    state_.mask = state_.subscribed ? payload[1] : 0;
    nextReportMs_ = NowLocked() + uint64_t(state_.interval) * 100;
    out.changes |= CHANGE_SUBSCRIPTION;
}

PanelState_t PanelSim::Snapshot() const {
    std::lock_guard<std::mutex> lock(mutex_);
    PanelState_t copy = state_;
    copy.nowMs = NowLocked();
    return copy;
}

bool PanelSim::WaitForInput(uint64_t bytes, unsigned timeoutMs) const {
    std::unique_lock<std::mutex> lock(mutex_);
    return inputCond_.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                               [&] { return state_.counters.bytesIn >= bytes; });
}

}  // namespace FPSIM
