#pragma once

#include <vector>

#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/Dictionary.h"

namespace mrlxmlclass {

/// The days that a dictionary of a calendar names, as numbers, so that asking for a day writes no text. They are taken
/// anew whenever the dictionary is another one or has changed, or dates are written in another way.
class DaySet {
public:
    enum class Keys { Texts, TextsAndDates };

    explicit DaySet(Keys keys) : keys_(keys) {}

    /// True when `days` has a key that is the short date of that day, to the letter, or, if dates count, the day
    /// itself.
    bool Has(const Ref<Dictionary>& days, Date day);
    /// The days themselves, ascending.
    const std::vector<double>& Days(const Ref<Dictionary>& days);

private:
    void Take(const Ref<Dictionary>& days);

    Keys keys_;
    Ref<Dictionary> source_;  // held, so that no other dictionary can stand in its place
    std::uint64_t stamp_ = 0;
    std::uint64_t locale_stamp_ = 0;
    std::vector<double> days_;
};

}  // namespace mrlxmlclass
