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
    Ref<T> Peek() const { return Glance(); }
    /// The same for a look that is over before anything can be put here.
    const Ref<T>& Glance() const { return shared_ ? shared_->object : kNothing; }
    /// What is there, made now if need be; `made()` is called then.
    template <class MakeObject>
    Ref<T> ReadOr(MakeObject&& make) {
        const Ref<Shared> place = Own();  // held: `make` may lead back here and put something else into this cell
        if (!place->object) place->object = std::forward<MakeObject>(make)();
        return place->object;
    }
    /// Puts another object into this place only: clones keep theirs.
    void Set(Ref<T> object) {
        Ref<Shared> place;
        if (object) {
            place = Make<Shared>();
            place->object = std::move(object);
        }
        shared_ = std::move(place);  // complete before the former object may die
    }
    /// A second place that is this one. (A plain copy is that only when something has been read or shared before.)
    LazyCell Share() {
        Own();
        return *this;
    }

private:
    struct Shared : Counted {
        Ref<T> object;
    };
    constinit static inline const Ref<T> kNothing;
    const Ref<Shared>& Own() {
        if (!shared_) shared_ = Make<Shared>();
        return shared_;
    }

    Ref<Shared> shared_;
};

}  // namespace mrlxmlclass
