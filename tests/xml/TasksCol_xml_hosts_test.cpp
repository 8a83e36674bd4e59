#include <gtest/gtest.h>

#include <cmath>

#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Section.h"
#include "tests/support/HeldByHost.h"
#include "tests/support/Plan.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

constexpr const char* kTwoTasks = "<Task><TaskKey>1</TaskKey></Task><Task><TaskKey>2</TaskKey></Task>";

struct WayToRead {
    const char* name;
    std::function<void(TasksCol&)> read;
};

TEST(TasksColXml, IsReadToItsEndUnderAHostThatLetsGoOfTheTasks) {
    const Ref<dom::Document> project = DocumentOfText(String("<Project><Tasks>") + kTwoTasks + "</Tasks></Project>");
    const String alone = String("<R>") + kTwoTasks + "</R>";
    const auto counters = Make<StaticCls>();
    for (const WayToRead& way :
         {WayToRead{"text", [&](TasksCol& tasks) { EXPECT_EQ(tasks.FromXml(alone, counters), True); }},
          WayToRead{"file", [&](TasksCol& tasks) { EXPECT_EQ(tasks.FromXmlFile("", True, project), project); }},
          WayToRead{"elements", [&](TasksCol& tasks) {
                        const dom::Node root = project->documentElement().firstChild();
                        EXPECT_FALSE(tasks.FromXmlInt(root, root.firstChild()));
                    }}}) {
        SCOPED_TRACE(way.name);
        TestSession session;
        In(counters).Reset();
        HeldByHost<TasksCol> tasks(session);
        tasks->oPublicStaticCls = counters;
        way.read(*tasks);
        EXPECT_TRUE(tasks.outlived());
        EXPECT_EQ(In(counters).Counter(StaticCls::Internal::Task), 2) << "both were read";
    }
}

TEST(TasksColXml, IsReadToItsEndUnderAHostThatLoadsTheDocumentAnew) {
    TestSession session;
    const Ref<dom::Document> project = DocumentOfText(String("<Project><Tasks>") + kTwoTasks + "</Tasks></Project>");
    const std::weak_ptr<const void> contents = project->Contents();
    session.ui.on_yield = [&] {
        project->LoadXML("<Other/>");
        EXPECT_FALSE(contents.expired()) << "they are being read";
    };
    const auto tasks = Make<TasksCol>();
    EXPECT_EQ(tasks->FromXmlFile("", True, project), project);
    EXPECT_EQ(tasks->Count(True), 2);
}

TEST(TasksColXml, IsWrittenToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    const Ref<dom::Document> project = DocumentOfText("<Project/>");
    for (const WayToRead& way :
         {WayToRead{"text", [](TasksCol& tasks) { EXPECT_NE(tasks.ToXml().find("<TaskKey>2<"), String::npos); }},
          WayToRead{"part",
                    [](TasksCol& tasks) {
                        const auto keys = Make<Collection>();
                        for (const Long key : {1, 2}) keys->Add(key);
                        EXPECT_NE(tasks.ToXmlPart(keys).find("<TaskKey>2<"), String::npos);
                    }},
          WayToRead{"file", [&](TasksCol& tasks) {
                        tasks.ToXmlFile("", project, /*includeDocHeader=*/False);
                        EXPECT_NE(project->xml().find("<TaskKey>2<"), String::npos);
                    }}}) {
        SCOPED_TRACE(way.name);
        TestSession session;
        HeldByHost<TasksCol> tasks(session);
        for (const int key : {1, 2}) {
            const auto task = Make<TasksCls>();
            task->TaskKey(key);
            if (key == 1) task->TaskModifiedDate(Date(std::nan("")));
            tasks->AddItem(task);
        }
        way.read(*tasks);
        EXPECT_TRUE(tasks.outlived());
        EXPECT_EQ(session.failures.Taken(), "TasksCls/ToXmlInt 6\n");
    }
}

TEST(TasksClsXml, IsReadToItsEndUnderAHostThatLetsGoOfTheTask) {
    const String text =
        "<Task><TaskKey>1</TaskKey><TaskNoteRelationsKeys><Key>1</Key></TaskNoteRelationsKeys>"
        "<TaskStatusKey>2</TaskStatusKey><TaskPosition>3</TaskPosition></Task>";
    for (const bool file : {true, false}) {
        TestSession session;
        session.Write("task.xml", text);
        HeldByHost<TasksCls> task(session);
        EXPECT_EQ(file ? task->FromXmlFile(session.Path("task.xml"), {}) : task->FromXml(text, {}), True);
        EXPECT_TRUE(task.outlived());
    }
}

TEST(TasksClsXml, BringsTheOrderOfItsParentsChildrenUpToDate) {
    Plan plan;
    plan.Task("A").Task("B").Under("A").Task("C").Under("A");
    const auto order = [&] {
        String keys;
        for (const Variant& key : plan.col().GetTasksAsKeys(1)->Keys()) keys += key.Key().text() + " ";
        return keys;
    };
    for (const Boolean for_lib : {False, True}) {
        plan["B"].TaskPosition(2);
        String meanwhile;
        plan.platform.ui.on_yield = [&] { meanwhile = order(); };
        EXPECT_EQ(
            plan["B"].FromXml("<Task><ParentID>1</ParentID><TaskKey>2</TaskKey><TaskNoteRelationsKeys><Key>1</Key>"
                              "</TaskNoteRelationsKeys><TaskPosition>9</TaskPosition></Task>",
                              {}, for_lib),
            True);
        plan.platform.ui.on_yield = nullptr;
        EXPECT_EQ(meanwhile, for_lib ? "" : "2 3 ") << "its row is 0 until the new one is read";
        EXPECT_EQ(order(), "3 2 ");
    }
}

}  // namespace
}  // namespace mrlxmlclass
