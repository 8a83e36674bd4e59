#include "mrlxmlclass/items/GoalsCol.h"

#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/runtime/Tail.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"GoalsCol", FailureTail::Gives::SoFar};

}  // namespace

Ref<GoalsCol> GoalsCol::Sort() {
    return kTail.Run<Ref<GoalsCol>>("Sort", [&](Ref<GoalsCol>& result) {
        const auto sorted = Make<GoalsCol>();
        In(sorted).elementName(element_name_);
        In(sorted).records() = SortedByPosition(NewEnum());
        result = sorted;
    });
}

Long GoalsCol::Internal::FindGoalKeys(const String& name) const {
    for (const auto& entry : self_.NewEnum()) {
        if (entry.item->GoalName() == name) return entry.item->Goalkey();
    }
    return 0;
}

}  // namespace mrlxmlclass
