#include "mrlxmlclass/xml/Conversions.h"
#include "tests/dialog/Saving.h"

namespace mrlxmlclass::testing {
namespace {

/// One step of saving alone: what else the form shows is what the task holds.
class SavingAlone : public ::testing::Test {
protected:
    SavingAlone() { plan.Task("Design"); }
    /// A task of these dates, fitting or not, which a person edits and saves.
    Boolean OnOk(Date start, Date end, Double duration, const std::function<void(EditTask&)>& person) {
        plan.About("Design").Holding(start, end, duration);
        return EditInDialog(plan, "Design", [&](EditTask& form) {
            person(form);
            form.CmdOK_Click(0);
        });
    }
    /// The dates of the task, and whether it is a milestone.
    String Saved() {
        const TasksCls& task = plan["Design"];
        return DayName(task.TaskBDate()) + " " + DayName(task.TaskEDate()) + " " +
               Conversions::DoubleToString(task.TaskDuration()) + (task.TaskMilstones() ? " milestone" : "");
    }

    Plan plan;
};

TEST_F(SavingAlone, OfAStartTellsNobody) {
    EXPECT_EQ(OnOk(Monday, Friday, 4,
                   [](EditTask& form) {
                       form.DTPickerStart.Value(Tuesday);
                       form.DTPickerStart_Change();
                   }),
              False);
    EXPECT_EQ(Saved(), "2026-03-03 2026-03-06 4");
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(SavingAlone, OfAnEndTellsNobody) {
    EXPECT_EQ(OnOk(Monday, Friday, 3,
                   [](EditTask& form) {
                       form.DTPickerStart.Value(Monday);
                       form.DTPickerStart_Change();
                   }),
              False);
    EXPECT_EQ(Saved(), "2026-03-02 2026-03-04 3");
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(SavingAlone, OfADurationTellsNobodyAndGivesTrue) {
    EXPECT_EQ(OnOk(Monday, Wednesday, 5,
                   [](EditTask& form) {
                       form.DTPickerEnd.Value(Wednesday);
                       form.DTPickerEnd_Change();
                   }),
              True);
    EXPECT_EQ(Saved(), "2026-03-02 2026-03-04 3");
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(SavingAlone, OfAMilestoneTellsNobody) {
    EXPECT_EQ(OnOk(Monday, Monday, 0, [](EditTask& form) { form.chkAsMilistones.Value(True); }), False);
    EXPECT_EQ(Saved(), "2026-03-02 2026-03-02 0 milestone");
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(SavingAlone, OfANewAttachmentTellsTheNotesOfTheTask) {
    AddNote(plan, "Design", "Mind the roof");
    plan.platform.Write("roof.pdf", "x");
    const String file = plan.platform.Path("roof.pdf");
    plan.platform.screens.file = file;
    EXPECT_EQ(OnOk(Monday, Monday, 1, [](EditTask& form) { form.CmdAttach_Click(); }), False);
    EXPECT_EQ(NotesOf(plan, "Design"), "1:Mind the roof:, 2::" + file);
    EXPECT_EQ(MasterNotes(plan), "1:Mind the roof:, 2::" + file);
    EXPECT_EQ(plan.Heard(), "NoteChange(1, Mind the roof)\n");
}

TEST_F(SavingAlone, OfARemovedAttachmentTellsNobody) {
    AddNote(plan, "Design", "Mind the roof");
    AddNote(plan, "Design", "", "/roof.pdf");
    EXPECT_EQ(OnOk(Monday, Monday, 1, [](EditTask& form) { form.gridattachement_KeyDown(EditTask::kDelete); }), False);
    EXPECT_EQ(NotesOf(plan, "Design"), "1:Mind the roof:");
    EXPECT_EQ(MasterNotes(plan), "1:Mind the roof:");
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass::testing
