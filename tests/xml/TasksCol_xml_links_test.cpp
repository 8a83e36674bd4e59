#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Section.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/Weeks.h"
#include "tests/support/WholeProject.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A chain of gaps 0 and -1 and a task that waits for two, in a file.
class LinkedProject : public Plan {
public:
    explicit LinkedProject(Boolean saved_live = True) {
        if (saved_live) WithLinks();
        Task("Design").From(Monday).Lasting(2).Task("Build").From(Wednesday).Lasting(2).After("Design");
        Task("Test").From(Thursday).After("Build", -1).After("Design", 1);
        app->xFileName(platform.Path("house.prx"));
        EXPECT_EQ(app->SaveXml(), True);
    }
    void Load(Boolean live) {
        app->Init(live);
        app->xFileName(platform.Path("house.prx"));
        EXPECT_EQ(app->LoadXML(), True);
        app->endreadonly();
    }
    /// Whether the file has such an element.
    bool Holds(const String& element) { return platform.Read("house.prx").find("<" + element) != String::npos; }
};

constexpr const char* kLinks =
    "Design -> Build Test\n"
    "Build <- Design|0\n"
    "Build -> Test\n"
    "Test <- Build|-1 Design|1\n";

TEST(TasksColToXmlFile, JoinsLinksAndLeadTimesBySemicolons) {
    LinkedProject project;
    const String file = project.platform.Read("house.prx");
    for (const char* element : {
             "<TaskSuccessor>2;3</TaskSuccessor><TaskLeadTime/>",
             "<TaskSuccessor>3</TaskSuccessor><TaskPredecessor>1</TaskPredecessor><TaskLeadTime>1|0</TaskLeadTime>",
             "<TaskPredecessor>2;1</TaskPredecessor><TaskLeadTime>2|-1;1|1</TaskLeadTime>",
         }) {
        EXPECT_NE(file.find(element), String::npos) << element;
    }
}

TEST(TasksColFromXmlFile, BringsBackBothSidesAndTheLeadTimes) {
    LinkedProject project;
    const String before = ToldTasks(project.col());
    project.Load(True);
    EXPECT_EQ(Links(project), kLinks);
    EXPECT_EQ(project["Test"].TaskLeadTime()->Item("2"), Variant("2|-1"));
    EXPECT_EQ(ToldTasks(project.col()), before);

    EXPECT_EQ(project.app->SaveXml(), True);
    project.Load(True);
    EXPECT_EQ(Links(project), kLinks);
}

TEST(TasksColFromXmlFile, LetsLoadedLinksMoveTheirTasks) {
    LinkedProject project;
    project.Load(True);
    project.col().DependsDateChanged("1", Tuesday, 1);
    EXPECT_EQ(Weeks(project, 1),
              "Design |.##..  |\n"
              "Build  |...##  |\n"
              "Test   |....#  |\n");
}

TEST(TasksColFromXmlFile, DropsTheLinksForGoodWhereTheyAreNotLive) {
    LinkedProject project;
    project.Load(False);
    EXPECT_EQ(Links(project), "");
    EXPECT_EQ(project["Test"].TaskPredecessorValid(), False);
    EXPECT_EQ(project["Test"].TaskBDate(), Thursday) << "all else is there";
    EXPECT_EQ(project.col().Count(), 3);

    EXPECT_EQ(project.app->SaveXml(), True);
    for (const char* element : {"TaskSuccessor", "TaskPredecessor", "TaskLeadTime"}) {
        EXPECT_FALSE(project.Holds(element)) << element;
    }
    project.Load(True);
    EXPECT_EQ(Links(project), "");
}

TEST(TasksColToXmlFile, WritesNoLinksWhereTheyAreNotLive) {
    LinkedProject project(/*saved_live=*/False);
    EXPECT_EQ(Links(project), kLinks) << "the tasks still hold them";
    for (const char* element : {"TaskSuccessor", "TaskPredecessor", "TaskLeadTime"}) {
        EXPECT_FALSE(project.Holds(element)) << element;
    }
    project.Load(True);
    EXPECT_EQ(Links(project), "");
    EXPECT_EQ(project.col().Count(), 3);
}

TEST(TasksColToXmlFile, KeepsAnEmptyLeadTimeAndNoEmptyLinks) {
    Plan plan;
    plan.WithLinks().Task("Free");
    plan.col().PredessorAsString("1");
    plan.col().SucessorAsString("1");
    plan.col().RemoveTaskPredecessor("1", "");
    plan.app->xFileName(plan.platform.Path("p.prx"));
    plan.app->SaveXml();
    const String file = plan.platform.Read("p.prx");
    EXPECT_NE(file.find("<TaskLeadTime/>"), String::npos);
    EXPECT_EQ(file.find("TaskPredecessor"), String::npos) << "asking made no list";
    EXPECT_EQ(file.find("TaskSuccessor"), String::npos);
}

// --- Damaged files --------------------------------------------------------------------------------------------------

/// A task element with the text of its links; what is empty is left out.
String Task(const String& key, const String& successors, const String& predecessors, const String& leads = {}) {
    const auto element = [](const String& name, const String& text) {
        return text.empty() ? String() : "<" + name + ">" + text + "</" + name + ">";
    };
    return "<Task><ProjectID>0</ProjectID><TaskType>false</TaskType><TaskKey>" + key + "</TaskKey><TaskName>T" + key +
           "</TaskName><TaskBDate>3/2/2026</TaskBDate><TaskEDate>3/2/2026</TaskEDate><TaskDuration>1</TaskDuration>"
           "<TaskStatusKey>0</TaskStatusKey>" +
           element("TaskSuccessor", successors) + element("TaskPredecessor", predecessors) +
           element("TaskLeadTime", leads) + "<TaskPosition>" + key + "</TaskPosition></Task>";
}

void Read(Plan& plan, const String& tasks, Boolean for_lib = False) {
    Ref<dom::Document> document = DocumentOfText("<Project><Tasks>" + tasks + "</Tasks></Project>");
    plan.col().FromXmlFile("", True, document, for_lib);
}

TEST(TasksColFromXmlFile, TakesLinksAsTheyStandWhoeverTheyName) {
    LinkingPlan plan;
    Read(plan, Task("1", "2;77;x", "") + Task("2", "", "1;88", "1|3;88|-2;99|1"));
    EXPECT_EQ(Links(plan), "T1 -> T2 77 x\nT2 <- T1|3 88|-2\n");
    EXPECT_EQ(Listed(plan.col().Item(2)->TaskLeadTime()), "1|3 88|-2 99|1");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(TasksColFromXmlFile, LeavesStaleLinksToThoseWhoReadThem) {
    LinkingPlan plan;
    Read(plan, Task("1", "2;77", "") + Task("2", "", "1;88", "1|3;88|-2"));
    EXPECT_EQ(plan.col().SucessorAsString("1"), "2");
    EXPECT_EQ(plan.col().PredessorAsString("2"), "1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n") << "of the predecessor that is gone";
    EXPECT_EQ(Links(plan), "T1 -> T2\nT2 <- T1|3\n");
    EXPECT_EQ(plan.Heard(), "SucessorChange(88, )\nPredecessorChange(2, 1)\nPredecessorKeyChange(2, 88, remove)\n");
}

TEST(TasksColFromXmlFile, LeavesOneSidedLinksToTheirRemoval) {
    LinkingPlan plan;
    Read(plan, Task("1", "2", "") + Task("2", "", "") + Task("3", "", "1", "1|0"));
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("3", "1"), True);
    EXPECT_EQ(Links(plan), "");
}

TEST(TasksColFromXmlFile, EndsTheSectionAtAListThatNamesATaskTwice) {
    for (const String& damaged : {Task("2", "1;1", ""), Task("2", "", "1;1"), Task("2", "", "1", "1|0;1|2")}) {
        LinkingPlan plan;
        Read(plan, Task("1", "", "") + damaged + Task("3", "", ""));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/FromXmlInt 457\n");
        EXPECT_EQ(Walked(plan.col()), "T1");
    }
}

TEST(TasksColFromXmlFile, AsALibraryTakesNoLinks) {
    LinkingPlan plan;
    Read(plan, Task("1", "2", "") + Task("2", "", "1", "1|3"), /*for_lib=*/True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.col().Count(), 2);
}

TEST(TasksColFromXmlFile, ReadsACycleOfLinksThatAWalkSurvives) {
    LinkingPlan plan;
    Read(plan, Task("1", "2", "3", "3|0") + Task("2", "3", "1", "1|0") + Task("3", "1", "2", "2|0"));
    plan.col().DependsDateChanged("1", Tuesday, 1);
    EXPECT_EQ(Weeks(plan, 1),
              "T1 |.#...  |\n"
              "T2 |..#..  |\n"
              "T3 |...#.  |\n");
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
