#include "mrlxmlclass/xml/RecordWriter.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/xml/Section.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

TEST(RecordWriter, WritesOneElementAFieldInItsKindsForm) {
    TestSession session;
    session.locale.Use("dd/MM/yyyy", ",", ".");
    const Ref<dom::Document> document = DocumentOfText("<R/>");
    RecordWriter out(document, document->documentElement());
    out.Write("Done", True);
    out.Write("Count", Integer(-3));
    out.Write("Key", Long(70000));
    out.Write("Length", 2.5);
    out.Write("Cost", Currency(1.25));
    out.Write("Start", Date::Of(2026, 3, 2));
    out.Write("Name", String("a < b & c"));
    EXPECT_EQ(document->xml(),
              "<R><Done>true</Done><Count>-3</Count><Key>70000</Key><Length>2,5</Length><Cost>1,25</Cost>"
              "<Start>02/03/2026</Start><Name>a &lt; b &amp; c</Name></R>");
}

TEST(RecordWriter, WritesAFlaggedFieldOnlyWhileItsFlagIsUp) {
    TestSession session;
    const Ref<dom::Document> document = DocumentOfText("<R/>");
    RecordWriter out(document, document->documentElement());
    out.Write("Down", Flagged<Long>{5, False});
    out.Write("Up", Flagged<Long>{0, True});
    EXPECT_EQ(document->xml(), "<R><Up>0</Up></R>");
}

TEST(RecordWriter, WritesAnEmptyTextAsAnEmptyElement) {
    TestSession session;
    const Ref<dom::Document> document = DocumentOfText("<R/>");
    RecordWriter(document, document->documentElement()).Write("Name", String());
    const dom::Node name = document->documentElement().selectSingleNode("Name");
    ASSERT_TRUE(name);
    EXPECT_EQ(name.Text(), "");
}

TEST(RecordWriter, KeepsAnEmptyElementOfAValueThatHasNoText) {
    TestSession session;
    const Ref<dom::Document> document = DocumentOfText("<R/>");
    RecordWriter out(document, document->documentElement());
    EXPECT_THROW(out.Write("Start", Date(1e9)), Failure);
    EXPECT_EQ(document->xml(), "<R><Start/></R>");
}

TEST(RecordWriter, OpensAnElementForWhatIsNested) {
    TestSession session;
    const Ref<dom::Document> document = DocumentOfText("<R/>");
    RecordWriter out(document, document->documentElement());
    RecordWriter(document, out.Wrapper("Keys")).Write("Key", Long(3));
    EXPECT_EQ(document->xml(), "<R><Keys><Key>3</Key></Keys></R>");
}

}  // namespace
}  // namespace mrlxmlclass
