#include "mrlxmlclass/runtime/Variant.h"

#include <cmath>

namespace mrlxmlclass {

Double Variant::Number(SourceLine where) const {
    if (const double* number = If<double>()) return *number;
    if (const Boolean* flag = If<Boolean>()) return flag->raw();
    if (const Currency* amount = If<Currency>()) return amount->ToDouble();
    if (const Date* date = If<Date>()) return date->days();
    if (is_empty()) return 0;
    return As<Long>(where).value();
}

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
