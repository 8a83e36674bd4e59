#include "tests/support/WholeProject.h"

#include <algorithm>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/xml/ProjectsCls.h"

namespace mrlxmlclass::testing {
namespace {

template <class Relations>
auto Newest(const Ref<Relations>& relations) {
    const auto all = relations->NewEnum();
    return (*std::prev(all.end())).item;
}

void Link(WholeProject& plan, const String& before, const String& after) {
    plan[before].TaskSuccessor()->Add(plan.Key(after), KeyText(plan.Key(after)));
    plan[after].TaskPredecessor()->Add(plan.Key(before), KeyText(plan.Key(before)));
    plan[after].TaskLeadTime()->Add(plan.Key(before) + "|2", KeyText(plan.Key(before)));
}

}  // namespace

WholeProject::WholeProject() {
    WithLinks();
    FillTasks();
    FillItems();

    const Ref<ProjectsCls> project = app->xProject();
    project->ProjectID(7);
    project->ProjectName("House & garden <1>");
    project->ProjectCreationDate(Monday);
    project->ProjectStartLine(Monday);
    project->ProjectDeadLine(Date::Of(2026, 12, 24));
    project->ProjectDescription("First line\r\nsecond line");
    project->ProjectOwnerIdentifier(3);
    project->ProjectOwnerName("Zo\xC3\xAB");
    project->previewsettings(5);
    calendar().SetADayAsHoliday(Date::Of(2026, 5, 1));
    calendar().SetADayAsHoliday(Date::Of(2026, 12, 25));
    calendar().SetADayAsExceptionDay(Saturday);
    calendar().CalendarKey(2);
    app->xFileName(platform.Path("house.prx"));
    Heard();
}

WholeProject::~WholeProject() {
    app->endreadonly();
}

void WholeProject::FillTasks() {
    Task("House").Task("Shell").Under("House");
    Task("Walls").Under("Shell").From(Monday).Lasting(3).Costing(Currency(1200));
    Task("Roof").Under("Shell").From(Friday).Lasting(2, "wks");
    Task("Keys handed over").Under("House").From(Monday + 21).Milestone();
    Task("Garden").From(Monday + 28).Lasting(1, "mons");
    Task("Old shed").Candidate();
    for (const char* phase : {"House", "Shell", "Garden"}) (*this)[phase].TaskType(False);
    Link(*this, "Walls", "Roof");
    Link(*this, "Roof", "Keys handed over");

    TasksCls& roof = (*this)["Roof"];
    roof.ProjectID(7);
    roof.TaskLag(1);
    roof.TaskDurationUnitValid("True");
    roof.TaskColor(255);
    roof.TaskStatusKey(2);
    roof.TaskPercentDone(40);
    roof.TaskLink("Walls:|LINK|plan.pdf");
    roof.TaskModifiedDate(Tuesday);
    roof.TaskModified(True);
    roof.TaskSubPosition(2);
    roof.TaskPositionInitem(4);
    roof.TaskCostUp(Currency(99));
    roof.PredecessorDirty(True);
}

void WholeProject::FillItems() {
    const auto person = app->xPeopleCol()->Add();
    person->PersonName("Ada");
    person->PersonPhone("12 34");
    person->PersonAddress("Main street 1\nTown");
    app->xPeopleCol()->AssignePerson(KeyText(person->personkey()).text(), Integer(Number("Walls")), app->xTaskCol(),
                                     app->xTaskPeopleRelationcol());

    const auto goal = app->xGoalCol()->Add();
    goal->GoalName("Dry by winter");
    goal->GoalDescription("No rain inside");
    app->xGoalCol()->AssigneGoal(KeyText(goal->Goalkey()).text(), Integer(Number("Roof")), app->xTaskCol(),
                                 app->xTaskGoalRelationcol());
    col().AddGoals(Key("Roof"), Newest(app->xTaskGoalRelationcol()), goal);

    const auto obstacle = app->xObstaclesCol()->Add();
    obstacle->ObstaclesName("Frost");
    obstacle->ObstaclesLink("weather.html");
    app->xObstaclesCol()->AssigneObstacles(KeyText(obstacle->Obstacleskey()).text(), Integer(Number("Roof")),
                                           app->xTaskCol(), app->xTaskObstaclesRelationcol());
    col().AddObstacles(Key("Roof"), Newest(app->xTaskObstaclesRelationcol()), obstacle);

    auto note = Make<NotesCls>();
    note->NoteDescription("Ask the neighbour");
    note->NoteLink("letter.txt");
    note = app->xNoteCol()->AddItem(note);
    const auto noted = app->xTaskNotesRelationcol()->Add();
    noted->TaskKey(Number("Garden"));
    noted->NoteKey(note->NoteKey());
    noted->Description("by phone");
    col().AddNote(Key("Garden"), noted, note);
}

Boolean WholeProject::SaveAs(const String& name) {
    app->xFileName(platform.Path(name));
    return app->SaveXml();
}

Boolean WholeProject::Load(const String& name, Boolean only_tasks, Boolean for_lib) {
    app->xFileName(platform.Path(name));
    const Boolean result = app->LoadXML(only_tasks, for_lib);
    app->endreadonly();
    return result;
}

String ToldTasks(const TasksCol& tasks) {
    std::vector<Ref<TasksCls>> by_key;
    for (const auto& entry : tasks.NewEnum()) by_key.push_back(entry.item);
    std::sort(by_key.begin(), by_key.end(), [](const auto& a, const auto& b) { return a->TaskKey() < b->TaskKey(); });
    String told;
    for (const auto& task : by_key) told += task->ToXml(False) + "\n";
    return told;
}

String Told(Application& app) {
    String told = app.xProject()->ToXml(False) + "\n" + ToldTasks(*app.xTaskCol());
    const auto add = [&](const auto& section) { told += section->ToXml(False) + "\n"; };
    add(app.xPeopleCol());
    add(app.xTaskPeopleRelationcol());
    add(app.xTaskGoalRelationcol());
    add(app.xTaskObstaclesRelationcol());
    add(app.xTaskNotesRelationcol());
    add(app.xGoalCol());
    add(app.xNoteCol());
    add(app.xObstaclesCol());
    add(app.xCalendar());
    return told;
}

String Golden(const String& name) {
    return SystemServices().files.Read(String(MRLXMLCLASS_SOURCE_DIR) + "/tests/golden/" + name);
}

}  // namespace mrlxmlclass::testing
