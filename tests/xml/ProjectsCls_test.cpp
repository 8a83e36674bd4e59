#include "mrlxmlclass/xml/ProjectsCls.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/xml/Section.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

/// A project with every field set.
Ref<ProjectsCls> FullProject() {
    auto project = Make<ProjectsCls>();
    project->ProjectID(4);
    project->ProjectName("House & garden");
    project->ProjectCreationDate(Date::Of(2026, 1, 5));
    project->ProjectStartLine(Date::Of(2026, 3, 2));
    project->ProjectDeadLine(Date::Of(2026, 11, 30));
    project->ProjectDescription("First line\r\nsecond line");
    project->ProjectOwnerIdentifier(12);
    project->ProjectOwnerName("Mara");
    project->ProjectCalendarkey(3);
    project->DateFormat("M/d/yyyy");
    project->islocked(True);
    project->previewsettings(17);
    return project;
}

/// The names of the elements under the root, each followed by a blank.
String FieldNames(const Ref<dom::Document>& document) {
    String names;
    for (dom::Node field = FirstElementIn(document->documentElement()); field;
         field = Conversions::MoveNextSiblingElement(field)) {
        names.append(field.baseName()).append(" ");
    }
    return names;
}

Ref<dom::Document> Saved(const Ref<ProjectsCls>& project, const String& path) {
    return project->ToXmlFile(path, {}, True, False, True, False, True);
}

TEST(ProjectsCls, StartsEmpty) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    EXPECT_EQ(project->ProjectID(), 0);
    EXPECT_EQ(project->ProjectName(), "");
    EXPECT_EQ(project->ProjectCreationDate(), Date());
    EXPECT_EQ(project->ProjectStartLineValid(), False);
    EXPECT_EQ(project->ProjectDeadLineValid(), False);
    EXPECT_EQ(project->ProjectDescriptionValid(), False);
    EXPECT_EQ(project->ProjectOwnerIdentifierValid(), False);
    EXPECT_EQ(project->ProjectOwnerNameValid(), False);
    EXPECT_EQ(project->elementName(), "Project");
    EXPECT_EQ(project->DateFormat(), "");
    EXPECT_EQ(project->islocked(), False);
    EXPECT_EQ(project->previewsettings(), 0);
}

TEST(ProjectsCls, MakesTheSharedErrorLogWhereItIsAbsent) {
    TestSession session;
    Module().g_ErrorsHandler = {};
    const auto project = Make<ProjectsCls>();
    EXPECT_TRUE(Module().g_ErrorsHandler);
}

TEST(ProjectsCls, RaisesAFlagWithItsValueAndClearsTheValueWithAChangeOfTheFlag) {
    TestSession session;
    const auto project = FullProject();
    EXPECT_EQ(project->ProjectStartLineValid(), True);
    EXPECT_EQ(project->ProjectDeadLineValid(), True);
    EXPECT_EQ(project->ProjectDescriptionValid(), True);
    EXPECT_EQ(project->ProjectOwnerIdentifierValid(), True);
    EXPECT_EQ(project->ProjectOwnerNameValid(), True);

    project->ProjectOwnerNameValid(True);
    EXPECT_EQ(project->ProjectOwnerName(), "Mara") << "no change, nothing cleared";
    project->ProjectStartLineValid(False);
    project->ProjectDeadLineValid(False);
    project->ProjectDescriptionValid(False);
    project->ProjectOwnerNameValid(False);
    EXPECT_EQ(project->ProjectStartLine(), Date());
    EXPECT_EQ(project->ProjectDeadLine(), Date());
    EXPECT_EQ(project->ProjectDescription(), "");
    EXPECT_EQ(project->ProjectOwnerName(), "");
}

TEST(ProjectOwnerIdentifier, IsRefusedAndRecordedWhileItsFlagIsDown) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    EXPECT_EQ(project->ProjectOwnerIdentifier(), 0);
    EXPECT_EQ(session.failures.Taken(), "ProjectsCls/ProjectOwnerIdentifier 1\n");
    EXPECT_EQ(session.failures.LatestWords(),
              "The Property ProjectOwnerIdentifier is not valid set m_ProjectOwnerIdentifierValid = true");

    project->ProjectOwnerIdentifier(12);
    EXPECT_EQ(project->ProjectOwnerIdentifier(), 12);
    project->ProjectOwnerIdentifierValid(False);
    EXPECT_EQ(project->ProjectOwnerIdentifier(), 0);
    EXPECT_EQ(session.failures.Taken(), "ProjectsCls/ProjectOwnerIdentifier 1\n");
}

TEST(ProjectsClsToXmlFile, WritesItsFieldsInOrderDirectlyUnderTheRoot) {
    TestSession session;
    const auto document = Saved(FullProject(), session.Path("a.prx"));
    ASSERT_TRUE(document);
    EXPECT_EQ(document->documentElement().baseName(), "Project");
    EXPECT_EQ(FieldNames(document),
              "ProjectID ProjectName ProjectCreationDate ProjectStartLine ProjectDeadLine ProjectDescription "
              "ProjectOwnerIdentifier ProjectOwnerName ProjectCalendarkey DateFormat PreviewSettings ");
    EXPECT_TRUE(session.Read("a.prx").starts_with("<?xml version=\"1.0\" ?><Project><ProjectID>4</ProjectID>"))
        << session.Read("a.prx");
}

TEST(ProjectsClsToXmlFile, LeavesOutTheFiveFieldsThatWereNeverSet) {
    TestSession session;
    EXPECT_EQ(FieldNames(Saved(Make<ProjectsCls>(), session.Path("a.prx"))),
              "ProjectID ProjectName ProjectCreationDate ProjectCalendarkey DateFormat PreviewSettings ");
}

TEST(ProjectsClsToXmlFile, KeepsTheDeclarationPlainWhateverTheEncoding) {
    TestSession session;
    for (const Boolean unicode : {False, True}) {
        const auto document =
            FullProject()->ToXmlFile("", {}, /*includeDocHeader=*/True, /*useNamespace=*/False, unicode);
        EXPECT_TRUE(document->xml().starts_with("<?xml version=\"1.0\" ?><Project>")) << document->xml();
    }
}

TEST(ProjectsClsToXmlFile, KeepsSigningItsFailuresAsProjectcls) {
    TestSession session;
    EXPECT_FALSE(Saved(FullProject(), session.Path("no/such/folder.prx")));
    EXPECT_EQ(session.failures.Taken(), "Projectcls/ToXmlFile 76\n");
}

TEST(ProjectsClsToXmlFile, GivesNothingForADocumentWithoutARoot) {
    TestSession session;
    EXPECT_FALSE(FullProject()->ToXmlFile(session.Path("a.prx"), {}, False));
    EXPECT_FALSE(session.Exists("a.prx"));
}

TEST(ProjectsClsToXmlInt, WritesNothingUnderNothing) {
    TestSession session;
    FullProject()->ToXmlInt(Make<dom::Document>(), {});
}

TEST(ProjectsClsFromXmlFile, TakesBackWhatWasSaved) {
    TestSession session;
    Saved(FullProject(), session.Path("a.prx"));
    const auto project = Make<ProjectsCls>();
    Ref<dom::Document> document;
    EXPECT_TRUE(project->FromXmlFile(session.Path("a.prx"), False, document));
    EXPECT_TRUE(document);
    EXPECT_EQ(project->ProjectID(), 4);
    EXPECT_EQ(project->ProjectName(), "House & garden");
    EXPECT_EQ(project->ProjectStartLine(), Date::Of(2026, 3, 2));
    EXPECT_EQ(project->ProjectStartLineValid(), True);
    EXPECT_EQ(project->ProjectDeadLine(), Date::Of(2026, 11, 30));
    EXPECT_EQ(project->ProjectDeadLineValid(), True);
    EXPECT_EQ(project->ProjectOwnerIdentifier(), 12);
    EXPECT_EQ(project->ProjectOwnerName(), "Mara");
    EXPECT_EQ(project->ProjectOwnerNameValid(), True);
    EXPECT_EQ(project->ProjectCalendarkey(), 3);
    EXPECT_EQ(project->DateFormat(), "M/d/yyyy");
    EXPECT_EQ(project->previewsettings(), 17);
    EXPECT_EQ(project->islocked(), False) << "not in the file";
}

TEST(ProjectsClsFromXmlFile, KeepsSteppingOverTheCreationDate) {
    TestSession session;
    Saved(FullProject(), session.Path("a.prx"));
    const auto project = Make<ProjectsCls>();
    project->ProjectCreationDate(Date::Of(2020, 1, 1));
    ASSERT_TRUE(project->FromXmlFile(session.Path("a.prx")));
    EXPECT_EQ(project->ProjectCreationDate(), Date());
    EXPECT_EQ(Saved(project, session.Path("b.prx"))->documentElement().selectSingleNode("ProjectCreationDate").Text(),
              "12/30/1899");
}

TEST(ProjectsClsFromXmlFile, TakesEvenACreationDateThatIsNoDate) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    EXPECT_EQ(project->FromXml("<Project><ProjectCreationDate>long ago</ProjectCreationDate>"
                               "<ProjectStartLine>3/2/2026</ProjectStartLine></Project>"),
              True);
    EXPECT_EQ(project->ProjectStartLine(), Date::Of(2026, 3, 2));
}

TEST(ProjectsClsFromXmlFile, KeepsTheCarriageReturnsOfTheDescription) {
    TestSession session;
    Saved(FullProject(), session.Path("a.prx"));
    const auto project = Make<ProjectsCls>();
    ASSERT_TRUE(project->FromXmlFile(session.Path("a.prx")));
    EXPECT_EQ(project->ProjectDescription(), "First line\r\nsecond line");

    Saved(project, session.Path("a.prx"));
    ASSERT_TRUE(project->FromXmlFile(session.Path("a.prx")));
    EXPECT_EQ(project->ProjectDescription(), "First line\r\nsecond line") << "and after a second round";
}

TEST(ProjectsClsFromXmlFile, MakesOneLineEndOfACarriageReturnThatTheFileSpellsOut) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    project->FromXml("<Project><ProjectDescription>a&#13;\nb\nc</ProjectDescription></Project>");
    EXPECT_EQ(project->ProjectDescription(), "a\r\nb\r\nc");
}

TEST(ProjectsClsFromXmlFile, TakesAnEmptyDescriptionForASetOne) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    project->ProjectDescription("");
    ASSERT_EQ(project->ProjectDescriptionValid(), True);
    Saved(project, session.Path("a.prx"));
    const auto back = Make<ProjectsCls>();
    ASSERT_TRUE(back->FromXmlFile(session.Path("a.prx")));
    EXPECT_EQ(back->ProjectDescriptionValid(), True);
    EXPECT_EQ(back->ProjectDescription(), "");
}

TEST(ProjectsClsFromXmlFile, KeepsAllBehindAnUnknownElementAtItsDefault) {
    TestSession session;
    const auto project = FullProject();
    EXPECT_EQ(project->FromXml("<Project><ProjectID>9</ProjectID><ProjectName>Shed</ProjectName><Colour/>"
                               "<ProjectCalendarkey>5</ProjectCalendarkey><DateFormat>d.M.yyyy</DateFormat>"
                               "<PreviewSettings>2</PreviewSettings></Project>"),
              True);
    EXPECT_EQ(project->ProjectID(), 9);
    EXPECT_EQ(project->ProjectName(), "Shed");
    EXPECT_EQ(project->ProjectCalendarkey(), 0);
    EXPECT_EQ(project->DateFormat(), "");
    EXPECT_EQ(project->previewsettings(), 0);
    EXPECT_EQ(project->ProjectOwnerNameValid(), False);
}

TEST(ProjectsClsFromXmlFile, KeepsStoppingAtTheSectionsThatFollowTheFields) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    project->FromXml("<Project><ProjectID>9</ProjectID><Tasks/><ProjectName>Shed</ProjectName></Project>");
    EXPECT_EQ(project->ProjectName(), "");
}

TEST(ProjectsClsFromXmlFile, KeepsDatesInTheOrderOfTheSystemWhateverTheFilesFormat) {
    TestSession session;
    session.locale.Use("M/d/yyyy");
    Module().g_FileDateSeparator = ".";
    Module().g_SystemDateSeparator = "/";
    const auto project = Make<ProjectsCls>();
    project->FromXml(
        "<Project><ProjectStartLine>1.2.2026</ProjectStartLine>"
        "<ProjectDeadLine>31.12.2026</ProjectDeadLine></Project>");
    EXPECT_EQ(project->ProjectStartLine(), Date::Of(2026, 1, 2));
    EXPECT_EQ(project->ProjectDeadLine(), Date::Of(2026, 12, 31));
}

TEST(ProjectsClsFromXmlFile, KeepsWhatStoodBeforeABadField) {
    TestSession session;
    session.Write("a.prx",
                  "<Project><ProjectID>9</ProjectID><ProjectName>Shed</ProjectName>"
                  "<PreviewSettings>40000</PreviewSettings></Project>");
    const auto project = Make<ProjectsCls>();
    EXPECT_TRUE(project->FromXmlFile(session.Path("a.prx"))) << "the document is given all the same";
    EXPECT_EQ(project->ProjectName(), "Shed");
    EXPECT_EQ(project->previewsettings(), 0);
    EXPECT_EQ(session.failures.Taken(), "ProjectsCls/FromXmlInt 6\n");
}

TEST(ProjectsClsFromXmlFile, ReadsOverComments) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    project->FromXml(
        "<!--a--><Project><!--b--><ProjectID>9</ProjectID><!--c--><ProjectName>Shed</ProjectName></Project>");
    EXPECT_EQ(project->ProjectID(), 9);
    EXPECT_EQ(project->ProjectName(), "Shed");
}

TEST(ProjectsClsFromXmlFile, RecordsOneFailureForAFileThatIsMissing) {
    TestSession session;
    const auto project = Make<ProjectsCls>();
    EXPECT_FALSE(project->FromXmlFile(session.Path("none.prx")));
    EXPECT_EQ(session.failures.Taken(), "ProjectsCls/FromXmlFile 91\n");
}

TEST(ProjectsClsFromXmlFile, ReadsTheDocumentHandedInWhenItIsLoaded) {
    TestSession session;
    Ref<dom::Document> document = DocumentOfText("<Plan><ProjectID>9</ProjectID></Plan>");
    const auto project = Make<ProjectsCls>();
    EXPECT_EQ(project->FromXmlFile("", True, document), document);
    EXPECT_EQ(project->ProjectID(), 9);
    EXPECT_EQ(project->elementName(), "Plan");

    document = {};
    EXPECT_FALSE(project->FromXmlFile("", True, document));
    EXPECT_EQ(session.failures.Taken(), "ProjectsCls/FromXmlFile 91\n");
}

TEST(ProjectsClsToXml, ComesBackThroughFromXml) {
    TestSession session;
    const String text = FullProject()->ToXml();
    EXPECT_TRUE(text.starts_with("<?xml version=\"1.0\" encoding=\"utf-8\" ?><Project>")) << text;
    EXPECT_TRUE(FullProject()->ToXml(False).starts_with("<Project><ProjectID>4</ProjectID>"));
    EXPECT_TRUE(FullProject()->ToXml(True, False, True).starts_with("<?xml version=\"1.0\" encoding=\"utf-16\" ?>"));
    const auto project = Make<ProjectsCls>();
    EXPECT_EQ(project->FromXml(text), True);
    EXPECT_EQ(project->ProjectName(), "House & garden");
    EXPECT_EQ(project->ProjectDescription(), "First line\r\nsecond line");
}

TEST(ProjectsClsFromXml, IsFalseForATextThatIsNotWellFormed) {
    TestSession session;
    EXPECT_EQ(Make<ProjectsCls>()->FromXml("<Project>"), False);
    EXPECT_EQ(session.failures.Taken(), "ProjectsCls/FromXml 91\n");
}

TEST(ProjectsClsClone, CopiesEveryField) {
    TestSession session;
    const auto copy = FullProject()->Clone();
    EXPECT_EQ(copy->ProjectID(), 4);
    EXPECT_EQ(copy->ProjectName(), "House & garden");
    EXPECT_EQ(copy->ProjectCreationDate(), Date::Of(2026, 1, 5));
    EXPECT_EQ(copy->ProjectDeadLine(), Date::Of(2026, 11, 30));
    EXPECT_EQ(copy->ProjectDescription(), "First line\r\nsecond line");
    EXPECT_EQ(copy->ProjectOwnerIdentifier(), 12);
    EXPECT_EQ(copy->ProjectOwnerName(), "Mara");
    EXPECT_EQ(copy->ProjectCalendarkey(), 3);
    EXPECT_EQ(copy->DateFormat(), "M/d/yyyy");
    EXPECT_EQ(copy->islocked(), True);
    EXPECT_EQ(copy->previewsettings(), 17);
}

TEST(ProjectsClsClone, KeepsStartingOnTheDeadline) {
    TestSession session;
    const auto copy = FullProject()->Clone();
    EXPECT_EQ(copy->ProjectStartLine(), Date::Of(2026, 11, 30));
    EXPECT_EQ(copy->ProjectStartLineValid(), True);

    const auto project = Make<ProjectsCls>();
    project->ProjectDeadLine(Date::Of(2026, 11, 30));
    EXPECT_EQ(project->Clone()->ProjectStartLine(), Date::Of(2026, 11, 30));
    EXPECT_EQ(project->Clone()->ProjectStartLineValid(), False) << "the flag is the start line's own";
}

TEST(ProjectsClsClone, DoesNotAskForAnOwnerThatWasNeverSet) {
    TestSession session;
    EXPECT_EQ(Make<ProjectsCls>()->Clone()->ProjectOwnerIdentifierValid(), False);
    EXPECT_EQ(session.failures.Taken(), "");
}

}  // namespace
}  // namespace mrlxmlclass
