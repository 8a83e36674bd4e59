#pragma once

#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// All texts of the task dialog: each is "T" and its key.
Ref<Collection> DialogTexts();

/// Opens the dialog on a task of the plan; `person(form)` is what the person does while it shows. Events of building
/// the plan are forgotten first.
Boolean EditInDialog(Plan& plan, const String& task, const std::function<void(EditTask&)>& person, int from_where = 0);

/// A table's rows below its headings, a line a row: the texts that show, and behind "=" the row's data; a row that is
/// selected ends with "*".
String Drawn(const GridControl& grid);

/// Adds a person to the project; gives the key.
String AddPerson(Plan& plan, const String& name, const String& company = {});
void Assign(Plan& plan, const String& person_key, const String& task);
/// Adds a note of a task, on all sides; gives its key.
String AddNote(Plan& plan, const String& task, const String& text, const String& link = {});
/// The notes of a task as the task holds them: "key:text:link", joined by ", ".
String NotesOf(Plan& plan, const String& task);
/// The project's notes likewise.
String MasterNotes(Plan& plan);

}  // namespace mrlxmlclass::testing
