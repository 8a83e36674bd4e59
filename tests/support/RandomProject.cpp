#include "tests/support/RandomProject.h"

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/xml/ProjectsCls.h"

namespace mrlxmlclass::testing {
namespace {

constexpr const char* kTexts[] = {"Paint",
                                  "",
                                  "Gr\xC3\xB6\xC3\x9F"
                                  "e & <m>",
                                  "first\nsecond",
                                  "\"quoted\" 'too'",
                                  "]]>",
                                  "  blanks  ",
                                  "5",
                                  "a;b:c|LINK|d",
                                  "tab\tinside",
                                  "\xF0\x9F\x98\x80 face",
                                  "true",
                                  "&amp; no end",
                                  "<a/>",
                                  "   "};

/// Adds some items to a list, and takes some out again, so that keys are missing.
template <class Items, class Fill>
void AddSome(Draws& draws, const Ref<Items>& items, Fill&& fill) {
    for (int count = draws.From(0, 6); count > 0; --count) fill(*items->Add());
    for (const auto& entry : items->NewEnum()) {
        if (!draws.OneIn(5)) continue;
        items->Remove(entry.key.text());
        // A new relation of a goal would take the freed key, whether another relation has it or not.
        items->IamNotAvailable(entry.key.text());
    }
}

template <class Items>
std::vector<typename Items::Store::Entry> Some(Draws& draws, const Ref<Items>& items) {
    std::vector<typename Items::Store::Entry> some;
    for (const auto& entry : items->NewEnum()) {
        if (draws.OneIn(3)) some.push_back(entry);
    }
    return some;
}

}  // namespace

RandomProject::RandomProject(unsigned seed, const char* format) : draws_(seed) {
    platform.locale.Use(format);
    if (!draws_.OneIn(4)) WithLinks();
    if (draws_.OneIn(2)) Silenced();
    FillProject();
    FillCalendar();
    FillTasks();
    if (Module().BVersion) FillLinks();
    FillPeople();
    FillGoals();
    FillObstacles();
    FillNotes();
    Assign();
    TakeSomeBack();
    Heard();
}

RandomProject::~RandomProject() {
    app->endreadonly();
}

String RandomProject::Saved(const String& name) {
    app->xFileName(platform.Path(name));
    return app->SaveXml(/*p_persit=*/False) ? platform.Read(name) : String();
}

String RandomProject::Text() {
    return draws_.One(kTexts);
}

void RandomProject::FillProject() {
    const Ref<ProjectsCls> project = app->xProject();
    project->ProjectID(draws_.From(0, 9));
    project->ProjectName(Text());
    project->ProjectCreationDate(Day());
    if (draws_.OneIn(2)) project->ProjectStartLine(Day());
    if (draws_.OneIn(2)) project->ProjectDeadLine(Day());
    if (draws_.OneIn(2)) project->ProjectDescription("one\r\n\r\ntwo " + Text().substr(0, 4));
    if (draws_.OneIn(2)) project->ProjectOwnerIdentifier(draws_.From(-3, 9));
    if (draws_.OneIn(2)) project->ProjectOwnerName(Text());
    project->previewsettings(draws_.From(0, 9));
    project->ProjectCalendarkey(draws_.From(0, 3));
}

void RandomProject::FillCalendar() {
    calendar().CalendarKey(draws_.From(0, 4));
    for (int weekday = 1; weekday <= 7; ++weekday) {
        if (draws_.OneIn(5)) calendar().SetAsWorkingDay(Long(weekday));
        if (weekday < 4 && draws_.OneIn(6)) calendar().SetAsNonWorkingDay(Long(weekday));
    }
    for (int count = draws_.From(0, 5); count > 0; --count) calendar().SetADayAsHoliday(Day());
    for (int count = draws_.From(0, 5); count > 0; --count) calendar().SetADayAsExceptionDay(Day());
}

void RandomProject::FillTasks() {
    col().GanttVisted = draws_.OneIn(2);
    std::vector<String> chain;  // the last row and all above it
    for (int count = draws_.From(0, 14); count > 0; --count) {
        const String name = "task " + std::to_string(names_.size());
        names_.push_back(name);
        Task(name);
        if (draws_.OneIn(8)) {
            col().SetPhases();  // there is a list of phases to take it out of
            col().Remove(Key(name), {}, {}, {}, {}, {}, {}, /*ForceDelete=*/True);
            names_.pop_back();
            continue;
        }
        if (draws_.OneIn(7)) {
            Candidate();
        } else {
            (*this)[name].TaskPosition(col().Count());
            chain.resize(static_cast<std::size_t>(draws_.From(0, static_cast<int>(chain.size()))));
            if (!chain.empty()) Under(chain.back());
            chain.push_back(name);
        }
        FillTask((*this)[name]);
    }
    for (const String& name : names_) {
        if (col().isParent(Key(name))) (*this)[name].TaskType(False);
    }
}

void RandomProject::FillTask(TasksCls& task) {
    task.TaskName(Text() + " of " + KeyText(task.TaskKey()).text());
    if (draws_.OneIn(3)) task.ProjectID(draws_.From(1, 9));
    if (draws_.OneIn(5)) task.TaskMilstones(True);
    const auto day = [&] {
        return draws_.OneIn(10) ? Date::Of(draws_.From(1990, 2045), 7, draws_.From(1, 28)) : Day();
    };
    if (!draws_.OneIn(4)) In(task).StoreStart(day());
    if (!draws_.OneIn(4)) {
        const Date start = task.TaskBDate();
        In(task).StoreEnd(start.set() && !draws_.OneIn(5) ? start + draws_.From(0, 30) : day());
    }
    if (!draws_.OneIn(4)) In(task).StoreDuration(draws_.From(0, 40));
    if (draws_.OneIn(2)) {
        constexpr const char* kUnits[] = {"days", "wks", "mins", "hrs", "mons"};
        task.TaskDurationUnit(draws_.One(kUnits));
        task.TaskDurationUnitValid("True");
    }
    if (draws_.OneIn(3)) task.TaskLag(draws_.From(-9, 9));
    if (draws_.OneIn(3)) task.TaskColor(draws_.From(0, 1 << 24));
    task.TaskStatusKey(draws_.From(0, 5));
    if (draws_.OneIn(2)) task.TaskPercentDone(draws_.From(0, 100));
    if (draws_.OneIn(3)) task.TaskLink(Text());
    if (draws_.OneIn(3)) task.TaskModifiedDate(Day());
    if (draws_.OneIn(3)) task.TaskModified(draws_.OneIn(2));
    if (draws_.OneIn(3)) task.TaskSubPosition(draws_.From(0, 9));
    if (draws_.OneIn(3)) task.TaskPositionInitem(draws_.From(0, 9));
    if (draws_.OneIn(2)) task.TaskCost(Currency(draws_.From(0, 99999) / 100.0));
    if (draws_.OneIn(4)) task.TaskCostUp(Currency(draws_.From(0, 999)));
    if (draws_.OneIn(4)) task.PredecessorDirty(True);
    if (draws_.OneIn(6)) task.TaskPredecessor();  // what is read once is written as an empty list
    if (draws_.OneIn(6)) task.TaskNoteRelation();
    if (draws_.OneIn(6)) task.TaskPeopleRelation();
}

void RandomProject::FillLinks() {
    for (std::size_t later = 1; later < names_.size(); ++later) {
        for (std::size_t before = 0; before < later; ++before) {
            if (draws_.OneIn(6)) About(names_[later]).After(names_[before], Integer(draws_.From(-5, 5)));
        }
    }
}

void RandomProject::FillPeople() {
    AddSome(draws_, app->xPeopleCol(), [&](peopleCls& person) {
        person.PersonPosition(draws_.From(0, 9));
        person.PersonName(Text());
        person.PersonFirstName(Text());  // never written
        if (draws_.OneIn(2)) person.PersonKeyChar(Text());
        if (draws_.OneIn(2)) person.PersonAddress(Text());
        if (draws_.OneIn(2)) person.PersonPhone(Text());
        if (draws_.OneIn(2)) person.PersonEmail(Text());
        if (draws_.OneIn(2)) person.PersonTitle(Text());
        if (draws_.OneIn(2)) person.PersonCompany(Text());
        if (draws_.OneIn(2)) person.PersonNoteKey(Text());
        if (draws_.OneIn(4)) person.TaskPeopleRelation();
    });
}

void RandomProject::FillGoals() {
    AddSome(draws_, app->xGoalCol(), [&](GoalsCls& goal) {
        goal.GoalPosition(draws_.From(0, 9));
        goal.GoalName(Text());
        if (draws_.OneIn(2)) goal.GoalLink(Text());
        if (draws_.OneIn(2)) goal.GoalDescription(Text());
        if (draws_.OneIn(4)) goal.TaskGoalRelation();
    });
}

void RandomProject::FillObstacles() {
    AddSome(draws_, app->xObstaclesCol(), [&](ObstaclesCls& obstacle) {
        obstacle.ObstaclesPosition(draws_.From(0, 9));
        obstacle.ObstaclesName(Text());
        if (draws_.OneIn(2)) obstacle.ObstaclesLink(Text());
        if (draws_.OneIn(2)) obstacle.ObstaclesDescription(Text());
        if (draws_.OneIn(4)) obstacle.TaskObstaclesRelation();
    });
}

std::vector<Ref<TasksCls>> RandomProject::SomeTasks() {
    std::vector<Ref<TasksCls>> some;
    for (const auto& entry : col().NewEnum()) {
        if (draws_.OneIn(3)) some.push_back(entry.item);
    }
    return some;
}

void RandomProject::FillNotes() {
    for (const auto& task : SomeTasks()) {
        for (int count = draws_.From(1, 3); count > 0; --count) {
            auto note = Make<NotesCls>();
            note->NoteDescription(Text());
            if (draws_.OneIn(2)) note->NoteLink(Text());
            if (draws_.OneIn(2)) note->NoteObject(Text());
            note = app->xNoteCol()->AddItem(note);
            const auto relation = app->xTaskNotesRelationcol()->Add();
            relation->TaskKey(task->TaskKey());
            relation->NoteKey(note->NoteKey());
            if (draws_.OneIn(2)) relation->Description(Text());
            col().AddNote(task->TaskKey(), relation, note);
        }
    }
}

void RandomProject::Assign() {
    const auto tasks = app->xTaskCol();
    for (const auto& task : SomeTasks()) {
        const Integer key(task->TaskKey());
        for (const auto& person : Some(draws_, app->xPeopleCol())) {
            const auto relations = app->xTaskPeopleRelationcol();
            app->xPeopleCol()->AssignePerson(person.key.text(), key, tasks, relations, !draws_.OneIn(6),
                                             !draws_.OneIn(6));
            const auto newest = relations->NewEnum();
            if (draws_.OneIn(2)) (*std::prev(newest.end())).item->Description(Text());
        }
        for (const auto& goal : Some(draws_, app->xGoalCol())) {
            const auto relations = app->xTaskGoalRelationcol();
            app->xGoalCol()->AssigneGoal(goal.key.text(), key, tasks, relations);
            const auto newest = relations->NewEnum();
            const auto relation = (*std::prev(newest.end())).item;
            if (draws_.OneIn(2)) relation->Description(Text());
            if (!draws_.OneIn(6)) col().AddGoals(task->TaskKey(), relation, goal.item);
        }
        for (const auto& obstacle : Some(draws_, app->xObstaclesCol())) {
            const auto relations = app->xTaskObstaclesRelationcol();
            app->xObstaclesCol()->AssigneObstacles(obstacle.key.text(), key, tasks, relations);
            const auto newest = relations->NewEnum();
            const auto relation = (*std::prev(newest.end())).item;
            if (draws_.OneIn(2)) relation->Description(Text());
            if (!draws_.OneIn(6)) col().AddObstacles(task->TaskKey(), relation, obstacle.item);
        }
    }
}

/// Unassigned at the end, so that no freed key comes back to a person who still has it.
void RandomProject::TakeSomeBack() {
    for (const auto& entry : app->xTaskPeopleRelationcol()->NewEnum()) {
        const Ref<TasksCls> task = col().Item(entry.item->TaskKey());
        if (!draws_.OneIn(6) || !task || !task->isAssigned(entry.item->personkey())) continue;
        app->xPeopleCol()->UnAssignePerson(entry.item->personkey(), task->TaskKey(), app->xTaskCol(),
                                           app->xTaskPeopleRelationcol());
    }
}

}  // namespace mrlxmlclass::testing
