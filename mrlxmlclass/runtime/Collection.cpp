#include "mrlxmlclass/runtime/Collection.h"

namespace mrlxmlclass {

void Collection::Add(Variant item, KeyText key, const Variant& before, SourceLine where) {
    const std::size_t place = before.is_missing() ? store_.size() : PlaceIn(store_, before, where);
    if (!store_.Insert(place, key, std::move(item))) Raise(failure::kDuplicateKey, where);
}

Variant Collection::Item(const Variant& index, SourceLine where) const {
    return store_[PlaceIn(store_, index, where)].item;
}

void Collection::Remove(const Variant& index, SourceLine where) {
    store_.RemoveAt(PlaceIn(store_, index, where));
}

}  // namespace mrlxmlclass
