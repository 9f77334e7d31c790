#pragma once

#include <cstddef>
#include <vector>

#include "kt/Functor.h"

namespace KT {

template <class Signature>
class CDelegate;

/// A list of functors called together. Invocation runs from the last functor
/// in the list to the first.
/// Threads: not synchronised; guard a delegate shared between threads, or copy it
/// under a lock and call the copy (as FpControl does).
template <class R, class... Args>
class CDelegate<R(Args...)> {
public:
    /// The kind of entry the list holds.
    using Functor = CFunctor<R(Args...)>;

    CDelegate() = default;
    /// A list holding f alone.
    CDelegate(const Functor& f) { functors_.push_back(f); }  // NOLINT: implicit by design

    /// Appends f at the back (it is then called first).
    void Add(const Functor& f) { functors_.push_back(f); }
    /// Appends copies of other's functors, keeping their order.
    void Append(const CDelegate& other) {
        functors_.insert(functors_.end(), other.functors_.begin(), other.functors_.end());
    }
    /// Puts f at the front (it is then called last).
    void InsertFront(const Functor& f) { functors_.insert(functors_.begin(), f); }
    /// Copies of other's functors go in front, keeping their order.
    void InsertFront(const CDelegate& other) {
        functors_.insert(functors_.begin(), other.functors_.begin(), other.functors_.end());
    }
    /// Removes every functor.
    void Clear() { functors_.clear(); }

    /// True when the list holds no functor.
    bool Empty() const { return functors_.empty(); }
    /// Number of functors in the list.
    size_t Size() const { return functors_.size(); }
    /// The functors, front first.
    const std::vector<Functor>& Functors() const { return functors_; }

    /// Calls every functor with args, from the back of the list to the front.
    void operator()(Args... args) const {
        for (auto it = functors_.rbegin(); it != functors_.rend(); ++it)
            (*it)(args...);
    }

private:
    std::vector<Functor> functors_;
};

}  // namespace KT
