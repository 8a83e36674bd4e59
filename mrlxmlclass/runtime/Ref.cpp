#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

void AnyRef::RaiseNothing() { Raise(failure::kNothing, SourceLine{}); }

void AnyRef::Release(Counted* object) { delete object; }

}  // namespace mrlxmlclass
