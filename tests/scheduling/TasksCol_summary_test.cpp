#include <gtest/gtest.h>

#include <algorithm>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Outlines.h"
#include "tests/support/Told.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Start, end and duration of a task.
String Span(TasksCls& task) {
    return DayName(task.TaskBDate()) + " " + DayName(task.TaskEDate()) + " " +
           std::to_string(static_cast<int>(task.TaskDuration()));
}

/// A child of "Phase" whose dates are stored as they stand, without any rule.
void Child(Plan& plan, const String& name, Date start, Date end) {
    plan.Task(name).Under("Phase");
    In(plan[name]).StoreStart(start);
    In(plan[name]).StoreEnd(end);
}

TEST(AdjustSummary, SpansTheChildrenAndTellsItFromTheDurationOn) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Tuesday, Thursday);
    Child(plan, "Build", Monday, Wednesday);

    EXPECT_TRUE(plan.col().AdjustSummary("1").is_empty());

    EXPECT_EQ(Span(plan["Phase"]), "2026-03-02 2026-03-05 4");
    EXPECT_EQ(plan.Heard(),
              "DurationChange(1, 4, days, False, True)\n"
              "TaskDurationChange(1, 4, days, False, True)\n"
              "DateEndChange(1, 2026-03-05, False, True, days)\n"
              "DateStartChange(1, 2026-03-02, False, True)\n");
    EXPECT_TRUE(plan["Phase"].TaskBDateValid());
    EXPECT_TRUE(plan["Phase"].TaskEDateValid());
    EXPECT_TRUE(plan["Phase"].TaskDurationValid());
}

TEST(AdjustSummary, CountsWorkingDaysBehindTheFirst) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Monday, Monday + 7);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-02 2026-03-09 6");
}

TEST(AdjustSummary, TakesAStartOnAFreeDayAsItIs) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Saturday, Monday + 7);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-07 2026-03-09 2") << "the first day counts, whatever it is";
}

TEST(AdjustSummary, CountsBackwardsWhereTheEndLiesBeforeTheStart) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Monday + 7, Friday);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-09 2026-03-06 0") << "|-3 + 1| less two free days";
}

TEST(AdjustSummary, LeavesAPhaseWithoutADatedChildUndatedAndOneDayLong) {
    Plan plan;
    plan.Task("Phase").From(Monday).Lasting(5);
    Child(plan, "Design", Date(), Date());
    plan.col().AdjustSummary("1");
    EXPECT_EQ(Span(plan["Phase"]), "- - 1");
}

TEST(AdjustSummary, MakesNoMilestoneOfASummaryOverOne) {
    Plan plan;
    plan.Task("Phase").Task("Done").Under("Phase").From(Friday).Milestone();
    plan["Phase"].TaskMilstones(True);
    plan.Heard();
    plan.col().AdjustSummary("1");
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-06 2026-03-06 1");
    EXPECT_FALSE(plan["Phase"].TaskMilstones());
}

TEST(AdjustSummary, ShrinksOnlyWhenItStartsAnew) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Monday, Friday);
    plan.col().AdjustSummary("1");
    In(plan["Design"]).StoreStart(Tuesday);
    In(plan["Design"]).StoreEnd(Wednesday);
    plan.col().AdjustSummary("1", False);
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-02 2026-03-06 5");
    plan.col().AdjustSummary("1", True);
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-03 2026-03-04 2");
}

TEST(AdjustSummary, KeepsTheStartOfTheChildBehindAnUndatedOne) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Monday, Tuesday);
    Child(plan, "Undated", Date(), Date());
    Child(plan, "Build", Wednesday, Thursday);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-04 2026-03-05 2");
}

TEST(AdjustSummary, TakesTheEndForTheStartWhenTheLastChildHasNone) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Monday, Sunday);
    Child(plan, "Undated", Date(), Date());
    plan.col().AdjustSummary("1");
    EXPECT_EQ(DayName(plan["Phase"].TaskBDate()), DayName(Monday + 7)) << "moved on to a working day";
}

TEST(AdjustSummary, RebuildsEverySummaryUpToTheTop) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House");
    Child(plan, "Design", Monday, Tuesday);
    plan.col().AdjustSummary(plan.Key("Phase"));
    EXPECT_EQ(plan.Heard(),
              "DurationChange(2, 2, days, False, True)\n"
              "TaskDurationChange(2, 2, days, False, True)\n"
              "DateEndChange(2, 2026-03-03, False, True, days)\n"
              "DateStartChange(2, 2026-03-02, False, True)\n"
              "DurationChange(1, 2, days, False, True)\n"
              "TaskDurationChange(1, 2, days, False, True)\n"
              "DateEndChange(1, 2026-03-03, False, True, days)\n"
              "DateStartChange(1, 2026-03-02, False, True)\n");
}

TEST(AdjustSummary, StartsTheParentsAnewWhateverItWasTold) {
    Plan plan;
    plan.Task("House").From(Monday).Lasting(20).Task("Phase").Under("House").From(Monday).Lasting(10);
    Child(plan, "Design", Wednesday, Thursday);
    plan.Heard();
    plan.col().AdjustSummary(plan.Key("Phase"), False);
    EXPECT_EQ(Span(plan["Phase"]), "2026-03-02 2026-03-13 10");
    EXPECT_EQ(Span(plan["House"]), "2026-03-02 2026-03-13 10");
}

TEST(AdjustSummary, CountsTheWorkingDaysOfALeaf) {
    Plan plan;
    plan.Task("Leaf").From(Monday).Lasting(2, "wks");
    In(plan["Leaf"]).StoreEnd(Monday + 7);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(Span(plan["Leaf"]), "2026-03-02 2026-03-09 6");
    EXPECT_EQ(plan["Leaf"].TaskDurationUnit(), "wks") << "the unit stays";
}

TEST(AdjustSummary, KeepsTellingALeafAsAParent) {
    Plan plan;
    plan.Task("Leaf").From(Monday).Lasting(2);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.Heard(), Summed(1, Monday, Tuesday, 2));
}

TEST(AdjustSummary, KeepsTheSummarysKeyBesideEmptyCaches) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(2);
    ModuleState& module = Module();
    for (const bool known : {false, true}) {
        module.g_MinDate = module.g_MaxDate = known ? Friday : Date();
        module.g_MinDateTaskKey = module.g_MaxDateTaskKey = known ? 7 : 0;
        plan.col().AdjustSummary("1");
        EXPECT_EQ(DayName(module.g_MinDate), known ? DayName(Friday) : "-");
        EXPECT_EQ(DayName(module.g_MaxDate), known ? DayName(Friday) : "-");
        EXPECT_EQ(module.g_MinDateTaskKey, known ? 7 : 1);
        EXPECT_EQ(module.g_MaxDateTaskKey, known ? 7 : 1);
    }
}

TEST(AdjustSummary, GoesOnWithoutTheGapToAPredecessorThatIsNotThere) {
    Plan plan;
    plan.WithLinks().Task("Phase");
    Child(plan, "Design", Monday, Tuesday);
    plan["Phase"].TaskPredecessor()->Add("77", "77");
    plan["Phase"].TaskLag(4);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/CalcLeadTime 91\n");
    EXPECT_EQ(plan["Phase"].TaskLag(), 0);
    EXPECT_EQ(plan.Heard(), Summed(1, Monday, Tuesday, 2));
}

TEST(AdjustSummary, MovesACopyOfTheFirstSummaryAlong) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House");
    Child(plan, "Design", Monday, Tuesday);
    const Ref<TasksCol> copies = plan.col().Clone();
    plan.col().AdjustSummary(plan.Key("Phase"), True, copies);
    EXPECT_EQ(Span(*copies->Item(plan.Key("Phase"))), "2026-03-02 2026-03-03 2");
    EXPECT_EQ(Span(*copies->Item(plan.Key("House"))), "- - 0");
}

TEST(AdjustSummary, KeepsTellingASilencedHostTheDuration) {
    Plan plan;
    plan.Silenced().Task("Phase");
    Child(plan, "Design", Monday, Tuesday);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 2, days, False, True)\n");
}

TEST(AdjustSummary, MeasuresTheSummarysOwnLinks) {
    Plan plan;
    plan.WithLinks().Task("Before").From(Monday).Task("Phase");
    Child(plan, "Design", Thursday, Friday);
    plan["Phase"].TaskPredecessor()->Add("1", "1");
    plan.col().AdjustSummary(plan.Key("Phase"));
    EXPECT_EQ(plan["Phase"].TaskLag(), 2);
    EXPECT_EQ(Listed(plan["Phase"].TaskLeadTime()), "1|2");
}

TEST(AdjustSummary, KeepsZeroingTheLagWithoutLiveLinks) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Thursday, Friday);
    plan["Phase"].TaskLag(7);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan["Phase"].TaskLag(), 0);
}

TEST(AdjustSummary, DoesNothingForTheTopAndRecordsAnUnknownTask) {
    Plan plan;
    plan.Task("Phase");
    plan.col().AdjustSummary("0");
    plan.col().AdjustSummary("77");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 91\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AdjustSummary, RecordsASpanThatNoIntegerHolds) {
    Plan plan;
    plan.Task("Phase");
    Child(plan, "Design", Monday, Date());
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 6\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AdjustSummary, StopsInARing) {
    Plan plan;
    BuildRing(plan);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 28\n");
    plan.Heard();
}

TEST(AdjustSummary, StopsInARingAfterAFewStepsHoweverManyTasksThereAre) {
    Plan plan;
    BuildRing(plan);
    for (int i = 0; i < 1'000; ++i) plan.Task("Other" + std::to_string(i));
    plan.Heard();
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 28\n");
    const String heard = plan.Heard();
    EXPECT_EQ(std::count(heard.begin(), heard.end(), '\n'), 3 * 4) << "A, B, and A once more";
}

TEST(AdjustSummary, StopsAtATaskThatIsItsOwnParent) {
    Plan plan;
    BuildSelfParent(plan);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 28\n");
    plan.Heard();
}

TEST(AdjustSummary, EndsAtAParentThatIsNotThere) {
    Plan plan;
    plan.Task("Phase").From(Monday);
    plan["Phase"].ParentID(77);
    plan.col().AdjustSummary("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 91\n");
    EXPECT_NE(plan.Heard(), "");
}

TEST(AdjustSummary, ClimbsFromAnyDepthOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kDeep = 30'000;
        Plan plan;
        plan.Silenced();
        BuildChain(plan, kDeep);
        plan[std::to_string(kDeep)].TaskBDate(Monday);
        plan[std::to_string(kDeep)].TaskEDate(Tuesday);
        plan.col().AdjustSummary(std::to_string(kDeep - 1));
        EXPECT_EQ(Span(plan["1"]), "2026-03-02 2026-03-03 2");
        plan.Heard();
    });
}

/// Takes the summary away while it is being told.
class Taker : public TasksColEvents {
public:
    explicit Taker(Plan& plan) : plan_(plan) { plan_.col().Events.Add(*this); }
    ~Taker() override { plan_.col().Events.Remove(*this); }
    void DurationChange(Long key, Double, const String&, Boolean, Boolean) override { plan_.col().RemoveForLib(key); }

private:
    Plan& plan_;
};

TEST(AdjustSummary, SurvivesAListenerThatTakesTheSummaryAway) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House");
    Child(plan, "Design", Monday, Tuesday);
    {
        const Taker taker(plan);
        plan.col().AdjustSummary(plan.Key("Phase"));
    }
    EXPECT_EQ(plan.Heard(),
              "DurationChange(2, 2, days, False, True)\n"
              "TaskDurationChange(2, 2, days, False, True)\n"
              "DateEndChange(2, 2026-03-03, False, True, days)\n"
              "DateStartChange(2, 2026-03-02, False, True)\n")
        << "what was measured is told to its end";
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 91\n") << "the parent has a child that is no task";
}

TEST(GetMinDate, FindsTheEarliestStartAndItsHolder) {
    Plan plan;
    plan.Task("A").From(Tuesday).Task("B").From(Monday).Task("C").From(Monday);
    plan.Task("Aside").From(Monday - 7).Candidate();
    Module().g_MinDate = Date();
    EXPECT_EQ(DayName(plan.col().GetMinDate()), DayName(Monday));
    EXPECT_EQ(Module().g_MinDateTaskKey, plan.Number("B"));
    EXPECT_EQ(DayName(Module().g_MinDate), DayName(Monday));
}

TEST(GetMinDate, AnswersFromItsCacheUnlessItIsForced) {
    Plan plan;
    plan.Task("A").From(Tuesday);
    Module().g_MinDate = Friday;
    EXPECT_EQ(DayName(plan.col().GetMinDate()), DayName(Friday));
    EXPECT_EQ(DayName(plan.col().GetMinDate(True)), DayName(Tuesday));
    EXPECT_EQ(DayName(Module().g_MinDate), DayName(Tuesday));
}

TEST(GetMinDate, IsTodayWithoutATaskInTheOutline) {
    Plan plan;
    plan.Task("Aside").From(Friday).Candidate();
    Module().g_MinDate = Module().g_MaxDate = Date();
    plan.platform.clock.now = Thursday + 0.5;
    EXPECT_EQ(plan.col().GetMinDate(), Thursday);
    EXPECT_EQ(In(plan.col()).GetMaxDate(), Thursday);
}

TEST(GetMinDate, IsTodayOnceATaskHasNoStartAndKeepsNamingThatTask) {
    Plan plan;
    plan.Task("A").From(Friday).Task("Undated");
    plan.platform.clock.now = Thursday + 0.5;
    EXPECT_EQ(plan.col().GetMinDate(True), Thursday);
    EXPECT_EQ(Module().g_MinDateTaskKey, plan.Number("Undated"));
}

TEST(GetMinDate, IsThePresentMomentForAStartOf1900) {
    Plan plan;
    plan.Task("A");
    In(plan["A"]).StoreStart(Date::Of(1900, 5, 1));
    plan.platform.clock.now = Thursday + 0.5;
    EXPECT_EQ(plan.col().GetMinDate(True), Thursday + 0.5);
    In(plan["A"]).StoreStart(Date::Of(1901, 1, 1));
    EXPECT_EQ(plan.col().GetMinDate(True), Date::Of(1901, 1, 1));
}

TEST(GetMaxDate, FindsTheLatestEndAndAnswersFromItsCache) {
    Plan plan;
    plan.Task("A").From(Monday).To(Friday).Task("B").From(Monday).To(Friday).Task("C").From(Monday).To(Tuesday);
    plan.Task("Aside").From(Monday).To(Friday + 7).Candidate();
    Module().g_MaxDate = Date();
    EXPECT_EQ(DayName(In(plan.col()).GetMaxDate()), DayName(Friday));
    EXPECT_EQ(Module().g_MaxDateTaskKey, plan.Number("A"));
    In(plan["C"]).StoreEnd(Sunday);
    EXPECT_EQ(DayName(In(plan.col()).GetMaxDate()), DayName(Friday));
    Module().g_MaxDate = Date();
    EXPECT_EQ(DayName(In(plan.col()).GetMaxDate()), DayName(Sunday));
}

}  // namespace
}  // namespace mrlxmlclass
