#include "prx/Kinds.h"

#include "mrlxmlclass/runtime/Text.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// While it lives, a task has no links.
class LinksAside {
public:
    explicit LinksAside(TasksCls& task) {
        if (task.TaskPredecessorValid()) Take(task.TaskPredecessor());
        if (task.TaskSuccessorValid()) Take(task.TaskSuccessor());
    }
    ~LinksAside() {
        for (const auto& [list, entries] : taken_) {
            for (const auto& entry : entries) list->Add(entry.item, entry.key);
        }
    }
    LinksAside(const LinksAside&) = delete;
    LinksAside& operator=(const LinksAside&) = delete;

private:
    void Take(const Ref<Collection>& list) {
        taken_.emplace_back(list, list->Snapshot());
        while (list->Count() > 0) list->Remove(1);
    }
    std::vector<std::pair<Ref<Collection>, Collection::Store>> taken_;
};

/// The library turns the item's copy of the task into a candidate and takes that out of its outline. The copy shares
/// its lists with the task: the links are out of the way meanwhile, and a copy without a parent leaves the parent's
/// list of children alone.
template <class Untying>
void BesideTheLists(TasksCls& task, const Ref<TasksCol>& copies, Untying&& untie) {
    const LinksAside aside(task);
    if (const Ref<TasksCls> copy = copies->Item(task.TaskKey())) copy->ParentID(0);
    untie();
}

template <class Items>
Long LastPosition(const Ref<Items>& items, Long (Items::Held::*position)() const) {
    Long last;
    for (const auto& entry : items->NewEnum()) last = std::max(last, (*entry.item.operator->().*position)());
    return last;
}

std::string TaskKeyText(const TasksCls& task) {
    return KeyText(task.TaskKey()).text();
}

}  // namespace

const std::vector<FieldOf<peopleCls>> People::kFields = {
    {{"company", "The person's company"},
     [](peopleCls& person) { return person.PersonCompany(); },
     [](peopleCls& person, const String& text) { person.PersonCompany(text); }},
    {{"title", "Such as \"Site manager\""},
     [](peopleCls& person) { return person.PersonTitle(); },
     [](peopleCls& person, const String& text) { person.PersonTitle(text); }},
    {{"address", "In one line"},
     [](peopleCls& person) { return person.PersonAddress(); },
     [](peopleCls& person, const String& text) { person.PersonAddress(text); }},
    {{"phone", "Phone number"},
     [](peopleCls& person) { return person.PersonPhone(); },
     [](peopleCls& person, const String& text) { person.PersonPhone(text); }},
    {{"email", "Mail address"},
     [](peopleCls& person) { return person.PersonEmail(); },
     [](peopleCls& person, const String& text) { person.PersonEmail(text); }}};

std::string People::NameOf(peopleCls& person) {
    const String name = person.PersonName();
    return Trim(name).empty() ? person.PersonCompany() : name;
}

Ref<peopleCls> People::Add(Application& app, const std::string& name) {
    const Long last = LastPosition(All(app), &peopleCls::PersonPosition);
    Ref<peopleCls> person = All(app)->Add();
    if (!person) return person;
    person->PersonName(name);
    person->PersonPosition(last + 1);
    return person;
}

void People::Tie(Application& app, TasksCls& task, peopleCls& person) {
    All(app)->AssignePerson(KeyOf(person), Integer(task.TaskKey()), app.xTaskCol(), Ties(app));
}

void People::Untie(Application& app, TasksCls& task, peopleCls& person) {
    All(app)->UnAssignePerson(KeyOf(person), TaskKeyText(task), app.xTaskCol(), Ties(app));
}

const std::vector<FieldOf<GoalsCls>> Goals::kFields = {
    {{"link", "A path or an address"},
     [](GoalsCls& goal) { return goal.GoalLinkValid() ? goal.GoalLink() : String(); },
     [](GoalsCls& goal, const String& text) { goal.GoalLink(text); }},
    {{"description", "In one line"},
     [](GoalsCls& goal) { return goal.GoalDescription(); },
     [](GoalsCls& goal, const String& text) { goal.GoalDescription(text); }}};

Ref<GoalsCls> Goals::Add(Application& app, const std::string& name) {
    const Long last = LastPosition(All(app), &GoalsCls::GoalPosition);
    Ref<GoalsCls> goal = All(app)->Add();
    if (!goal) return goal;
    goal->GoalName(name);
    goal->GoalPosition(last + 1);
    return goal;
}

void Goals::Tie(Application& app, TasksCls& task, GoalsCls& goal) {
    const std::string key = TaskKeyText(task);
    All(app)->AssigneGoal(KeyOf(goal), Integer(task.TaskKey()), app.xTaskCol(), Ties(app));
    const Variant tie = goal.FindRelationKey(key, Ties(app));
    if (!tie.is_empty()) app.xTaskCol()->AddGoals(key, Ties(app)->Item(tie), Ref<GoalsCls>(&goal));
}

void Goals::Untie(Application& app, TasksCls& task, GoalsCls& goal) {
    BesideTheLists(task, goal.Tasks(),
                   [&] { All(app)->UnAssigneGoal(KeyOf(goal), TaskKeyText(task), app.xTaskCol(), Ties(app)); });
}

const std::vector<FieldOf<ObstaclesCls>> Obstacles::kFields = {
    {{"link", "A path or an address"},
     [](ObstaclesCls& obstacle) { return obstacle.ObstaclesLinkValid() ? obstacle.ObstaclesLink() : String(); },
     [](ObstaclesCls& obstacle, const String& text) { obstacle.ObstaclesLink(text); }},
    {{"description", "In one line"},
     [](ObstaclesCls& obstacle) { return obstacle.ObstaclesDescription(); },
     [](ObstaclesCls& obstacle, const String& text) { obstacle.ObstaclesDescription(text); }}};

Ref<ObstaclesCls> Obstacles::Add(Application& app, const std::string& name) {
    const Long last = LastPosition(All(app), &ObstaclesCls::ObstaclesPosition);
    Ref<ObstaclesCls> obstacle = All(app)->Add();
    if (!obstacle) return obstacle;
    obstacle->ObstaclesName(name);
    obstacle->ObstaclesPosition(last + 1);
    return obstacle;
}

void Obstacles::Tie(Application& app, TasksCls& task, ObstaclesCls& obstacle) {
    const std::string key = TaskKeyText(task);
    All(app)->AssigneObstacles(KeyOf(obstacle), Integer(task.TaskKey()), app.xTaskCol(), Ties(app));
    const Variant tie = obstacle.FindRelationKey(key, Ties(app));
    if (!tie.is_empty()) app.xTaskCol()->AddObstacles(key, Ties(app)->Item(tie), Ref<ObstaclesCls>(&obstacle));
}

void Obstacles::Untie(Application& app, TasksCls& task, ObstaclesCls& obstacle) {
    BesideTheLists(task, obstacle.Tasks(), [&] {
        All(app)->UnAssigneObstacles(KeyOf(obstacle), TaskKeyText(task), app.xTaskCol(), Ties(app));
    });
}

const std::vector<FieldOf<NotesCls>> Notes::kFields = {
    {{"link", "A path or an address"},
     [](NotesCls& note) { return note.NoteLink(); },
     [](NotesCls& note, const String& text) { note.NoteLink(text); }}};

Ref<NotesCls> Notes::Add(Application& app, const std::string& text) {
    const auto note = Make<NotesCls>();
    note->NoteDescription(text);
    return All(app)->AddItem(note);
}

void Notes::Remove(Application& app, const std::string& key) {
    All(app)->Remove(/*Index=*/1, key);  // the place stands only for "there is one"
}

void Notes::Tie(Application& app, TasksCls& task, NotesCls& note) {
    const Ref<Relation> tie = Ties(app)->Add();
    if (!tie) return;
    tie->TaskKey(task.TaskKey());
    tie->NoteKey(note.NoteKey());
    app.xTaskCol()->AddNote(TaskKeyText(task), tie, Ref<NotesCls>(&note));
}

}  // namespace prx
