#include "mrlxmlclass/runtime/Dictionary.h"

#include <cmath>

namespace mrlxmlclass {

DictionaryKey::DictionaryKey(const Variant& key, SourceLine where) {
    if (const String* text = key.If<String>()) {
        kind_ = Kind::Text;
        text_ = KeyText(*text);
    } else if (const Long* number = key.If<Long>()) {
        kind_ = Kind::Number;
        number_ = number->value();
    } else if (const double* fraction = key.If<double>()) {
        kind_ = Kind::Number;
        number_ = *fraction;
    } else if (const Currency* amount = key.If<Currency>()) {
        kind_ = Kind::Number;
        number_ = amount->ToDouble();
    } else if (const Date* date = key.If<Date>()) {
        kind_ = Kind::Date;
        number_ = date->days();
    } else if (const Boolean* flag = key.If<Boolean>()) {
        kind_ = Kind::Boolean;
        number_ = flag->raw();
    } else if (const Ref<Counted>* object = key.If<Ref<Counted>>()) {
        kind_ = Kind::Object;
        object_ = *object;
    } else if (!key.is_empty()) {
        Raise(failure::kUnknownKey, where);
    }
}

Variant DictionaryKey::value() const {
    switch (kind_) {
        case Kind::Text:
            return text_.text();
        case Kind::Number:
            if (std::floor(number_) == number_ && number_ >= INT32_MIN && number_ <= INT32_MAX) return Long(number_);
            return number_;
        case Kind::Date:
            return Date(number_);
        case Kind::Boolean:
            return Boolean::Raw(static_cast<std::int16_t>(number_));
        case Kind::Object:
            return object_;
        case Kind::Empty:
            break;
    }
    return {};
}

void Dictionary::Add(const Variant& key, Variant item, SourceLine where) {
    if (!store_.Append(DictionaryKey(key, where), std::move(item))) Raise(failure::kDuplicateKey, where);
}

Variant Dictionary::Item(const Variant& key, SourceLine where) const {
    const Variant* item = store_.Find(DictionaryKey(key, where));
    if (item == nullptr) Raise(failure::kUnknownKey, where);
    return *item;
}

void Dictionary::Item(const Variant& key, Variant item, SourceLine where) {
    const DictionaryKey typed(key, where);
    const std::size_t place = store_.IndexOf(typed);
    if (place == Store::npos) {
        store_.Append(typed, std::move(item));
    } else {
        store_.Replace(place, std::move(item));
    }
}

void Dictionary::Remove(const Variant& key, SourceLine where) {
    if (!store_.Remove(DictionaryKey(key, where))) Raise(failure::kUnknownKey, where);
}

std::vector<Variant> Dictionary::Keys() const {
    std::vector<Variant> keys;
    keys.reserve(store_.size());
    for (const auto& entry : store_) keys.push_back(entry.key.value());
    return keys;
}

std::vector<Variant> Dictionary::Items() const {
    std::vector<Variant> items;
    items.reserve(store_.size());
    for (const auto& entry : store_) items.push_back(entry.item);
    return items;
}

}  // namespace mrlxmlclass

std::size_t std::hash<mrlxmlclass::DictionaryKey>::operator()(const mrlxmlclass::DictionaryKey& key) const noexcept {
    const std::size_t kind = static_cast<std::size_t>(key.kind_) * 0x9E3779B1U;
    return kind ^ std::hash<mrlxmlclass::KeyText>{}(key.text_) ^ std::hash<double>{}(key.number_) ^
           std::hash<const void*>{}(key.object_.get());
}
