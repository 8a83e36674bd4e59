#include <gtest/gtest.h>

#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Build, in the House, waits for Design, which has become longer; Test waits for Build.
///
///     Design |###..  |
///     House  |.##..  |
///     Build  |.##..  |
///     Test   |....#  |
class Longer : public Plan {
public:
    explicit Longer(int gap = 0) {
        WithLinks().Task("Design").From(Monday).Lasting(3);
        Task("House").Task("Build").Under("House").From(Tuesday).Lasting(2).After("Design", gap);
        Task("Test").From(Friday).After("Build");
        col().AdjustSummary(Key("House"));
        Heard();
    }

    /// AdjustDate of Build for Design; what it hands back stands below.
    Boolean Adjust(Integer theLeadTime, Boolean LeadTimeCalc = False, Boolean AdjustOtherDate = True,
                   Boolean adjustParent = True) {
        return col().AdjustDate(Key("Build"), design(), theLeadTime, LeadTimeCalc, AdjustOtherDate, adjustParent,
                                changeds, False, diff, before);
    }
    Ref<TasksCls> design() const { return col().Item("1"); }

    Ref<Dictionary> changeds;
    Integer diff = 9;
    Date before = Friday;
};

TEST(AdjustDate, MovesASuccessorBehindTheEndAndWalksOn) {
    Longer plan;

    EXPECT_TRUE(plan.Adjust(0));

    EXPECT_EQ(Weeks(plan),
              "Design |###..  |.....  |\n"
              "House  |...##  |.....  |\n"
              "Build  |...##  |.....  |\n"
              "Test   |.....  |#....  |\n");
    EXPECT_EQ(plan.Heard(),
              Moved(3, Thursday, Friday, 2) + Moved(4, Monday + 7, Monday + 7, 1) + Summed(2, Thursday, Friday, 2));
    EXPECT_EQ(Visited(plan.changeds), R"("3" 2 "4")");
    EXPECT_EQ(plan.diff, 3) << "of Test, the last that followed";
    EXPECT_EQ(plan.before, Tuesday) << "the start before the move";
}

TEST(AdjustDate, MovesTheOneTaskAloneAndTellsOnlyOfItsParent) {
    Longer plan;
    EXPECT_FALSE(plan.Adjust(0, False, /*AdjustOtherDate=*/False));
    EXPECT_EQ(plan.Heard(), Summed(2, Thursday, Friday, 2));
    EXPECT_EQ(Span(plan["Build"]), "2026-03-05 2026-03-06 2");
    EXPECT_EQ(Span(plan["Test"]), "2026-03-06 2026-03-06 1");
    EXPECT_EQ(Visited(plan.changeds), "nothing");
    EXPECT_EQ(plan.diff, 2);
}

TEST(AdjustDate, LeavesTheParentAloneWhenItIsToldTo) {
    Longer plan;
    EXPECT_TRUE(plan.Adjust(0, False, True, /*adjustParent=*/False));
    EXPECT_EQ(plan.Heard(), Moved(3, Thursday, Friday, 2) + Moved(4, Monday + 7, Monday + 7, 1));
    EXPECT_EQ(Span(plan["House"]), "2026-03-03 2026-03-04 2");
}

TEST(AdjustDate, KeepsTheSideOfTheEndApartFromTheStepsOfTheStoredGap) {
    struct Row {
        const char* what;
        int side;
        int gap;
        Date start;
    };
    for (const Row& row :
         {Row{"both 0", 0, 0, Thursday}, Row{"both -1", -1, -1, Wednesday}, Row{"on the end, no gap", -1, 0, Wednesday},
          Row{"behind the end, a gap of -1", 0, -1, Thursday}, Row{"behind the end, a gap of 2", 0, 2, Monday + 7},
          Row{"on the end, a gap of 2", -1, 2, Friday}, Row{"far out, a gap of -2", 999, -2, Wednesday},
          Row{"far in, a gap of -2", -999, -2, Tuesday}}) {
        SCOPED_TRACE(row.what);
        Longer plan(row.gap);
        plan.Adjust(row.side, False, /*AdjustOtherDate=*/False);
        EXPECT_EQ(DayName(plan["Build"].TaskBDate()), DayName(row.start));
        EXPECT_EQ(plan["Build"].TaskLag(), row.gap);
    }
}

TEST(AdjustDate, MeasuresTheGapAgainWhenItIsToldTo) {
    Longer plan(2);
    EXPECT_TRUE(plan.Adjust(2, True));
    EXPECT_EQ(plan.Heard(), Moved(3, Monday + 7, Tuesday + 7, 2) + Moved(4, Wednesday + 7, Wednesday + 7, 1) +
                                Summed(2, Monday + 7, Tuesday + 7, 2));
    EXPECT_EQ(plan.diff, 5);
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|2");
}

TEST(AdjustDate, LeavesATaskWithoutAStart) {
    Longer plan(3);
    plan.About("Build").Holding(Date(), Wednesday, 2);
    EXPECT_FALSE(plan.Adjust(0));
    EXPECT_EQ(Span(plan["Build"]), "- 2026-03-04 2");
    EXPECT_EQ(plan["Build"].TaskLag(), 3) << "it takes up its gap all the same";
    EXPECT_EQ(plan.Heard(), Summed(2, Wednesday, Wednesday, 1));
    EXPECT_EQ(plan.diff, 9);
    EXPECT_EQ(plan.before, Date());
}

TEST(AdjustDate, ClearsATaskWhosePredecessorHasNoEndAndRecordsTheShift) {
    Longer plan;
    plan.About("Design").Holding(Monday, Date(), 3);
    EXPECT_FALSE(plan.Adjust(0));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustDate 6\n");
    EXPECT_EQ(Span(plan["Build"]), "- - 0");
    EXPECT_EQ(plan.Heard(), "") << "nor is the parent adjusted";
    EXPECT_EQ(plan.diff, 9);
    EXPECT_EQ(plan.before, Tuesday);
}

TEST(AdjustDate, DoesNothingWithoutAChangedTask) {
    Longer plan;
    Ref<Dictionary> changeds;
    EXPECT_TRUE(plan.col().AdjustDate(plan.Key("Build"), {}, 0, True, True, True, changeds));
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(Visited(changeds), "nothing");
}

TEST(AdjustDate, TakesAKeyOfNoTaskOffTheChangedTaskSilently) {
    Longer plan;
    plan["Design"].TaskSuccessor()->Add("77", "77");
    EXPECT_TRUE(
        plan.col().AdjustDate("77", plan.design(), 0, True, True, True, plan.changeds, False, plan.diff, plan.before));
    EXPECT_EQ(Listed(plan["Design"].TaskSuccessor()), "3");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.diff, 9);
    EXPECT_EQ(plan.before, Friday);
    EXPECT_EQ(Visited(plan.changeds), "nothing");
}

TEST(AdjustDate, ReportsNoKeyThatIsNowhere) {
    for (const char* key : {"77", "", "0", "x"}) {
        Longer plan;
        plan.col().AdjustDate(key, plan.design(), 0, True);
        EXPECT_EQ(plan.failures.Taken(), "");
        EXPECT_EQ(plan.Heard(), "");
        EXPECT_EQ(Listed(plan["Design"].TaskSuccessor()), "3");
    }
}

TEST(AdjustDate, FollowsATaskThatIsInNoPlanWithoutAGap) {
    Longer plan(5);
    const Ref<TasksCls> stranger = plan.design()->Clone();
    stranger->TaskKey(99);
    stranger->TaskEDate(Friday);
    EXPECT_FALSE(plan.col().AdjustDate(plan.Key("Build"), stranger, 0, False, False));
    EXPECT_EQ(Span(plan["Build"]), "2026-03-09 2026-03-10 2");
    EXPECT_EQ(plan["Build"].TaskLag(), 0);
}

TEST(AdjustDate, MovesASummaryItselfAndNotItsChildren) {
    Longer plan;
    EXPECT_TRUE(plan.col().AdjustDate(plan.Key("House"), plan.design(), 0, False));
    const Told house{.key = 2, .start = Thursday, .end = Friday, .duration = 2, .parent = True};
    EXPECT_EQ(plan.Heard(), house.Moved());
    EXPECT_EQ(Span(plan["Build"]), "2026-03-03 2026-03-04 2");
}

TEST(AdjustDate, HandsOnToWalkOutOfTheParentOnly) {
    Longer plan;
    plan.Task("Paint").Under("House").From(Friday).After("Build");
    plan.About("Test").Under("House");
    EXPECT_TRUE(plan.col().AdjustDate(plan.Key("Build"), plan.design(), 0, False, True, /*adjustParent=*/False, {},
                                      /*p_do_same_parent=*/True));
    EXPECT_EQ(plan.Heard(), Moved(3, Thursday, Friday, 2));
}

TEST(AdjustDate, StopsWhereTheCallersDictionaryHoldsASuccessor) {
    Longer plan;
    plan.changeds = Make<Dictionary>();
    plan.changeds->Add("4", "4");
    EXPECT_TRUE(plan.Adjust(0));
    EXPECT_EQ(plan.Heard(), Moved(3, Thursday, Friday, 2) + Summed(2, Thursday, Friday, 2));
    EXPECT_EQ(Visited(plan.changeds), R"("4" "3" 2)");
}

TEST(AdjustDate, MovesATaskThatIsInTheCallersDictionaryItself) {
    Longer plan;
    plan.changeds = Make<Dictionary>();
    plan.changeds->Add("3", "3");
    EXPECT_TRUE(plan.Adjust(0));
    EXPECT_EQ(Span(plan["Build"]), "2026-03-05 2026-03-06 2");
}

TEST(AdjustDate, MovesNobodyElseWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Tuesday).After("Design");
    plan.Task("Test").From(Wednesday).After("Build");
    EXPECT_TRUE(plan.col().AdjustDate("2", plan.col().Item("1"), 0, False));
    EXPECT_EQ(plan.Heard(), Moved(2, Thursday, Thursday, 1));
}

TEST(DoWeChangeNow, LetsEveryPairMove) {
    Plan plan;
    plan.Task("Design").Task("Build");
    EXPECT_EQ(plan.col().DoWeChangeNow("1", "2"), True);
    EXPECT_EQ(plan.col().DoWeChangeNow("77", ""), True);
}

}  // namespace
}  // namespace mrlxmlclass
