#pragma once

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/EventSource.h"

namespace mrlxmlclass {

class CalendarCls;
class EditTask;
class GoalsCol;
class NotesCol;
class PeopleCol;
class ProjectsCls;
class StaticCls;
class Steps;
class TaskAssigmentRelationCol;
class TaskGoalRelationCol;
class TaskNoteRelationCol;
class TaskObstaclesRelationCol;
class TasksCol;
class obstaclesCol;

/// What `Application` tells its listeners.
class ApplicationEvents {
public:
    virtual ~ApplicationEvents() = default;
    /// The host set `MinDate`.
    virtual void MinDateChange(Date /*p_min_date*/) {}
};

/// One project session: the one object that a host creates. It owns the whole graph and hands it out through the
/// properties named `x...`; a getter that is told to be lazy makes an empty object where there is none.
///
/// A host creates it, calls `Init`, then either fills the collections, sets `xFileName` and calls `CreateLockFile`, or
/// sets `xFileName` and calls `LoadXML`. Both `Init` and `LoadXML` make a new graph, so whoever listens
/// to `xTaskCol` subscribes again; the session's own `Events` keep their listeners. `endreadonly` comes before the next
/// file and before the end.
///
/// No failure ever reaches the host as an exception: it is recorded in the error file, and the member gives the empty
/// value of its type.
class Application : public Counted {
public:
    Application();

    // --- The graph --------------------------------------------------------------------------------------------------

    Ref<StaticCls> oPublicStaticCls() const { return oPublicStaticCls_; }
    void oPublicStaticCls(const Ref<StaticCls>& counters);
    /// All tasks. Lazy.
    Ref<TasksCol> xTaskCol();
    void xTaskCol(const Ref<TasksCol>& tasks);
    /// The project's relations and items. Lazy each.
    Ref<TaskAssigmentRelationCol> xTaskPeopleRelationcol();
    void xTaskPeopleRelationcol(const Ref<TaskAssigmentRelationCol>& relations);
    Ref<TaskObstaclesRelationCol> xTaskObstaclesRelationcol();
    void xTaskObstaclesRelationcol(const Ref<TaskObstaclesRelationCol>& relations);
    Ref<TaskNoteRelationCol> xTaskNotesRelationcol();
    void xTaskNotesRelationcol(const Ref<TaskNoteRelationCol>& relations);
    Ref<TaskGoalRelationCol> xTaskGoalRelationcol();
    void xTaskGoalRelationcol(const Ref<TaskGoalRelationCol>& relations);
    Ref<GoalsCol> xGoalCol();
    void xGoalCol(const Ref<GoalsCol>& goals);
    Ref<obstaclesCol> xObstaclesCol();
    void xObstaclesCol(const Ref<obstaclesCol>& obstacles);
    Ref<PeopleCol> xPeopleCol();
    void xPeopleCol(const Ref<PeopleCol>& people);
    Ref<NotesCol> xNoteCol();
    void xNoteCol(const Ref<NotesCol>& notes);
    /// Lazy.
    Ref<ProjectsCls> xProject();
    void xProject(const Ref<ProjectsCls>& project);
    /// The phases in outline order: a new collection with clones at every reading, which sorts `xTaskCol` by position.
    /// What it was set to never comes back.
    Ref<TasksCol> xPhases();
    void xPhases(const Ref<TasksCol>& phases);
    /// Not lazy. The scheduler uses it once SetPublicCalendar was called.
    Ref<CalendarCls> xCalendar() const { return xCalendar_; }
    void xCalendar(const Ref<CalendarCls>& calendar);
    /// State of the planning wizard. Not lazy; a session that only served as a library has none.
    Ref<Steps> xStep() const { return xStep_; }
    void xStep(const Ref<Steps>& steps);

    // --- Starting, loading, saving ----------------------------------------------------------------------------------

    /// Starts a new, empty project: new objects throughout, keys from 1 again, Saturday and Sunday free unless
    /// `p_set_calendar` is False. `BVersion` makes links live, `p_source_prima` silences the host's events; both hold
    /// for all sessions of the thread. `p_for_lib` leaves the public calendar and the wizard's state alone.
    void Init(Boolean BVersion = False, Boolean p_source_prima = False, Boolean p_for_lib = False,
              Boolean p_set_calendar = True, const String& p_error_file_name = {});
    /// Path of the project file; the host sets it before LoadXML, SaveXml and CreateLockFile. Give an absolute path:
    /// the lock of a bare name lands in the root folder.
    String xFileName() const { return xFileName_; }
    void xFileName(const String& path) { xFileName_ = path; }
    /// Writes the project straight over `xFileName`, section by section, and with `p_persit` the wizard's state beside
    /// the program. True when all was written. After a failure the file ends with the last section that could be
    /// written; the objects in memory are untouched. A file whose name holds "AutoSave001.prx" ends hidden,
    /// unless the host is silenced. Hosts that want the old file to survive a failure use session/SafeFile.h.
    Boolean SaveXml(Boolean p_persit = True);
    /// Discards the graph and reads `xFileName`. True tells only that the file is well-formed: what could not be read
    /// of it stands in the error file. `p_onlyTasks` stops behind the tasks; `p_for_lib` reads a reduced record without
    /// lock, repair or calendar; unless it is set, `p_its_read_only` tells whether somebody else holds the project.
    /// Yields to the host between the stages and at each record.
    Boolean LoadXML(Boolean p_onlyTasks = False, Boolean p_for_lib = False, ByRef<Boolean> p_its_read_only = {},
                    const String& p_errFileName = {});
    /// An empty path changes nothing. Gives True.
    Boolean SetErrorFileName(const String& p_erro_file_name);

    /// Builds a project of a plan of version 3 on this session, which has been through `Init`; the host saves
    /// afterwards. What reads such plans is the host's: see platform/OldPlans.h; without it a failure (429) is
    /// recorded, and nothing has changed. Phases and tasks become the outline; a task that only a person, a goal or an
    /// obstacle lists stands beside it. No weekday is free afterwards. An empty `xFileName` becomes `FileName3` with
    /// ".prx" for ".prj", unless `FileName4` is given. `p_resource` is not used. A failure on the way gives False; what
    /// was converted stays.
    Boolean Convert3to4(const String& FileName3, const Ref<Collection>& p_resource, const String& FileName4 = {});

    // --- The task dialog --------------------------------------------------------------------------------------------

    /// Lets a person edit a task, and returns when the dialog is closed: True when it was left with OK and another
    /// duration; what else was changed shows in the task and in the events. `Fromwhere`, 1 to 9, tells which screen of
    /// the host opens it, and so what shows and which tab comes first; any other number shows everything. `Ressource`
    /// holds all texts (see dialog/EditTask.h), `p_date_format` is the form of dates in the pickers. From screen 1
    /// ChangeName runs afterwards, after Cancel too.
    ///
    /// Blocks, while the host's events go on. What shows the dialog is the host's: see platform/TaskScreens.h; without
    /// it a failure (429) is recorded.
    Boolean showtaskinfo(const Variant& aTaskKey, const Ref<TasksCol>& oTaskCol, Integer Fromwhere,
                         const Ref<Collection>& Ressource, const String& p_date_format = {});
    /// Closes the dialog from outside, without saving: showtaskinfo then gives False, and its form counts as open
    /// until the next. Gives False.
    Boolean unloadtaskinfo();

    // --- The lock ---------------------------------------------------------------------------------------------------

    /// Takes the project's lock. False when somebody else holds it (`LoadXML` then tells read-only), when `xFileName`
    /// is empty, or when the lock cannot be created, which is recorded.
    Boolean CreateLockFile();
    /// Lets go of the lock and deletes its file. Gives True.
    Boolean endreadonly();
    /// True when somebody has that project open. The session's own `xFileName` never counts, and is not tested.
    Boolean IsFileInUse(const String& p_file_name);

    // --- Dates, settings, questions ---------------------------------------------------------------------------------

    /// The earliest start of the plan; today when there is none. Setting it raises `MinDateChange` and does not change
    /// what the next reading gives.
    Date MinDate();
    void MinDate(Date date);
    /// The latest end of the plan; today when there is none. Setting it makes the next reading count anew.
    Date MaxDate();
    void MaxDate(Date date);
    /// Unsaved changes: the host's own flag, set from here by SetPublicCalendar alone.
    Boolean Dirty() const { return Dirty_; }
    void Dirty(Boolean flag) { Dirty_ = flag; }
    /// Name of a calendar file, kept for the host.
    String xFileCalendarName() const { return xFileCalendarName_; }
    void xFileCalendarName(const String& path) { xFileCalendarName_ = path; }
    /// Makes `xCalendar` the calendar of the scheduler and sets `Dirty`. Gives False.
    Boolean SetPublicCalendar();
    Integer GetPreviewSettings();
    void SetPreviewSettings(const Variant& p_value);
    /// True when an assignment, a goal relation or an obstacle relation holds the task. Notes do not count.
    Boolean TaskRelated(const String& p_task_key);
    /// Does nothing and gives False.
    Boolean Report();

    EventSource<ApplicationEvents> Events;

    class Internal;

private:
    ~Application() override;

    class Conversion;
    class Loading;

    Ref<StaticCls> oPublicStaticCls_;
    Ref<TasksCol> xTaskCol_;
    String xFileName_;
    Ref<TaskAssigmentRelationCol> xTaskPeopleRelationcol_;
    Ref<TaskObstaclesRelationCol> xTaskObstaclesRelationcol_;
    Ref<TaskNoteRelationCol> xTaskNotesRelationcol_;
    Ref<TaskGoalRelationCol> xTaskGoalRelationcol_;
    Ref<GoalsCol> xGoalCol_;
    Ref<obstaclesCol> xObstaclesCol_;
    Ref<PeopleCol> xPeopleCol_;
    Ref<NotesCol> xNoteCol_;
    Ref<ProjectsCls> xProject_;
    Ref<TasksCol> xPhases_;
    Boolean Dirty_;
    Ref<CalendarCls> xCalendar_;
    String xFileCalendarName_;
    Ref<Steps> xStep_;
    Ref<EditTask> open_dialog_;
};

}  // namespace mrlxmlclass
