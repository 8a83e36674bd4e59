#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace mrlxmlclass {

/// A vector that gives up its first item as fast as its last.
template <class Item>
class Sequence {
public:
    std::size_t size() const { return slots_.size() - gone_; }
    Item* begin() { return slots_.data() + gone_; }
    Item* end() { return slots_.data() + slots_.size(); }
    const Item* begin() const { return slots_.data() + gone_; }
    const Item* end() const { return slots_.data() + slots_.size(); }
    Item& operator[](std::size_t index) { return begin()[index]; }
    const Item& operator[](std::size_t index) const { return begin()[index]; }

    void Reserve(std::size_t count) { slots_.reserve(gone_ + count); }
    /// For one more, so that inserting it cannot fail.
    void MakeRoom() {
        if (slots_.size() == slots_.capacity()) slots_.reserve(std::max<std::size_t>(1, 2 * slots_.size()));
    }
    void Insert(std::size_t at, Item item) { slots_.insert(Slot(at), std::move(item)); }
    /// Moves whichever are fewer, the items before it or those behind.
    void Erase(std::size_t at) {
        if (at >= size() / 2) {
            slots_.erase(Slot(at));
            return;
        }
        std::move_backward(Slot(0), Slot(at), Slot(at + 1));
        if (++gone_ > size()) {
            slots_.erase(slots_.begin(), Slot(0));
            gone_ = 0;
        }
    }

private:
    auto Slot(std::size_t at) { return slots_.begin() + static_cast<std::ptrdiff_t>(gone_ + at); }

    std::vector<Item> slots_;
    std::size_t gone_ = 0;  ///< in front, where there is nothing left but empty slots
};

}  // namespace mrlxmlclass
