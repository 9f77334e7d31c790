#pragma once

#include <cstddef>
#include <string>

namespace KT {
namespace detail {

/// What the address types share: a fixed number of bytes set from text (all
/// zero, and not valid, when the text is malformed) and read or written by
/// index. Address reads the text: static bool Read(const std::string& text,
/// unsigned char (&out)[N]), answering false when text is not an address.
/// Threads: a plain value; share read-only.
template <class Address, std::size_t N>
class ByteAddress {
public:
    /// All zeros, valid.
    ByteAddress() = default;
    /// Parses text (see Parse()).
    ByteAddress(const std::string& text) { Parse(text); }  // NOLINT: built from text throughout
    /// Parses text; null counts as empty.
    ByteAddress(const char* text) { Parse(text ? text : ""); }  // NOLINT
    /// Parses text (see Parse()).
    Address& operator=(const std::string& text) {
        Parse(text);
        return static_cast<Address&>(*this);
    }
    /// Parses text; null counts as empty.
    Address& operator=(const char* text) { return *this = std::string(text ? text : ""); }

    /// Replaces the address with text read; false (and all zeros) when malformed.
    bool Parse(const std::string& text) {
        unsigned char out[N] = {};
        valid_ = Address::Read(text, out);
        for (std::size_t i = 0; i < N; ++i)
            bytes_[i] = valid_ ? out[i] : 0;
        return valid_;
    }
    /// False after text that was not an address.
    bool IsValid() const { return valid_; }

    /// Byte i (0 is the first written); outside the address reads give 0.
    unsigned char operator[](int i) const { return InRange(i) ? bytes_[i] : 0; }
    /// Byte i for writing; outside the address writes land in a scratch byte.
    unsigned char& operator[](int i) {
        if (InRange(i))
            return bytes_[i];
        scratch_ = 0;
        return scratch_;
    }

protected:
    unsigned char bytes_[N] = {};

private:
    static bool InRange(int i) { return i >= 0 && static_cast<std::size_t>(i) < N; }

    unsigned char scratch_ = 0;
    bool valid_ = true;
};

}  // namespace detail
}  // namespace KT
