#include <algorithm>

#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/tasks/Sorting.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// Left out, the argument counts as False.
bool ByPosition(const Variant& byPos) {
    if (byPos.is_missing() || byPos.is_empty()) return false;
    if (const Boolean* flag = byPos.If<Boolean>()) return bool(*flag);
    if (const Long* number = byPos.If<Long>()) return *number != 0;
    if (const double* number = byPos.If<double>()) return *number != 0;
    return bool(Conversions::StringToBoolean(byPos.As<String>()));
}

TasksCol::Store Sorted(const TasksCol::Store& tasks, bool by_position) {
    const auto order = HeapOrder(tasks.size(), [&](std::size_t place) {
        const TasksCls& task = *tasks[place].item;
        return std::int64_t{by_position ? task.TaskPosition() : task.TaskPositionInitem()};
    });
    TasksCol::Store sorted;
    sorted.Reserve(tasks.size());
    for (const std::size_t place : order) {
        if (!sorted.Append(tasks[place].item->TaskKey(), tasks[place].item)) Raise(failure::kDuplicateKey);
    }
    return sorted;
}

/// The children that a dictionary names, sorted by their rows.
Ref<ChildOrder> Sorted(const TasksCol::Internal& tasks, const Ref<Dictionary>& source) {
    auto order = Make<ChildOrder>(source);
    std::vector<Long> unsorted;
    if (source) {
        const auto entries = source->Snapshot();
        unsorted.reserve(entries.size());
        for (const auto& entry : entries) unsorted.push_back(entry.key.Key().Number());
    }
    const auto places = HeapOrder(unsorted.size(), [&](std::size_t place) {
        // A task without a key is never found.
        const Ref<TasksCls> child = unsorted[place] != 0 ? tasks.Find(unsorted[place]) : Ref<TasksCls>();
        return std::int64_t{child->TaskPosition()};
    });
    order->keys.reserve(places.size());
    for (const std::size_t place : places) order->keys.push_back(unsorted[place]);
    return order;
}

Ref<Collection> AsCollection(const TasksCol::Store& tasks) {
    auto collection = Make<Collection>();
    for (const auto& entry : tasks) collection->Add(entry.item, entry.key);
    return collection;
}

}  // namespace

Ref<Collection> TasksCol::SortMe(const Variant& byPos) {
    return kTail.Run<Ref<Collection>>("SortMe", [&](Ref<Collection>& result) {
        const bool by_position = ByPosition(byPos);
        Store outline;
        for (const auto& entry : tasks_) {
            if (entry.item->TaskCondidat() && !outline.Append(entry.item->TaskKey(), entry.item)) {
                Raise(failure::kDuplicateKey);
            }
        }
        result = AsCollection(Sorted(outline, by_position));
        In(*this).PutInOrder(Sorted(tasks_, by_position));
    });
}

void TasksCol::Internal::SortRows() {
    kTail.Run("SortMe", [&] { PutInOrder(Sorted(self_.tasks_, /*by_position=*/true)); });
}

Ref<Collection> TasksCol::Sort(const Variant& byPos) {
    return kTail.Run<Ref<Collection>>(
        "Sort", [&](Ref<Collection>& result) { result = AsCollection(Sorted(tasks_, ByPosition(byPos))); });
}

void TasksCol::BuildArray(const Variant& objDict, ByRef<Variant> aTempArray) {
    kTail.Run("BuildArray", [&] {
        const auto dictionary = objDict.Object<Dictionary>();
        *aTempArray = VariantArray(dictionary->Keys());
    });
}

void TasksCol::SortArray(ByRef<Variant> aTempArray) {
    kTail.Run("SortArray", [&] {
        VariantArray* array = aTempArray->If<VariantArray>();
        if (array == nullptr) Raise(failure::kTypeMismatch);
        for (const Variant& text : *array) text.Text();  // what is no text fails before anything has moved
        std::sort(array->begin(), array->end(),
                  [](const Variant& a, const Variant& b) { return CompareUnits(a.Text(), b.Text()) < 0; });
    });
}

void TasksCol::Internal::PutInOrder(Store sorted) {
    const bool was_counted = self_.counted_.store_stamp == self_.tasks_.Stamp();
    self_.tasks_ = std::move(sorted);
    if (was_counted) self_.counted_.store_stamp = self_.tasks_.Stamp();
    ++Module().outline_stamp;  // a task that stood under another key is found under its own now
}

Ref<ChildOrder> TasksCol::Internal::Children(const Ref<TasksCls>& parent) const {
    return kTail.Run<Ref<ChildOrder>>("GetTasksAsKeys", [&](Ref<ChildOrder>& result) {
        if (!parent) return;
        const Ref<Dictionary> source = In(parent).PeekTasks();
        Ref<ChildOrder>& known = In(parent).child_order();
        if (!known || !known->Sorts(source)) known = Sorted(*this, source);
        result = known;
    });
}

}  // namespace mrlxmlclass
