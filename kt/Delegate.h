#pragma once

#include <cstddef>
#include <vector>

#include "kt/Functor.h"

namespace KT {

template <class Signature>
class CDelegate;

// A list of functors called together. Invocation runs from the last functor
// in the list to the first.
template <class R, class... Args>
class CDelegate<R(Args...)> {
public:
    using Functor = CFunctor<R(Args...)>;

    CDelegate() = default;
    CDelegate(const Functor& f) { functors_.push_back(f); }  // NOLINT: implicit by design

    void Add(const Functor& f) { functors_.push_back(f); }
    void Append(const CDelegate& other) {
        functors_.insert(functors_.end(), other.functors_.begin(), other.functors_.end());
    }
    void InsertFront(const Functor& f) { functors_.insert(functors_.begin(), f); }
    // Copies of other's functors go in front, keeping their order.
    void InsertFront(const CDelegate& other) {
        functors_.insert(functors_.begin(), other.functors_.begin(), other.functors_.end());
    }
    void Clear() { functors_.clear(); }

    bool Empty() const { return functors_.empty(); }
    size_t Size() const { return functors_.size(); }
    const std::vector<Functor>& Functors() const { return functors_; }

    void operator()(Args... args) const {
        for (auto it = functors_.rbegin(); it != functors_.rend(); ++it)
            (*it)(args...);
    }

private:
    std::vector<Functor> functors_;
};

}  // namespace KT
