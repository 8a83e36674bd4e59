#include "mrlxmlclass/scheduling/LinkWalk_internal.h"

#include "mrlxmlclass/platform/Services.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

}  // namespace

void LinkList::Add(const TasksCls& task) {
    if (any_) text += ", ";
    any_ = true;
    text += by_name_ ? task.TaskName() : KeyText(task.TaskPosition()).text();
}

// Each side is taken off on its own, so that a one-sided link is cured too.
void LinkWalk::Cut(KeyText key, KeyText predecessor_key) {
    const Ref<TasksCls> task = tasks_.Item(key);
    const Ref<TasksCls> predecessor = tasks_.Item(predecessor_key);
    if (task && In(task).HasPredecessor(predecessor_key)) task->TaskPredecessor()->Remove(predecessor_key.text());
    if (predecessor && In(predecessor).HasSuccessor(key)) predecessor->TaskSuccessor()->Remove(key.text());
    task->TaskLag(0);  // An absent task ends the operation here.
    col_.RemoveLeadTime(key.text(), predecessor_key.text(), 0);
}

void LinkWalk::TakeOff(KeyText key, KeyText predecessor_key) {
    if (over()) {
        kTail.Run("RemoveTaskPredecessor", [&] { Cut(key, predecessor_key); });
    } else {
        RemoveTaskPredecessor(key, predecessor_key).Run();
    }
}

// Kept: where there is no link at all the lag goes to 0 and the host is told all the same.
Walk<Boolean> LinkWalk::RemoveTaskPredecessor(KeyText key, KeyText predecessor_key) {
    auto& result = co_await kTail.Begin("RemoveTaskPredecessor");
    if (over()) co_return;
    ++removals_;
    if (over()) Raise(failure::kEndlessWalk);
    Cut(key, predecessor_key);
    Platform().ui.YieldToHost();
    // The reverse of the order in which adding tells the two sides. A handler may silence the rest.
    if (Loud()) {
        col_.Events.Raise(&TasksColEvents::SucessorChange, predecessor_key.Number(),
                          col_.SucessorAsString(predecessor_key.text()));
    }
    if (Loud()) {
        auto waits_for = PredessorAsString(key);
        const String predecessors = co_await std::move(waits_for);
        if (Loud()) col_.Events.Raise(&TasksColEvents::PredecessorChange, key.Number(), predecessors);
    }
    if (Loud()) {
        col_.Events.Raise(&TasksColEvents::PredecessorKeyChange, key.Number(), predecessor_key.text(),
                          String("remove"));
    }
    result = True;
}

Walk<String> LinkWalk::PredessorAsString(KeyText key, Boolean Name) {
    auto& result = co_await kTail.Begin("PredessorAsString");
    const Ref<TasksCls> task = tasks_.Item(key);
    LinkList list(Name);
    std::vector<KeyText> stale;
    if (const Ref<Collection> predecessors = In(task).PeekPredecessor()) {
        for (const auto& entry : predecessors->Snapshot()) {
            const KeyText predecessor_key = entry.item.Key();
            const Ref<TasksCls> predecessor = tasks_.Item(predecessor_key);
            if (predecessor && predecessor->TaskCondidat()) {
                list.Add(*predecessor);
            } else {
                stale.push_back(predecessor_key);
            }
        }
    }
    result = list.text;
    if (over()) co_return;
    gathered_ += stale.size();
    if (over()) Raise(failure::kEndlessWalk);
    // Kept: the first removal tells the text, which removes the others, which are then removed once more from here.
    for (const KeyText predecessor : stale) {
        if (over()) co_return;  // each would only come back
        auto removal = RemoveTaskPredecessor(key, predecessor);
        co_await std::move(removal);
    }
}

}  // namespace mrlxmlclass
