// The emulator's receiver: the frame decoder must not depend on how bytes
// are cut into reads, and what it decodes must survive re-encoding; the
// emulator fed the same bytes over a socket must count the same frames and
// answer with well-formed frames only.
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTargets.h"
#include "kt/StreamSocket.h"
#include "sim/FrameDecoder.h"
#include "sim/FrameEncoder.h"
#include "sim/PanelSim.h"

namespace fpfuzz {

namespace {

using FPSIM::FrameDecoder;

bool Same(const std::vector<FrameDecoder::Frame>& a, const std::vector<FrameDecoder::Frame>& b) {
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i].op != b[i].op || a[i].payload != b[i].payload)
            return false;
    }
    return true;
}

bool SameStats(const FrameDecoder::Stats& a, const FrameDecoder::Stats& b) {
    return a.frames == b.frames && a.garbage == b.garbage && a.empty == b.empty &&
           a.truncated == b.truncated && a.oversize == b.oversize && a.badEscape == b.badEscape;
}

// Everything the emulator has written to the unit's end so far.
std::vector<uint8_t> Drain(KT::CStreamSocket& end) {
    std::vector<uint8_t> out;
    uint8_t buf[4096];
    ssize_t got;
    while ((got = ::recv(end.GetFd(), buf, sizeof buf, MSG_DONTWAIT)) > 0)
        out.insert(out.end(), buf, buf + got);
    return out;
}

void CheckEmulator(FuzzInput& in, const uint8_t* stream, size_t size, const FrameDecoder& ref) {
    FPSIM::PanelConfig_t config;
    config.width = 1 + in.Below(40);
    config.height = 1 + in.Below(8);
    const unsigned advanceMs = in.Byte() * 100u;
    KT::CStreamSocket unit, panelEnd;
    FUZZ_CHECK(KT::CStreamSocket::CreatePair(unit, panelEnd));
    FPSIM::PanelSim panel(panelEnd, config);
    FUZZ_CHECK(panel.Start());
    FUZZ_CHECK(size == 0 || unit.Write(stream, size));
    FUZZ_CHECK(panel.WaitForInput(size, 5000));
    panel.Advance(advanceMs);
    const FPSIM::PanelState_t state = panel.Snapshot();
    panel.Stop();

    const auto& c = state.counters;
    FUZZ_CHECK(c.bytesIn == size);
    FUZZ_CHECK(std::accumulate(c.framesByOp.begin(), c.framesByOp.end(), uint64_t(0)) ==
               ref.GetStats().frames);
    FUZZ_CHECK(c.badFrames == ref.BadFrames());
    FUZZ_CHECK(c.garbageBytes == ref.GetStats().garbage);
    FUZZ_CHECK(state.column <= FPSIM::PanelGrid::kMaxSide);
    for (unsigned row = 0; row < config.height; ++row)
        FUZZ_CHECK(state.grid.RenderPlain(row).size() == config.width);

    std::vector<uint8_t> answers = Drain(unit);
    FrameDecoder check;
    std::vector<FrameDecoder::Frame> frames;
    check.Feed(answers.data(), answers.size(), frames);
    FUZZ_CHECK(check.BadFrames() == 0 && check.GetStats().garbage == 0);
    FUZZ_CHECK(!frames.empty() && frames[0].op == 'i');
}

}  // namespace

int PanelReceive(const uint8_t* data, size_t size) {
    FuzzInput in(data, size);
    const uint8_t flags = in.Byte();
    const uint8_t* stream = in.Rest();
    const size_t length = in.Left();

    FrameDecoder whole;
    std::vector<FrameDecoder::Frame> wholeFrames;
    whole.Feed(stream, length, wholeFrames);

    FrameDecoder chunked;
    std::vector<FrameDecoder::Frame> chunkedFrames;
    unsigned state = flags;
    for (size_t at = 0; at < length;) {
        state = state * 1103515245u + 12345u;
        size_t n = std::min<size_t>(length - at, (state >> 16) % 32);  // empty reads too
        chunked.Feed(stream + at, n, chunkedFrames);
        at += n;
    }
    FUZZ_CHECK(Same(wholeFrames, chunkedFrames));
    FUZZ_CHECK(SameStats(whole.GetStats(), chunked.GetStats()));

    // What came out goes back in unchanged.
    for (const auto& f : wholeFrames) {
        FUZZ_CHECK(f.payload.size() < FrameDecoder::kMaxCollected);
        std::vector<uint8_t> wire = FPSIM::FrameEncoder::Encode(f.op, f.payload);
        FrameDecoder again;
        std::vector<FrameDecoder::Frame> back;
        again.Feed(wire.data(), wire.size(), back);
        FUZZ_CHECK(back.size() == 1 && back[0].op == f.op && back[0].payload == f.payload);
    }

    // Bounded so the emulator's answers always fit in the socket's buffer.
    if ((flags & 1) && length <= 8192) {
        FuzzInput config(stream, std::min<size_t>(length, 2));
        CheckEmulator(config, stream, length, whole);
    }
    return 0;
}

}  // namespace fpfuzz
