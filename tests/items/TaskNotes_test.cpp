#include "mrlxmlclass/items/TaskNotes.h"

#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(TaskNotesAddItem, FilesACloneUnderTheNumberOfItsKey) {
    Items s;
    const auto notes = Make<TaskNotes>();
    const auto note = s.Note("t");
    note->NoteKey("07");
    const auto stored = notes->AddItem(note);
    EXPECT_FALSE(stored == note);
    EXPECT_EQ(notes->Item("7"), stored);
    EXPECT_EQ(notes->Item(1), stored);
    EXPECT_FALSE(notes->AddItem(note));
    EXPECT_FALSE(notes->AddItem(s.Note("no key")));
    EXPECT_FALSE(notes->AddItem({}));
    EXPECT_EQ(s.failures.Taken(), "TaskNotes/AddItem 457\nTaskNotes/AddItem 13\nTaskNotes/AddItem 91\n");
}

TEST(TaskNotesAdd, TakesThePublicValueOfEachPairLast) {
    Items s;
    const auto notes = Make<TaskNotes>();
    const auto note = notes->Add("N", True, False, "inside", "object", "inside", "text", 3, "4", "k");
    EXPECT_EQ(note->NoteObject(), "object");
    EXPECT_EQ(note->NoteObjectValid(), True);
    EXPECT_EQ(note->NoteDescription(), "text");
    EXPECT_EQ(note->NoteKey(), "4");
    EXPECT_EQ(In(note).elementName(), "N");
    EXPECT_EQ(notes->Item("k"), note);
}

TEST(TaskNotesAdd, WithoutAKeyFilesByPlaceAlone) {
    Items s;
    const auto notes = Make<TaskNotes>();
    for (int i = 0; i < 2; ++i) notes->Add("N", False, False, {}, "", {}, "", {}, "4");
    EXPECT_EQ(notes->Count(), 2);
    EXPECT_TRUE(notes->Item(2));
    EXPECT_FALSE(notes->Item("4"));
    EXPECT_EQ(s.failures.Taken(), "TaskNotes/Item 5\n");
}

TEST(TaskNotesAdd, TakesTextsNumbersAndWhatIsLeftOutForATextAndFailsAtTheRest) {
    Items s;
    const auto notes = Make<TaskNotes>();
    for (const Variant& text : {Variant("t"), Variant(-3), Variant(), Variant(Variant::Missing{})}) {
        EXPECT_TRUE(notes->Add("N", False, False, text, "", text, "", text, "4"));
    }
    EXPECT_FALSE(notes->Add("N", False, False, {}, "", Variant::Null{}, "", {}, "4"));
    EXPECT_EQ(s.failures.Taken(), "TaskNotes/Add 13\n");
}

TEST(TaskNotesRemove, GoesByPlaceOrByKeyAndRecordsAMiss) {
    Items s;
    const auto notes = Make<TaskNotes>();
    for (const char* key : {"5", "6", "7"}) {
        const auto note = s.Note("t");
        note->NoteKey(key);
        notes->AddItem(note);
    }
    notes->Remove(1);
    notes->Remove("7");
    notes->Remove("7");
    notes->Remove(2);
    EXPECT_EQ(KeysOf(notes), "6");
    EXPECT_EQ(s.failures.Taken(), "TaskNotes/Remove 5\nTaskNotes/Remove 9\n");
}

TEST(TaskNotes, HoldTheSharedErrorLog) {
    Items s;
    EXPECT_EQ(Make<TaskNotes>()->oErrorHandler, Module().g_ErrorsHandler);
}

}  // namespace
}  // namespace mrlxmlclass::testing
