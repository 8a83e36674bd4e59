#include "prx/TaskKeys.h"

#include <fmt/core.h>

#include <utility>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/session/StaticCls.h"
#include "prx/Kinds.h"
#include "prx/LostRecords.h"
#include "prx/Outline.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr int kLastKey = 32767;

Ref<TasksCls> WithoutKey(const Project& project) {
    for (const auto& entry : project.tasks()->NewEnum()) {
        if (entry.item->TaskKey() == 0) return entry.item;
    }
    return {};
}

std::string Fault(const TasksCls& task) {
    return TitleOf(task) + " has no key";
}

Ref<Collection> PredecessorsOf(TasksCls& task) {
    return task.TaskPredecessorValid() ? task.TaskPredecessor() : nullptr;
}

Ref<Collection> SuccessorsOf(TasksCls& task) {
    return task.TaskSuccessorValid() ? task.TaskSuccessor() : nullptr;
}

/// What of a file still names a task that has lost its key.
class LostKey {
public:
    LostKey(const Project& project, TasksCls& task) : project_(project), task_(task) {}

    /// 0 where nothing does.
    Long Find() {
        LookIntoFile();
        for (const Kind kind : kKinds) {
            With(kind, [&]<class K>(K) { LookAtTies<K>(); });
        }
        LookAtLinks(PredecessorsOf(task_), SuccessorsOf);
        LookAtLinks(SuccessorsOf(task_), PredecessorsOf);
        return key_;
    }

private:
    /// The key stands there out of its place. Where records are missing it may be one of theirs.
    void LookIntoFile() {
        std::vector<Long> keys;
        ForEachElement(project_.root().selectSingleNode("Tasks"), "Task",
                       [&](dom::Node record) { keys.push_back(KeyNumber(record.selectSingleNode("TaskKey").Text())); });
        if (std::cmp_not_equal(keys.size(), project_.tasks()->Count(/*p_all=*/True).value())) return;
        for (const Long key : keys) Consider(key);
    }

    /// The relations that the task lists lead to it.
    template <class K>
    void LookAtTies() {
        const auto listed = K::Listed(task_);
        for (const auto& entry : K::Ties(project_.app())->NewEnum()) {
            if (Holds(listed, entry.item->elementKey())) Consider(entry.item->TaskKey());
        }
    }

    /// The other end of a link names it, too.
    void LookAtLinks(const Ref<Collection>& links, Ref<Collection> (*back)(TasksCls&)) {
        if (!links) return;
        for (const auto& entry : links->Snapshot()) {
            const Ref<TasksCls> other = project_.tasks()->Item(entry.item);
            const Ref<Collection> ends = other ? back(*other) : nullptr;
            if (!ends) continue;
            for (const auto& end : ends->Snapshot()) Consider(end.item.Key().Number());
        }
    }

    void Consider(Long key) {
        if (key_ == 0 && key >= 1 && key <= kLastKey && !project_.tasks()->Item(key)) key_ = key;
    }

    const Project& project_;
    TasksCls& task_;
    Long key_;
};

/// The one behind the highest; where that is the last of all, the first that is free.
Long NextKey(const Project& project) {
    const Long next = std::int64_t{project.app().oPublicStaticCls()->TaskKeyValue()} + 1;
    if (next <= kLastKey) return next;
    Long free = 1;
    while (project.tasks()->Item(free)) free += 1;
    return free;
}

/// The relations of its own that lead to no task lead to it from now on.
template <class K>
void LeadToTask(Application& app, TasksCls& task) {
    const auto listed = K::Listed(task);
    for (const auto& entry : K::Ties(app)->NewEnum()) {
        if (entry.item->TaskKey() == 0 && Holds(listed, entry.item->elementKey())) entry.item->TaskKey(task.TaskKey());
    }
}

void FileAnew(const Project& project, TasksCls& task) {
    const Long lost = LostKey(project, task).Find();
    const Long key = lost != 0 ? lost : NextKey(project);
    StaticCls& counters = *project.app().oPublicStaticCls();
    if (key > counters.TaskKeyValue()) counters.TaskKeyValue(Integer(key));
    TasksCol& tasks = *project.tasks();
    tasks.RemoveParentTask(task.ParentID(), Long(0));
    task.TaskKey(key);
    tasks.SortMe(True);  // from here on it stands under its own key
    // The load files no children behind a parent that it does not find.
    for (const auto& entry : tasks.NewEnum()) tasks.AddParentTask(entry.item->ParentID(), entry.item->TaskKey());
    tasks.SetPhases();
    for (const Kind kind : kKinds) {
        With(kind, [&]<class K>(K) { LeadToTask<K>(project.app(), task); });
    }
}

}  // namespace

std::vector<std::string> KeyFaults(const Project& project) {
    const Ref<TasksCls> task = WithoutKey(project);
    return task ? std::vector{Fault(*task)} : std::vector<std::string>();
}

std::vector<std::string> MendKeys(const Project& project) {
    const Ref<TasksCls> task = WithoutKey(project);
    if (!task) return {};
    const std::string fault = Fault(*task);
    FileAnew(project, *task);
    return {fmt::format("{}: filed under key {}", fault, task->TaskKey().value())};
}

}  // namespace prx
