#include <gtest/gtest.h>

#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/session/StaticCls.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/xml/Section.h"
#include "tests/support/Plan.h"
#include "tests/xml/TaskText.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// The elements that a task writes, each followed by a blank.
String FieldNames(TasksCls& task) {
    const auto document = DocumentOfText(task.ToXml(False));
    String names;
    for (dom::Node field = FirstElementIn(document->documentElement()); field;
         field = Conversions::MoveNextSiblingElement(field)) {
        names.append(field.baseName()).append(" ");
    }
    return names;
}

/// The text of one element of what a task writes; "-" when it is not there.
String FieldText(TasksCls& task, const char* name) {
    const auto document = DocumentOfText(task.ToXml(False));
    const dom::Node field = document->documentElement().selectSingleNode(name);
    return field ? field.Text() : "-";
}

/// A task with every field set, in a session with live links.
Ref<TasksCls> FullTask() {
    auto task = Make<TasksCls>();
    task->ProjectID(3);
    task->ParentID(2);
    task->TaskType(True);
    task->TaskKey(7);
    task->TaskName("All & everything");
    task->TaskBDate(Monday);
    task->TaskEDate(Wednesday);
    task->TaskLag(-2);
    task->TaskDurationUnit("days");
    task->TaskDurationUnitValid("True");
    task->TaskColor(255);
    task->TaskNoteRelation()->Add("4");
    task->TaskStatusKey(2);
    task->TaskPercentDone(40);
    task->TaskObstaclesRelation()->Add("5");
    task->TaskPeopleRelation()->Add("6");
    task->TaskGoalRelation()->Add("8");
    task->TaskLink("a:|LINK|b");
    task->TaskModifiedDate(Tuesday);
    task->TaskModified(False);
    task->TaskSuccessor()->Add("9", KeyText("9"));
    task->TaskPredecessor()->Add("1", KeyText("1"));
    task->TaskPredecessor()->Add("2", KeyText("2"));
    task->TaskLeadTime()->Add("1|3", KeyText("1"));
    task->TaskPosition(4);
    task->TaskSubPosition(1);
    task->TaskPositionInitem(6);
    task->TaskCost(Currency(12.5));
    task->TaskCostUp(Currency(3));
    task->PredecessorDirty(True);
    return task;
}

TEST(TasksClsToXml, WritesEveryFieldInItsOrder) {
    Plan plan;
    plan.WithLinks();
    EXPECT_EQ(FieldNames(*FullTask()),
              "ProjectID ParentID TaskType TaskCondidat TaskMilstones TaskKey TaskName TaskBDate TaskEDate "
              "TaskDuration TaskLag TaskDurationUnit TaskColor TaskNoteRelationsKeys TaskStatusKey TaskPercentDone "
              "TaskObstaclesRelationKeys TaskPeopleRelationKeys TaskGoalRelationKeys TaskLink TaskModifiedDate "
              "TaskModified TaskSuccessor TaskPredecessor TaskLeadTime TaskPosition TaskSubPosition "
              "TaskPositionInItem TaskCost TaskCostUp PredecessorDirty ");
}

TEST(TasksClsToXml, WritesOfAFreshTaskOnlyWhatHasNoFlag) {
    Plan plan;
    auto task = Make<TasksCls>();
    EXPECT_EQ(FieldNames(*task), "ProjectID TaskType TaskCondidat TaskMilstones TaskKey TaskName TaskStatusKey ");
    plan.WithLinks();
    EXPECT_EQ(FieldNames(*task),
              "ProjectID TaskType TaskCondidat TaskMilstones TaskKey TaskName TaskStatusKey TaskLeadTime ");
}

TEST(TasksClsToXml, WritesNoLinksWhileTheyAreNotLive) {
    Plan plan;
    const String names = FieldNames(*FullTask());
    EXPECT_EQ(names.find("TaskSuccessor"), String::npos);
    EXPECT_EQ(names.find("TaskPredecessor"), String::npos);
    EXPECT_EQ(names.find("TaskLeadTime"), String::npos);
    EXPECT_EQ(names.find("PredecessorDirty"), String::npos);
}

TEST(TasksClsToXml, WritesListsOfKeysAndOfLinks) {
    Plan plan;
    plan.WithLinks();
    const auto task = FullTask();
    const String text = task->ToXml(False);
    EXPECT_NE(text.find("<TaskNoteRelationsKeys><Key>4</Key></TaskNoteRelationsKeys>"), String::npos) << text;
    EXPECT_NE(text.find("<TaskObstaclesRelationKeys><Key>5</Key></TaskObstaclesRelationKeys>"), String::npos) << text;
    EXPECT_NE(text.find("<TaskPeopleRelationKeys><tKey>6</tKey></TaskPeopleRelationKeys>"), String::npos) << text;
    EXPECT_NE(text.find("<TaskGoalRelationKeys><tKey>8</tKey></TaskGoalRelationKeys>"), String::npos) << text;
    EXPECT_EQ(FieldText(*task, "TaskSuccessor"), "9");
    EXPECT_EQ(FieldText(*task, "TaskPredecessor"), "1;2");
    EXPECT_EQ(FieldText(*task, "TaskLeadTime"), "1|3");
    EXPECT_EQ(FieldText(*task, "TaskCost"), "12.5");
    EXPECT_EQ(FieldText(*task, "TaskModified"), "false");
}

TEST(TasksClsToXml, WritesAnEmptyListThatWasReadOnce) {
    Plan plan;
    plan.WithLinks();
    auto task = Make<TasksCls>();
    task->TaskPredecessor();
    task->TaskGoalRelation();
    EXPECT_EQ(FieldText(*task, "TaskPredecessor"), "");
    EXPECT_EQ(FieldText(*task, "TaskGoalRelationKeys"), "");
    EXPECT_EQ(FieldText(*task, "TaskSuccessor"), "-") << "writing reads no list into being";
    EXPECT_EQ(task->TaskSuccessorValid(), False);
}

TEST(TasksClsToXml, WritesADirtyPredecessorOnlyWhenItIsTrue) {
    Plan plan;
    plan.WithLinks();
    auto task = Make<TasksCls>();
    EXPECT_EQ(FieldText(*task, "PredecessorDirty"), "-");
    task->PredecessorDirty(True);
    EXPECT_EQ(FieldText(*task, "PredecessorDirty"), "true");
    task->PredecessorDirty(False);
    EXPECT_EQ(FieldText(*task, "PredecessorDirty"), "-");
    task->PredecessorDirty(Boolean::Raw(1));
    EXPECT_EQ(FieldText(*task, "PredecessorDirty"), "-") << "only the full True is written";
}

TEST(TasksClsToXml, WritesTheUnitWhenTheTextOfItsFlagSaysSo) {
    Plan plan;
    auto task = Make<TasksCls>();
    task->TaskDurationUnit("wks");
    EXPECT_EQ(FieldText(*task, "TaskDurationUnit"), "-");
    for (const char* text : {"True", "true", "TRUE"}) {
        task->TaskDurationUnitValid(text);
        EXPECT_EQ(FieldText(*task, "TaskDurationUnit"), "wks");
    }
    task->TaskDurationUnitValid("False");
    EXPECT_EQ(FieldText(*task, "TaskDurationUnit"), "-");
}

TEST(TasksClsToXml, WritesTheDayOfADateWithoutItsTime) {
    Plan plan;
    auto task = Make<TasksCls>();
    In(task).StoreStart(Monday + 0.5);
    In(task).StoreEnd(Tuesday + 0.75);
    EXPECT_EQ(FieldText(*task, "TaskBDate"), "3/2/2026");
    EXPECT_EQ(FieldText(*task, "TaskEDate"), "3/3/2026");
}

TEST(TasksClsToXml, NamesItsRootAndItsEncodingAsTold) {
    Plan plan;
    const auto task = plan.col().Add("");
    EXPECT_TRUE(task->ToXml().starts_with("<?xml version=\"1.0\" encoding=\"utf-8\" ?><Task><ProjectID>"));
    EXPECT_TRUE(task->ToXml(True, False, True).starts_with("<?xml version=\"1.0\" encoding=\"utf-16\" ?><Task>"));
    EXPECT_TRUE(task->ToXml(False).starts_with("<Task><ProjectID>"));
}

TEST(TasksClsToXmlInt, DoesNothingWithoutAnElement) {
    Plan plan;
    Make<TasksCls>()->ToXmlInt(Make<dom::Document>(), dom::Node());
    EXPECT_EQ(plan.failures.Taken(), "");
}

TEST(TasksClsToXmlFile, SavesADocumentThatHoldsThisTaskAlone) {
    Plan plan;
    plan.WithLinks();
    const auto task = FullTask();
    task->ToXmlFile(plan.platform.Path("t.xml"));
    auto back = Make<TasksCls>();
    EXPECT_EQ(back->FromXmlFile(plan.platform.Path("t.xml"), {}), True);
    EXPECT_EQ(back->ToXml(), task->ToXml());

    task->ToXmlFile(plan.platform.Path("wide.xml"), True, False, /*unicode=*/True);
    EXPECT_TRUE(plan.platform.Read("wide.xml").starts_with("\xFF\xFE"));
    EXPECT_EQ(back->FromXmlFile(plan.platform.Path("wide.xml"), {}), True);
    EXPECT_EQ(back->TaskName(), "All & everything");

    task->ToXmlFile(plan.platform.Path("no/t.xml"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/ToXmlFile 76\n");
}

TEST(TasksClsFromXml, BringsEveryFieldBack) {
    Plan plan;
    plan.WithLinks();
    const String text = FullTask()->ToXml();
    const auto back = Read(text);
    EXPECT_EQ(back->ToXml(), text);
    EXPECT_EQ(back->TaskPredecessorValid(), True);
    EXPECT_EQ(back->TaskLagValid(), True);
    EXPECT_EQ(back->TaskDurationUnitValid(), "True");
    EXPECT_EQ(back->isPredecessor("2"), True);
}

TEST(TasksClsFromXml, StartsFromDefaultsAndTakesTheElementsNameForItsOwn) {
    Plan plan;
    const auto task = FullTask();
    EXPECT_EQ(task->FromXml("<Row><TaskKey>9</TaskKey></Row>", {}), True);
    EXPECT_EQ(task->TaskKey(), 9);
    EXPECT_EQ(task->TaskName(), "");
    EXPECT_EQ(task->ParentIDValid(), False);
    EXPECT_EQ(task->TaskCondidat(), True);
    EXPECT_EQ(task->TaskPredecessorValid(), False);
    EXPECT_EQ(In(task).elementName(), "Row");
}

TEST(TasksClsFromXml, StopsAtTheFirstElementOutOfOrderWithoutAnError) {
    Plan plan;
    const auto task = Read("<Task><ProjectID>3</ProjectID><TaskName>N</TaskName><TaskKey>7</TaskKey></Task>");
    EXPECT_EQ(task->ProjectID(), 3);
    EXPECT_EQ(task->TaskName(), "N");
    EXPECT_EQ(task->TaskKey(), 0) << "it came too late";
    EXPECT_EQ(Read("<Task><taskkey>7</taskkey></Task>")->TaskKey(), 0) << "names count to the letter";
    EXPECT_EQ(Read("<Task><TaskKey>7</TaskKey><TaskKey>8</TaskKey><TaskName>N</TaskName></Task>")->TaskName(), "");
}

TEST(TasksClsFromXml, KeepsALongName) {
    Plan plan;
    const String name(500, 'n');
    EXPECT_EQ(Read("<Task><TaskName>" + name + "</TaskName></Task>")->TaskName(), name) << "only the setter cuts it";
}

TEST(TasksClsFromXml, RaisesTheCounterToItsKeyWhereThereIsOne) {
    Plan plan;
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(3);
    auto task = Make<TasksCls>();
    task->FromXml("<Task><TaskKey>7</TaskKey></Task>", counters);
    EXPECT_EQ(counters->TaskKeyValue(), 7);
    task->FromXml("<Task><TaskKey>5</TaskKey></Task>", counters);
    EXPECT_EQ(counters->TaskKeyValue(), 7);

    EXPECT_EQ(task->FromXml("<Task><TaskKey>32768</TaskKey></Task>", counters), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/FromXml 6\n");
    EXPECT_EQ(task->FromXml("<Task><TaskKey>32768</TaskKey></Task>", {}), True) << "no counter, no limit";
}

TEST(TasksClsFromXml, LeavesTheFlagOfAnEmptyLinkListDown) {
    Plan plan;
    plan.WithLinks();
    const auto task =
        Read(TaskWith("<TaskStatusKey>1</TaskStatusKey><TaskSuccessor/><TaskPredecessor></TaskPredecessor>"
                      "<TaskLeadTime/><TaskPosition>4</TaskPosition>"));
    EXPECT_EQ(task->TaskSuccessorValid(), False);
    EXPECT_EQ(task->TaskPredecessorValid(), False);
    EXPECT_EQ(task->TaskPosition(), 4);
    EXPECT_EQ(FieldText(*task, "TaskPredecessor"), "-") << "so the next save has no such element";
}

TEST(TasksClsFromXml, RefusesALinkThatStandsTwice) {
    Plan plan;
    plan.WithLinks();
    auto task = Make<TasksCls>();
    EXPECT_EQ(task->FromXml(TaskWith("<TaskPredecessor>1;1</TaskPredecessor>"), {}), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/FromXml 457\n");
}

TEST(TasksClsFromXml, KeepsNoLinksWhileTheyAreNotLive) {
    Plan plan;
    const auto task =
        Read(TaskWith("<TaskStatusKey>1</TaskStatusKey><TaskSuccessor>2</TaskSuccessor>"
                      "<TaskPredecessor>1</TaskPredecessor><TaskLeadTime>1|2</TaskLeadTime>"
                      "<TaskPosition>4</TaskPosition><TaskCost>5</TaskCost>"));
    EXPECT_EQ(task->TaskPosition(), 4);
    EXPECT_EQ(task->TaskCost(), Currency(5));
    plan.WithLinks();
    EXPECT_EQ(task->TaskSuccessorValid(), False);
    EXPECT_EQ(task->TaskPredecessorValid(), False);
    EXPECT_EQ(task->TaskLeadTime()->Count(), 0);
}

TEST(TasksClsFromXml, KeepsLosingTwoElementsBehindTheLinksWhereNoPositionStands) {
    Plan plan;
    const String costs = "<TaskStatusKey>1</TaskStatusKey><TaskCost>5</TaskCost><TaskCostUp>6</TaskCostUp>";
    const auto without = Read(TaskWith(costs));
    EXPECT_EQ(without->TaskCost(), Currency(0));
    EXPECT_EQ(without->TaskCostUp(), Currency(0));
    const auto late = Read(TaskWith("<TaskStatusKey>1</TaskStatusKey><Unknown/><TaskPosition>4</TaskPosition>"));
    EXPECT_EQ(late->TaskPosition(), 4) << "but finds one that comes a little late";
    plan.WithLinks();
    EXPECT_EQ(Read(TaskWith(costs))->TaskCost(), Currency(5)) << "not with live links";
}

TEST(TasksClsFromXml, ReadsADirtyPredecessorOnlyWithLiveLinks) {
    Plan plan;
    const String text = TaskWith("<TaskPosition>4</TaskPosition><PredecessorDirty>true</PredecessorDirty>");
    EXPECT_EQ(Read(text)->PredecessorDirty(), False);
    plan.WithLinks();
    EXPECT_EQ(Read(text)->PredecessorDirty(), True);
}

TEST(TasksClsFromXml, ReadsBareKeysIntoTheRelations) {
    Plan plan;
    const auto task =
        Read(TaskWith("<TaskNoteRelationsKeys><Key>4</Key><Key>5</Key></TaskNoteRelationsKeys>"
                      "<TaskStatusKey>1</TaskStatusKey><TaskPeopleRelationKeys><tKey>6</tKey></TaskPeopleRelationKeys>"
                      "<TaskGoalRelationKeys/><TaskLink>l</TaskLink>"));
    EXPECT_EQ(task->TaskNoteRelation()->Count(), 2);
    EXPECT_EQ(task->TaskNoteRelation()->Item("5")->TaskKey(), 0);
    EXPECT_EQ(task->TaskPeopleRelation()->Item("6")->elementKey(), "6");
    EXPECT_EQ(task->TaskGoalRelationValid(), True);
    EXPECT_EQ(task->TaskObstaclesRelationValid(), False);
    EXPECT_EQ(task->TaskLink(), "l");
}

TEST(TasksClsFromXml, GoesOnBehindAKeyListThatCannotBeRead) {
    Plan plan;
    const auto task =
        Read(TaskWith("<TaskNoteRelationsKeys><Key>4</Key><Key>4</Key></TaskNoteRelationsKeys>"
                      "<TaskStatusKey>3</TaskStatusKey>"));
    EXPECT_EQ(plan.failures.Taken(), "TaskNoteRelationCol/FromXmlInt 457\n");
    EXPECT_EQ(task->TaskStatusKey(), 3);
    EXPECT_EQ(task->TaskNoteRelation()->Count(), 1);
}

TEST(TasksClsFromXml, AsALibraryKeepsNameKeyParentTypeFlagsAndRowAlone) {
    Plan plan;
    const auto task = Read(TaskWith("<TaskBDate>3/2/2026</TaskBDate><TaskColor>5</TaskColor>"
                                    "<TaskStatusKey>1</TaskStatusKey><TaskPosition>4</TaskPosition>"
                                    "<TaskSubPosition>2</TaskSubPosition><TaskCost>5</TaskCost>"),
                           /*for_lib=*/True);
    EXPECT_EQ(task->ProjectID(), 3);
    EXPECT_EQ(task->ParentID(), 2);
    EXPECT_EQ(task->TaskType(), True);
    EXPECT_EQ(task->TaskCondidat(), False);
    EXPECT_EQ(task->TaskMilstones(), True);
    EXPECT_EQ(task->TaskKey(), 7);
    EXPECT_EQ(task->TaskName(), "Seven");
    EXPECT_EQ(task->TaskPosition(), 4);
    EXPECT_EQ(task->TaskBDate(), Date());
    EXPECT_EQ(task->TaskBDateValid(), False);
    EXPECT_EQ(task->TaskColor(), 0);
    EXPECT_EQ(task->TaskStatusKey(), 0);
    EXPECT_EQ(task->TaskSubPosition(), 0);
    EXPECT_EQ(task->TaskCost(), Currency(0));
}

TEST(TasksClsFromXml, AsALibraryKeepsFailingWhereNoPositionStands) {
    Plan plan;
    auto task = Make<TasksCls>();
    EXPECT_EQ(task->FromXml(TaskWith("<TaskStatusKey>1</TaskStatusKey>"), {}, True), False);
    EXPECT_EQ(task->FromXml(TaskWith(""), {}, True), False);
    EXPECT_EQ(task->FromXml(TaskWith("<TaskPosition>4</TaskPosition>"), {}, True), False)
        << "passed over when it is next";
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/FromXml 91\nTasksCls/FromXml 91\nTasksCls/FromXml 91\n");
    EXPECT_EQ(task->TaskName(), "Seven") << "what was read stays";
}

TEST(TasksClsFromXml, RefusesABadFieldAndKeepsWhatCameBefore) {
    Plan plan;
    auto task = Make<TasksCls>();
    EXPECT_EQ(task->FromXml("<Task><ProjectID>3</ProjectID><TaskType>1</TaskType></Task>", {}), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/FromXml 1\n");
    EXPECT_EQ(task->ProjectID(), 3);
    EXPECT_EQ(task->FromXml("<Task><TaskType> true</TaskType></Task>", {}), False) << "a blank is too much";
    EXPECT_EQ(task->FromXml("<Task><TaskDuration/></Task>", {}), False) << "nothing is no number";
    EXPECT_EQ(task->FromXml("<Task", {}), False);
    EXPECT_EQ(task->FromXmlFile(plan.platform.Path("no.xml"), {}), False);
    EXPECT_EQ(plan.failures.Taken(),
              "TasksCls/FromXml 1\nTasksCls/FromXml 13\nTasksCls/FromXml 91\nTasksCls/FromXmlFile 91\n");
}

}  // namespace
}  // namespace mrlxmlclass
