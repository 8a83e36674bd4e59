#include "tests/support/TaskDialog.h"

#include "mrlxmlclass/items/TaskNoteRelationCls.h"

namespace mrlxmlclass::testing {
namespace {

template <class Notes>
String Listed(const Ref<Notes>& notes) {
    String list;
    for (const auto& note : notes->NewEnum()) {
        if (!list.empty()) list += ", ";
        list += note.item->NoteKey() + ":" + note.item->NoteDescription() + ":" + note.item->NoteLink();
    }
    return list;
}

}  // namespace

Ref<Collection> DialogTexts() {
    auto texts = Make<Collection>();
    for (const char* key :
         {"10320", "10321", "10322", "10323", "10325", "10326", "10327", "10328", "10329", "10330", "10331", "10332",
          "10333", "10334", "10336", "10337", "10350", "10351", "10619", "10638", "10644", "10652", "10653", "10654",
          "10655", "10656", "10657", "10658", "10659", "10661", "10675", "10676", "10677", "10718"}) {
        texts->Add(String("T") + key, KeyText(String(key)));
    }
    return texts;
}

Boolean EditInDialog(Plan& plan, const String& task, const std::function<void(EditTask&)>& person, int from_where) {
    plan.Heard();
    plan.platform.screens.person = person;
    return plan.app->showtaskinfo(plan.Key(task), plan.app->xTaskCol(), from_where, DialogTexts());
}

String Drawn(const GridControl& grid) {
    String drawn;
    for (Long row = grid.FixedRows(); row < grid.Rows(); ++row) {
        for (Long col = 0; col < grid.Cols(); ++col) {
            if (!grid.ColHidden(col)) drawn += grid.TextMatrix(row, col) + " ";
        }
        drawn += "=" + grid.RowData(row) + (grid.IsSelected(row) ? "*\n" : "\n");
    }
    return drawn;
}

String AddPerson(Plan& plan, const String& name, const String& company) {
    const Ref<peopleCls> person = plan.app->xPeopleCol()->Add("");
    person->PersonName(name);
    if (!company.empty()) person->PersonCompany(company);
    return std::to_string(person->personkey().value());
}

void Assign(Plan& plan, const String& person_key, const String& task) {
    plan.app->xPeopleCol()->AssignePerson(person_key, Integer(plan.Number(task)), plan.app->xTaskCol(),
                                          plan.app->xTaskPeopleRelationcol());
}

String AddNote(Plan& plan, const String& task, const String& text, const String& link) {
    const auto note = Make<NotesCls>();
    note->NoteDescription(text);
    if (!link.empty()) note->NoteLink(link);
    const Ref<NotesCls> stored = plan.app->xNoteCol()->AddItem(note);
    const Ref<TaskNoteRelationCls> relation = plan.app->xTaskNotesRelationcol()->Add();
    relation->NoteKey(stored->NoteKey());
    relation->TaskKey(plan.Number(task));
    plan.col().AddNote(plan.Key(task), relation, stored);
    return stored->NoteKey();
}

String NotesOf(Plan& plan, const String& task) {
    return Listed(plan[task].TaskNotes());
}

String MasterNotes(Plan& plan) {
    return Listed(plan.app->xNoteCol());
}

}  // namespace mrlxmlclass::testing
