#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(GoalsSort, GivesANewListAndLeavesThisOneAsItIs) {
    Items s;
    const auto goals = s.Master<GoalsCol>();
    for (const int position : {3, 1, 2}) goals->AddItem(s.Goal("G", position));
    const auto sorted = goals->Sort();
    EXPECT_EQ(KeysOf(sorted), "2 3 1");
    EXPECT_EQ(KeysOf(goals), "1 2 3");
    EXPECT_EQ(sorted->Item(2), goals->Item(2));
    goals->SortMe();
    EXPECT_EQ(KeysOf(goals), "2 3 1");
}

TEST(FindGoalKeys, FindsTheFirstGoalOfExactlyThatName) {
    Items s;
    const auto goals = s.Master<GoalsCol>();
    for (const char* name : {"Safe", "Cheap", "Cheap"}) goals->AddItem(s.Goal(name));
    EXPECT_EQ(In(goals).FindGoalKeys("Cheap"), 2);
    EXPECT_EQ(In(goals).FindGoalKeys("cheap"), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
