#include "mrlxmlclass/tasks/TasksCol.h"

#include <algorithm>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
constexpr int kMostTasks = 999;

}  // namespace

TasksCol::TasksCol() {
    EnsureErrorsHandler();
}

Ref<TasksCls> TasksCol::Add(const Variant& ID) {
    return kTail.Run<Ref<TasksCls>>("Add", [&](Ref<TasksCls>& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        auto task = Make<TasksCls>();
        In(task).elementName(element_name_);
        if (ID.is_missing()) {
            In(task).IncrementID(oPublicStaticCls);
            if (task->ParentID() == 0) {
                task->TaskPosition(GetValidTaskNumber() + 1);
                task->TaskEDate(Gloabal::NextWorkingDay(Platform().clock.Today(), 1));
            }
            In(*this).File(task->TaskKey(), task);
        } else if (ID.Key() == KeyText("")) {
            In(task).IncrementID(oPublicStaticCls);
            In(*this).File(task->TaskKey(), task);
        } else {
            In(*this).File(ID.Key(), task);  // Kept: the task's own key stays 0
        }
        result = task;
    });
}

Ref<TasksCls> TasksCol::AddItem(const Ref<TasksCls>& newProperty) {
    return kTail.Run<Ref<TasksCls>>("AddItem", [&](Ref<TasksCls>& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        // Kept: a failure on the way leaves the flag up.
        Module().g_InAddOrRemove = True;
        const Ref<TasksCls> task = newProperty->Clone();
        In(task).elementName(element_name_);
        if (task->TaskKey() == 0) In(task).IncrementID(oPublicStaticCls);
        // Kept: a candidate is not counted as one here, so copies of a plan count theirs into the outline.
        In(*this).File(task->TaskKey(), task);
        Module().g_InAddOrRemove = False;
        result = task;
    });
}

Ref<TasksCls> TasksCol::Item(const Variant& Index) const {
    return kTail.Run<Ref<TasksCls>>("Item", [&](Ref<TasksCls>& result) {
        const KeyText key = Index.Key();
        if (key == KeyText(Long(0))) return;  // a task without a key is never found
        if (const Ref<TasksCls>* task = tasks_.Find(key)) result = *task;
    });
}

Long TasksCol::Count(Boolean p_all) const {
    return std::int64_t{Long(tasks_.size())} - (p_all ? 0 : candidates_.value());
}

Integer TasksCol::GetCount() {
    return kTail.Run<Integer>("GetCount", [&](Integer& result) { result = Integer(tasks_.size()); });
}

Integer TasksCol::GetValidTaskNumber() {
    return kTail.Run<Integer>("GetValidTaskNumber", [&](Integer& result) { result = In(*this).ValidTasks(); });
}

Ref<TasksCol> TasksCol::GetValidTasks() {
    return kTail.Run<Ref<TasksCol>>("GetValidTasks", [&](Ref<TasksCol>& result) {
        for (const auto& entry : NewEnum()) {
            // Kept: the collection to fill is never made, so the first task of the outline ends this in a failure.
            if (entry.item->TaskCondidat()) result->AddItem(entry.item);
        }
    });
}

Ref<TasksCol> TasksCol::GetTasks(const Variant& TaskId) {
    return kTail.Run<Ref<TasksCol>>("GetTasks", [&](Ref<TasksCol>& result) {
        result = Make<TasksCol>();
        const double parent = TaskId.KeyValue();
        for (const auto& entry : NewEnum()) {
            if (entry.item->ParentID().value() == parent) result->AddItem(entry.item);
        }
    });
}

Ref<Dictionary> TasksCol::GetTasksAsKeys(const Variant& TaskId) {
    return kTail.Run<Ref<Dictionary>>("GetTasksAsKeys", [&](Ref<Dictionary>& result) {
        const Ref<ChildOrder> children = In(*this).Children(Item(TaskId));
        if (!children) return;
        result = Make<Dictionary>();
        for (const Long child : children->keys) result->Add(child, child);
    });
}

Ref<TasksCol> TasksCol::Clone() {
    return kTail.Run<Ref<TasksCol>>("Clone", [&](Ref<TasksCol>& result) {
        result = Make<TasksCol>();
        result->element_name_ = element_name_;
        for (const auto& entry : NewEnum()) result->AddItem(entry.item);
    });
}

Boolean TasksCol::TaskCanNotBeAdd() {
    return Count(False) >= kMostTasks;
}

Boolean TasksCol::IamNotAvailable(const String& p_key) {
    return kTail.As("TaskCol").Run<Boolean>("IamNotAvailable", [&](Boolean& result) {
        const Ref<Collection> freed = In(oPublicStaticCls).PeekPool(StaticCls::Internal::Task);
        if (!freed || !freed->Has(p_key)) return;
        freed->Remove(p_key);
        result = True;
    });
}

Variant TasksCol::SetNumberOFCondidat(Boolean p_Condidat) {
    if (Module().g_InAddOrRemove) return {};
    if (!p_Condidat) {
        candidates_ += 1;
    } else if (candidates_ >= 1) {
        candidates_ -= 1;
    }
    return {};
}

Long TasksCol::Internal::ValidTasks() {
    CountedTasks& counted = self_.counted_;
    const std::uint64_t candidacy_stamp = Module().candidacy_stamp;
    if (counted.store_stamp != self_.tasks_.Stamp() || counted.candidacy_stamp != candidacy_stamp) {
        counted.valid = std::count_if(self_.tasks_.begin(), self_.tasks_.end(),
                                      [](const auto& entry) { return bool(entry.item->TaskCondidat()); });
        counted.store_stamp = self_.tasks_.Stamp();
        counted.candidacy_stamp = candidacy_stamp;
    }
    return counted.valid;
}

void TasksCol::Internal::File(const KeyText& key, const Ref<TasksCls>& task) {
    CountedTasks& counted = self_.counted_;
    const bool was_counted = counted.store_stamp == self_.tasks_.Stamp();
    if (!self_.tasks_.Append(key, task)) Raise(failure::kDuplicateKey);
    if (!was_counted) return;
    counted.valid += task->TaskCondidat() ? 1 : 0;
    counted.store_stamp = self_.tasks_.Stamp();
}

bool TasksCol::Internal::TakeOut(KeyText key) {
    ++Module().outline_stamp;
    return self_.tasks_.Remove(key);
}

Integer TasksCol::Internal::GetMaxPos() {
    return kTail.Run<Integer>("GetMaxPos", [&](Integer& result) {
        for (const auto& entry : self_.NewEnum()) {
            if (entry.item->TaskCondidat()) result = std::max<std::int64_t>(result, entry.item->TaskPosition());
        }
    });
}

Boolean TasksCol::Internal::RemoveALL() {
    self_.tasks_.Clear();  // Kept: candidates stay counted, so the outline may have less than no task.
    ++Module().outline_stamp;
    return True;
}

}  // namespace mrlxmlclass
