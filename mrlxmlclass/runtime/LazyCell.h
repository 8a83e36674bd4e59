#pragma once

#include <utility>

#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

/// The place of an object that is made when it is first read. Clones share the place, whether it holds something yet or
/// not: whoever reads first makes the object for all of them.
template <class T>
class LazyCell {
public:
    /// What is there, or nothing; makes nothing.
    Ref<T> Peek() const { return shared_ ? shared_->object : Ref<T>(); }
    /// What is there, made now if need be; `made()` is called then.
    template <class MakeObject>
    Ref<T> ReadOr(MakeObject&& make) {
        Shared& shared = Own();
        if (!shared.object) shared.object = std::forward<MakeObject>(make)();
        return shared.object;
    }
    /// Puts another object into this place only: clones keep theirs.
    void Set(Ref<T> object) {
        shared_ = object ? Make<Shared>() : Ref<Shared>();
        if (object) shared_->object = std::move(object);
    }
    /// A second place that is this one.
    LazyCell Share() {
        Own();
        return *this;
    }

private:
    struct Shared : Counted {
        Ref<T> object;
    };
    Shared& Own() {
        if (!shared_) shared_ = Make<Shared>();
        return *shared_;
    }

    Ref<Shared> shared_;
};

}  // namespace mrlxmlclass
