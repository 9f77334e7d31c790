#pragma once

#include <cstddef>
#include <cstring>
#include <memory>

namespace KT {

/// A reference-counted view of a contiguous buffer. Copies and sub-slices share
/// the storage; an empty slice (length 0) means "nothing". Indexing outside the
/// view never touches memory outside it.
/// Threads: a slice is a value; copies on different threads may read shared
/// storage, but writes through one are not synchronised with reads through another.
/// Owns: the storage, jointly with every slice that shares it.
template <class T>
class CSlice {
public:
    CSlice() = default;

    /// A new buffer of n value-initialised elements.
    explicit CSlice(size_t n) : storage_(n ? new T[n]() : nullptr, Deleter()), length_(n) {}

    /// A new buffer holding a copy of n elements from data.
    CSlice(const T* data, size_t n) : CSlice(n) {
        if (n && data)
            std::memcpy(storage_.get(), data, n * sizeof(T));
    }

    /// A view of [offset, offset + length) of parent, sharing its storage. The
    /// range is cut to what parent holds.
    CSlice(const CSlice& parent, size_t offset, size_t length)
        : storage_(parent.storage_), offset_(parent.offset_), length_(0) {
        if (offset < parent.length_) {
            offset_ += offset;
            length_ = length < parent.length_ - offset ? length : parent.length_ - offset;
        }
        if (length_ == 0)
            storage_.reset();
    }

    /// Same as CSlice(*this, offset, length).
    CSlice SubSlice(size_t offset, size_t length) const { return CSlice(*this, offset, length); }

    /// Number of elements in the view.
    size_t Length() const { return length_; }
    /// True for a view of no elements.
    bool Empty() const { return length_ == 0; }

    /// The first element of the view, or null when empty.
    T* Data() { return storage_ ? storage_.get() + offset_ : nullptr; }
    /// The first element of the view, or null when empty.
    const T* Data() const { return storage_ ? storage_.get() + offset_ : nullptr; }

    /// Reads outside the view yield a value-initialised T.
    T operator[](size_t i) const { return i < length_ ? storage_.get()[offset_ + i] : T(); }
    /// Same as operator[].
    T At(size_t i) const { return (*this)[i]; }

    /// Writes outside the view are ignored.
    bool Set(size_t i, T value) {
        if (i >= length_)
            return false;
        storage_.get()[offset_ + i] = value;
        return true;
    }

    /// Shortens the view; it never grows past what it was.
    void Truncate(size_t n) {
        if (n < length_)
            length_ = n;
        if (length_ == 0)
            storage_.reset();
    }

    /// Number of slices sharing this storage (0 for an empty slice).
    long UseCount() const { return storage_.use_count(); }
    /// True when both views look into the same buffer.
    bool SharesStorageWith(const CSlice& other) const {
        return storage_ && storage_ == other.storage_;
    }

private:
    struct Deleter {
        void operator()(T* p) const { delete[] p; }
    };
    std::shared_ptr<T> storage_;
    size_t offset_ = 0;
    size_t length_ = 0;
};

}  // namespace KT
