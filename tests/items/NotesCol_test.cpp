#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(NotesXml, ReadsANoteWithoutAKeyUnderTheEmptyOneAndGoesOn) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    EXPECT_EQ(notes->FromXml("<Notes><Note><NoteKey>1</NoteKey></Note>"
                             "<Note><NoteDescription>x</NoteDescription></Note>"
                             "<Note><NoteKey>3</NoteKey></Note></Notes>"),
              True);
    EXPECT_EQ(KeysOf(notes), "1  3");
    EXPECT_EQ(notes->Count(), 3);
}

TEST(NotesAdd, KeepsFilingUnderTheEmptyKeySoThatASecondFails) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    const auto note = notes->Add();
    ASSERT_TRUE(note);
    EXPECT_EQ(In(note).elementName(), "Note");
    EXPECT_FALSE(notes->Add());
    EXPECT_EQ(notes->Count(), 1);
    EXPECT_EQ(s.failures.Taken(), "NotesCol/Add 457\n");
}

TEST(NotesAddItem, GivesANoteWithoutAKeyTheNextNumberAndLeavesTheSourceAlone) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    const auto note = s.Note("t");
    EXPECT_EQ(notes->AddItem(note)->NoteKey(), "1");
    EXPECT_EQ(note->NoteKey(), "");
    EXPECT_EQ(In(notes->Item("1")).elementName(), "Note");
    note->NoteKey("0");
    EXPECT_EQ(notes->AddItem(note)->NoteKey(), "0");  // a key like any other
    note->NoteKey("07");
    notes->AddItem(note);
    EXPECT_EQ(KeysOf(notes), "1 0 7");
}

TEST(NotesAddItem, WithoutCountersOrWithABadKeyFails) {
    Items s;
    const auto notes = Make<NotesCol>();
    EXPECT_FALSE(notes->AddItem(s.Note("t")));
    const auto bad = s.Note("t");
    bad->NoteKey("x");
    EXPECT_FALSE(notes->AddItem(bad));
    EXPECT_EQ(s.failures.Taken(), "NotesCls/IncrementID 91\nNotesCol/AddItem 13\nNotesCol/AddItem 13\n");
}

TEST(NotesItem, TakesANumberAsAPlaceAndATextAsAKey) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    In(s.counters).Counter(Keys::Note, 6);
    notes->AddItem(s.Note("a"));
    EXPECT_EQ(notes->Item(1)->NoteDescription(), "a");
    EXPECT_EQ(notes->Item("7")->NoteDescription(), "a");
    EXPECT_FALSE(notes->Item(7));
    EXPECT_FALSE(notes->Item("1"));
    EXPECT_EQ(s.failures.Taken(), "NotesCol/Item 9\nNotesCol/Item 5\n");
}

TEST(NotesRemove, OutsideTheListReportsAndRemovesNothing) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    for (int i = 0; i < 3; ++i) notes->AddItem(s.Note("t"));
    notes->Remove(0, "1");
    EXPECT_EQ(s.failures.LatestWords(), "index 0is out of range, use 1 - 3");
    notes->Remove(4, "1");
    EXPECT_EQ(notes->Count(), 3);
    EXPECT_EQ(s.failures.LatestWords(), "index 4is out of range, use 1 - 3");
    EXPECT_EQ(s.failures.Taken(), "NotesCol/Remove 1\nNotesCol/Remove 1\n");
}

TEST(NotesRemove, TakesOutTheKeyWhateverPlaceIsGiven) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    for (int i = 0; i < 3; ++i) notes->AddItem(s.Note("t"));
    notes->Remove(1, "3");
    EXPECT_EQ(KeysOf(notes), "1 2");
}

TEST(NotesRemove, KeepsFailingWithoutAKey) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    notes->AddItem(s.Note("t"));
    notes->Remove(1);
    EXPECT_EQ(notes->Count(), 1);
    EXPECT_EQ(s.failures.Taken(), "NotesCol/Remove 5\n");
}

TEST(NotesRemove, NeverLetsAKeyBeIssuedAgainWithinASession) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    notes->AddItem(s.Note("a"));
    notes->AddItem(s.Note("b"));
    notes->Remove(1, "2");
    const auto again = s.Master<NotesCol>();
    again->FromXml(notes->ToXml());
    EXPECT_EQ(again->AddItem(s.Note("c"))->NoteKey(), "3");
}

TEST(NotesRemove, LeavesTheHighestKeyInTheFileToDecideAfterAReload) {
    String file;
    {
        Items s;
        const auto notes = s.Master<NotesCol>();
        for (int i = 0; i < 4; ++i) notes->AddItem(s.Note("t"));
        notes->Remove(1, "4");
        notes->Remove(1, "2");
        file = notes->ToXml();
    }
    Items s;
    const auto notes = s.Master<NotesCol>();
    notes->FromXml(file);
    EXPECT_EQ(KeysOf(notes), "1 3");
    EXPECT_EQ(notes->AddItem(s.Note("c"))->NoteKey(), "4");
}

}  // namespace
}  // namespace mrlxmlclass::testing
