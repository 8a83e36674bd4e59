#include "tests/items/Sides.h"

namespace mrlxmlclass::testing {
namespace {

/// A drawn script of edits, on a plan and on the model of it; after each the two hold the same, and have recorded the
/// same failures.
template <class Kind>
class Script {
public:
    explicit Script(unsigned seed) : draws_(seed) {
        if (draws_.OneIn(2)) plan_.WithLinks();
        for (int i = 0; i < 3; ++i) AddTask();
        for (int i = 0; i < 3; ++i) AddItem();
    }

    void Run(int edits) {
        for (int edit = 0; edit < edits && !::testing::Test::HasFailure(); ++edit) {
            Edit();
            ASSERT_EQ(plan_.failures.Taken(), model_.Recorded()) << told_;
            ASSERT_EQ(DrawnSides<Kind>(plan_), model_.Drawn()) << told_;
        }
    }

private:
    void Edit() {
        const int task = Task();
        const int item = model_.items().empty() ? 0 : draws_.One(model_.items());
        switch (draws_.From(0, 11)) {
            case 0:
                return AddTask();
            case 1:
                return AddItem();
            case 2:
                if (task != 0 && draws_.OneIn(2)) RemoveTask(task);
                return;
            case 3:
                if (item != 0 && draws_.OneIn(2)) RemoveItem(item);
                return;
            case 4:
                if (task != 0 && draws_.OneIn(3)) MakeCandidate(task);
                return;
            case 5:
            case 6:
                if (task != 0 && item != 0) RemoveFromTask(task, item);
                return;
            case 7:
            case 8:
                if (task != 0 && item != 0) UnAssign(task, item);
                return;
            default:
                if (task != 0 && item != 0) Assign(task, item);
        }
    }
    int Task() {
        std::vector<int> keys;
        for (const auto& [key, task] : model_.tasks()) keys.push_back(key);
        return keys.empty() ? 0 : draws_.One(keys);
    }
    void Tell(const char* edit, int task, int item) {
        told_ += String(edit) + " " + std::to_string(task) + " " + std::to_string(item) + "\n";
    }

    void AddTask() {
        plan_.Task("task");
        plan_.col().SetPhases();
        const int key = model_.AddTask();
        Tell("add task", key, 0);
        ASSERT_EQ(plan_.Number("task"), key);
    }
    void AddItem() {
        const int key = model_.AddItem();
        Tell("add item", 0, key);
        Kind::All(plan_)->Add();
    }
    void Assign(int task, int item) {
        Tell("assign", task, item);
        Kind::Assign(plan_, item, task);
        if (!Kind::ties_the_task) {
            const auto own = Kind::All(plan_)->Item(item);
            const Variant key = own->FindRelationKey(task, Kind::Master(plan_));
            if (!key.is_empty()) Kind::AddToTask(plan_, task, Kind::Master(plan_)->Item(key), own);
        }
        model_.Assign(item, task);
    }
    void UnAssign(int task, int item) {
        Tell("unassign", task, item);
        Kind::UnAssign(plan_, item, task);
        model_.UnAssign(item, task);
    }
    void RemoveFromTask(int task, int item) {
        const int relation = model_.RelationOnTask(task, item);
        if (Kind::ties_the_task || relation == 0) return;
        Tell("remove from task", task, item);
        Kind::RemoveFromTask(plan_, task, relation, item);
        model_.RemoveFromTask(task, item);
    }
    void MakeCandidate(int task) {
        if (model_.tasks().at(task).candidate) return;
        Tell("make candidate", task, 0);
        plan_.col().Remove(task, {}, {}, {}, {}, {}, {}, /*ForceDelete=*/False, /*p_sort=*/True, /*p_arrange=*/True);
        model_.MakeCandidate(task);
    }
    void RemoveTask(int task) {
        if (model_.tasks().at(task).candidate) return;
        Tell("remove task", task, 0);
        Kind::RemoveTask(plan_, task);
        model_.RemoveTask(task);
    }
    void RemoveItem(int item) {
        Tell("remove item", 0, item);
        Kind::All(plan_)->Remove(item);
        model_.RemoveItem(item);
        if constexpr (Kind::ties_the_task) {
            if (draws_.OneIn(3)) return;  // a host that does not clean up
            told_ += "remove its relations\n";
            Kind::Master(plan_)->RemoveForRelatedPople(std::to_string(item), plan_.app->xTaskCol());
            model_.RemoveRelationsOf(item);
        }
    }

    Draws draws_;
    Plan plan_;
    SidesModel<Kind> model_;
    String told_;
};

template <class Kind>
void RunScripts() {
    for (unsigned seed = 1; seed <= Rounds(60); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Script<Kind>(seed).Run(60);
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(SidesAfterRandomEdits, OfPeopleHoldWhatAssigningLeft) {
    RunScripts<PersonSides>();
}

TEST(SidesAfterRandomEdits, OfGoalsHoldWhatAssigningLeft) {
    RunScripts<GoalSides>();
}

TEST(SidesAfterRandomEdits, OfObstaclesHoldWhatAssigningLeft) {
    RunScripts<ObstacleSides>();
}

}  // namespace
}  // namespace mrlxmlclass::testing
