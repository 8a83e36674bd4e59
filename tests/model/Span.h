#pragma once

#include "tests/model/World.h"

namespace mrlxmlclass::model {

/// The span of the plan, counted task by task; today where there is none.
Date FirstDay(const World& world);
Date LastDay(const World& world);

/// The span is counted as it is task by task, and whoever is said to hold an end of it stands in the outline. Complains
/// where not.
void CheckSpan(World& world);

/// What is known of the span, without a count, before an edit. It need not be right: a task whose start is set while
/// nothing is known is taken for the first, and a duration alone tells nobody of the new end. But what sets no date
/// leaves it alone.
class KnownSpan {
public:
    explicit KnownSpan(World& world);
    void Check(std::string_view operation) const;

private:
    struct Known {
        Date first;
        Long first_holder;
        Date last;
        Long last_holder;
        bool operator==(const Known&) const = default;
    };
    static Known Now();

    World& world_;
    Known before_ = Now();
};

}  // namespace mrlxmlclass::model
