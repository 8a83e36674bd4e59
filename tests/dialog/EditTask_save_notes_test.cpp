#include "mrlxmlclass/items/TaskNoteRelationCls.h"
#include "tests/dialog/Saving.h"
#include "tests/support/OldPlan.h"

namespace mrlxmlclass::testing {
namespace {

// --- Notes -----------------------------------------------------------------------------------------------------------

TEST_F(Saving, OfAFirstNoteMakesOneOnAllSides) {
    OnOk([](EditTask& form) { form.txtNote.Text("Mind the roof"); });
    EXPECT_EQ(plan.Heard(), "NoteChange(2, Mind the roof)\n");
    EXPECT_EQ(NotesOf(plan, "Design"), "1:Mind the roof:");
    EXPECT_EQ(MasterNotes(plan), "1:Mind the roof:");
    const auto relation = plan.app->xTaskNotesRelationcol()->Item("1");
    EXPECT_EQ(relation->NoteKey(), "1");
    EXPECT_EQ(relation->TaskKey(), 2);
}

TEST_F(Saving, OfANoteUpdatesBothCopies) {
    AddNote(plan, "Design", "old", "/link");
    plan.app->xNoteCol()->Item("1")->NoteLink("");
    OnOk([](EditTask& form) { form.txtNote.Text("new"); });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:new:/link");
    EXPECT_EQ(MasterNotes(plan), "1:new:/link");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(SavingANoteFromAConversion, UpdatesBothCopies) {
    Plan plan;
    {
        OldPlan old;
        old.phases = {OldRow("Phase").With({OldRow("Design").From(Monday, Monday + 4).Saying("old")})};
        ASSERT_EQ(plan.app->Convert3to4("/plans/a.prj", {}), True);
    }
    plan.platform.screens.person = [](EditTask& form) {
        EXPECT_EQ(form.txtNote.Text(), "old");
        form.txtNote.Text("new");
        form.CmdOK_Click(0);
    };
    plan.app->showtaskinfo("2", plan.app->xTaskCol(), 0, DialogTexts());
    EXPECT_EQ(plan.col().Item(2)->TaskNotes()->Item(1)->NoteDescription(), "new");
    EXPECT_EQ(MasterNotes(plan), "1:new:");
}

TEST_F(Saving, OfNoNoteRemovesItFromAllSides) {
    AddNote(plan, "Design", "old");
    OnOk([](EditTask& form) { form.txtNote.Text(""); });
    EXPECT_EQ(NotesOf(plan, "Design"), "");
    EXPECT_EQ(MasterNotes(plan), "");
    EXPECT_EQ(plan.app->xTaskNotesRelationcol()->Count(), 0);
    EXPECT_EQ(plan["Design"].TaskNoteRelation()->Count(), 0);
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(Saving, EndsAtANoteThatTheTaskNoLongerTies) {
    AddNote(plan, "Design", "", "/a");
    plan["Design"].TaskNoteRelation()->Remove("1");
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.CmdRemove_Click();
                  form.txtNote.Text("not saved");
              }),
              False);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/SaveTaskInfo 5\n");
    EXPECT_EQ(MasterNotes(plan), "1::/a");
    EXPECT_EQ(plan.app->xTaskNotesRelationcol()->Count(), 0);
}

TEST_F(Saving, OfNoNoteKeepsOneWhileAnAttachmentStays) {
    AddNote(plan, "Design", "old");
    AddNote(plan, "Design", "", "/attached");
    OnOk([](EditTask& form) { form.txtNote.Text(""); });
    EXPECT_EQ(NotesOf(plan, "Design"), "1::, 2::/attached");
    EXPECT_EQ(MasterNotes(plan), "1::, 2::/attached");
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(Saving, KeepsTakingTheFirstNoteForTheTextThoughItIsAnAttachment) {
    AddNote(plan, "Design", "", "/attached");
    OnOk([](EditTask& form) { form.txtNote.Text("new"); });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:new:/attached");
}

TEST_F(Saving, KeepsTheTextOfATaskWithoutANoteOnItsNewAttachment) {
    plan.platform.screens.file = "/new";
    OnOk([](EditTask& form) {
        form.CmdAttach_Click();
        form.txtNote.Text("text");
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:text:/new");
    EXPECT_EQ(plan.Heard(), "NoteChange(2, )\n");
}

TEST_F(Saving, KeepsTheTextOfARemovedNoteOnTheNextOne) {
    AddNote(plan, "Design", "first", "/a");
    AddNote(plan, "Design", "second", "/b");
    OnOk([](EditTask& form) {
        form.MoveTo(form.gridattachement, 0, 0);
        form.CmdRemove_Click();
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "2:first:/b");
}

TEST_F(Saving, OfAttachmentsAddsTheNewAndThenRemovesTheOld) {
    AddNote(plan, "Design", "text");
    AddNote(plan, "Design", "", "/old");
    plan.platform.screens.file = "/a new one";
    OnOk([](EditTask& form) {
        form.CmdAttach_Click();
        form.MoveTo(form.gridattachement, 0, 0);
        form.CmdRemove_Click();
    });
    EXPECT_EQ(plan.Heard(), "NoteChange(2, text)\n");
    EXPECT_EQ(NotesOf(plan, "Design"), "1:text:, 3::/a new one");
    EXPECT_EQ(MasterNotes(plan), "1:text:, 3::/a new one");
    EXPECT_EQ(plan.app->xTaskNotesRelationcol()->Count(), 2);
}

TEST_F(Saving, KeepsNothingBehindTheBarOfANewLink) {
    plan.platform.screens.file = "/a|b";
    OnOk([](EditTask& form) { form.CmdAttach_Click(); });
    EXPECT_EQ(MasterNotes(plan), "");  // "b|" was taken for the key of a note that is there
}

TEST_F(Saving, RecordsANoteThatTheProjectDoesNotHave) {
    AddNote(plan, "Design", "old");
    plan.app->xNoteCol()->Remove(1, "1");
    OnOk([](EditTask& form) { form.txtNote.Text("new"); });
    EXPECT_EQ(plan.failures.Taken(), "NotesCol/Item 5\nEditTask/SaveTaskInfo 91\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
