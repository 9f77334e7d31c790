#include "sim/FrameEncoder.h"

namespace FPSIM {

std::vector<uint8_t> FrameEncoder::Encode(uint8_t op, const uint8_t* payload, size_t length) {
    std::vector<uint8_t> out;
    out.reserve(length + 3);
    out.push_back(FRAME_START);
    out.push_back(op);
    for (size_t i = 0; i < length; ++i) {
        if (IsFrameByte(payload[i])) {
            out.push_back(FRAME_ESCAPE);
            out.push_back(payload[i] ^ 0x20);
        } else {
            out.push_back(payload[i]);
        }
    }
    out.push_back(FRAME_END);
    return out;
}

}  // namespace FPSIM
