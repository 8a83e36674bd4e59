#pragma once

#include "mrlxmlclass/items/NamedItem.h"

namespace mrlxmlclass {

class TaskGoalRelationCol;

/// Something that tasks serve.
class GoalsCls : public NamedItem<GoalsCls, TaskGoalRelationCol> {
public:
    /// Unique in the project; 0 until one is issued.
    Long Goalkey() const { return f_.key; }
    void Goalkey(Long value) { f_.key = value; }
    /// Display order; see GoalsCol::SortMe.
    Long GoalPosition() const { return f_.position; }
    void GoalPosition(Long value) { f_.position = value; }
    String GoalName() const { return f_.name; }
    void GoalName(const String& name) { f_.name = name; }
    /// Carried for the host. Reading one whose flag is down is recorded and gives "". A change of the flag clears it.
    String GoalLink() { return GuardedLink(); }
    void GoalLink(const String& link) { f_.link.Let(link); }
    Boolean GoalLinkValid() const { return f_.link.valid; }
    void GoalLinkValid(Boolean flag) { f_.link.LetFlag(flag); }
    /// A change of the flag clears it.
    String GoalDescription() const { return f_.description.value; }
    void GoalDescription(const String& text) { f_.description.Let(text); }
    Boolean sGoalDescriptionValid() const { return f_.description.valid; }
    void sGoalDescriptionValid(Boolean flag) { f_.description.LetFlag(flag); }
    /// This goal's relations to tasks. Made on first read, which raises the flag; a change of the flag drops them.
    Ref<TaskGoalRelationCol> TaskGoalRelation() { return ReadRelations(); }
    void TaskGoalRelation(const Ref<TaskGoalRelationCol>& relations) { f_.relations.Let(relations); }
    Boolean TaskGoalRelationValid() const { return f_.relations.valid; }
    void TaskGoalRelationValid(Boolean flag) { f_.relations.LetFlag(flag); }
};

}  // namespace mrlxmlclass
