#include "prx/LinkFaults.h"

#include <fmt/core.h>

#include "mrlxmlclass/tasks/TasksCol.h"
#include "prx/Edit.h"
#include "prx/Outline.h"
#include "prx/Terminal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// The links of all tasks, looked at or mended.
class Links {
public:
    Links(Ref<TasksCol> tasks, bool mends) : tasks_(std::move(tasks)), mends_(mends) {}

    std::vector<std::string> Look() {
        for (const auto& entry : tasks_->NewEnum()) {
            TasksCls& task = *entry.item;
            if (task.TaskPredecessorValid()) LookAtPredecessors(task);
            if (task.TaskSuccessorValid()) LookAtSuccessors(task);
            LookAtLeads(task);
        }
        return std::move(lines_);
    }

private:
    void LookAtPredecessors(TasksCls& task) {
        for (const auto& entry : task.TaskPredecessor()->Snapshot()) {
            const std::string key = entry.item.Key().text();
            const Ref<TasksCls> predecessor = tasks_->Item(key);
            if (!predecessor) {
                Tell(fmt::format("{} waits for task {}, which is not there", TitleOf(task), Plain(key)), "taken off");
                if (mends_) TakeOff(task, key);
            } else if (!predecessor->isSucesser(KeyOf(task))) {
                Tell(fmt::format("{} waits for {}, which does not list it", TitleOf(task), TitleOf(*predecessor)),
                     "put on");
                if (mends_) predecessor->TaskSuccessor()->Add(KeyOf(task), KeyOf(task));
            }
        }
    }

    /// As the library takes a link off, but for the events.
    void TakeOff(TasksCls& task, const std::string& key) {
        task.TaskPredecessor()->Remove(key);
        task.TaskLag(0);
    }

    void LookAtSuccessors(TasksCls& task) {
        for (const auto& entry : task.TaskSuccessor()->Snapshot()) {
            const std::string key = entry.item.Key().text();
            const Ref<TasksCls> successor = tasks_->Item(key);
            if (successor && WaitsFor(*successor, KeyOf(task))) continue;
            Tell(successor ? fmt::format("{} lists {}, which does not wait for it", TitleOf(task), TitleOf(*successor))
                           : fmt::format("{} lists task {}, which is not there", TitleOf(task), Plain(key)),
                 "taken off");
            if (mends_) task.TaskSuccessor()->Remove(key);
        }
    }

    /// Behind the links: what leads nowhere has no lead time any more.
    void LookAtLeads(TasksCls& task) {
        for (const auto& entry : task.TaskLeadTime()->Snapshot()) {
            const std::string key = tasks_->GetPredecessor(entry.item.As<String>());
            if (WaitsFor(task, key)) continue;
            Tell(fmt::format("{} keeps a lead time for task {}, for which it does not wait", TitleOf(task), Plain(key)),
                 "taken out");
            if (mends_) tasks_->RemoveLeadTime(KeyOf(task), key, 0);
        }
    }

    static bool WaitsFor(TasksCls& task, const std::string& key) {
        return task.TaskPredecessorValid() && task.isPredecessor(key);
    }

    void Tell(const std::string& fault, const char* mended) {
        lines_.push_back(mends_ ? fmt::format("{}: {}", fault, mended) : fault);
    }

    Ref<TasksCol> tasks_;
    bool mends_;
    std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> LinkFaults(const Project& project) {
    return Links(project.tasks(), /*mends=*/false).Look();
}

std::vector<std::string> MendLinks(const Project& project) {
    return Links(project.tasks(), /*mends=*/true).Look();
}

}  // namespace prx
