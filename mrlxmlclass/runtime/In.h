#pragma once

#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

/// The library's own view of an object: `In(task).TaskKey_Int(5)`. Each class that has one declares it as `Internal`
/// and defines it in its `_internal.h`, which hosts never see.
template <class T>
typename T::Internal In(T& object) {
    return typename T::Internal(object);
}
template <class T>
typename T::Internal In(const Ref<T>& object) {
    return typename T::Internal(*object);
}

}  // namespace mrlxmlclass
