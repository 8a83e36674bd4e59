#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

namespace mrlxmlclass {

/// A parameter that an operation reads and may write back. An lvalue is written back; a value or a literal is only
/// used; `{}` means that the caller left it out, and counts as the empty value.
template <class T>
class ByRef {
public:
    ByRef() = default;
    ByRef(T& variable) : variable_(&variable), given_(true) {}
    template <class Value>
    requires(std::convertible_to<Value, T> && !std::same_as<std::remove_cvref_t<Value>, ByRef>) ByRef(Value&& value)
        : own_(std::forward<Value>(value)), given_(true) {}

    /// False when the caller left the parameter out.
    bool Given() const { return given_; }
    /// True when a variable of the caller's receives what is stored here.
    bool Heard() const { return variable_ != nullptr; }

    T& operator*() { return variable_ != nullptr ? *variable_ : own_; }
    const T& operator*() const { return variable_ != nullptr ? *variable_ : own_; }
    T* operator->() { return &**this; }
    const T* operator->() const { return &**this; }

private:
    T own_{};
    T* variable_ = nullptr;
    bool given_ = false;
};

}  // namespace mrlxmlclass
