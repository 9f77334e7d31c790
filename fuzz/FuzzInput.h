#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace fpfuzz {

// Reads a fuzzer's bytes front to back as small decisions and texts. Past the
// end it answers zeros, so a target never has to check the length itself.
class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    bool Empty() const { return pos_ >= size_; }
    size_t Left() const { return Empty() ? 0 : size_ - pos_; }
    const uint8_t* Rest() const { return data_ + pos_; }

    uint8_t Byte() { return Empty() ? 0 : data_[pos_++]; }
    // A number in [0, n); n must not be 0.
    unsigned Below(unsigned n) { return Byte() % n; }
    int Int16() { return static_cast<int16_t>(Byte() | Byte() << 8); }
    // A length byte, then that many bytes (cut at max).
    std::string Text(size_t max = 255) {
        size_t n = Byte();
        if (n > max)
            n = max;
        if (n > Left())
            n = Left();
        std::string out(reinterpret_cast<const char*>(data_ + pos_), n);
        pos_ += n;
        return out;
    }
    std::string RestAsText() {
        std::string out(reinterpret_cast<const char*>(Rest()), Left());
        pos_ = size_;
        return out;
    }

private:
    const uint8_t* data_;
    size_t size_;
    size_t pos_ = 0;
};

}  // namespace fpfuzz
