#pragma once

#include <utility>

#include "mrlxmlclass/runtime/LazyCell.h"
#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// A collection behind a Valid flag: made on first read, shared with clones, guarded while it was filled from inside
/// and its flag is down.
template <class T>
struct Guarded {
    LazyCell<T> cell;
    Boolean valid = False;
    bool filled_inside = false;

    /// Made now if need be, the flag up; nothing while the guard holds.
    template <class MakeObject>
    Ref<T> Read(MakeObject&& make) {
        if (filled_inside && !valid && cell.Peek()) return {};
        valid = True;
        return cell.ReadOr(std::forward<MakeObject>(make));
    }
    void Let(const Ref<T>& object) {
        cell.Set(object);
        valid = True;
        filled_inside = false;
    }
    void LetInside(const Ref<T>& object) {
        cell.Set(object);
        filled_inside = static_cast<bool>(object);
    }
    void LetFlag(Boolean flag) {
        if (flag == valid) return;
        valid = flag;
        cell.Set({});
        filled_inside = false;
    }
    Guarded Share() {
        cell.Share();
        return *this;
    }
};

}  // namespace mrlxmlclass
