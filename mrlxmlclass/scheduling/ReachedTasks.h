#pragma once

#include <bitset>
#include <unordered_set>

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Dictionary.h"

namespace mrlxmlclass {

/// The tasks that a walk has reached: each is moved once. A dictionary that the caller hands in is read at the start
/// and hears of every task.
class ReachedTasks {
public:
    explicit ReachedTasks(ByRef<Ref<Dictionary>> told);

    /// Gives a caller who has a variable without a dictionary a new one.
    void Tell() {
        if (told_.Heard() && !*told_) *told_ = Make<Dictionary>();
    }
    bool Has(KeyText key) const {
        return Small(key) ? small_[static_cast<std::size_t>(key.number())] : others_.contains(key);
    }
    void Add(KeyText key) {
        if (*told_) TellOf(key);
        Mark(key);
    }
    /// Only the dictionary hears of a parent, under a number, which is never the key of a task reached.
    void AddParent(Long key) {
        if (*told_ && key != 0) TellOfParent(key);
    }

private:
    static constexpr std::int32_t kLargest = INT16_MAX;
    static bool Small(KeyText key) { return key.is_number() && key.number() <= kLargest; }
    void Mark(KeyText key) {
        if (Small(key)) {
            small_[static_cast<std::size_t>(key.number())] = true;
        } else {
            others_.insert(key);
        }
    }
    void TellOf(KeyText key);
    void TellOfParent(Long key);

    std::bitset<kLargest + 1> small_;
    std::unordered_set<KeyText> others_;
    ByRef<Ref<Dictionary>> told_;
};

}  // namespace mrlxmlclass
