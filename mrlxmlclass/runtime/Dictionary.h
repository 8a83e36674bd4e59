#pragma once

#include <vector>

#include "mrlxmlclass/runtime/OrderedStore.h"
#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {

/// A key of a dictionary: a text, a number, a date or an object, distinguished by kind.
class DictionaryKey {
public:
    DictionaryKey(const Variant& key, SourceLine where = SourceLine::Here());

    Variant value() const;
    /// The text form of the key, as Variant::Key gives it.
    KeyText Key() const { return kind_ == Kind::Text ? text_ : value().Key(); }
    /// The key as a text, where it is one.
    const KeyText* text() const { return kind_ == Kind::Text ? &text_ : nullptr; }
    static constexpr bool none() { return false; }
    friend bool operator==(const DictionaryKey&, const DictionaryKey&) = default;

private:
    friend struct std::hash<DictionaryKey>;
    enum class Kind : std::uint8_t { Empty, Text, Number, Date, Boolean, Object };

    Kind kind_ = Kind::Empty;
    KeyText text_;
    double number_ = 0;  // exact for every Long
    Ref<Counted> object_;
};

}  // namespace mrlxmlclass

template <>
struct std::hash<mrlxmlclass::DictionaryKey> {
    std::size_t operator()(const mrlxmlclass::DictionaryKey& key) const noexcept;
};

namespace mrlxmlclass {

/// A map that keeps the order in which its keys came. Keys of different kinds differ: the text "12" is not the number
/// 12; whole numbers of any width and value are one. A key that is there already fails at `Add` (457), an unknown one
/// at `Remove` and at reading `Item` (5), as does a key of another kind anywhere.
class Dictionary : public Counted {
public:
    using Store = OrderedStore<DictionaryKey, Variant>;

    void Add(const Variant& key, Variant item, SourceLine where = SourceLine::Here());
    Boolean Exists(const Variant& key, SourceLine where = SourceLine::Here()) const {
        return store_.Find(DictionaryKey(key, where)) != nullptr;
    }
    Variant Item(const Variant& key, SourceLine where = SourceLine::Here()) const;
    /// Replaces the item, or adds it under a new key.
    void Item(const Variant& key, Variant item, SourceLine where = SourceLine::Here());
    void Remove(const Variant& key, SourceLine where = SourceLine::Here());
    void RemoveAll() { store_.Clear(); }
    Long Count() const { return store_.size(); }
    bool empty() const { return store_.empty(); }
    std::vector<Variant> Keys() const;
    std::vector<Variant> Items() const;

    /// The entries as they stand now, to walk while the dictionary changes.
    Store Snapshot() const { return store_; }
    std::uint64_t Stamp() const { return store_.Stamp(); }

private:
    Store store_;
};

}  // namespace mrlxmlclass
