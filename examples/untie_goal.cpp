// Takes a goal off a task that has links, shows that they stay, and ties the two again.
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCol.h"

using namespace mrlxmlclass;

struct LinksAside {  // while it lives, the task has no links
    explicit LinksAside(TasksCls& task) {
        if (task.TaskPredecessorValid()) Take(task.TaskPredecessor());
        if (task.TaskSuccessorValid()) Take(task.TaskSuccessor());
    }
    ~LinksAside() {
        for (const auto& [list, entries] : taken)
            for (const auto& entry : entries) list->Add(entry.item, entry.key);
    }
    void Take(const Ref<Collection>& list) {
        taken.emplace_back(list, list->Snapshot());
        while (list->Count() > 0) list->Remove(1);
    }
    std::vector<std::pair<Ref<Collection>, Collection::Store>> taken;
};

void UntieGoal(Application& app, const String& key, const String& goal_key) {
    const auto goal = app.xGoalCol()->Item(goal_key);
    const String relation_key = goal->FindRelationKey(key, app.xTaskGoalRelationcol()).Text();
    {
        const LinksAside aside(*app.xTaskCol()->Item(key));
        if (const auto copy = goal->Tasks()->Item(key)) copy->ParentID(0);  // the parent keeps its child
        app.xGoalCol()->UnAssigneGoal(goal_key, key, app.xTaskCol(), app.xTaskGoalRelationcol());
    }
    app.xTaskCol()->RemoveAssigendGoals(key, relation_key, goal_key);  // raises GoalChange
    app.xGoalCol()->SetTasksCollectionByGoal(app.xTaskGoalRelationcol(), app.xTaskCol(), goal_key);
}

namespace {

void TieGoal(Application& app, const String& key, const String& goal_key) {
    const auto goal = app.xGoalCol()->Item(goal_key);
    const auto relations = app.xTaskGoalRelationcol();
    app.xGoalCol()->AssigneGoal(goal_key, std::stoi(key), app.xTaskCol(), relations);
    const String relation_key = goal->FindRelationKey(key, relations).Text();
    app.xTaskCol()->AddGoals(key, relations->Item(relation_key), goal);  // raises GoalChange
}

class Ear : public TasksColEvents {
public:
    void GoalChange(Long TaskKey, const String& sGoal) override {
        std::printf("  task %d has the goals: %s\n", TaskKey.value(), sGoal.c_str());
    }
};

}  // namespace

int main() {
    const auto app = Make<Application>();
    app->Init(/*BVersion=*/True);
    const auto tasks = app->xTaskCol();
    const auto dig = tasks->Add(), pour = tasks->Add();
    tasks->AutoLink(True);
    tasks->AddTaskPredecessor("2", "1");

    const auto goals = app->xGoalCol();
    goals->Add()->GoalName("Dry feet");

    Ear ear;
    tasks->Events.Add(ear);
    std::puts("The goal is told of to the task:");
    TieGoal(*app, "2", "1");
    std::puts("It is taken off again:");
    UntieGoal(*app, "2", "1");
    std::printf("Task 2 still waits for: %s\n", tasks->PredessorAsString("2").c_str());
    std::puts("And tied once more:");
    TieGoal(*app, "2", "1");
    tasks->Events.Remove(ear);
    std::printf("The goal has %d task, and %d failures were recorded.\n",
                goals->Item("1")->Tasks()->Count(/*p_all=*/True).value(),
                Module().g_ErrorsHandler->Log()->Error_Col()->Count().value());
}
