// Smallest useful program on the installed library: drive a panel link over a
// socket pair and check that a well-formed frame comes out the other end.
#include <cstdio>
#include <vector>

#include "fp/core/Version.h"
#include "fp/link/FpAdapter.h"
#include "fp/link/FpControl.h"
#include "kt/IpAddress.h"
#include "kt/Slice.h"
#include "kt/StreamSocket.h"

int main() {
    KT::CIpAddress address("192.168.001.010");
    if (!address.IsValid() || address.GetIp() != "192.168.1.10") {
        std::fprintf(stderr, "address parsing failed: %s\n", address.GetIp().c_str());
        return 1;
    }

    KT::CStreamSocket ours;
    KT::CStreamSocket panel;
    if (!KT::CStreamSocket::CreatePair(ours, panel)) {
        std::fprintf(stderr, "no socket pair\n");
        return 1;
    }

    std::vector<unsigned char> frame;
    {
        FP::FpAdapter adapter(ours);
        FP::FpControl control(adapter);
        if (!control.SetBrightness(5)) {
            std::fprintf(stderr, "brightness command not sent\n");
            return 1;
        }
        // A stream may hand the frame over in pieces.
        KT::CSlice<unsigned char> chunk(64);
        while (frame.empty() || frame.back() != FP::FpAdapter::kFrameEnd) {
            int n = panel.Read(chunk);
            if (n <= 0)
                break;
            frame.insert(frame.end(), chunk.Data(), chunk.Data() + n);
        }
        ours.Shutdown();  // lets the adapter's reader stop before it goes
    }

    if (frame.size() < 3 || frame.front() != FP::FpAdapter::kFrameStart ||
        frame.back() != FP::FpAdapter::kFrameEnd) {
        std::fprintf(stderr, "unexpected frame (%zu bytes)\n", frame.size());
        return 1;
    }
    std::printf("fp %s: %s, %zu-byte brightness frame\n", FP::GetLibraryVersion(),
                address.GetIp().c_str(), frame.size());
    return 0;
}
