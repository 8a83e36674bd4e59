#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {

Double Variant::Number(SourceLine where) const {
    if (const double* number = If<double>()) return *number;
    if (const Boolean* flag = If<Boolean>()) return flag->raw();
    if (const Currency* amount = If<Currency>()) return amount->ToDouble();
    if (const Date* date = If<Date>()) return date->days();
    if (is_empty()) return 0;
    return As<Long>(where).value();
}

String Variant::Text(SourceLine where) const {
    if (const String* text = If<String>()) return *text;
    if (const Long* number = If<Long>()) return std::to_string(number->value());
    if (const Boolean* flag = If<Boolean>()) return *flag ? "True" : "False";
    if (const double* number = If<double>()) return TextInLocale(*number);
    if (const Currency* amount = If<Currency>()) return TextInLocale(*amount);
    if (const Date* date = If<Date>()) return TextInLocale(*date);
    if (is_empty()) return {};
    Raise(failure::kTypeMismatch, where);
}

double Variant::KeyValue(SourceLine where) const {
    const String* text = If<String>();
    return text != nullptr ? mrlxmlclass::KeyValue(*text) : Number(where);
}

KeyText Variant::Key(SourceLine where) const {
    if (const String* text = If<String>()) return KeyText(*text);
    if (const Long* number = If<Long>()) return KeyText(*number);
    return KeyText(Text(where));
}

}  // namespace mrlxmlclass
