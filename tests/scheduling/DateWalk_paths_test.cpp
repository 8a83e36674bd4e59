#include <gtest/gtest.h>

#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- Several paths to one task ---------------------------------------------------------------------------------------

/// Walls and Pipes wait for Design, and Paint, in the House, for both.
class Diamond : public Plan {
public:
    Diamond() {
        WithLinks().Task("Design").From(Monday).Task("Walls").From(Tuesday).After("Design");
        Task("Pipes").From(Tuesday).Lasting(3).After("Design").Task("Drain").From(Friday);
        Task("House").Task("Paint").Under("House").From(Wednesday).After("Walls");
    }
};

TEST(DependsDateChanged, MovesTheEndOfADiamondOnceWithTheFirstPath) {
    Diamond plan;
    plan.After("Pipes");
    DateChange change;

    EXPECT_TRUE(change.Move(plan, "Design", Thursday));

    EXPECT_EQ(Weeks(plan),
              "Design |...#.  |.....  |\n"
              "Walls  |....#  |.....  |\n"
              "Pipes  |....#==|##...  |\n"
              "Drain  |....#  |.....  |\n"
              "House  |.....  |#....  |\n"
              "Paint  |.....  |#....  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) +
                                Moved(6, Monday + 7, Monday + 7, 1) + Summed(5, Monday + 7, Monday + 7, 1) +
                                Moved(3, Friday, Tuesday + 7, 3));
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "2" "6" 5 "3")");
}

TEST(DependsDateChanged, KeepsAdjustingTheParentOfTheEndWhereAnotherSuccessorComesFirst) {
    Diamond plan;
    plan.About("Drain").After("Pipes").About("Paint").After("Pipes");
    DateChange change;

    EXPECT_TRUE(change.Move(plan, "Design", Thursday));

    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) +
                                Moved(6, Monday + 7, Monday + 7, 1) + Summed(5, Monday + 7, Monday + 7, 1) +
                                Moved(3, Friday, Tuesday + 7, 3) + Moved(4, Wednesday + 7, Wednesday + 7, 1) +
                                Summed(5, Monday + 7, Monday + 7, 1));
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "2" "6" 5 "3" "4")");
}

TEST(DependsDateChanged, PassesBySuccessorsThatWaitForTheOneBeforeThem) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    plan.Task("Test").From(Wednesday).After("Design").After("Build");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Thursday, 1));
    EXPECT_EQ(plan.Heard(),
              Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) + Moved(3, Monday + 7, Monday + 7, 1));
}

TEST(DependsDateChanged, KeepsPassingThemByWhereTheOneBeforeDidNotMove) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Undated").After("Design");
    plan.Task("Test").From(Wednesday).After("Design").After("Undated");
    DateChange change;
    EXPECT_TRUE(change.Move(plan, "Design", Thursday));
    EXPECT_EQ(Span(plan["Test"]), "2026-03-04 2026-03-04 1");
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1));
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "2")");
}

TEST(DependsDateChanged, EndsACycleOfTwoAfterOneVisitOfEach) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    plan.About("Design").After("Build");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1));
}

TEST(DependsDateChanged, EndsACycleOfThreeAfterOneVisitOfEach) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(2).Task("Build").From(Wednesday).Lasting(2).After("Design");
    plan.Task("Test").From(Friday).After("Build").About("Design").After("Test");
    DateChange change{.LeadTimeCalc = True};

    EXPECT_TRUE(change.Move(plan, "Design", Tuesday));

    EXPECT_EQ(Weeks(plan),
              "Design |.##..  |.....  |\n"
              "Build  |...##  |.....  |\n"
              "Test   |.....  |#....  |\n");
    EXPECT_EQ(plan.Heard(),
              Moved(1, Tuesday, Wednesday, 2) + Moved(2, Thursday, Friday, 2) + Moved(3, Monday + 7, Monday + 7, 1));
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "2" "3")");
    EXPECT_EQ(Listed(plan["Design"].TaskLeadTime()), "3|-4") << "measured before the task at its end moved";
}

TEST(DependsDateChanged, EndsAtATaskThatWaitsForItself) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).After("Design");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1));
}

// --- The first successor and the later ones --------------------------------------------------------------------------

TEST(DependsDateChanged, KeepsTheParentOfALaterSuccessorAsItWas) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Walls").From(Tuesday).After("Design");
    plan.Task("House").Task("Pipes").Under("House").From(Tuesday).Lasting(2).After("Design");
    plan.col().AdjustSummary(plan.Key("House"));
    plan.Heard();
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Thursday, 1));
    EXPECT_EQ(Weeks(plan),
              "Design |...#.  |.....  |\n"
              "Walls  |....#  |.....  |\n"
              "House  |.##..  |.....  |\n"
              "Pipes  |....#==|#....  |\n");
    EXPECT_EQ(plan.Heard(),
              Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) + Moved(4, Friday, Monday + 7, 2));
}

TEST(DependsDateChanged, KeepsAskingTheChangedTaskOnWhichSideOfItsEndALaterSuccessorBegins) {
    struct Row {
        const char* what;
        int lag;
        int gap;
        const char* weeks;
    };
    for (const Row& row : {Row{"a gap of -1 behind a task without a lag", 0, -1,
                               "Design |..#..  |\n"
                               "Build  |...#.  |\n"
                               "Order  |...#.  |\n"},
                           Row{"a gap of 0 behind a task with a lag of -1", -1, 0,
                               "Design |..#..  |\n"
                               "Build  |...#.  |\n"
                               "Order  |..#..  |\n"}}) {
        SCOPED_TRACE(row.what);
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
        plan.Task("Order").From(Tuesday).After("Design", row.gap);
        plan["Design"].TaskLag(row.lag);
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
        EXPECT_EQ(Weeks(plan, 1), row.weeks);
        EXPECT_EQ(plan["Order"].TaskLag(), row.gap) << "the steps follow the stored gap";
    }
}

TEST(DependsDateChanged, MeasuresEveryPredecessorOfATaskThatTheHostMoves) {
    for (const Boolean measured : {True, False}) {
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Order").From(Monday);
        plan.Task("Build").From(Tuesday).After("Design").After("Order", 7);
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1, measured));
        EXPECT_EQ(Span(plan["Build"]), "2026-03-05 2026-03-05 1");
        EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), measured ? "1|0 2|2" : "1|0 2|7");
        EXPECT_EQ(plan["Build"].TaskLag(), measured ? 2 : 0);
    }
}

// --- Links that are not what they should be --------------------------------------------------------------------------

TEST(DependsDateChanged, FollowsALinkThatOnlyThePredecessorKnowsWithoutAGap) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Friday);
    plan["Design"].TaskSuccessor()->Add("2", "2");
    plan["Build"].TaskLag(3);
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Tuesday, 1));
    EXPECT_EQ(Span(plan["Build"]), "2026-03-04 2026-03-04 1");
    EXPECT_EQ(plan["Build"].TaskLag(), 0);
}

TEST(DependsDateChanged, DoesNotSeeALinkThatOnlyTheSuccessorKnows) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday);
    plan["Build"].TaskPredecessor()->Add("1", "1");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1));
}

TEST(DependsDateChanged, TakesALinkToNoTaskOffSilentlyAndGoesOnWithTheNext) {
    struct Row {
        const char* what;
        const char* before;
        const char* visited;
    };
    for (const Row& row : {Row{"in front", "1", R"("1" "77" "2")"}, Row{"behind", "", R"("1" "2" "77")"}}) {
        SCOPED_TRACE(row.what);
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
        const Variant place = *row.before != '\0' ? Variant(1) : Variant(Variant::Missing{});
        plan["Design"].TaskSuccessor()->Add("77", "77", place);
        DateChange change;
        EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
        EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1));
        EXPECT_EQ(Listed(plan["Design"].TaskSuccessor()), "2");
        EXPECT_EQ(Visited(change.p_changeds), row.visited);
    }
}

TEST(DependsDateChanged, CountsALinkToNoTaskAsOneOutOfTheParent) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Design").Under("House").From(Monday);
    plan["Design"].TaskSuccessor()->Add("77", "77");
    plan.Task("Build").Under("House").From(Tuesday).After("Design");
    DateChange change{.p_not_same_parent = True};
    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(Span(plan["Build"]), "2026-03-05 2026-03-05 1");
    EXPECT_EQ(Visited(change.p_changeds), R"("2" 1 "77" "3")");
}

TEST(DependsDateChanged, KeepsItsWayWhateverAutoLinkSays) {
    for (const Boolean auto_link : {True, False}) {
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
        plan.col().AutoLink(auto_link);
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
        EXPECT_EQ(Span(plan["Build"]), "2026-03-05 2026-03-05 1");
    }
}

// --- Out of the parent -----------------------------------------------------------------------------------------------

TEST(DependsDateChanged, WalksFromTheFirstSuccessorInAnotherParentOn) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Design").Under("House").From(Monday);
    plan.Task("Walls").Under("House").From(Tuesday).After("Design");
    plan.Task("Roof").Under("House").From(Tuesday).After("Design").Task("Shed").From(Tuesday).After("Design");
    plan.Task("Paint").Under("House").From(Tuesday).After("Design");
    DateChange change{.p_not_same_parent = True};

    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));

    EXPECT_EQ(plan.Heard(),
              Moved(2, Wednesday, Wednesday, 1) + Moved(5, Thursday, Thursday, 1) + Moved(6, Thursday, Thursday, 1))
        << "those in front of it stay, those behind it move whatever their parent";
    EXPECT_EQ(Visited(change.p_changeds), R"("2" 1 "5" "6")");
}

TEST(DependsDateChanged, CountsEveryTaskAtTheTopAsInAnotherParent) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    DateChange change{.p_not_same_parent = True};
    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1));
}

TEST(DependsDateChanged, AsksForAnotherParentAtEveryTaskOfTheWalk) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Design").Under("House").From(Monday);
    plan.Task("Garden").Task("Shed").Under("Garden").From(Tuesday).After("Design");
    plan.Task("Path").Under("Garden").From(Wednesday).After("Shed").Task("Hedge").From(Wednesday).After("Shed");
    DateChange change{.p_not_same_parent = True};

    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));

    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Wednesday, 1) + Moved(4, Thursday, Thursday, 1) +
                                Moved(6, Friday, Friday, 1) + Summed(3, Wednesday, Thursday, 2));
    EXPECT_EQ(Visited(change.p_changeds), R"("2" 1 "4" 3 "6")");
}

// --- What comes back to the caller -----------------------------------------------------------------------------------

TEST(DependsDateChanged, EntersWhomItReachedIntoTheCallersDictionary) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Design").Under("House").From(Monday);
    plan.Task("Garden").Task("Shed").Under("Garden").From(Tuesday).After("Design").Task("Path").Under("Garden");
    plan.From(Wednesday).After("Shed");
    const auto mine = Make<Dictionary>();
    mine->Add("mine", 7);
    DateChange change{.p_changeds = mine};
    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(change.p_changeds, mine);
    EXPECT_EQ(Visited(mine), R"("mine"! "2" 1 "4" 3 "5")") << "tasks as texts, parents as numbers, each once";
}

TEST(DependsDateChanged, LeavesOutTasksWhoseTextIsInTheDictionaryAlready) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    plan.Task("Test").From(Wednesday).After("Build");
    DateChange change{.p_changeds = Make<Dictionary>()};
    change.p_changeds->Add("2", "2");
    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1));
    EXPECT_EQ(Visited(change.p_changeds), R"("2" "1")");
}

TEST(DependsDateChanged, WalksFromATaskThatIsInTheDictionaryAlready) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    DateChange change{.p_changeds = Make<Dictionary>()};
    change.p_changeds->Add("1", "1");
    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1));
}

TEST(DependsDateChanged, IsNotHeldUpByNumbersInTheDictionary) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    DateChange change{.p_changeds = Make<Dictionary>()};
    change.p_changeds->Add(Long(1), 1);
    change.p_changeds->Add(Long(2), 2);
    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1));
    EXPECT_EQ(Visited(change.p_changeds), R"(1 2 "1" "2")");
}

TEST(DependsDateChanged, HandsBackTheShiftOfTheLastTaskThatFollowed) {
    for (const Boolean measured : {True, False}) {
        Plan plan;
        plan.WithLinks().Task("Design").From(Wednesday).Task("Build").From(Thursday).Lasting(2).After("Design");
        plan.Task("Test").From(Monday + 7).After("Build");
        DateChange change{.LeadTimeCalc = measured, .p_diff = 9};
        EXPECT_TRUE(change.Move(plan, "Design", Thursday));
        EXPECT_EQ(Weeks(plan),
                  "Design |...#.  |.....  |\n"
                  "Build  |....#==|#....  |\n"
                  "Test   |.....  |.#...  |\n");
        EXPECT_EQ(change.p_diff, 1) << "calendar days from Monday to Tuesday";
    }
}

}  // namespace
}  // namespace mrlxmlclass
