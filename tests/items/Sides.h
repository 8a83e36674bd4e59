#pragma once

#include <algorithm>
#include <map>

#include "tests/items/Items.h"
#include "tests/support/Draws.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// One kind of items with its relations: what a script calls, and how its rules differ.
struct PersonSides {
    using Relations = TaskAssigmentRelationCol;
    static constexpr const char* relations_label = "TaskAssigmentRelationCol";
    static constexpr const char* items_label = "PeopleCol";
    static constexpr bool silent_lookup = true;    ///< a key that the project does not have is passed by silently
    static constexpr bool records_a_miss = true;   ///< taking out a relation that is not there is recorded
    static constexpr bool ties_the_task = true;    ///< assigning and unassigning do the task's side as well
    static constexpr bool frees_relations = true;  ///< a freed relation key comes back
    static constexpr bool frees_items = true;
    static constexpr bool draws_item_keys = false;  ///< a new relation takes the key of a deleted item

    static auto Master(Plan& plan) { return plan.app->xTaskPeopleRelationcol(); }
    static auto All(Plan& plan) { return plan.app->xPeopleCol(); }
    static auto OnTask(TasksCls& task) { return task.TaskPeopleRelation(); }
    static auto Copies(TasksCls& task) { return task.TasksPeople(); }
    static auto OnItem(peopleCls& person) { return person.TaskPeopleRelation(); }
    static Long ItemKey(const TaskAssigmentRelationCls& relation) { return relation.personkey(); }
    static void Assign(Plan& plan, int item, int task) {
        All(plan)->AssignePerson(std::to_string(item), task, plan.app->xTaskCol(), Master(plan));
    }
    static void UnAssign(Plan& plan, int item, int task) {
        All(plan)->UnAssignePerson(item, task, plan.app->xTaskCol(), Master(plan));
    }
    static void AddToTask(Plan&, int, const Ref<TaskAssigmentRelationCls>&, const Ref<peopleCls>&) {}
    static void RemoveFromTask(Plan&, int, int, int) {}
    static void RemoveTask(Plan& plan, int task) {
        plan.col().Remove(task, Master(plan), All(plan), {}, {}, {}, {}, True, True, True);
    }
    static void FillTasks(Plan& plan, int item) {
        All(plan)->SetTasksCollectionByID(item, Master(plan), plan.app->xTaskCol());
    }
};

struct GoalSides {
    using Relations = TaskGoalRelationCol;
    static constexpr const char* relations_label = "TaskGoalRelationCol";
    static constexpr const char* items_label = "GoalsCol";
    static constexpr bool silent_lookup = false;
    static constexpr bool records_a_miss = false;
    static constexpr bool ties_the_task = false;
    static constexpr bool frees_relations = false;
    static constexpr bool frees_items = true;
    static constexpr bool draws_item_keys = true;

    static auto Master(Plan& plan) { return plan.app->xTaskGoalRelationcol(); }
    static auto All(Plan& plan) { return plan.app->xGoalCol(); }
    static auto OnTask(TasksCls& task) { return task.TaskGoalRelation(); }
    static auto Copies(TasksCls& task) { return task.TasksGoals(); }
    static auto OnItem(GoalsCls& goal) { return goal.TaskGoalRelation(); }
    static Long ItemKey(const TaskGoalRelationCls& relation) { return relation.Goalkey(); }
    static void Assign(Plan& plan, int item, int task) {
        All(plan)->AssigneGoal(std::to_string(item), task, plan.app->xTaskCol(), Master(plan));
    }
    static void UnAssign(Plan& plan, int item, int task) {
        All(plan)->UnAssigneGoal(item, task, plan.app->xTaskCol(), Master(plan));
    }
    static void AddToTask(Plan& plan, int task, const Ref<TaskGoalRelationCls>& relation, const Ref<GoalsCls>& goal) {
        plan.col().AddGoals(task, relation, goal);
    }
    static void RemoveFromTask(Plan& plan, int task, int relation, int item) {
        plan.col().RemoveAssigendGoals(task, relation, item);
    }
    static void RemoveTask(Plan& plan, int task) {
        plan.col().Remove(task, {}, {}, Master(plan), All(plan), {}, {}, True, True, True);
    }
    static void FillTasks(Plan& plan, int item) {
        All(plan)->SetTasksCollectionByGoal(Master(plan), plan.app->xTaskCol(), item);
    }
};

struct ObstacleSides {
    using Relations = TaskObstaclesRelationCol;
    static constexpr const char* relations_label = "TaskObstaclesRelationCol";
    static constexpr const char* items_label = "obstaclesCol";
    static constexpr bool silent_lookup = false;
    static constexpr bool records_a_miss = true;
    static constexpr bool ties_the_task = false;
    static constexpr bool frees_relations = false;
    static constexpr bool frees_items = false;
    static constexpr bool draws_item_keys = false;

    static auto Master(Plan& plan) { return plan.app->xTaskObstaclesRelationcol(); }
    static auto All(Plan& plan) { return plan.app->xObstaclesCol(); }
    static auto OnTask(TasksCls& task) { return task.TaskObstaclesRelation(); }
    static auto Copies(TasksCls& task) { return task.TaskObstacles(); }
    static auto OnItem(ObstaclesCls& obstacle) { return obstacle.TaskObstaclesRelation(); }
    static Long ItemKey(const TaskObstaclesRelationCls& relation) { return relation.Obstaclekey(); }
    static void Assign(Plan& plan, int item, int task) {
        All(plan)->AssigneObstacles(std::to_string(item), task, plan.app->xTaskCol(), Master(plan));
    }
    static void UnAssign(Plan& plan, int item, int task) {
        All(plan)->UnAssigneObstacles(item, task, plan.app->xTaskCol(), Master(plan));
    }
    static void AddToTask(Plan& plan, int task, const Ref<TaskObstaclesRelationCls>& relation,
                          const Ref<ObstaclesCls>& obstacle) {
        plan.col().AddObstacles(task, relation, obstacle);
    }
    static void RemoveFromTask(Plan& plan, int task, int relation, int item) {
        plan.col().RemoveAssigendObstacles(task, relation, item);
    }
    static void RemoveTask(Plan& plan, int task) {
        plan.col().Remove(task, {}, {}, {}, {}, Master(plan), All(plan), True, True, True);
    }
    static void FillTasks(Plan& plan, int item) {
        All(plan)->SetTasksCollectionByID(item, Master(plan), plan.app->xTaskCol());
    }
};

/// Plain lists that say what each side should hold: the rules of assigning again, over numbers alone.
template <class Kind>
class SidesModel {
public:
    struct Relation {
        int key, task, item;
    };
    struct OnTask {
        std::vector<Relation> relations;
        std::vector<int> copies;
        bool candidate = false;
    };
    struct OnItem {
        std::vector<int> relations;
        std::map<int, bool> tasks;  ///< false for one that became a candidate there
    };

    int AddTask();
    int AddItem();
    void Assign(int item, int task);
    void UnAssign(int item, int task);
    void RemoveFromTask(int task, int item);
    void MakeCandidate(int task) { tasks_.at(task).candidate = true; }
    void RemoveTask(int task);
    void RemoveItem(int item);
    /// The clean-up after a person was deleted.
    void RemoveRelationsOf(int item);

    const std::map<int, OnTask>& tasks() const { return tasks_; }
    const std::vector<int>& items() const { return item_order_; }
    /// The first of a task's relations to an item; 0 when it has none.
    int RelationOnTask(int task, int item) const;
    String Drawn() const;
    String Recorded() { return std::exchange(recorded_, {}); }

private:
    void Record(const char* label, const char* member, int number) {
        recorded_ += String(label) + "/" + member + " " + std::to_string(number) + "\n";
    }
    static bool Has(const std::vector<int>& keys, int key) { return std::ranges::find(keys, key) != keys.end(); }
    static bool Has(const std::vector<Relation>& all, int key) { return Find(all, key) != nullptr; }
    static const Relation* Find(const std::vector<Relation>& all, int key) {
        const auto found = std::ranges::find(all, key, &Relation::key);
        return found == all.end() ? nullptr : &*found;
    }
    static int Next(std::vector<int>* pool, int& counter) {
        if (pool == nullptr || pool->empty()) return ++counter;
        const int key = pool->front();
        pool->erase(pool->begin());
        return key;
    }
    void Free(int key) {
        if (Kind::frees_relations && !Has(freed_relations_, key)) freed_relations_.push_back(key);
    }
    /// Adds to a list of relations, where the key is not taken.
    template <class List, class Entry>
    void AddRelation(List& list, int key, Entry entry) {
        if (Has(list, key)) {
            Record(Kind::relations_label, "AddItem", 457);
        } else {
            list.push_back(entry);
        }
    }
    void TakeOut(std::vector<Relation>& list, int key) {
        Free(key);
        if (std::erase_if(list, [&](const Relation& each) { return each.key == key; }) != 0) return;
        if (Kind::records_a_miss) Record(Kind::relations_label, "Remove", 5);
    }
    void TieTask(const Relation& relation);
    int FirstTo(int item, int task);
    void DropTask(int task) {
        tasks_.erase(task);
        freed_tasks_.push_back(task);
    }

    std::vector<Relation> master_;
    std::map<int, OnTask> tasks_;
    std::map<int, OnItem> items_;
    std::vector<int> item_order_;
    std::vector<int> freed_tasks_, freed_items_, freed_relations_;
    int task_counter_ = 0, item_counter_ = 0, relation_counter_ = 0;
    String recorded_;
};

/// What the plan holds of that kind, in the words of the model.
template <class Kind>
String DrawnSides(Plan& plan);

}  // namespace mrlxmlclass::testing

#include "tests/items/Sides_members.h"
