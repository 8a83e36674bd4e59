#include "mrlxmlclass/xml/RecordReader.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/xml/Section.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

/// A record of three fields and the reader over it.
struct Record {
    Long key = 7;
    Flagged<String> name;
    Boolean done;
    String stopped_at;

    explicit Record(std::string_view xml) {
        const Ref<dom::Document> document = DocumentOfText(xml);
        RecordReader in(FirstElementIn(document->documentElement()));
        in.Read("Key", key);
        in.Read("Name", name);
        in.Read("Done", done);
        stopped_at = in.position().baseName();
    }
};

TEST(RecordReader, ReadsTheFieldsInTheirOrder) {
    TestSession session;
    const Record record("<R><Key>3</Key><Name>wall</Name><Done>True</Done></R>");
    EXPECT_EQ(record.key, 3);
    EXPECT_EQ(record.name.value, "wall");
    EXPECT_EQ(record.name.valid, True);
    EXPECT_EQ(record.done, True);
    EXPECT_EQ(record.stopped_at, "");
}

TEST(RecordReader, LeavesAnAbsentFieldAtItsDefaultWithItsFlagDown) {
    TestSession session;
    const Record record("<R><Done>true</Done></R>");
    EXPECT_EQ(record.key, 7);
    EXPECT_EQ(record.name.valid, False);
    EXPECT_EQ(record.done, True);
}

TEST(RecordReader, ReadsOverCommentsBetweenFieldsAndInThem) {
    TestSession session;
    const Record record(
        "<R><!--a--><Key>3</Key>\n <!--b--><?c d?>\n<Name>w<!--e-->all</Name><!--f--><Done>true</Done></R>");
    EXPECT_EQ(record.key, 3);
    EXPECT_EQ(record.name.value, "wall");
    EXPECT_EQ(record.done, True);
}

TEST(RecordReader, KeepsStoppingAtTheFirstMisplacedElement) {
    TestSession session;
    const Record record("<R><Name>wall</Name><Key>3</Key><Done>true</Done></R>");
    EXPECT_EQ(record.name.value, "wall");
    EXPECT_EQ(record.key, 7);
    EXPECT_EQ(record.done, False);
    EXPECT_EQ(record.stopped_at, "Key");
}

TEST(RecordReader, KeepsStoppingAtAnUnknownElement) {
    TestSession session;
    const Record record("<R><Key>3</Key><Colour>red</Colour><Name>wall</Name></R>");
    EXPECT_EQ(record.key, 3);
    EXPECT_EQ(record.name.valid, False);
    EXPECT_EQ(record.stopped_at, "Colour");
}

TEST(RecordReader, TakesARepeatedElementForAnUnknownOne) {
    TestSession session;
    const Record record("<R><Key>3</Key><Key>4</Key><Name>wall</Name></R>");
    EXPECT_EQ(record.key, 3);
    EXPECT_EQ(record.name.valid, False);
    EXPECT_EQ(record.stopped_at, "Key");
}

TEST(RecordReader, ComparesNamesToTheLetterAndWithoutTheirPrefix) {
    TestSession session;
    EXPECT_EQ(Record("<R><key>3</key></R>").key, 7);
    EXPECT_EQ(Record("<R xmlns:p='urn:p'><p:Key>3</p:Key></R>").key, 3);
}

TEST(RecordReader, RaisesTheFlagForAnEmptyText) {
    TestSession session;
    for (const char* xml : {"<R><Name/></R>", "<R><Name></Name></R>"}) {
        SCOPED_TRACE(xml);
        const Record record(xml);
        EXPECT_EQ(record.name.valid, True);
        EXPECT_EQ(record.name.value, "");
    }
}

TEST(RecordReader, KeepsBlanksInATextAsTheyAre) {
    TestSession session;
    EXPECT_EQ(Record("<R><Name>  two </Name></R>").name.value, "  two ");
    EXPECT_EQ(Record("<R><Name>  </Name></R>").name.value, "  ");
}

TEST(RecordReader, FailsOnAnEmptyNumberOrTruthValue) {
    TestSession session;
    EXPECT_EQ(NumberOf([] { Record("<R><Key/></R>"); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { Record("<R><Done/></R>"); }), failure::kDeliberate);
}

TEST(RecordReader, StepsOverAFieldThatIsNotRead) {
    TestSession session;
    const Ref<dom::Document> document = DocumentOfText("<R><Old>x</Old><Key>3</Key></R>");
    RecordReader in(FirstElementIn(document->documentElement()));
    in.Skip("Older");
    in.Skip("Old");
    ASSERT_TRUE(in.At("Key"));
    EXPECT_EQ(in.Take(), "3");
    EXPECT_FALSE(in.position());
    EXPECT_FALSE(in.At("Key"));
}

}  // namespace
}  // namespace mrlxmlclass
