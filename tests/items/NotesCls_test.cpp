#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(NoteObject, IsRefusedWhileItsFlagIsDown) {
    Items s;
    const auto note = Make<NotesCls>();
    EXPECT_EQ(note->NoteObject(), "");
    EXPECT_EQ(s.failures.LatestWords(), "The Property NoteObject is not valid set m_NoteObjectValid = true");
    EXPECT_EQ(s.failures.Taken(), "NotesCls/NoteObject 1\n");
    note->NoteObject("o");
    EXPECT_EQ(note->NoteObject(), "o");
    note->NoteObjectValid(False);
    note->NoteObjectValid(True);
    EXPECT_EQ(note->NoteObject(), "");
}

TEST(NoteLink, IsNotGuardedAndLosesItsTextWithItsFlag) {
    Items s;
    const auto note = Make<NotesCls>();
    EXPECT_EQ(note->NoteLink(), "");
    note->NoteLink("a.txt");
    note->NoteLinkValid(False);
    EXPECT_EQ(note->NoteLink(), "");
}

TEST(NoteLink, KeepsItsInternalSetterRaisingTheFlag) {
    Items s;
    const auto note = Make<NotesCls>();
    In(note).NoteLink_Int("a.txt");
    In(note).NoteObject_Int("o");
    EXPECT_EQ(note->NoteLinkValid(), True);
    EXPECT_EQ(note->NoteObjectValid(), False);
}

TEST(NoteClone, CopiesAllFields) {
    Items s;
    const auto note = s.Note("text");
    note->NoteKey("4");
    note->NoteLink("l");
    note->NoteObject("o");
    EXPECT_EQ(note->Clone()->ToXml(False), note->ToXml(False));
    EXPECT_EQ(Make<NotesCls>()->Clone()->NoteLinkValid(), False);
}

TEST(NoteXml, WritesAnEmptyLinkOnlyWithItsFlagUp) {
    Items s;
    const auto note = s.Note("t");
    note->NoteKey("4");
    EXPECT_EQ(note->ToXml(False), "<Notes><NoteKey>4</NoteKey><NoteDescription>t</NoteDescription></Notes>");
    note->NoteLinkValid(True);
    note->NoteObject("o");
    EXPECT_EQ(note->ToXml(False),
              "<Notes><NoteKey>4</NoteKey><NoteDescription>t</NoteDescription><NoteLink/>"
              "<NoteObject>o</NoteObject></Notes>");
}

TEST(NoteXml, RaisesTheCounterAndTheFlagsOfWhatItReads) {
    Items s;
    const auto note = Make<NotesCls>();
    EXPECT_EQ(note->FromXml("<Note><NoteKey>6</NoteKey><NoteDescription>t</NoteDescription><NoteLink/>"
                            "<NoteObject/></Note>",
                            s.counters),
              True);
    EXPECT_EQ(note->NoteKey(), "6");
    EXPECT_EQ(note->NoteLinkValid(), True);
    EXPECT_EQ(note->NoteObjectValid(), True);
    EXPECT_EQ(In(s.counters).Counter(Keys::Note), 6);
}

TEST(NoteXml, KeepsAnEmptyElementOfAKeyThatIsNoWholeNumberAndRecordsIt) {
    Items s;
    const auto note = s.Note("t");
    for (const char* key : {"", "x", "2.5"}) {
        SCOPED_TRACE(key);
        note->NoteKey(key);
        const auto document = Make<dom::Document>();
        document->LoadXML("<Note/>");
        note->ToXmlInt(document, document->documentElement());
        EXPECT_EQ(document->xml(), "<Note><NoteKey/></Note>");
        EXPECT_EQ(s.failures.Taken(), "NotesCls/ToXmlInt 13\n");
    }
}

}  // namespace
}  // namespace mrlxmlclass::testing
