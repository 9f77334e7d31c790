#pragma once

#include <atomic>

namespace KT {

// A value shared between threads without a lock.
template <class T>
class Atomic {
public:
    Atomic() : value_(T()) {}
    explicit Atomic(T v) : value_(v) {}
    Atomic(const Atomic&) = delete;
    Atomic& operator=(const Atomic&) = delete;

    T Get() const { return value_.load(); }
    void Set(T v) { value_.store(v); }
    T Exchange(T v) { return value_.exchange(v); }
    bool CompareExchange(T& expected, T desired) {
        return value_.compare_exchange_strong(expected, desired);
    }
    T Increment() { return ++value_; }
    T Decrement() { return --value_; }
    operator T() const { return Get(); }
    Atomic& operator=(T v) {
        Set(v);
        return *this;
    }

private:
    std::atomic<T> value_;
};

}  // namespace KT
