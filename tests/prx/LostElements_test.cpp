#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// A file with every element that a project can have, as this system writes it.
constexpr const char* kEveryElement =
    "<Project><ProjectID>4</ProjectID><ProjectName>All</ProjectName>"
    "<ProjectCreationDate>3/2/2026</ProjectCreationDate><ProjectStartLine>3/2/2026</ProjectStartLine>"
    "<ProjectDeadLine>3/9/2026</ProjectDeadLine><ProjectDescription>Text</ProjectDescription>"
    "<ProjectOwnerIdentifier>5</ProjectOwnerIdentifier><ProjectOwnerName>Ann</ProjectOwnerName>"
    "<ProjectCalendarkey>0</ProjectCalendarkey><DateFormat>M/d/yyyy</DateFormat><PreviewSettings>0</PreviewSettings>"
    "<Tasks scheduler=\"false\"><Task><ProjectID>0</ProjectID><ParentID>0</ParentID><TaskType>false</TaskType>"
    "<TaskCondidat>true</TaskCondidat><TaskMilstones>false</TaskMilstones><TaskKey>1</TaskKey><TaskName>A</TaskName>"
    "<TaskBDate>3/2/2026</TaskBDate><TaskEDate>3/3/2026</TaskEDate><TaskDuration>2</TaskDuration><TaskLag>0</TaskLag>"
    "<TaskDurationUnit>days</TaskDurationUnit><TaskColor>7</TaskColor>"
    "<TaskNoteRelationsKeys><Key>1</Key></TaskNoteRelationsKeys><TaskStatusKey>0</TaskStatusKey>"
    "<TaskPercentDone>50</TaskPercentDone><TaskObstaclesRelationKeys><Key>1</Key></TaskObstaclesRelationKeys>"
    "<TaskPeopleRelationKeys><tKey>1</tKey></TaskPeopleRelationKeys>"
    "<TaskGoalRelationKeys><tKey>1</tKey></TaskGoalRelationKeys><TaskLink>a:|LINK|b</TaskLink>"
    "<TaskModifiedDate>3/2/2026</TaskModifiedDate><TaskModified>true</TaskModified><TaskSuccessor>2</TaskSuccessor>"
    "<TaskPredecessor/><TaskLeadTime/><TaskPosition>1</TaskPosition><TaskSubPosition>1</TaskSubPosition>"
    "<TaskPositionInItem>1</TaskPositionInItem><TaskCost>1</TaskCost><TaskCostUp>1</TaskCostUp>"
    "<PredecessorDirty>false</PredecessorDirty></Task>"
    "<Task><ProjectID>0</ProjectID><TaskType>false</TaskType><TaskCondidat>true</TaskCondidat>"
    "<TaskMilstones>false</TaskMilstones><TaskKey>2</TaskKey><TaskName>B</TaskName><TaskBDate>3/4/2026</TaskBDate>"
    "<TaskEDate>3/4/2026</TaskEDate><TaskDuration>1</TaskDuration><TaskStatusKey>0</TaskStatusKey><TaskSuccessor/>"
    "<TaskPredecessor>1</TaskPredecessor><TaskLeadTime>1|0</TaskLeadTime><TaskPosition>2</TaskPosition>"
    "<PredecessorDirty>true</PredecessorDirty></Task></Tasks>"
    "<People><Person><Personkey>1</Personkey><PersonPosition>1</PersonPosition><PersonKeyChar>a</PersonKeyChar>"
    "<PersonName>Ann</PersonName><PersonFirstName/><PersonAddress>a</PersonAddress><PersonPhone>1</PersonPhone>"
    "<PersonEmail>a</PersonEmail><PersonTitle>a</PersonTitle><PersonCompany>a</PersonCompany>"
    "<PersonNoteKey>1</PersonNoteKey><PeopleTaskRelationKeys><Key>1</Key></PeopleTaskRelationKeys></Person></People>"
    "<TaskAssigmentRelations><TaskAssigmentRelation><Key>1</Key><TaskKey>1</TaskKey><PersonKey>1</PersonKey>"
    "<Description>a</Description></TaskAssigmentRelation></TaskAssigmentRelations>"
    "<TaskGoalRelations><TaskGoalRelation><TaskKey>1</TaskKey><GoalKey>1</GoalKey><Description>a</Description>"
    "<Key>1</Key></TaskGoalRelation></TaskGoalRelations>"
    "<TaskObstaclesRelations><TaskObstaclesRelation><TaskKey>1</TaskKey><ObstacleKey>1</ObstacleKey>"
    "<Description>a</Description><Key>1</Key></TaskObstaclesRelation></TaskObstaclesRelations>"
    "<TaskNoteRelations><TaskNoteRelation><TaskKey>1</TaskKey><NoteKey>1</NoteKey><Key>1</Key>"
    "<Description>a</Description></TaskNoteRelation></TaskNoteRelations>"
    "<Goals><Goal><Goalkey>1</Goalkey><GoalPosition>1</GoalPosition><GoalName>G</GoalName><GoalLink>a</GoalLink>"
    "<GoalDescription>a</GoalDescription><GoalTaskRelationKeys><Key>1</Key></GoalTaskRelationKeys></Goal></Goals>"
    "<Notes><Note><NoteKey>1</NoteKey><NoteDescription>a</NoteDescription><NoteLink>a</NoteLink>"
    "<NoteObject>a</NoteObject></Note></Notes>"
    "<Obstacles><Obstacle><Obstacleskey>1</Obstacleskey><ObstaclesPosition>1</ObstaclesPosition>"
    "<ObstaclesName>O</ObstaclesName><ObstaclesLink>a</ObstaclesLink><ObstaclesDescription>a</ObstaclesDescription>"
    "<ObstaclesTaskRelationKeys><Key>1</Key></ObstaclesTaskRelationKeys></Obstacle></Obstacles>"
    "<Calendar><CalendarKey>0</CalendarKey><NonWorkingDays>7:7;1:1</NonWorkingDays><Holiday/><ExceptionDay/></Calendar>"
    "</Project>";

class LostElements : public testing::Test {
protected:
    /// One text of the file replaced, so that check tells exactly that, no edit goes on without force, and what force
    /// saves is in order.
    void ExpectTold(const std::string& from, const std::string& to, const std::string& line) const {
        SCOPED_TRACE(from + " " + to);
        const std::string damaged = Replaced(kEveryElement, from, to);
        ASSERT_NE(damaged, kEveryElement);
        plan_.Write("a.prx", damaged);
        const Result found = plan_.Prx({"check", "a.prx"});
        EXPECT_EQ(found.status, 1);
        EXPECT_TRUE(found.out.starts_with("Not read:\n  " + line + "\n")) << found.out;
        EXPECT_TRUE(Has(plan_.Refused({"rename", "2", "C"}), "\n  " + line + "\n"));
        const std::string refusal = plan_.Refusal({"check", "a.prx", "--repair", "b.prx"});
        EXPECT_TRUE(Has(refusal, "\n  " + line + "\n")) << refusal;
        const Result forced = plan_.Prx({"check", "a.prx", "--repair", "b.prx", "--force"});
        EXPECT_EQ(forced.status, 1);
        EXPECT_TRUE(Has(forced.out, "Not read, and so not in the new file:\n  " + line + "\n")) << forced.out;
        plan_.Output({"check", "b.prx"});
        ASSERT_EQ(std::remove(plan_.Path("b.prx").c_str()), 0);
        EXPECT_FALSE(Has(plan_.Refused({"rename", "Nobody", "C", "--force"}), "was lost"));
        EXPECT_TRUE(Has(plan_.Prx({"rename", "a.prx", "2", "C", "--force"}).err, "prx: was lost: " + line + "\n"));
        plan_.Output({"check", "a.prx"});
    }
    const PlanFolder plan_;
};

}  // namespace

TEST_F(LostElements, AreNoneWhereEveryElementIsKnown) {
    plan_.Write("a.prx", kEveryElement);
    plan_.Output({"check", "a.prx"});
    plan_.Output({"rename", "a.prx", "2", "C"});
}

TEST_F(LostElements, AreNoBlanksBetweenTheElements) {
    plan_.Write("a.prx", Replaced(Replaced(kEveryElement, "<TaskCost>", "\xC2\xA0\n<TaskCost>"),
                                  "<GoalTaskRelationKeys>", "<GoalTaskRelationKeys>\xC2\xA0\t"));
    plan_.Output({"check", "a.prx"});
    plan_.Output({"rename", "a.prx", "2", "C"});
}

TEST_F(LostElements, OfTheCalendar) {
    ExpectTold("<Holiday/>", "<Holydays>4/13/2026:4/13/2026</Holydays>",
               "Calendar: Holydays was not read, nor what stands behind it: ExceptionDay");
    ExpectTold("<ExceptionDay/>", "<Holiday/><ExceptionDay/>",
               "Calendar: Holiday was not read, nor what stands behind it: ExceptionDay");
}

TEST_F(LostElements, OfTheDaysInTheCalendar) {
    ExpectTold("<Holiday/>", "<Holiday>4/13/2026:4/13/2026;soon:soon;5/1/2026:5/1/2026</Holiday>",
               "3 of 3 days in Holiday could not be read");
    ExpectTold("7:7;1:1", "7:7;1", "2 of 2 days in NonWorkingDays could not be read");
    ExpectTold("<Holiday/>", "<Holiday>4/13/2026:4/13/2026:Easter</Holiday>",
               "Calendar: the end of \"4/13/2026:4/13/2026:Easter\" in Holiday was not read");
}

TEST_F(LostElements, OfARecordThatIsTheFirstToBeMissing) {
    plan_.Write("a.prx", Replaced(kEveryElement, "<TaskPredecessor>1<", "<TaskPredecessor>1;1<"));
    EXPECT_TRUE(
        Has(plan_.Prx({"check", "a.prx"}).out,
            "  1 of 2 records in Tasks could not be read\n  Tasks: Task 2 is the first that could not be read\n"));
    plan_.Write("a.prx", Replaced(kEveryElement, "</Person>", "</Person><Person><Personkey>1</Personkey></Person>"));
    EXPECT_TRUE(Has(plan_.Prx({"check", "a.prx"}).out, "  People: Person 1 is the first that could not be read\n"));
}

TEST_F(LostElements, OfATask) {
    ExpectTold("<PredecessorDirty>true</PredecessorDirty>",
               "<PredecessorDirty>true</PredecessorDirty><Remark>x</Remark>", "Task 2: Remark was not read");
    ExpectTold("<TaskCost>", "<Remark>x</Remark><TaskCost>",
               "Task 1: Remark was not read, nor what stands behind it: TaskCost, TaskCostUp, PredecessorDirty");
    ExpectTold("<TaskCostUp>1</TaskCostUp>", "<TaskPosition>1</TaskPosition>",
               "Task 1: TaskPosition was not read, nor what stands behind it: PredecessorDirty");
    ExpectTold("<TaskName>A</TaskName>", "<TaskName><b>A</b></TaskName>", "Task 1: b inside of TaskName was not read");
}

TEST_F(LostElements, OfAnItem) {
    ExpectTold("<PersonPhone>1</PersonPhone>", "<PersonMobile>1</PersonMobile>",
               "Person 1: PersonMobile was not read, nor what stands behind it: PersonEmail, PersonTitle, "
               "PersonCompany, PersonNoteKey, P...");
    ExpectTold("<PersonFirstName/>", "<PersonFirstName>Ida</PersonFirstName>",
               "Person 1: PersonFirstName was not read");
    ExpectTold("<GoalPosition>1</GoalPosition><GoalName>G</GoalName>",
               "<GoalName>G</GoalName><GoalPosition>1</GoalPosition>",
               "Goal 1: GoalPosition was not read, nor what stands behind it: GoalLink, GoalDescription, "
               "GoalTaskRelationKeys");
    ExpectTold("</Obstacle>", "<Remark/></Obstacle>", "Obstacle 1: Remark was not read");
    ExpectTold("</NoteLink>", "</NoteLink><NoteDescription>b</NoteDescription>",
               "Note 1: NoteDescription was not read, nor what stands behind it: NoteObject");
    ExpectTold("<GoalTaskRelationKeys>", "<GoalTaskRelationKeys><Remark/>",
               "Goal 1: Remark inside of GoalTaskRelationKeys was not read");
    ExpectTold("<GoalTaskRelationKeys>", "<GoalTaskRelationKeys>q",
               "Goal 1: the text \"q\" inside of GoalTaskRelationKeys was not read");
}

TEST_F(LostElements, OfARelation) {
    ExpectTold("</TaskAssigmentRelation>", "<Remark/></TaskAssigmentRelation>",
               "TaskAssigmentRelation 1: Remark was not read");
    ExpectTold("</TaskNoteRelation>", "<Remark/></TaskNoteRelation>", "TaskNoteRelation 1: Remark was not read");
}

TEST_F(LostElements, BetweenTheRecordsAndTheSections) {
    ExpectTold("</Notes>", "<Remark/></Notes>", "Notes: Remark was not read");
    ExpectTold("<Notes>", "<Budget/><Notes>", "Project: Budget was not read");
    ExpectTold("<PreviewSettings>0</PreviewSettings>", "<Budget/><PreviewSettings>0</PreviewSettings>",
               "Project: Budget was not read, nor what stands behind it: PreviewSettings");
    ExpectTold("</Project>", "<PreviewSettings>3</PreviewSettings></Project>", "Project: PreviewSettings was not read");
}

TEST_F(LostElements, OfATaskWhoseKeyStandsBehindItsName) {
    plan_.Write("a.prx", Replaced(kEveryElement, "<TaskKey>2</TaskKey><TaskName>B</TaskName>",
                                  "<TaskName>B</TaskName><TaskKey>2</TaskKey>"));
    EXPECT_TRUE(Has(plan_.Prx({"check", "a.prx"}).out, "Task 2: TaskKey was not read, nor what stands behind it: "));
}

}  // namespace prx_test
