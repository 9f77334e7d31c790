#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace KT {

template <class Signature>
class CFunctor;

/// A callable: an object's method, or any function object. A default-built
/// functor does nothing and returns a value-initialised result. Copies share
/// the target, which is reference-counted.
/// Threads: calling a shared functor from several threads is as safe as its target.
/// Borrows: an object whose method it calls (the object must outlive every copy).
template <class R, class... Args>
class CFunctor<R(Args...)> {
public:
    CFunctor() = default;

    /// Calls method on object.
    template <class Obj>
    CFunctor(Obj* object, R (Obj::*method)(Args...))
        : target_(std::make_shared<Target>([object, method](Args... args) -> R {
              return (object->*method)(std::forward<Args>(args)...);
          })) {}

    /// Calls a const method on object.
    template <class Obj>
    CFunctor(const Obj* object, R (Obj::*method)(Args...) const)
        : target_(std::make_shared<Target>([object, method](Args... args) -> R {
              return (object->*method)(std::forward<Args>(args)...);
          })) {}

    /// Calls a copy of the function object f.
    template <class F, class = std::enable_if_t<!std::is_same<std::decay_t<F>, CFunctor>::value &&
                                                std::is_invocable_r<R, F&, Args...>::value>>
    CFunctor(F f) : target_(std::make_shared<Target>(std::move(f))) {}

    /// Calls the target; without one, returns a value-initialised R.
    R operator()(Args... args) const {
        if (!target_)
            return Default();
        return (*target_)(std::forward<Args>(args)...);
    }

    /// True when there is a target to call.
    bool IsSet() const { return static_cast<bool>(target_); }
    /// Same as IsSet().
    explicit operator bool() const { return IsSet(); }
    /// Number of functors sharing this target (0 when unset).
    long UseCount() const { return target_.use_count(); }

private:
    using Target = std::function<R(Args...)>;
    static R Default() {
        if constexpr (std::is_void<R>::value) {
            return;
        } else {
            return R();
        }
    }
    std::shared_ptr<Target> target_;
};

}  // namespace KT
