#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Interruption.h"
#include "tests/support/Outlines.h"
#include "tests/support/Told.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(AddPhase, FilesTheKeyAsTextAndHandsItBack) {
    Plan plan;
    plan.Task("A");
    Variant key = Long(1);
    EXPECT_FALSE(plan.col().AddPhase(key));
    EXPECT_EQ(key, Variant("1"));
    EXPECT_EQ(Listed(plan.col().Phases()), "1");
    EXPECT_TRUE(plan.col().Phases()->Has("1"));
}

TEST(AddPhase, RecordsAPhaseThatIsThereAlready) {
    Plan plan;
    plan.Task("A");
    plan.col().AddPhase(Variant(1));
    EXPECT_FALSE(plan.col().AddPhase(Variant("1")));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddPhase 457\n");
    EXPECT_EQ(Listed(plan.col().Phases()), "1");
}

TEST(RemovePhase, IsSilentAboutAnUnknownKeyButNotAboutAMissingList) {
    Plan plan;
    plan.Task("A").Task("B");
    Variant key = Long(2);
    EXPECT_FALSE(plan.col().RemovePhase(key));
    EXPECT_EQ(key, Variant("2"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemovePhase 91\n");

    plan.col().SetPhases();
    plan.col().RemovePhase(Variant(2));
    plan.col().RemovePhase(Variant(2));
    EXPECT_EQ(Listed(plan.col().Phases()), "1");
}

TEST(Phases, IsEmptyOnANewCollection) {
    Plan plan;
    EXPECT_EQ(plan.col().Phases()->Count(), 0);
    plan.col().RemovePhase(Variant(1));  // the list stands from now on, so this is silent
}

TEST(Phases, FollowsThePlaceWithinTheParentAndNotTheRow) {
    Plan plan;
    plan.Task("A").Task("B").Task("C");
    plan["A"].TaskSubPosition(3);
    plan["B"].TaskSubPosition(1);
    plan["C"].TaskSubPosition(2);
    plan.col().SetPhases();
    EXPECT_EQ(Listed(plan.col().Phases()), "2 3 1");

    plan["B"].TaskSubPosition(9);
    EXPECT_EQ(Listed(plan.col().Phases()), "3 1 2") << "the stored list is sorted anew each time";
}

TEST(Phases, KeepsTurningPhasesWithoutAPlaceWithinTheirParent) {
    Plan plan;
    plan.Task("A").Task("B").Task("C");
    plan.col().SetPhases();
    EXPECT_EQ(Listed(plan.col().Phases()), "2 3 1");
    EXPECT_EQ(Listed(plan.col().Phases()), "2 3 1") << "the stored list stays as it was";
}

TEST(Phases, GivesAListOfItsOwn) {
    Plan plan;
    plan.Task("A");
    plan.col().SetPhases();
    plan.col().Phases()->Remove("1");
    EXPECT_EQ(Listed(plan.col().Phases()), "1");
}

TEST(Phases, RecordsAPhaseThatIsNoTask) {
    Plan plan;
    plan.Task("A");
    plan.col().AddPhase(Variant(1));
    plan.col().AddPhase(Variant(77));
    EXPECT_FALSE(plan.col().Phases());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/Phases 91\n");
}

TEST(SetPhases, TakesTheTopLevelTasksOfTheOutlineThatMayOwnChildren) {
    Plan plan;
    plan.Task("Phase").Task("Child").Under("Phase").Task("Kept aside").Candidate().Task("Plain").Task("Last");
    plan["Plain"].TaskType(True);
    plan["Kept aside"].TaskType(False);
    EXPECT_TRUE(plan.col().SetPhases().is_empty());
    EXPECT_EQ(Listed(In(plan.col()).phases()), plan.Key("Phase") + " " + plan.Key("Last"));
}

TEST(SetPhases, DiscardsTheListThatWas) {
    Plan plan;
    plan.Task("A").Task("B");
    plan.col().SetPhases();
    plan["A"].TaskType(True);
    plan.col().SetPhases();
    EXPECT_EQ(Listed(plan.col().Phases()), "2");

    plan["B"].TaskType(True);
    plan.col().SetPhases();
    plan.col().RemovePhase(Variant(2));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemovePhase 91\n") << "without a phase there is no list";
}

TEST(ChangeName, TellsANewTaskOfTheOutlineFirst) {
    Plan plan;
    plan.Task("Phase").Task("").Under("Phase").From(Monday).Lasting(3);
    plan.Heard();

    EXPECT_FALSE(plan.col().ChangeName("2", "Design", True));

    EXPECT_EQ(plan.Heard(),
              "TaskInserted(2, 1, 2)\n"
              "TaskNameChanged(2, Design)\n"
              "DateStartChange(2, 2026-03-02, False, False)\n"
              "DateEndChange(2, 2026-03-04, False, False, days)\n"
              "DurationChange(2, 3, days, False, False)\n"
              "TaskDurationChange(2, 3, days, False, False)\n");
    EXPECT_EQ(plan.col().Item(2)->TaskName(), "Design");
}

TEST(ChangeName, TellsNoInsertionOfACandidateOrOfAnOldTask) {
    Plan plan;
    plan.Task("Kept aside").Candidate().Task("Old");
    const String dates =
        "DateStartChange(1, -, False, False)\nDateEndChange(1, -, False, False, days)\n"
        "DurationChange(1, 0, days, False, False)\nTaskDurationChange(1, 0, days, False, False)\n";
    plan.col().ChangeName("1", "Named", True);
    EXPECT_EQ(plan.Heard(), "TaskNameChanged(1, Named)\n" + dates);
    plan.col().ChangeName("2", "New");
    EXPECT_EQ(plan.Heard().substr(0, 24), "TaskNameChanged(2, New)\n");
}

TEST(ChangeName, TellsTheWholeNameAndStoresItCut) {
    Plan plan;
    plan.Task("A");
    const String name(161, 'n');
    plan.col().ChangeName("1", name);
    EXPECT_NE(plan.Heard().find("TaskNameChanged(1, " + name + ")"), String::npos);
    EXPECT_EQ(plan.col().Item(1)->TaskName().size(), 160U);
}

TEST(ChangeName, NamesSilentlyWhenTheHostHearsNothing) {
    Plan plan;
    plan.Silenced().Task("A");
    plan.col().ChangeName("1", "B", True);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.col().Item(1)->TaskName(), "B");
}

TEST(ChangeName, RecordsAnUnknownTask) {
    Plan plan;
    EXPECT_FALSE(plan.col().ChangeName("77", "A", True));
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeName 91\n");
}

/// Changes the task while it is being told.
class Meddler : public TasksColEvents {
public:
    explicit Meddler(TasksCol& tasks) : tasks_(tasks) { tasks_.Events.Add(*this); }
    ~Meddler() override { tasks_.Events.Remove(*this); }
    void TaskNameChanged(Long key, const String& name) override {
        if (name == "Gone") {
            tasks_.RemoveForLib(key);
        } else {
            tasks_.Item(key)->TaskMilstones(True);
        }
    }

private:
    TasksCol& tasks_;
};

TEST(ChangeName, TellsWhatAListenerMadeOfTheTask) {
    Plan plan;
    plan.Task("A");
    const Meddler meddler(plan.col());
    plan.col().ChangeName("1", "B");
    EXPECT_EQ(plan.Heard(),
              "TaskNameChanged(1, B)\n"
              "DateStartChange(1, -, True, False)\n"
              "DateEndChange(1, -, True, False, days)\n"
              "DurationChange(1, 0, days, True, False)\n"
              "TaskDurationChange(1, 0, days, True, False)\n");
}

TEST(ChangeName, EndsWhenAListenerTookTheTaskAway) {
    Plan plan;
    plan.Task("A");
    const Meddler meddler(plan.col());
    plan.col().ChangeName("1", "Gone");
    EXPECT_EQ(plan.Heard(), "TaskNameChanged(1, Gone)\n");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeName 91\n");
}

TEST(Phases, TakesATaskFiledUnderZeroForNone) {
    Plan plan;
    plan.Task("A");
    const auto keyless = Make<TasksCls>();
    In(plan.col()).File(KeyText("0"), keyless);
    plan.col().SetPhases();
    EXPECT_FALSE(plan.col().Phases());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/Phases 91\n");
}

TEST(ChangeName, TellsTheKeyThatItWasAskedFor) {
    Plan plan;
    plan.col().Add("7");
    plan.col().ChangeName("7", "N", True);
    EXPECT_EQ(plan.Heard(),
              "TaskInserted(7, 0, 0)\n"
              "TaskNameChanged(7, N)\n"
              "DateStartChange(7, -, False, False)\n"
              "DateEndChange(7, -, False, False, days)\n"
              "DurationChange(7, 0, days, False, False)\n"
              "TaskDurationChange(7, 0, days, False, False)\n");
}

TEST(ChangeName, AsksTheFlagsOfTheTaskAtEachEvent) {
    Plan plan;
    plan.Task("A").From(Monday).Task("B");
    const Interruption host(plan, "DateStartChange", 1, [&] { plan.col().AddParentTask("1", "2"); });
    plan.col().ChangeName("1", "N");
    const Told before{.key = 1, .start = Monday, .end = Monday, .duration = 1};
    Told after = before;
    after.parent = True;
    EXPECT_EQ(plan.Heard(), "TaskNameChanged(1, N)\n" + before.Start() + after.Moved().substr(after.Start().size()));
}

/// The operations that tell a task's dates of their own accord, not because a date walk came by.
TEST(TasksColOperations, TellNothingMoreOnceAHandlerHasSilencedThem) {
    const std::pair<const char*, std::function<void(TasksCol&)>> operations[] = {
        {"name", [](TasksCol& col) { col.ChangeName("1", "N"); }},
        {"row", [](TasksCol& col) { col.SetNewCondidat(1); }},
        {"milestone", [](TasksCol& col) { col.SeTAsMilstones(Ref<TasksCol>(&col), "1"); }},
    };
    for (const auto& [name, call] : operations) {
        Plan plan;
        plan.Task("A").From(Monday);
        const Interruption host(plan, "DateStartChange", 1, [] { Module().g_SourcePrima = True; });
        call(plan.col());
        const String heard = plan.Heard();
        EXPECT_NE(heard.find("DateStartChange(1, "), String::npos) << name;
        EXPECT_EQ(heard.find("DurationChange"), String::npos) << name << ": " << heard;
    }
}

}  // namespace
}  // namespace mrlxmlclass
