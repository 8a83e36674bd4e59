#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {

/// The base of everything that is held by reference. The count is not atomic: a session lives on one thread.
class Counted {
protected:
    Counted() = default;
    Counted(const Counted&) {}  // a copy starts with a count of its own
    Counted& operator=(const Counted&) { return *this; }
    virtual ~Counted() = default;

private:
    friend class AnyRef;
    mutable std::uint32_t count_ = 0;
};

/// What all references share, whatever they refer to.
class AnyRef {
public:
    constexpr AnyRef() = default;
    explicit AnyRef(Counted* object) : object_(object) { Hold(); }
    AnyRef(const AnyRef& other) : object_(other.object_) { Hold(); }
    AnyRef(AnyRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    AnyRef& operator=(AnyRef other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~AnyRef() { Drop(); }

    explicit operator bool() const { return object_ != nullptr; }
    Counted* object() const { return object_; }
    /// True while this reference is the only one.
    bool alone() const { return object_ != nullptr && object_->count_ == 1; }
    friend bool operator==(const AnyRef& a, const AnyRef& b) { return a.object_ == b.object_; }

protected:
    [[noreturn]] static void RaiseNothing();

    Counted* object_ = nullptr;

private:
    void Hold() const {
        if (object_ != nullptr) ++object_->count_;
    }
    void Drop() {
        if (object_ != nullptr && --object_->count_ == 0) Release(object_);
    }
    static void Release(Counted* object);
};

/// A counted reference that may hold nothing. Following nothing is an ordinary failure (91), never undefined.
/// It copies and dies where T is only declared.
template <class T>
class Ref : public AnyRef {
public:
    constexpr Ref() = default;
    constexpr Ref(std::nullptr_t) {}
    explicit Ref(T* object) : AnyRef(object) {}
    template <class Derived>
    requires(std::is_same_v<T, Counted> && !std::is_same_v<Derived, Counted>) Ref(const Ref<Derived>& other)
        : AnyRef(other) {}

    T* operator->() const {
        if (object_ == nullptr) RaiseNothing();
        return static_cast<T*>(object_);
    }
    T& operator*() const { return *operator->(); }
    T* get() const { return static_cast<T*>(object_); }
};

template <class T, class... Args>
Ref<T> Make(Args&&... args) {
    return Ref<T>(new T(std::forward<Args>(args)...));
}

/// What a field refers to, made on first read.
template <class T>
Ref<T> MadeOnRead(Ref<T>& field) {
    if (!field) field = Make<T>();
    return field;
}

}  // namespace mrlxmlclass
