#pragma once

#include "mrlxmlclass/dialog/GridControl.h"

namespace mrlxmlclass {

class PeopleCol;
class TaskAssigmentRelationCol;
class TasksCol;

namespace Gloabal {

/// Adds a person with that name and the other texts, last of all with `position_flag`, or changes the person of that
/// key: what is "" stays. Gives the person's key as text.
String AddPeople(const Ref<PeopleCol>& oPeopleCol, const String& personkey, const String& name,
                 const String& phone = {}, const String& email = {}, const String& title = {},
                 const String& company = {}, const String& key_char = {}, Boolean position_flag = {});

/// Brings the assignments of a task in line with the rows that are selected: their data is a person's key and "p".
void AssignAllPeopleInTheGrid(const GridControl& grid, const Ref<PeopleCol>& people, Integer TaskKey,
                              const Ref<TasksCol>& tasks, const Ref<TaskAssigmentRelationCol>& relations);

}  // namespace Gloabal
}  // namespace mrlxmlclass
