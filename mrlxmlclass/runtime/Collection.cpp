#include "mrlxmlclass/runtime/Collection.h"

namespace mrlxmlclass {

void Collection::Add(Variant item, KeyText key, const Variant& before, SourceLine where) {
    const std::size_t place = before.is_missing() ? store_.size() : PlaceOf(before, where);
    if (!store_.Insert(place, key, std::move(item))) Raise(failure::kDuplicateKey, where);
}

Variant Collection::Item(const Variant& index, SourceLine where) const {
    return store_[PlaceOf(index, where)].item;
}

void Collection::Remove(const Variant& index, SourceLine where) {
    store_.RemoveAt(PlaceOf(index, where));
}

std::size_t Collection::PlaceOf(const Variant& index, SourceLine where) const {
    if (const String* key = index.If<String>()) {
        const std::size_t place = store_.IndexOf(KeyText(*key));
        if (place == Store::npos) Raise(failure::kUnknownKey, where);
        return place;
    }
    const double* fraction = index.If<double>();
    const Long place = fraction != nullptr ? Long(*fraction, where) : index.As<Long>(where);
    if (place < 1 || place > Count()) Raise(failure::kIndexOutOfRange, where);
    return static_cast<std::size_t>(place.value() - 1);
}

}  // namespace mrlxmlclass
