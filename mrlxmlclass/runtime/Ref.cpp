#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

void AnyRef::RaiseNothing() {
    Raise(failure::kNothing, SourceLine{});
}

void AnyRef::Release(Counted* object) {
    ++object->count_;  // a reference that comes and goes while the object dies must not end it a second time
    delete object;
}

}  // namespace mrlxmlclass
