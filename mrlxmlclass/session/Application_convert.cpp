#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/Application_internal.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/ProjectsCls.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"Application"};
constexpr int kSunday = 1;
constexpr int kSaturday = 7;
constexpr double kWholeBar = 100;

/// Every occurrence of `from`, in letters of any case, replaced.
String ReplaceExt(const String& text, const String& from, const String& to) {
    const String lower = LowerCase(text);
    String replaced;
    std::size_t at = 0;
    for (std::size_t hit = lower.find(from); hit != String::npos; hit = lower.find(from, at)) {
        replaced.append(text, at, hit - at).append(to);
        at = hit + from.size();
    }
    return replaced.append(text, at);
}

String TextOf(Long key) {
    return KeyText(key).text();
}

}  // namespace

/// One run of Convert3to4.
class Application::Conversion {
public:
    /// Opens the old plan, before anything of the new one is touched.
    Conversion(Application& app, const String& file_name) : app_(app) {
        bar_->Show();
        old_ = Platform().old_plans.NewProject();
        old_->Location(file_name);
        old_->Load(file_name);
        tasks_ = app.xTaskCol();
        people_ = app.xPeopleCol();
        assignments_ = app.xTaskPeopleRelationcol();
    }

    /// The old dates took no account of free days: no weekday is one from now on.
    void ConvertProject() {
        app_.xProject()->ProjectName(old_->Name());
        tasks_->GanttVisted = True;
        app_.xCalendar()->SetAsWorkingDay(Long(kSunday));
        app_.xCalendar()->SetAsWorkingDay(Long(kSaturday));
        const auto rows =
            2 * old_->People().size() + old_->Phases().size() + old_->goals().size() + old_->Obstacles().size() + 1;
        step_ = kWholeBar / static_cast<double>(rows);
    }

    void ConvertPeople() {
        Integer position;
        for (const Ref<OldPerson>& old : old_->People()) {
            const auto person = Make<peopleCls>();
            person->PersonName(old->Name());
            person->PersonPosition(position);
            people_->AddItem(person);
            ++position;
            Step();
        }
    }

    void ConvertOutline() {
        next_row_ = 1;
        Integer place;
        for (const Ref<OldTask>& old : old_->Phases()) {
            const Ref<TasksCls> phase = ConvertTask(old, 0, place, True);
            ConvertSubTasks(old, phase->TaskKey());
            ++place;
            Step();
        }
    }

    void ConvertTasksOfPeople() {
        for (const Ref<OldPerson>& old : old_->People()) {
            const Ref<peopleCls> person = people_->Item(In(people_).FindPersonKeys(old->Name()));
            EachTaskOf(
                *old,
                [&](const Ref<TasksCls>& candidate) {
                    const auto relation = Make<TaskAssigmentRelationCls>();
                    relation->TaskKey(candidate->TaskKey());
                    relation->personkey(person->personkey());
                    assignments_->AddItem(relation);
                },
                [&](const Ref<TasksCls>& task) {
                    // Kept: the pair is tied once more, so that the project has two relations of it.
                    if (!task->TaskCondidat()) Assign(person->personkey(), task);
                });
        }
    }

    void ConvertGoals() {
        ConvertItems(old_->goals(), app_.xGoalCol(), app_.xTaskGoalRelationcol(), &GoalsCol::AssigneGoal,
                     [](GoalsCls& goal, OldItem& old, Integer position) {
                         goal.GoalName(old.Name());
                         goal.GoalDescription(old.Note());
                         goal.GoalPosition(position);
                     });
    }

    void ConvertObstacles() {
        ConvertItems(old_->Obstacles(), app_.xObstaclesCol(), app_.xTaskObstaclesRelationcol(),
                     &obstaclesCol::AssigneObstacles, [](ObstaclesCls& obstacle, OldItem& old, Integer position) {
                         obstacle.ObstaclesName(old.Name());
                         obstacle.ObstaclesDescription(old.Note());
                         obstacle.ObstaclesPosition(position);
                     });
    }

    /// Tells the bar that a row of the old plan is done.
    void Step() { bar_->Update(step_); }

private:
    Ref<TasksCls> ConvertTask(const Ref<OldTask>& old, Long parent_key, Integer sub_position, Boolean condidat) {
        Ref<TasksCls> task = tasks_->Add();
        task->ParentID(parent_key);
        tasks_->AddParentTask(task->ParentID(), task->TaskKey());
        task->ProjectID(1);
        ConvertDates(*old, *task);
        if (parent_key != 0) task->TaskType(True);
        const String name = old->Name();  // whole: a task's own may be cut
        task->TaskName(name);
        if (!key_of_name_->Exists(name)) key_of_name_->Add(name, TextOf(task->TaskKey()));
        task->TaskCondidat(condidat);
        if (old->Completed()) task->TaskPercentDone(100);
        task->TaskPosition(next_row_);
        task->TaskSubPosition(sub_position);
        for (const String& person : old->AssignedResource()) Assign(In(people_).FindPersonKeys(person), task);
        if (const String note = old->Note(); !note.empty()) AddNote(note, *task);
        ++next_row_;
        return task;
    }

    void ConvertDates(OldTask& old, TasksCls& task) {
        const Date start = old.StartDate();
        if (!start.set()) {
            task.TaskBDate(Platform().clock.Today());
            task.TaskEDate(Platform().clock.Today());
            task.TaskDuration(1);
            return;
        }
        task.TaskBDate(start);
        task.TaskEDate(old.EndDate());
        if (task.ParentID() != 0) tasks_->AdjustSummary(TextOf(task.ParentID()));
    }

    void AddNote(const String& text, const TasksCls& task) {
        auto note = Make<NotesCls>();
        note->NoteDescription(text);
        const Ref<TaskNoteRelationCls> relation = app_.xTaskNotesRelationcol()->Add();
        note = app_.xNoteCol()->AddItem(note);
        relation->NoteKey(note->NoteKey());
        relation->TaskKey(task.TaskKey());
        tasks_->AddNote(task.TaskKey(), relation, note);
    }

    /// All that stands below a task, each with its own before the next: to any depth, on the stack of the heap.
    void ConvertSubTasks(const Ref<OldTask>& top, Long top_key) {
        struct Level {
            std::vector<Ref<OldTask>> tasks;
            Long parent_key;
            std::size_t next = 0;
        };
        std::vector<Level> levels;
        levels.push_back({top->Tasks(), top_key});
        while (!levels.empty()) {
            Level& level = levels.back();
            if (level.next == level.tasks.size()) {
                levels.pop_back();
                continue;
            }
            const Ref<OldTask> old = level.tasks[level.next];
            const Ref<TasksCls> task = ConvertTask(old, level.parent_key, Integer(level.next), True);
            ++level.next;
            levels.push_back({old->Tasks(), task->TaskKey()});
        }
    }

    /// Goals, or obstacles, each tied to all tasks of its list; `fill` takes over what the old one says of itself.
    template <class Items, class Relations, class Fill>
    void ConvertItems(const std::vector<Ref<OldItem>>& old_items, const Ref<Items>& items,
                      const Ref<Relations>& relations,
                      Boolean (Items::*assign)(const String&, Integer, const Ref<TasksCol>&, const Ref<Relations>&),
                      Fill&& fill) {
        Integer position;
        for (const Ref<OldItem>& old : old_items) {
            auto item = Make<typename Items::Held>();
            fill(*item, *old, position);
            item = items->AddItem(item);
            EachTaskOf(
                *old,
                [&](const Ref<TasksCls>& candidate) {
                    const auto relation = Make<typename Relations::Held>();
                    relation->TaskKey(candidate->TaskKey());
                    In(relation).item_key(In(item).key());
                    relations->AddItem(relation);
                },
                [&](const Ref<TasksCls>& task) {
                    ((*items).*assign)(TextOf(In(item).key()), Integer(task->TaskKey()), tasks_, relations);
                });
            ++position;
        }
    }

    /// The tasks of an item's own list, by name: those of the outline, and for each other name a candidate, to which
    /// `tie_candidate` ties the item. Then `assign` sees them all alike. Kept: names are forgotten after each item, so
    /// that only the first list can find the outline's.
    template <class TieCandidate, class Assign>
    void EachTaskOf(OldPerson& item, TieCandidate&& tie_candidate, Assign&& assign) {
        Integer place;
        for (const Ref<OldTask>& old : item.Tasks()) {
            Ref<TasksCls> task;
            if (const Long key = KeyNamed(old->Name()); key != 0) {
                task = tasks_->Item(key);
                task->TaskType(True);
                task->TaskPositionInitem(place);
            } else {
                next_row_ = 0;
                task = ConvertTask(old, 0, 0, False);
                task->TaskPositionInitem(place);
                task->TaskType(True);
                tie_candidate(task);
            }
            assign(task);
            ++place;
        }
        key_of_name_->RemoveAll();
        Step();
    }

    /// The key of the first task of that name since the names were last forgotten; 0 when there is none.
    Long KeyNamed(const String& name) const {
        return key_of_name_->Exists(name) ? key_of_name_->Item(name).Key().Number() : Long(0);
    }

    void Assign(Long person_key, const Ref<TasksCls>& task) {
        people_->AssignePerson(TextOf(person_key), Integer(task->TaskKey()), tasks_, assignments_);
    }

    Application& app_;
    Ref<TasksCol> tasks_;
    Ref<PeopleCol> people_;
    Ref<TaskAssigmentRelationCol> assignments_;
    Ref<ProgressBar> bar_ = Platform().old_plans.NewProgressBar();
    Ref<OldProject> old_;
    Ref<Dictionary> key_of_name_ = Make<Dictionary>();
    Integer next_row_;
    Double step_ = 0;
};

Boolean Application::Convert3to4(const String& FileName3, const Ref<Collection>& /*p_resource*/,
                                 const String& FileName4) {
    const Ref<Application> self(this);  // a listener may let go of it
    return kTail.Run<Boolean>("Convert3to4", [&](Boolean& result) {
        Conversion conversion(*this, FileName3);
        // Kept: a name for the new file is not taken, it only keeps the old one from being used.
        if (FileName4.empty() && xFileName_.empty()) xFileName_ = ReplaceExt(FileName3, ".prj", ".prx");
        conversion.ConvertProject();
        conversion.ConvertPeople();
        conversion.ConvertOutline();
        conversion.ConvertTasksOfPeople();
        conversion.ConvertGoals();
        conversion.ConvertObstacles();
        conversion.Step();
        result = True;
    });
}

}  // namespace mrlxmlclass
