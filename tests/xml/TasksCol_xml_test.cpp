#include <gtest/gtest.h>

#include "mrlxmlclass/session/StaticCls.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Section.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A task element in its row; `more` stands before the row.
String Row(int key, int row, int parent = 0, const String& more = {}) {
    const String name = std::to_string(key);
    return "<Task><ProjectID>0</ProjectID><ParentID>" + std::to_string(parent) +
           "</ParentID><TaskType>false</TaskType><TaskKey>" + name + "</TaskKey><TaskName>T" + name + "</TaskName>" +
           more + "<TaskStatusKey>0</TaskStatusKey><TaskPosition>" + std::to_string(row) + "</TaskPosition></Task>";
}

String Document(const String& tasks, const String& attribute = " scheduler=\"true\"") {
    return "<Project><Tasks" + attribute + ">" + tasks + "</Tasks></Project>";
}

/// Reads a project file's tasks into the plan's collection.
Ref<dom::Document> ReadInto(Plan& plan, const String& text, Boolean for_lib = False) {
    Ref<dom::Document> document = DocumentOfText(text);
    return plan.col().FromXmlFile("", True, document, for_lib);
}

/// The keys in the order of the collection.
String KeyOrder(const TasksCol& tasks) {
    String keys;
    for (const auto& entry : tasks.NewEnum()) keys += KeyText(entry.item->TaskKey()).text() + " ";
    return keys;
}

/// The rows by key.
String Rows(const TasksCol& tasks) {
    std::map<std::int64_t, String> rows;
    for (const auto& entry : tasks.NewEnum()) {
        rows[entry.item->TaskKey()] = KeyText(entry.item->TaskPosition()).text();
    }
    String text;
    for (const auto& [key, row] : rows) text += row + " ";
    return text;
}

TEST(TasksColToXmlFile, AddsTheSectionWithItsAttributeToADocument) {
    Plan plan;
    plan.Task("A");
    auto document = DocumentOfText("<Project/>");
    EXPECT_EQ(plan.col().ToXmlFile("", document, False), document);
    EXPECT_TRUE(document->xml().starts_with("<Project><Tasks scheduler=\"false\"><Task><ProjectID>0</ProjectID>"));
    plan.col().GanttVisted = True;
    document = plan.col().ToXmlFile("", DocumentOfText("<Project/>"), False);
    EXPECT_TRUE(document->xml().starts_with("<Project><Tasks scheduler=\"true\">"));
}

TEST(TasksColToXmlFile, KeepsADocumentOfItsOwnWithoutADeclaration) {
    Plan plan;
    const auto document = plan.col().ToXmlFile(plan.platform.Path("t.xml"), {}, True, False, True, False, True);
    ASSERT_TRUE(document);
    EXPECT_EQ(plan.platform.Read("t.xml"), "<Task><Tasks scheduler=\"false\"/></Task>");
}

TEST(TasksColToXmlFile, GivesNothingForAnEmptyDocumentWithoutAWord) {
    Plan plan;
    EXPECT_FALSE(plan.col().ToXmlFile(plan.platform.Path("t.xml"), {}, False, False, False, False, True));
    EXPECT_FALSE(plan.platform.Exists("t.xml"));
}

TEST(TasksColToXmlFile, AddsToAFileThatIsThere) {
    Plan plan;
    plan.platform.Write("t.xml", "<Project><Notes/></Project>");
    plan.col().ToXmlFile(plan.platform.Path("t.xml"), {}, False, False, False, /*FileExist=*/True, True);
    EXPECT_EQ(plan.platform.Read("t.xml"), "<Project><Notes/><Tasks scheduler=\"false\"/></Project>");
}

TEST(TasksColToXmlFile, SavesForTheFullTrueOnly) {
    Plan plan;
    plan.col().ToXmlFile(plan.platform.Path("t.xml"), {}, True, False, False, False, Boolean::Raw(1));
    EXPECT_FALSE(plan.platform.Exists("t.xml"));
}

TEST(TasksColToXmlFile, KeepsSortingTheLiveTasksByTheirPlaceInTheItem) {
    Plan plan;
    plan.Task("A").Task("B").Task("C");
    plan["A"].TaskPositionInitem(3);
    plan["B"].TaskPositionInitem(1);
    plan["C"].TaskPositionInitem(2);
    plan.col().ToXmlFile("", DocumentOfText("<Project/>"), False);
    EXPECT_EQ(KeyOrder(plan.col()), "2 3 1 ");
}

TEST(TasksColToXmlFile, RecordsAFileThatCannotBeWrittenAndGivesNothing) {
    Plan plan;
    EXPECT_FALSE(plan.col().ToXmlFile(plan.platform.Path("no/t.xml"), {}, True, False, False, False, True));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ToXmlFile 76\n");
}

TEST(TasksColToXml, HoldsTheTasksInTheirPresentOrder) {
    Plan plan;
    plan.Task("B").Task("A");
    plan["B"].TaskPosition(2);
    plan["A"].TaskPosition(1);
    const String text = plan.col().ToXml(False);
    EXPECT_TRUE(text.starts_with("<Task><Task><ProjectID>")) << text;
    EXPECT_LT(text.find("<TaskName>B<"), text.find("<TaskName>A<"));
    EXPECT_TRUE(plan.col().ToXml().starts_with("<?xml version=\"1.0\" encoding=\"utf-8\" ?><Task>"));
}

TEST(TasksColToXmlPart, HoldsTheTasksThatAreNamed) {
    Plan plan;
    plan.Task("A").Task("B").Task("C");
    const auto keys = Make<Collection>();
    keys->Add("3");
    keys->Add("1");
    const String text = plan.col().ToXmlPart(keys, False);
    EXPECT_LT(text.find("<TaskName>C<"), text.find("<TaskName>A<"));
    EXPECT_EQ(text.find("<TaskName>B<"), String::npos);
}

TEST(TasksColToXmlPart, EndsAtAnUnknownKey) {
    Plan plan;
    plan.Task("A").Task("B");
    const auto keys = Make<Collection>();
    for (const char* key : {"1", "9", "2"}) keys->Add(key);
    const String text = plan.col().ToXmlPart(keys, False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ToXmlIntPartial 91\n");
    EXPECT_NE(text.find("<TaskName>A<"), String::npos);
    EXPECT_EQ(text.find("<TaskName>B<"), String::npos);
}

TEST(TasksColFromXml, ReadsWhatToXmlGivesAndRebuildsNothing) {
    Plan plan;
    plan.Task("House").Task("Wall").Under("House").From(Monday).Lasting(2);
    const String text = plan.col().ToXml();

    const auto counters = Make<StaticCls>();
    const auto copy = Make<TasksCol>();
    EXPECT_EQ(copy->FromXml(text, counters), True);
    EXPECT_EQ(copy->ToXml(), text);
    EXPECT_EQ(counters->TaskKeyValue(), 2);
    EXPECT_FALSE(copy->oPublicStaticCls) << "only for this call";
    EXPECT_EQ(copy->isParent("1"), False);
    EXPECT_EQ(copy->Phases()->Count(), 0);
}

TEST(TasksColFromXml, AddsToWhatIsThere) {
    Plan plan;
    plan.Task("A").Task("B");
    const String text = plan.col().ToXml();
    const auto other = Make<TasksCol>();
    EXPECT_EQ(other->FromXml("<Task>" + Row(7, 1) + "</Task>", {}), True);
    EXPECT_EQ(other->FromXml(text, {}), True);
    EXPECT_EQ(KeyOrder(*other), "7 1 2 ");
}

TEST(TasksColFromXml, KeepsSigningItsFailuresAsARecordsAndLeavesTheKeyAlone) {
    Plan plan;
    EXPECT_EQ(plan.col().FromXml("<Task>", {}), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/FromXml 91\n");
    EXPECT_TRUE(plan.col().oPublicStaticCls);
    EXPECT_EQ(plan.col().FromXml("<Task>" + Row(40000, 1) + "</Task>", {}), True);
    EXPECT_EQ(plan.failures.Taken(), "") << "no counter, no limit";
}

TEST(TasksColFromXmlFile, LoadsTheFileItselfWhenItIsTold) {
    Plan plan;
    plan.platform.Write("p.prx", Document(Row(1, 1)));
    Ref<dom::Document> document;
    EXPECT_TRUE(plan.col().FromXmlFile(plan.platform.Path("p.prx"), /*loaded=*/False, document));
    ASSERT_TRUE(document) << "handed back";
    EXPECT_EQ(document->documentElement().baseName(), "Project");
    EXPECT_EQ(plan.col().Count(), 1);
    EXPECT_EQ(plan.col().GanttVisted, True);

    EXPECT_FALSE(plan.col().FromXmlFile(plan.platform.Path("no.prx"), False, document));
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/FromXmlFile 91\n");
}

TEST(TasksColFromXmlFile, KeepsSigningAsTheGoals) {
    Plan plan;
    EXPECT_FALSE(ReadInto(plan, "<Project/>"));
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/FromXmlFile 91\n");
    EXPECT_FALSE(plan.col().FromXmlFile("", True));
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/FromXmlFile 91\n");
}

TEST(TasksColFromXmlFile, LeavesTheSchedulersFlagWhereTheAttributeIsMissingAndEndsAtABadOne) {
    Plan plan;
    plan.col().GanttVisted = True;
    EXPECT_TRUE(ReadInto(plan, Document("", "")));
    EXPECT_EQ(plan.col().GanttVisted, True);
    EXPECT_TRUE(ReadInto(plan, Document("", " scheduler=\"FALSE\"")));
    EXPECT_EQ(plan.col().GanttVisted, False);
    EXPECT_FALSE(ReadInto(plan, Document(Row(1, 1), " scheduler=\"1\"")));
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/FromXmlFile 1\n");
    EXPECT_EQ(plan.col().Count(), 0);
}

TEST(TasksColFromXmlFile, EndsAtARecordOfAnotherNameAndYieldsAtEach) {
    Plan plan;
    ReadInto(plan, Document(Row(1, 1) + "<!-- between -->" + Row(2, 2) + "<Goal/>" + Row(3, 3)));
    EXPECT_EQ(KeyOrder(plan.col()), "1 2 ");
    EXPECT_EQ(plan.platform.ui.yields, 3);
}

TEST(TasksColFromXmlFile, GivesEachTaskTheCollectionsElementName) {
    Plan plan;
    ReadInto(plan, Document(Row(1, 1)));
    EXPECT_EQ(In(plan.col().Item("1")).elementName(), "Task");
    EXPECT_EQ(In(plan.col()).elementName(), "Task") << "not that of the section";
}

TEST(TasksColFromXmlFile, NumbersRowsWithAGapAnew) {
    Plan plan;
    ReadInto(plan, Document(Row(1, 1) + Row(2, 2) + Row(3, 4)));
    EXPECT_EQ(Rows(plan.col()), "1 2 3 ");
}

TEST(TasksColFromXmlFile, NumbersRowsAnewThatAreNoneOrTooHigh) {
    struct Case {
        int second;
        const char* rows;
    };
    for (const Case& row : {Case{0, "2 1 "}, Case{-1, "2 1 "}, Case{9, "1 2 "}}) {
        SCOPED_TRACE(row.second);
        Plan plan;
        ReadInto(plan, Document(Row(1, 1) + Row(2, row.second)));
        EXPECT_EQ(Rows(plan.col()), row.rows);
    }
}

TEST(TasksColFromXmlFile, GivesEachOfTwoTasksThatShareARowItsOwn) {
    Plan plan;
    ReadInto(plan, Document(Row(1, 1) + Row(2, 1)));
    EXPECT_EQ(plan.col().Item("1")->TaskPosition() + plan.col().Item("2")->TaskPosition(), 3);
}

TEST(TasksColFromXmlFile, LeavesRowsAloneThatAreWhole) {
    Plan plan;
    ReadInto(plan, Document(Row(2, 2) + Row(1, 1) + Row(3, 3)));
    EXPECT_EQ(Rows(plan.col()), "1 2 3 ");
    EXPECT_EQ(KeyOrder(plan.col()), "2 1 3 ") << "nothing was sorted";
}

TEST(TasksColFromXmlFile, AsALibraryRepairsNothing) {
    Plan plan;
    ReadInto(plan, Document(Row(1, 1) + Row(2, 2) + Row(3, 4)), /*for_lib=*/True);
    EXPECT_EQ(Rows(plan.col()), "1 2 4 ");
}

TEST(AddTaskParentForAll, FilesChildrenAndPhasesAndCountsCandidates) {
    Plan plan;
    const String aside = "<Task><TaskType>true</TaskType><TaskCondidat>false</TaskCondidat><TaskKey>4</TaskKey></Task>";
    ReadInto(plan, Document(Row(1, 1) + Row(2, 2, 1) + Row(3, 3, 1) + aside));
    EXPECT_EQ(plan.col().GetTaskNumber(1), 2);
    EXPECT_EQ(plan.col().Phases()->Count(), 1);
    EXPECT_EQ(plan.col().Phases()->Item(Long(1)).Key().text(), "1");
    EXPECT_EQ(plan.col().Count(), 3);
    EXPECT_EQ(plan.col().Count(True), 4);
    plan.col().SetPhases();
    plan.failures.Taken();
    EXPECT_EQ(plan.col().AddTaskParentForAll(), True) << "a candidate always leaves a row over";
    EXPECT_EQ(plan.col().Count(), 3) << "a second call counts right";
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddPhase 457\n") << "the phase is there already";
}

TEST(AddTaskParentForAll, FindsTheSpanAndWhoHoldsIt) {
    Plan plan;
    const auto dates = [](const char* start, const char* end) {
        return String("<TaskBDate>") + start + "</TaskBDate><TaskEDate>" + end + "</TaskEDate>";
    };
    ReadInto(plan, Document(Row(1, 1, 0, dates("3/4/2026", "3/5/2026")) + Row(2, 2, 0, dates("3/3/2026", "3/9/2026")) +
                            Row(3, 3, 0, dates("3/5/2026", "3/6/2026"))));
    EXPECT_EQ(Module().g_MinDate, Tuesday);
    EXPECT_EQ(Module().g_MinDateTaskKey, 2);
    EXPECT_EQ(Module().g_MaxDate, Monday + 7);
    EXPECT_EQ(Module().g_MaxDateTaskKey, 2);
}

TEST(AddTaskParentForAll, PutsAParentBeforeAChildThatStandsAboveIt) {
    Plan plan;
    ReadInto(plan, Document(Row(1, 2) + Row(2, 1, 1) + Row(3, 3)));
    EXPECT_LT(plan.col().Item("1")->TaskPosition(), plan.col().Item("2")->TaskPosition());
    EXPECT_EQ(plan.col().GetTaskNumber(1), 1);
    EXPECT_EQ(plan.failures.Taken(), "");
}

TEST(AddTaskParentForAll, EndsAtATaskWhoseParentIsMissing) {
    Plan plan;
    ReadInto(plan, Document(Row(1, 1) + Row(2, 2, 9) + Row(3, 3, 1)));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskParentForAll 91\n");
    EXPECT_EQ(plan.col().isParent("1"), False);
    EXPECT_EQ(plan.col().Count(), 3);
}

TEST(FixProject, NumbersTheOutlineAndLeavesCandidatesAtTheirRow) {
    Plan plan;
    plan.Task("A").Task("B").Task("Aside").Candidate().Task("C");
    plan["A"].TaskPosition(20);
    plan["B"].TaskPosition(10);
    plan["C"].TaskPosition(30);
    EXPECT_EQ(In(plan.col()).FixProject(), True);
    EXPECT_EQ(plan["B"].TaskPosition(), 1);
    EXPECT_EQ(plan["A"].TaskPosition(), 2);
    EXPECT_EQ(plan["C"].TaskPosition(), 3);
    EXPECT_EQ(plan["Aside"].TaskPosition(), 0);
    EXPECT_EQ(plan.Heard(), "") << "nobody is told";
}

}  // namespace
}  // namespace mrlxmlclass
