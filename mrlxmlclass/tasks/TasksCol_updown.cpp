#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// A task on its way to another row. With live links the links stay, and the host is told of each one that shows
/// another row now; without them there is no link to find, and the same calls come to nothing.
class RowMove {
public:
    RowMove(TasksCol& tasks, const String& key, Boolean up, const String& parent, const String& old_parent,
            Boolean changing, Boolean in_batch, bool links_stay)
        : tasks_(tasks),
          key_(key),
          parent_(parent),
          old_parent_(old_parent),
          up_(bool(up)),
          changing_(bool(changing)),
          in_batch_(bool(in_batch)),
          links_stay_(links_stay) {
        if (!task()) Raise(failure::kNothing);
    }

    /// Takes the links of the old place out of the way and learns the neighbours from them.
    void Detach() {
        for (const String& successor : SuccessorsOf(key_)) {
            TakeOut(successor, key_);
            next_ = successor;
        }
        if (next_.empty()) DetachLastLeaf();
        for (const String& predecessor : PredecessorsOf(key_)) {
            TakeOut(key_, predecessor);
            previous_ = predecessor;
        }
        if (up_ && tasks_.isParent(next_) && next_ != parent_) {
            const String leaf = LastLeafOf(next_);
            for (const String& successor : SuccessorsOf(leaf)) TakeOut(successor, leaf);
        }
        if (!up_ && KeyNumber(old_parent_) != 0) {
            TakeOutPredecessorsOf(old_parent_);
        } else if (up_ || old_parent_.empty()) {
            DetachPassedRow();
        }
        NeedParent();
        if (KeyNumber(parent_) != 0) {
            if (!tasks_.isParent(parent_)) TakeOutPredecessorsOf(parent_);
            if (up_) {
                for (const String& successor : SuccessorsOf(parent_)) TakeOut(successor, parent_);
            }
        }
        if (changing_ && !up_ && KeyNumber(old_parent_) != 0) TakeOutPredecessorsOf(old_parent_);
    }

    void Up() {
        if ((parent_.empty() || changing_) && next_.empty() && !in_batch_) return;
        if (KeyNumber(parent_) == 0 && !in_batch_ && !previous_.empty()) {
            PutIn(next_, previous_);
            PutIn(PassedRow(), key_);
        }
        // Kept: a parent that stands elsewhere than one or two rows behind the old one is not taken.
        const Long distance = RowsBetweenParents();
        if (distance == 1) {
            Reparent();
            TieBehindOldParent();
        } else if (distance == 2 && !in_batch_) {
            TakeOut(next_, key_);
            PutIn(next_.empty() ? next_ : tasks_.GetFirstChildKey(next_), key_);
            Reparent();
            TieBehindOldParent();
            tasks_.AdjustSummary(parent_);
            tasks_.AdjustCost(parent_);
            tasks_.Item(old_parent_)->TaskCost(0);
            tasks_.AdjustCost(old_parent_);
        }
    }

    void Down() {
        if (changing_ && KeyNumber(parent_) != 0 && KeyNumber(old_parent_) == 0 && !in_batch_) {
            TakeOutPredecessorsOf(key_);
            task()->ParentID(KeyNumber(parent_));
            task()->InitDate();
            FileUnderParent();
            TieIntoRows();
            tasks_.AdjustSummary(parent_);
            TellSummary(parent_);
            if (tasks_.isParent(key_)) tasks_.SummaryTaskDateChanged2(key_, task()->TaskBDate());
        } else if (changing_) {
            Reparent();
            if (!in_batch_) {
                tasks_.AdjustSummary(KeyText(task()->ParentID()).text());
                TieIntoRows();
            }
            TellSummary(parent_);
            if (KeyNumber(old_parent_) != 0) {
                TellSummary(old_parent_);
                tasks_.AdjustCost(old_parent_);
            }
        } else {
            TieIntoRows();
        }
    }

    /// Tells the rows around the new place, whose links show other rows from now on.
    void TellNeighbours() const {
        if (!links_stay_ || in_batch_) return;
        for (const String& row : {key_, LastLeafOf(key_), RowAbove(), LastLeafOf(RowAbove()), RowBelow(), previous_,
                                  LastLeafOf(previous_), next_, LastLeafOf(next_), parent_, old_parent_}) {
            if (tasks_.Item(row)) In(tasks_).NotifyPredecessorChange(row);
        }
    }

    /// Kept: a task with children becomes a plain row too.
    void SetType() const { task()->TaskType(task()->ParentID() != 0); }

private:
    Ref<TasksCls> task() const { return tasks_.Item(key_); }
    /// A new parent that is no task ends the move where it is needed, with what has been done so far.
    void NeedParent() const {
        if (KeyNumber(parent_) != 0 && !tasks_.Item(parent_)) Raise(failure::kNothing);
    }

    std::vector<String> SuccessorsOf(const String& key) const {
        const Ref<TasksCls> of = tasks_.Item(key);
        return of ? In(of).SuccessorKeys() : std::vector<String>();
    }
    std::vector<String> PredecessorsOf(const String& key) const {
        const Ref<TasksCls> of = tasks_.Item(key);
        return of ? In(of).PredecessorKeys() : std::vector<String>();
    }
    /// The last leaf stands for a parent, on the way out and on the way in.
    String LastLeafOf(const String& key) const {
        return tasks_.isParent(key) ? KeyText(tasks_.GetTaskAndSubNumber(key, True)).text() : key;
    }
    /// The row that the task passes: what stands on its level and holds the previous task.
    String PassedRow() const {
        return previous_.empty() ? String()
                                 : tasks_.GetLastParentPosKey(previous_, KeyText(task()->ParentID()).text(), True);
    }
    String RowAbove() const { return tasks_.GetTaskKeyByPosition(Integer(task()->TaskPosition() - 1)); }
    String RowBelow() const {
        return tasks_.GetTaskKeyByPosition(Integer(tasks_.GetTaskAndSubNumber(key_, False, Integer(0)) + 1));
    }

    void TakeOut(const String& waiting, const String& predecessor) {
        if (waiting.empty() || predecessor.empty()) return;
        if (links_stay_) {
            In(tasks_).NotifyPredecessorChange(waiting);
        } else {
            tasks_.RemoveTaskPredecessor(waiting, predecessor);
        }
    }
    void TakeOutPredecessorsOf(const String& key) {
        for (const String& predecessor : PredecessorsOf(key)) TakeOut(key, predecessor);
    }
    void PutIn(const String& waiting, const String& predecessor) {
        if (waiting.empty() || predecessor.empty()) return;
        const String leaf = LastLeafOf(predecessor);
        if (links_stay_) {
            In(tasks_).NotifyLinkChange(waiting, leaf);
        } else {
            tasks_.AddTaskPredecessor(waiting, leaf);
        }
    }

    void DetachLastLeaf() {
        const String leaf = LastLeafOf(key_);
        if (leaf == key_) return;
        for (const String& successor : SuccessorsOf(leaf)) {
            TakeOut(successor, leaf);
            for (const String& predecessor : PredecessorsOf(successor)) {
                const Ref<TasksCls> sibling = tasks_.Item(predecessor);
                if (sibling && sibling->ParentID() == tasks_.Item(successor)->ParentID()) {
                    TakeOut(successor, predecessor);
                }
            }
        }
    }

    void DetachPassedRow() {
        if (!previous_.empty()) {
            TakeOutPredecessorsOf(PassedRow());
            return;
        }
        const String top = tasks_.GetFirstLevelParentPosKey(key_, True);
        for (const String& predecessor : PredecessorsOf(top)) {
            const Ref<TasksCls> other = tasks_.Item(predecessor);
            if (other && (other->ParentID() == 0 || other->ParentID() != task()->ParentID())) TakeOut(top, predecessor);
        }
    }

    /// How far the new parent stands behind the old one; 0 where either is the top or the old one no task.
    Long RowsBetweenParents() const {
        NeedParent();
        const Ref<TasksCls> parent = tasks_.Item(parent_);
        const Ref<TasksCls> old_parent = tasks_.Item(old_parent_);
        return parent && old_parent ? Long(parent->TaskPosition() - old_parent->TaskPosition()) : Long(0);
    }

    void Reparent() {
        task()->ParentID(KeyNumber(parent_));
        FileUnderParent();
        NeedParent();
    }
    void FileUnderParent() {
        tasks_.AddParentTask(parent_, key_);
        tasks_.RemoveParentTask(old_parent_, key_);
    }

    void TieBehindOldParent() {
        PutIn(key_, old_parent_);
        if (next_ != parent_) PutIn(next_, key_);
    }

    void TieIntoRows() {
        const String before = RowAbove().empty() ? tasks_.GetFirstLevelParentPosKey(key_, True) : RowAbove();
        PutIn(key_, before);
        PutIn(RowBelow(), key_);
    }

    void TellSummary(const String& parent) {
        if (Loud()) tasks_.Events.Raise(&TasksColEvents::IamASummary, KeyNumber(parent), tasks_.isParent(parent));
    }

    TasksCol& tasks_;
    const String& key_;
    const String& parent_;
    const String& old_parent_;
    bool up_;
    bool changing_;
    bool in_batch_;
    bool links_stay_;
    String previous_;
    String next_;
};

}  // namespace

Variant TasksCol::MoveTaskUpOrDown(const String& TaskId, Boolean UpDown, const String& ParentID,
                                   const String& oldParentID, Boolean ChangingParent, const String& source,
                                   Boolean p_first_time) {
    return kTail.Run<Variant>("MoveTaskUpOrDown", [&, TaskId, ParentID, oldParentID, source](Variant& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        if (Module().BVersion) {
            result =
                MoveTaskUpOrDowndepend(TaskId, UpDown, ParentID, oldParentID, ChangingParent, source, p_first_time);
            return;
        }
        RowMove move(*this, TaskId, UpDown, ParentID, oldParentID, ChangingParent, p_first_time, /*links_stay=*/false);
        move.Detach();
        UpDown ? move.Up() : move.Down();
        if (isParent(TaskId)) cleanPredcessor(TaskId);
        move.SetType();
        if (Loud()) {
            Events.Raise(&TasksColEvents::UpDown, UpDown, KeyNumber(TaskId), ParentID, oldParentID, ChangingParent,
                         source);
        }
    });
}

Variant TasksCol::MoveTaskUpOrDowndepend(const String& TaskId, Boolean UpDown, const String& ParentID,
                                         const String& oldParentID, Boolean ChangingParent, const String& source,
                                         Boolean p_first_time) {
    return kTail.Run<Variant>("MoveTaskUpOrDowndepend", [&, TaskId, ParentID, oldParentID, source](Variant&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        RowMove move(*this, TaskId, UpDown, ParentID, oldParentID, ChangingParent, p_first_time, /*links_stay=*/true);
        if (!p_first_time) move.Detach();
        UpDown ? move.Up() : move.Down();
        move.TellNeighbours();
        move.SetType();
        if (Loud() && !p_first_time) {
            Events.Raise(&TasksColEvents::UpDown, UpDown, KeyNumber(TaskId), ParentID, oldParentID, ChangingParent,
                         source);
        }
    });
}

}  // namespace mrlxmlclass
