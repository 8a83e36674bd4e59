#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

/// Three relations of one item to the tasks 4, 5 and 6; the project knows the last two only, and no task 6.
template <class Item, class Relations>
struct Wired {
    explicit Wired(Items& s) {
        for (const int key : {1, 2, 3}) {
            const auto relation = s.Bare<typename Relations::Held>(std::to_string(key));
            relation->TaskKey(3 + key);
            own->AddItem(relation);
            if (key != 1) project->AddItem(relation);
        }
        for (const int key : {4, 5}) {
            const auto task = Make<TasksCls>();
            task->TaskKey(key);
            tasks->AddItem(task);
        }
    }
    Ref<Item> item = Make<Item>();
    Ref<Relations> own = In(item).ReadRelations();
    Ref<Relations> project = Make<Relations>();
    Ref<TasksCol> tasks = Make<TasksCol>();
};

TEST(SetTasksCollection, OfAPersonPassesByWhateverIsMissing) {
    Items s;
    Wired<peopleCls, TaskAssigmentRelationCol> wired(s);
    const auto before = wired.item->Tasks();
    EXPECT_EQ(wired.item->SetTasksCollection(wired.project, wired.tasks), True);
    EXPECT_EQ(KeysOf(wired.item->Tasks()), "5");
    EXPECT_FALSE(wired.item->Tasks() == before);
}

TEST(SetTasksCollection, OfAGoalPassesByAMissingRelationOnly) {
    Items s;
    Wired<GoalsCls, TaskGoalRelationCol> wired(s);
    const auto before = wired.item->Tasks();
    before->AddItem(Make<TasksCls>());
    (void)s.failures.Taken();
    EXPECT_EQ(wired.item->SetTasksCollection(wired.project, wired.tasks), True);
    EXPECT_EQ(KeysOf(wired.item->Tasks()), "5");
    EXPECT_EQ(wired.item->Tasks(), before);  // emptied, not replaced
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCol/Item 5\nTasksCol/AddItem 91\n");
}

TEST(SetTasksCollection, KeepsAnObstacleFailingAtAMissingRelationUnderALabelOfItsOwn) {
    Items s;
    Wired<ObstaclesCls, TaskObstaclesRelationCol> wired(s);
    EXPECT_EQ(wired.item->SetTasksCollection(wired.project, wired.tasks), False);
    EXPECT_EQ(wired.item->Tasks()->Count(True), 0);
    EXPECT_EQ(s.failures.Taken(), "TaskObstaclesRelationCol/Item 5\nobstaclesCls/SetTasksCollection 91\n");
}

TEST(TaskAssigned, LooksTheItemsKeysUpInTheProject) {
    Items s;
    Wired<peopleCls, TaskAssigmentRelationCol> wired(s);
    EXPECT_EQ(wired.item->TaskAssigned(5, wired.project), True);
    EXPECT_EQ(wired.item->TaskAssigned("6", wired.project), True);
    EXPECT_EQ(wired.item->TaskAssigned(4, wired.project), False);  // known to the person only
    EXPECT_EQ(Make<GoalsCls>()->TaskAssigned(4, {}), False);       // without relations nobody is asked
}

TEST(FindRelationKey, GivesTheFirstKeyOrEmpty) {
    Items s;
    Wired<peopleCls, TaskAssigmentRelationCol> wired(s);
    EXPECT_EQ(wired.item->FindRelationKey(6, wired.project), Variant("3"));
    EXPECT_TRUE(wired.item->FindRelationKey(4, wired.project).is_empty());
}

TEST(ItemQuestions, MakeNoCollections) {
    Items s;
    const auto goal = Make<GoalsCls>();
    const auto project = Make<TaskGoalRelationCol>();
    (void)goal->FindRelationKey(1, project);
    (void)goal->SetTasksCollection(project, Make<TasksCol>());
    EXPECT_EQ(goal->TaskGoalRelationValid(), False);
    EXPECT_EQ(goal->ToXml(False).find("GoalTaskRelationKeys"), String::npos);
}

TEST(ItemTasks, AreMadeOnFirstReadAndMayBeReplaced) {
    Items s;
    const auto goal = Make<GoalsCls>();
    const auto tasks = goal->Tasks();
    EXPECT_TRUE(tasks);
    EXPECT_EQ(goal->Tasks(), tasks);
    const auto others = Make<TasksCol>();
    goal->Tasks(others);
    EXPECT_EQ(goal->Tasks(), others);
}

}  // namespace
}  // namespace mrlxmlclass::testing
