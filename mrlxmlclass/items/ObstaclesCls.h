#pragma once

#include "mrlxmlclass/items/NamedItem.h"

namespace mrlxmlclass {

class TaskObstaclesRelationCol;

/// Something that tasks suffer from.
class ObstaclesCls : public NamedItem<ObstaclesCls, TaskObstaclesRelationCol> {
public:
    /// Unique in the project; 0 until one is issued.
    Long Obstacleskey() const { return f_.key; }
    void Obstacleskey(Long value) { f_.key = value; }
    /// Display order; see obstaclesCol::SortMe.
    Long ObstaclesPosition() const { return f_.position; }
    void ObstaclesPosition(Long value) { f_.position = value; }
    String ObstaclesName() const { return f_.name; }
    void ObstaclesName(const String& name) { f_.name = name; }
    /// Carried for the host. Reading one whose flag is down is recorded and gives "". A change of the flag clears it.
    String ObstaclesLink() { return GuardedLink(); }
    void ObstaclesLink(const String& link) { f_.link.Let(link); }
    Boolean ObstaclesLinkValid() const { return f_.link.valid; }
    void ObstaclesLinkValid(Boolean flag) { f_.link.LetFlag(flag); }
    /// A change of the flag clears it.
    String ObstaclesDescription() const { return f_.description.value; }
    void ObstaclesDescription(const String& text) { f_.description.Let(text); }
    Boolean sObstaclesDescriptionValid() const { return f_.description.valid; }
    void sObstaclesDescriptionValid(Boolean flag) { f_.description.LetFlag(flag); }
    /// This obstacle's relations to tasks. Made on first read, which raises the flag; a change of the flag drops them.
    Ref<TaskObstaclesRelationCol> TaskObstaclesRelation() { return ReadRelations(); }
    void TaskObstaclesRelation(const Ref<TaskObstaclesRelationCol>& relations) { f_.relations.Let(relations); }
    Boolean TaskObstaclesRelationValid() const { return f_.relations.valid; }
    void TaskObstaclesRelationValid(Boolean flag) { f_.relations.LetFlag(flag); }
};

}  // namespace mrlxmlclass
