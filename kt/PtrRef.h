#pragma once

#include <memory>

namespace KT {

// A shared, reference-counted owner of one object.
template <class T>
class CPtrRef {
public:
    CPtrRef() = default;
    explicit CPtrRef(T* p) : ptr_(p) {}
    template <class U>
    CPtrRef(const CPtrRef<U>& other) : ptr_(other.Shared()) {}

    T* Get() const { return ptr_.get(); }
    T* operator->() const { return ptr_.get(); }
    T& operator*() const { return *ptr_; }
    explicit operator bool() const { return static_cast<bool>(ptr_); }
    long UseCount() const { return ptr_.use_count(); }
    void Reset(T* p = nullptr) { ptr_.reset(p); }
    const std::shared_ptr<T>& Shared() const { return ptr_; }

private:
    std::shared_ptr<T> ptr_;
};

}  // namespace KT
