#pragma once

#include <atomic>

namespace KT {

/// A value shared between threads without a lock.
/// Threads: any.
template <class T>
class Atomic {
public:
    Atomic() : value_(T()) {}
    /// Starts at v.
    explicit Atomic(T v) : value_(v) {}
    Atomic(const Atomic&) = delete;
    Atomic& operator=(const Atomic&) = delete;

    /// The current value.
    T Get() const { return value_.load(); }
    /// Stores v.
    void Set(T v) { value_.store(v); }
    /// Stores v and returns the value it replaced.
    T Exchange(T v) { return value_.exchange(v); }
    /// Stores desired if the value equals expected; otherwise loads the value into expected.
    bool CompareExchange(T& expected, T desired) {
        return value_.compare_exchange_strong(expected, desired);
    }
    /// Adds one; returns the new value.
    T Increment() { return ++value_; }
    /// Subtracts one; returns the new value.
    T Decrement() { return --value_; }
    /// Same as Get().
    operator T() const { return Get(); }
    /// Same as Set(v).
    Atomic& operator=(T v) {
        Set(v);
        return *this;
    }

private:
    std::atomic<T> value_;
};

}  // namespace KT
