#pragma once

#include "tests/model/World.h"

namespace mrlxmlclass::model {

/// The span of the plan, counted task by task; today where there is none.
Date FirstDay(const World& world);
Date LastDay(const World& world);

/// The span is counted as it is task by task, and whoever is said to hold an end of it stands in the outline. Complains
/// where not.
void CheckSpan(World& world);

/// What is known of the span, without a count, before an edit. What sets no date leaves it alone; and no other edit
/// leaves an end wrong that was right or unknown before, unless one of the excuses holds that Span.cpp lists.
class KnownSpan {
public:
    explicit KnownSpan(World& world);
    void Check(std::string_view operation) const;

    /// One end of the span: what is known of it, and what it is.
    struct End {
        Date day;
        Long holder;
        Date counted;
        std::optional<Date> holders_day;  ///< nothing where nobody holds it
        bool of_summary;                  ///< its holder has children
        bool of_milestone;

        bool Right() const { return !day.set() || day == counted; }
        /// Right, and not by chance, its holder having left it.
        bool Held() const { return Right() && (!day.set() || !holders_day || *holders_day == day); }
        bool SameAs(const End& other) const { return day == other.day && holder == other.holder; }
    };

private:
    struct Ends {
        End first;
        End last;
        bool undated;  ///< a task of the outline is
    };
    static Ends Now(const World& world);

    World& world_;
    Ends before_ = Now(world_);
};

}  // namespace mrlxmlclass::model
