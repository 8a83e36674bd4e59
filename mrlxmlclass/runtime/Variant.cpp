#include "mrlxmlclass/runtime/Variant.h"

#include <cmath>

namespace mrlxmlclass {

KeyText Variant::Key(SourceLine where) const {
    if (const String* text = If<String>()) return KeyText(*text);
    if (const Long* number = If<Long>()) return KeyText(*number);
    if (const double* number = If<double>(); number != nullptr && std::floor(*number) == *number) {
        return KeyText(Long(*number, where));
    }
    if (is_empty()) return KeyText("");
    Raise(failure::kTypeMismatch, where);
}

}  // namespace mrlxmlclass
