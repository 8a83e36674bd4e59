#pragma once

#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// Both sides of every link as the tasks hold them, a task after the other by key, the names in the order of the
/// lists: whom it waits for, each with the lead time stored towards it, and who waits for it. Tasks without links don't
/// show; a key that finds no task shows as it is.
///
///     Design -> Build Test
///     Build <- Design|2
///     Test <- Design
String Links(const Plan& plan);

/// A plan with live links in which every link that is made is stored.
class LinkingPlan : public Plan {
public:
    LinkingPlan() {
        WithLinks();
        col().AutoLink(True);
    }
};

}  // namespace mrlxmlclass::testing
