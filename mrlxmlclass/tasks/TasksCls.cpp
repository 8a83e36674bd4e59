#include "mrlxmlclass/tasks/TasksCls.h"

#include <algorithm>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"TasksCls"};
constexpr std::size_t kLongestName = 160;
constexpr const char* kLinkMark = "|LINK|";

bool Holds(const Ref<Collection>& keys, KeyText key) {
    if (!keys) return false;
    const auto snapshot = keys->Snapshot();
    return std::any_of(snapshot.begin(), snapshot.end(), [key](const auto& entry) { return entry.item.Key() == key; });
}

}  // namespace

TasksCls::TasksCls() {
    EnsureErrorsHandler();
}

void TasksCls::TaskCondidat(Boolean value) {
    In(*this).TaskCondidat_Int(value);
}

void TasksCls::Internal::TaskCondidat_Int(Boolean value) {
    if (f_.TaskCondidat == value) return;
    f_.TaskCondidat = value;
    ++Module().candidacy_stamp;
}

void TasksCls::TaskPosition(Long value) {
    if (f_.TaskPosition.value != value) ++Module().outline_stamp;
    f_.TaskPosition.Let(value);
}

void TasksCls::TaskName(const String& name) {
    f_.TaskName = Left(name, kLongestName);
}

Ref<Collection> TasksCls::TaskSuccessor() {
    return kTail.Run<Ref<Collection>>("TaskSuccessor", [&](Ref<Collection>& result) {
        result = f_.TaskSuccessor.Read([] { return Make<Collection>(); });
        if (!result) RaiseNotValid("TaskSuccessor");
    });
}

Ref<Collection> TasksCls::TaskPredecessor() {
    return kTail.Run<Ref<Collection>>("TaskPredecessor", [&](Ref<Collection>& result) {
        result = f_.TaskPredecessor.Read([] { return Make<Collection>(); });
        if (!result) RaiseNotValid("TaskPredecessor");
    });
}

Ref<Collection> TasksCls::TaskLeadTime() {
    if (!f_.TaskLeadTime) f_.TaskLeadTime = Make<Collection>();
    return f_.TaskLeadTime;
}

Boolean TasksCls::isPredecessor(const Variant& PredecessorKey) {
    return kTail.Run<Boolean>("isPredecessor",
                              [&](Boolean& result) { result = In(*this).HasPredecessor(PredecessorKey.Key()); });
}

Boolean TasksCls::isSucesser(const Variant& p_succ) {
    return kTail.Run<Boolean>("isSucesser", [&](Boolean& result) { result = In(*this).HasSuccessor(p_succ.Key()); });
}

std::vector<String> TasksCls::Internal::KeysOf(const Ref<Collection>& links) {
    std::vector<String> keys;
    if (!links) return keys;
    for (const auto& entry : links->Snapshot()) keys.push_back(entry.item.Key().text());
    return keys;
}

bool TasksCls::Internal::HasPredecessor(KeyText key) const {
    return Holds(PeekPredecessor(), key);
}

bool TasksCls::Internal::HasSuccessor(KeyText key) const {
    return Holds(PeekSuccessor(), key);
}

Date TasksCls::TaskModifiedDate() {
    return kTail.Run<Date>("TaskModifiedDate", [&](Date& result) {
        if (!f_.TaskModifiedDate.valid) RaiseNotValid("TaskModifiedDate");
        result = f_.TaskModifiedDate.value;
    });
}

Boolean TasksCls::TaskModified() {
    return kTail.Run<Boolean>("TaskModified", [&](Boolean& result) {
        if (!f_.TaskModified.valid) RaiseNotValid("TaskModified");
        result = f_.TaskModified.value;
    });
}

String TasksCls::GetTaskLink(ByRef<String> p_linked_to) {
    return kTail.Run<String>("GetTaskLink", [&](String& result) {
        const std::vector<String> pieces = Split(f_.TaskLink.value, kLinkMark);
        // Kept: the last piece that matches wins.
        for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
            if (pieces[i].find(*p_linked_to) != String::npos) result = pieces[i + 1];
        }
    });
}

Boolean TasksCls::SetTaskLink(const String& value, ByRef<String> p_linked_to) {
    f_.TaskLink.Let(*p_linked_to + ":" + kLinkMark + value);
    return True;
}

Ref<TasksCls> TasksCls::Clone() {
    // Kept: not the name of the member.
    return kTail.Run<Ref<TasksCls>>("Clone_Error", [&](Ref<TasksCls>& result) {
        result = Make<TasksCls>();
        Fields& copy = result->f_;
        copy = f_;
        copy.TaskNoteRelation = f_.TaskNoteRelation.Share();
        copy.TaskObstaclesRelation = f_.TaskObstaclesRelation.Share();
        copy.TaskGoalRelation = f_.TaskGoalRelation.Share();
        copy.TaskPeopleRelation = f_.TaskPeopleRelation.Share();
        copy.TaskSuccessor = f_.TaskSuccessor.Share();
        copy.TaskPredecessor = f_.TaskPredecessor.Share();
        copy.TasksPeople = f_.TasksPeople.Share();
        copy.Tasks = f_.Tasks.Share();
        copy.child_order = {};
        copy.TaskLeadTime = {};  // Kept: a clone starts without lead times.
        copy.TaskNotes = {};
        copy.TaskObstacles = {};
        copy.TasksGoals = {};
        // Kept: a clone counts its costs as set, and so writes them.
        copy.TaskCost.Let(f_.TaskCost.value);
        copy.TaskCostUp.Let(f_.TaskCostUp.value);
    });
}

Boolean TasksCls::Internal::IncrementID(const Ref<StaticCls>& oPublicStaticCls) {
    // Kept: recorded under the name of another class.
    return kTail.As("ObstaclesCls").Run<Boolean>("IncrementID", [&](Boolean& result) {
        const KeyText next = In(oPublicStaticCls).NextKey(StaticCls::Internal::Task, StaticCls::Internal::Task);
        const std::optional<Long> key = WholeNumberIn(next.text());
        if (!key) Raise(failure::kTypeMismatch);
        f_.TaskKey = *key;
        result = True;
    });
}

}  // namespace mrlxmlclass
