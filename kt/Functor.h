#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace KT {

template <class Signature>
class CFunctor;

// A callable: an object's method, or any function object. A default-built
// functor does nothing and returns a value-initialised result. Copies share
// the target, which is reference-counted.
template <class R, class... Args>
class CFunctor<R(Args...)> {
public:
    CFunctor() = default;

    template <class Obj>
    CFunctor(Obj* object, R (Obj::*method)(Args...))
        : target_(std::make_shared<Target>([object, method](Args... args) -> R {
              return (object->*method)(std::forward<Args>(args)...);
          })) {}

    template <class Obj>
    CFunctor(const Obj* object, R (Obj::*method)(Args...) const)
        : target_(std::make_shared<Target>([object, method](Args... args) -> R {
              return (object->*method)(std::forward<Args>(args)...);
          })) {}

    template <class F, class = std::enable_if_t<!std::is_same<std::decay_t<F>, CFunctor>::value &&
                                                std::is_invocable_r<R, F&, Args...>::value>>
    CFunctor(F f) : target_(std::make_shared<Target>(std::move(f))) {}

    R operator()(Args... args) const {
        if (!target_)
            return Default();
        return (*target_)(std::forward<Args>(args)...);
    }

    bool IsSet() const { return static_cast<bool>(target_); }
    explicit operator bool() const { return IsSet(); }
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
