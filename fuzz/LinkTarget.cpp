// The link's receive path: the same bytes fed in one piece and in arbitrary
// read chunks must give the same frames, to handlers and to pending requests.
#include <algorithm>
#include <utility>
#include <vector>

#include "fp/link/FpAdapter.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTargets.h"
#include "kt/StreamSocket.h"

namespace fpfuzz {

namespace {

using Payload = FP::IFpAdapter::Payload;
using Seen = std::vector<std::pair<int, std::vector<unsigned char>>>;

std::vector<unsigned char> Bytes(Payload const& p) {
    FUZZ_CHECK(p.Length() < FP::FpAdapter::kFrameBufferSize);
    return std::vector<unsigned char>(p.Data(), p.Data() + p.Length());
}

// Answers are recorded with the request's op plus 256, handler frames as is.
Seen Run(const std::vector<unsigned char>& requests, const uint8_t* stream, size_t size,
         unsigned chunkSeed) {
    KT::CStreamSocket ours, peer;
    FUZZ_CHECK(KT::CStreamSocket::CreatePair(ours, peer));
    Seen seen;
    {
        FP::FpAdapter adapter(ours);
        for (int op = 0; op < 256; ++op) {
            adapter.SetResponseHandler(static_cast<unsigned char>(op),
                                       [&seen, op](Payload const& p) {
                                           seen.push_back({op, Bytes(p)});
                                       });
        }
        for (unsigned char op : requests)
            FUZZ_CHECK(adapter.SendRequestCommand(op, Payload()));
        size_t at = 0;
        unsigned state = chunkSeed;
        while (at < size) {
            size_t n = size - at;
            if (chunkSeed != 0) {
                state = state * 1103515245u + 12345u;
                n = std::min<size_t>(n, 1 + (state >> 16) % 64);
            }
            adapter.ReceiveBytes(stream + at, n);
            at += n;
        }
        for (unsigned char op : requests)
            seen.push_back({256 + op, Bytes(adapter.ReceiveRequestResponse(op))});
    }
    return seen;
}

}  // namespace

int LinkReceive(const uint8_t* data, size_t size) {
    FuzzInput in(data, size);
    std::vector<unsigned char> requests(in.Below(4));
    for (unsigned char& op : requests)
        op = in.Byte();
    unsigned chunkSeed = in.Byte() | 0x100u;
    Seen whole = Run(requests, in.Rest(), in.Left(), 0);
    Seen chunked = Run(requests, in.Rest(), in.Left(), chunkSeed);
    FUZZ_CHECK(whole == chunked);
    return 0;
}

}  // namespace fpfuzz
