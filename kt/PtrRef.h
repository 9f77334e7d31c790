#pragma once

#include <memory>

namespace KT {

/// A shared, reference-counted owner of one object.
/// Threads: copies may be used and destroyed on different threads; the object
/// itself is not guarded. Owns: the object, jointly with every copy.
template <class T>
class CPtrRef {
public:
    CPtrRef() = default;
    /// Takes ownership of p.
    explicit CPtrRef(T* p) : ptr_(p) {}
    /// Shares ownership with other, whose type converts to T.
    template <class U>
    CPtrRef(const CPtrRef<U>& other) : ptr_(other.Shared()) {}

    /// The object, or null.
    T* Get() const { return ptr_.get(); }
    /// The object's members.
    T* operator->() const { return ptr_.get(); }
    /// The object; must not be null.
    T& operator*() const { return *ptr_; }
    /// True when there is an object.
    explicit operator bool() const { return static_cast<bool>(ptr_); }
    /// Number of owners of the object.
    long UseCount() const { return ptr_.use_count(); }
    /// Drops this owner's share and takes ownership of p instead.
    void Reset(T* p = nullptr) { ptr_.reset(p); }
    /// The underlying shared pointer.
    const std::shared_ptr<T>& Shared() const { return ptr_; }

private:
    std::shared_ptr<T> ptr_;
};

}  // namespace KT
