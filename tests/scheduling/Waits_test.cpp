#include "mrlxmlclass/scheduling/Waits.h"

#include <gtest/gtest.h>

#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

class Waiting : public Plan {
public:
    Waiting() { WithLinks(); }
    Ref<TasksCol> tasks() const { return app->xTaskCol(); }
    Ref<TasksCls> At(const String& name) const { return Ref<TasksCls>(&(*this)[name]); }
    /// "Build<Design", each that waits and what it waits for.
    String WaitsOfTask(const String& name) const {
        String list;
        for (const Wait& wait : WaitsOf(tasks(), At(name))) {
            list += (list.empty() ? "" : " ") + wait.waiting->TaskName() + "<" + wait.predecessor->TaskName();
        }
        return list;
    }
};

TEST(WaitsOf, GoesUpFromTheTaskItself) {
    Waiting plan;
    plan.Task("A").Task("B").Task("Phase").After("B").Task("Part").Under("Phase").After("A", 2).After("B");
    EXPECT_EQ(plan.WaitsOfTask("Part"), "Part<A Part<B Phase<B");
    EXPECT_EQ(LeadOf(plan.tasks(), {plan.At("Part"), plan.At("A")}), 2);
    EXPECT_EQ(LeadOf(plan.tasks(), {plan.At("Part"), plan.At("Phase")}), 0);
    EXPECT_EQ(plan.WaitsOfTask("A"), "");
}

TEST(WaitsOf, PassesOverCandidatesAndTasksThatAreNotThere) {
    Waiting plan;
    plan.Task("Gone").Candidate().Task("A").After("Gone");
    plan["A"].TaskPredecessor()->Add("77", "77");
    EXPECT_EQ(plan.WaitsOfTask("A"), "");
}

TEST(WaitsOf, EndsWhereParentsRunInACircle) {
    Waiting plan;
    BuildRing(plan);
    plan.Task("C");
    plan.About("B").After("C");
    EXPECT_EQ(plan.WaitsOfTask("A"), "B<C");
}

TEST(FollowersOf, GivesThoseThatKnowIt) {
    Waiting plan;
    plan.Task("A").Task("B").After("A").Task("C").After("A").Task("D");
    plan["A"].TaskSuccessor()->Add("4", "4");
    plan["A"].TaskSuccessor()->Add("77", "77");
    String names;
    for (const auto& follower : FollowersOf(plan.tasks(), plan["A"])) names += follower->TaskName();
    EXPECT_EQ(names, "BC");
    EXPECT_TRUE(FollowersOf(plan.tasks(), plan["B"]).empty());
}

TEST(StoreMeasuredLead, StoresWhatTheDatesTell) {
    Waiting plan;
    plan.Task("A").From(Monday).Task("B").From(Thursday).After("A", 9).Task("C").Holding({}, {}, 1).After("A", 4);
    StoreMeasuredLead(plan.tasks(), {plan.At("B"), plan.At("A")});
    EXPECT_EQ(LeadOf(plan.tasks(), {plan.At("B"), plan.At("A")}), 2);
    StoreMeasuredLead(plan.tasks(), {plan.At("C"), plan.At("A")});
    EXPECT_EQ(LeadOf(plan.tasks(), {plan.At("C"), plan.At("A")}), 4) << "it has no dates";
}

TEST(StandsBelow, SeesAnyDepthAndEndsInACircle) {
    Waiting plan;
    BuildChain(plan, 4);
    EXPECT_TRUE(StandsBelow(plan.tasks(), plan["4"], plan["1"]));
    EXPECT_FALSE(StandsBelow(plan.tasks(), plan["1"], plan["4"]));
    EXPECT_FALSE(StandsBelow(plan.tasks(), plan["2"], plan["2"]));
    plan.Task("A").Under("A");
    EXPECT_TRUE(StandsBelow(plan.tasks(), plan["A"], plan["A"]));
    EXPECT_FALSE(StandsBelow(plan.tasks(), plan["A"], plan["1"]));
}

TEST(WaitsForItself, SeesACircleThroughLinksAndParents) {
    Waiting plan;
    plan.Task("A").Task("B").After("A").Task("Phase").After("B").Task("Part").Under("Phase");
    for (const char* name : {"A", "B", "Phase", "Part"}) EXPECT_FALSE(WaitsForItself(plan.tasks(), plan.At(name)));
    plan.About("A").After("Part");
    for (const char* name : {"A", "B", "Phase", "Part"}) EXPECT_TRUE(WaitsForItself(plan.tasks(), plan.At(name)));
}

TEST(LinkDates, CountsWorkingDaysBetween) {
    const Plan plan;
    struct Row {
        Date end, start;
        std::int64_t gap;
    };
    for (const Row& row : {Row{Monday, Tuesday, 0}, Row{Monday, Wednesday, 1}, Row{Friday, NextMonday, 0},
                           Row{Friday, Saturday, 0}, Row{Monday, Monday, -1}, Row{Wednesday, Monday, -3},
                           Row{NextMonday, Friday, -2}, Row{Saturday, Saturday, -1}, Row{Monday, NextMonday + 7, 9}}) {
        SCOPED_TRACE(DayName(row.end) + " " + DayName(row.start));
        EXPECT_EQ((LinkDates{row.end, row.start}.Gap()), row.gap);
    }
    EXPECT_FALSE((LinkDates{Date(), Monday}.measurable()));
    EXPECT_FALSE((LinkDates{Monday, Date()}.measurable()));
    EXPECT_FALSE((LinkDates{Monday, Date(1e9)}.measurable()));
    EXPECT_TRUE((LinkDates{Monday, Monday}.measurable()));
}

}  // namespace
}  // namespace mrlxmlclass
