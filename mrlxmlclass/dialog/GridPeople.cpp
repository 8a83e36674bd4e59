#include "mrlxmlclass/dialog/GridPeople.h"

#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass::Gloabal {
namespace {

/// What a set of texts changes on a person.
void PutTexts(peopleCls& person, const String& phone, const String& email, const String& title, const String& company,
              const String& key_char) {
    if (!phone.empty()) person.PersonPhone(phone);
    if (!email.empty()) person.PersonEmail(email);
    if (!title.empty()) person.PersonTitle(title);
    if (!company.empty()) person.PersonCompany(company);
    if (!key_char.empty()) person.PersonKeyChar(key_char);
}

}  // namespace

String AddPeople(const Ref<PeopleCol>& oPeopleCol, const String& personkey, const String& name, const String& phone,
                 const String& email, const String& title, const String& company, const String& key_char,
                 Boolean position_flag) {
    if (!personkey.empty()) {
        const Ref<peopleCls> person = oPeopleCol->Item(personkey);
        if (!name.empty()) person->PersonName(name);
        PutTexts(*person, phone, email, title, company, key_char);
        if (position_flag) person->PersonPosition(position_flag.raw());  // Kept: the flag itself, -1.
        return personkey;
    }
    if (name.empty()) return {};
    const Ref<peopleCls> person = oPeopleCol->Add("");
    person->PersonName(name);
    PutTexts(*person, phone, email, title, company, key_char);
    if (position_flag) person->PersonPosition(oPeopleCol->Count() - 1);
    return std::to_string(person->personkey().value());
}

void AssignAllPeopleInTheGrid(const GridControl& grid, const Ref<PeopleCol>& people, Integer TaskKey,
                              const Ref<TasksCol>& tasks, const Ref<TaskAssigmentRelationCol>& relations) {
    const String task_key = std::to_string(TaskKey.value());
    for (Long row = 1; row < grid.Rows(); ++row) {
        const String& data = grid.RowData(row);
        if (data.empty() || data == EditTask::kNewPerson || Trim(grid.TextMatrix(row, dialog::kPerson)).empty())
            continue;
        const String person = Replace(data, dialog::kPersonMark, "");
        const Boolean assigned = tasks->Item(task_key)->isAssigned(person);
        if (grid.IsSelected(row) && !assigned) {
            people->AssignePerson(person, TaskKey, tasks, relations, /*AssignTask=*/True, /*AssignPeople=*/True);
        } else if (!grid.IsSelected(row) && assigned) {
            people->UnAssignePerson(person, task_key, tasks, relations);
        }
    }
}

}  // namespace mrlxmlclass::Gloabal
