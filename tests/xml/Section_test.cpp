#include "mrlxmlclass/xml/Section.h"

#include <gtest/gtest.h>

#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

void WriteMark(const Ref<dom::Document>& document, dom::Node parent) {
    document->AppendText(parent, "Mark", "x");
}

/// What WriteSection is asked for; each test says what differs.
struct Order {
    String file_name;
    Ref<dom::Document> document = {};
    Boolean header = False;
    Boolean unicode = False;
    Boolean file_exists = False;
    Boolean save = False;

    operator SectionOrder() const { return {file_name, document, header, unicode, file_exists, save}; }
};

Order To(const String& path) {
    return {path};
}

TEST(WriteSection, AddsTheSectionUnderTheRootOfTheDocumentAtHand) {
    TestSession session;
    Order order = To("");
    order.document = DocumentOfText("<Project><Tasks/></Project>");
    const auto written = WriteSection({"People", "Person"}, order, WriteMark);
    EXPECT_EQ(written, order.document);
    EXPECT_EQ(written->xml(), "<Project><Tasks/><People><Mark>x</Mark></People></Project>");
}

TEST(WriteSection, SeedsADocumentOfItsOwnWithTheElementNameAndADeclaration) {
    TestSession session;
    Order order = To("");
    order.header = True;
    EXPECT_EQ(WriteSection({"People", "Person"}, order, WriteMark)->xml(),
              "<?xml version=\"1.0\" encoding=\"utf-8\" ?><Person><People><Mark>x</Mark></People></Person>");
    order.unicode = True;
    EXPECT_EQ(WriteSection({"People", "Person"}, order, WriteMark)->xml(),
              "<?xml version=\"1.0\" encoding=\"utf-16\" ?><Person><People><Mark>x</Mark></People></Person>");
}

TEST(WriteSection, KeepsThePlainAndTheMissingDeclarationWhateverTheEncoding) {
    TestSession session;
    Order order = To("");
    order.header = True;
    order.unicode = True;
    EXPECT_EQ(WriteSection({"Project", "Plan", Declaration::Plain}, order, WriteMark)->xml(),
              "<?xml version=\"1.0\" ?><Plan><Mark>x</Mark></Plan>");
    EXPECT_EQ(WriteSection({"Tasks", "Task", Declaration::None}, order, WriteMark)->xml(),
              "<Task><Tasks><Mark>x</Mark></Tasks></Task>");
}

TEST(WriteSection, ReplacesWhatTheDocumentHeldWhenItSeedsIt) {
    TestSession session;
    Order order = To("");
    order.document = DocumentOfText("<Old/>");
    order.header = True;
    WriteSection({"Tasks", "Task", Declaration::None}, order, WriteMark);
    EXPECT_EQ(order.document->xml(), "<Task><Tasks><Mark>x</Mark></Tasks></Task>");
}

TEST(WriteSection, AddsToAFileThatExists) {
    TestSession session;
    session.Write("a.prx", "<Project><Goals/></Project>");
    Order order = To(session.Path("a.prx"));
    order.file_exists = True;
    order.save = True;
    EXPECT_TRUE(WriteSection({"Notes", "Note"}, order, WriteMark));
    EXPECT_EQ(session.Read("a.prx"), "<Project><Goals/><Notes><Mark>x</Mark></Notes></Project>");
}

TEST(WriteSection, GivesNothingAndWritesNothingWithoutARoot) {
    TestSession session;
    Order order = To(session.Path("a.prx"));
    order.save = True;
    EXPECT_FALSE(WriteSection({"People", "Person"}, order, WriteMark));
    EXPECT_FALSE(WriteSection({"Project", "Project"}, order, WriteMark));
    EXPECT_FALSE(session.Exists("a.prx"));
}

TEST(WriteSection, KeepsNotSavingForATrueThatIsNotFull) {
    TestSession session;
    Order order = To(session.Path("a.prx"));
    order.header = True;
    order.save = Boolean::Raw(1);
    EXPECT_TRUE(WriteSection({"People", "Person"}, order, WriteMark));
    EXPECT_FALSE(session.Exists("a.prx"));
    order.save = True;
    EXPECT_TRUE(WriteSection({"People", "Person"}, order, WriteMark));
    EXPECT_TRUE(session.Exists("a.prx"));
}

TEST(WriteSection, WritesAndGivesNothingWhereNoElementCanHaveTheName) {
    TestSession session;
    Order order = To(session.Path("a.prx"));
    order.header = True;
    order.save = True;
    for (const char* name : {"", "1", "a b", "x:1"}) {
        for (const char* section : {"Project", "People"}) {
            EXPECT_FALSE(WriteSection({section, name}, order, WriteMark)) << name;
        }
        EXPECT_EQ(NewDocument(name, True, False, WriteMark)->xml(), "") << name;
    }
    EXPECT_FALSE(session.Exists("a.prx"));
}

TEST(WriteSection, PassesOnAFailureToSave) {
    TestSession session;
    Order order = To(session.Path("no/such/folder.prx"));
    order.header = True;
    order.save = True;
    EXPECT_EQ(NumberOf([&] { WriteSection({"People", "Person"}, order, WriteMark); }), failure::kPathNotFound);
}

class SaveByRuleTo : public ::testing::Test {
protected:
    int AttributesAfterSaving(const String& name) {
        SaveByRule(DocumentOfText("<Project/>"), session.Path(name));
        EXPECT_EQ(session.Read(name), "<Project/>");
        return session.files.Attributes(session.Path(name)).value();
    }

    static constexpr int kHiddenSystem = file_attribute::kHidden + file_attribute::kSystem;
    TestSession session;
};

TEST_F(SaveByRuleTo, AnOrdinaryFileLeavesItsAttributes) {
    EXPECT_EQ(AttributesAfterSaving("plan.prx"), 0);
    session.files.SetAttributes(session.Path("plan.prx"), file_attribute::kHidden);
    EXPECT_EQ(AttributesAfterSaving("plan.prx"), file_attribute::kHidden);
}

TEST_F(SaveByRuleTo, AnAutosaveFileHidesItFromTheSecondSaveOn) {
    EXPECT_EQ(AttributesAfterSaving("planAutoSave001.prx"), 0);
    EXPECT_EQ(AttributesAfterSaving("planAutoSave001.prx"), kHiddenSystem);
    EXPECT_EQ(AttributesAfterSaving("planAutoSave001.prx"), kHiddenSystem);
}

TEST_F(SaveByRuleTo, AnAutosaveFileKeepsTheOneItJustCreatedVisible) {
    EXPECT_EQ(AttributesAfterSaving("AutoSave001.prx"), 0);
}

TEST_F(SaveByRuleTo, AnAutosaveFileClearsAReadOnlyAttributeFirst) {
    session.Write("AutoSave001.prx", "old");
    session.files.SetAttributes(session.Path("AutoSave001.prx"), file_attribute::kReadOnly);
    EXPECT_EQ(AttributesAfterSaving("AutoSave001.prx"), kHiddenSystem);
}

TEST_F(SaveByRuleTo, AnAutosaveNameInOtherLetterCaseIsAnOrdinaryFile) {
    AttributesAfterSaving("autosave001.prx");
    EXPECT_EQ(AttributesAfterSaving("autosave001.prx"), 0);
}

TEST_F(SaveByRuleTo, AnAutosaveFileIsAnOrdinaryOneWhileTheHostIsSilenced) {
    Module().g_SourcePrima = True;
    AttributesAfterSaving("AutoSave001.prx");
    EXPECT_EQ(AttributesAfterSaving("AutoSave001.prx"), 0);
}

TEST_F(SaveByRuleTo, AReadOnlyFileFails) {
    session.Write("plan.prx", "old");
    session.files.SetAttributes(session.Path("plan.prx"), file_attribute::kReadOnly);
    EXPECT_EQ(NumberOf([&] { SaveByRule(DocumentOfText("<Project/>"), session.Path("plan.prx")); }),
              failure::kPermissionDenied);
    EXPECT_EQ(session.Read("plan.prx"), "old");
}

TEST(NewDocument, HoldsOneObjectUnderItsRoot) {
    TestSession session;
    EXPECT_EQ(NewDocument("Goal", False, False, WriteMark)->xml(), "<Goal><Mark>x</Mark></Goal>");
    EXPECT_EQ(NewDocument("Goal", True, False, WriteMark)->xml(),
              "<?xml version=\"1.0\" encoding=\"utf-8\" ?><Goal><Mark>x</Mark></Goal>");
    EXPECT_EQ(NewDocument("Goal", True, True, WriteMark)->xml(),
              "<?xml version=\"1.0\" encoding=\"utf-16\" ?><Goal><Mark>x</Mark></Goal>");
}

TEST(DocumentToRead, LoadsTheFileAndHandsTheDocumentBack) {
    TestSession session;
    session.Write("a.prx", "<Project/>");
    Ref<dom::Document> mine;
    ByRef<Ref<dom::Document>> handed(mine);
    const auto document = DocumentToRead(session.Path("a.prx"), False, handed);
    EXPECT_EQ(document->xml(), "<Project/>");
    EXPECT_EQ(mine, document);
}

TEST(DocumentToRead, UsesTheCallersDocumentWhenItIsLoaded) {
    TestSession session;
    Ref<dom::Document> mine = DocumentOfText("<Mine/>");
    ByRef<Ref<dom::Document>> handed(mine);
    EXPECT_EQ(DocumentToRead(session.Path("none.prx"), True, handed), mine);
}

TEST(RootOf, FailsWithoutADocumentOrWithoutARoot) {
    TestSession session;
    EXPECT_EQ(NumberOf([] { RootOf({}); }), failure::kNothing);
    EXPECT_EQ(NumberOf([] { RootOf(Make<dom::Document>()); }), failure::kNothing);
    EXPECT_EQ(NumberOf([] { RootOf(DocumentOfText("<a>")); }), failure::kNothing);
    EXPECT_EQ(NumberOf([&] { RootOf(DocumentOfFile(session.Path("none.prx"))); }), failure::kNothing);
}

TEST(RootOf, SaysWhatWasWrongWithTheFile) {
    TestSession session;
    const Ref<dom::Document> document = DocumentOfText("<a>");
    try {
        RootOf(document);
        FAIL();
    } catch (const Failure& failed) {
        EXPECT_EQ(failed.description(), document->error_text());
        EXPECT_NE(failed.description(), "");
    }
}

TEST(ReadItems, YieldsToTheHostAtEachItem) {
    TestSession session;
    const auto document = DocumentOfText("<c><i>1</i><!-- --><i>2</i> <i>3</i></c>");
    String seen;
    EXPECT_FALSE(
        ReadItems(FirstElementIn(document->documentElement()), "i", [&](dom::Node item) { seen += item.Text(); }));
    EXPECT_EQ(seen, "123");
    EXPECT_EQ(session.ui.yields, 3);
}

TEST(ReadItems, KeepsStoppingAtAnElementOfAnotherName) {
    TestSession session;
    const auto document = DocumentOfText("<c><i>1</i><I>2</I><i>3</i></c>");
    String seen;
    const dom::Node stopped =
        ReadItems(FirstElementIn(document->documentElement()), "i", [&](dom::Node item) { seen += item.Text(); });
    EXPECT_EQ(seen, "1");
    EXPECT_EQ(stopped.baseName(), "I");
    EXPECT_EQ(session.ui.yields, 2);
}

TEST(ReadItems, PassesOnAFailureAndReadsNoFurther) {
    TestSession session;
    const auto document = DocumentOfText("<c><i/><i/></c>");
    int read = 0;
    EXPECT_EQ(NumberOf([&] {
                  ReadItems(FirstElementIn(document->documentElement()), "i", [&](dom::Node) {
                      ++read;
                      Raise(failure::kDuplicateKey);
                  });
              }),
              failure::kDuplicateKey);
    EXPECT_EQ(read, 1);
}

}  // namespace
}  // namespace mrlxmlclass
