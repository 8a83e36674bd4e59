#pragma once

#include "tests/scheduling/DateChange.h"

namespace mrlxmlclass::testing {

/// A call of SummaryTaskDateChanged2 by the names of its arguments; what it hands back stands here afterwards.
///
///     SummaryMove move{.stDate = Friday};
///     EXPECT_TRUE(move.Of(plan, "House"));
struct SummaryMove {
    Date stDate = {};
    Date UsethisDate = {};
    Integer p_diff = 0;
    Ref<Dictionary> p_changeds = {};

    Boolean Of(Plan& plan, const String& task) {
        return plan.col().SummaryTaskDateChanged2(plan.Key(task), stDate, UsethisDate, True, Date(), p_changeds, False,
                                                  p_diff);
    }
};

}  // namespace mrlxmlclass::testing
