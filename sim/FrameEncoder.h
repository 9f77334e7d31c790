#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace FPSIM {

/// Wire bytes shared by the encoder and the decoder.
enum FrameByte_e : uint8_t { FRAME_START = 0x09, FRAME_ESCAPE = 0x7D, FRAME_END = 0x7E };

/// Builds frames the way the panel controller sends them: start byte, the
/// opcode as is, the payload with frame bytes escaped, end byte.
/// Threads: any; it has no state.
class FrameEncoder {
public:
    /// True for the three bytes that have a meaning of their own on the wire
    /// and so must be escaped inside a payload.
    static bool IsFrameByte(uint8_t b) {
        return b == FRAME_START || b == FRAME_ESCAPE || b == FRAME_END;
    }
    /// The complete wire bytes of one frame carrying op and the payload.
    ///@{
    static std::vector<uint8_t> Encode(uint8_t op, const uint8_t* payload, size_t length);
    static std::vector<uint8_t> Encode(uint8_t op, const std::vector<uint8_t>& payload = {}) {
        return Encode(op, payload.data(), payload.size());
    }
    ///@}
};

}  // namespace FPSIM
