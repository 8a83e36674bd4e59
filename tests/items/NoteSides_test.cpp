#include <algorithm>
#include <map>

#include "tests/items/Items.h"
#include "tests/support/Draws.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

/// Plain lists that say what the project and its tasks should hold of notes: the rules of tying again, over numbers
/// alone.
class NotesOnPaper {
public:
    struct Relation {
        int key, task, note;
    };
    struct OnTask {
        std::vector<int> relations;
        std::vector<int> copies;
    };

    int WriteNote() {
        notes.push_back(++last_note_);
        return last_note_;
    }
    void Tie(int task, int note) {
        relations.push_back({++last_relation_, task, note});
        tasks.at(task).relations.push_back(last_relation_);
        if (Has(tasks.at(task).copies, note)) {
            recorded += "TaskNotes/AddItem 457\n";
        } else {
            tasks.at(task).copies.push_back(note);
        }
    }
    /// Where the relation is not there nothing else happens, without a word.
    void Untie(int task, const Relation& relation) {
        OnTask& side = tasks.at(task);
        if (std::erase(side.relations, relation.key) == 0) return;
        if (std::erase(side.copies, relation.note) == 0) recorded += "TaskNotes/Remove 5\n";
    }
    void RemoveRelation(int key) {
        std::erase_if(relations, [&](const Relation& relation) { return relation.key == key; });
    }
    String Drawn() const {
        String text = "project" + Listed(notes);
        for (const Relation& each : relations) {
            text += " " + std::to_string(each.key) + ":" + std::to_string(each.task) + "-" + std::to_string(each.note);
        }
        for (const auto& [key, task] : tasks) {
            text += "\ntask " + std::to_string(key) + " relations" + Listed(task.relations) + " copies" +
                    Listed(task.copies);
        }
        return text;
    }

    std::vector<int> notes;
    std::vector<Relation> relations;
    std::map<int, OnTask> tasks;
    String recorded;

private:
    static bool Has(const std::vector<int>& keys, int key) { return std::ranges::find(keys, key) != keys.end(); }
    static String Listed(const std::vector<int>& keys) {
        String text;
        for (const int key : keys) text += " " + std::to_string(key);
        return text;
    }

    int last_note_ = 0;
    int last_relation_ = 0;
};

/// What the plan holds of notes, in the same words.
String DrawnNotes(Plan& plan) {
    const auto keys = [](const auto& held) { return (held->Count() == 0 ? "" : " ") + KeysOf(held); };
    String text = "project" + keys(plan.app->xNoteCol());
    for (const auto& entry : plan.app->xTaskNotesRelationcol()->NewEnum()) {
        text += " " + entry.key.text() + ":" + KeyText(entry.item->TaskKey()).text() + "-" + entry.item->NoteKey();
    }
    std::map<int, String> lines;
    for (const auto& entry : plan.col().NewEnum()) {
        lines[entry.item->TaskKey().value()] =
            " relations" + keys(entry.item->TaskNoteRelation()) + " copies" + keys(entry.item->TaskNotes());
    }
    for (const auto& [key, line] : lines) text += "\ntask " + std::to_string(key) + line;
    return text;
}

/// A drawn script of edits, on a plan and on paper; after each the two hold the same, and have recorded the same
/// failures.
class NotesScript {
public:
    explicit NotesScript(unsigned seed) : draws_(seed) {
        for (int i = 0; i < 3; ++i) AddTask();
    }

    void Run(int edits) {
        for (int edit = 0; edit < edits && !::testing::Test::HasFailure(); ++edit) {
            Edit();
            ASSERT_EQ(plan_.failures.Taken(), std::exchange(paper_.recorded, {})) << told_;
            ASSERT_EQ(DrawnNotes(plan_), paper_.Drawn()) << told_;
        }
    }

private:
    using Relation = NotesOnPaper::Relation;

    void Edit() {
        const int task = Task();
        const int edit = draws_.From(0, 11);
        if (edit == 0 || task == 0) return AddTask();
        if (edit == 1) return draws_.OneIn(2) ? RemoveTask(task) : void();
        if (edit < 6 || paper_.notes.empty()) return Write(task);
        if (edit < 8) return Tie(task, draws_.One(paper_.notes));
        if (edit == 8) return RemoveNote(draws_.One(paper_.notes));
        if (paper_.relations.empty()) return;
        const Relation relation = draws_.One(paper_.relations);
        if (edit == 9) return RemoveRelation(relation.key);
        const bool gone = !paper_.tasks.contains(relation.task) || draws_.OneIn(4);
        Untie(gone ? task : relation.task, relation);
    }
    int Task() {
        std::vector<int> keys;
        for (const auto& [key, task] : paper_.tasks) keys.push_back(key);
        return keys.empty() ? 0 : draws_.One(keys);
    }
    void Tell(const char* edit, int task, int key) {
        told_ += String(edit) + " " + std::to_string(task) + " " + std::to_string(key) + "\n";
    }

    void AddTask() {
        plan_.Task("task");
        const int key = static_cast<int>(plan_.Number("task").value());
        Tell("add task", key, 0);
        paper_.tasks[key] = {};
    }
    void RemoveTask(int task) {
        Tell("remove task", task, 0);
        plan_.col().RemoveForLib(std::to_string(task));
        paper_.tasks.erase(task);
    }
    /// As a host does: a new note, and all three of its sides.
    void Write(int task) {
        plan_.app->xNoteCol()->AddItem(Make<NotesCls>());
        Tie(task, paper_.WriteNote());
    }
    void Tie(int task, int note) {
        Tell("tie", task, note);
        const auto relation = plan_.app->xTaskNotesRelationcol()->Add();
        relation->TaskKey(task);
        relation->NoteKey(std::to_string(note));
        plan_.col().AddNote(task, relation, plan_.app->xNoteCol()->Item(std::to_string(note)));
        paper_.Tie(task, note);
    }
    void Untie(int task, const Relation& relation) {
        Tell("untie", task, relation.key);
        plan_.col().RemoveNote(task, std::to_string(relation.key), std::to_string(relation.note));
        paper_.Untie(task, relation);
    }
    void RemoveRelation(int key) {
        Tell("remove relation", 0, key);
        plan_.app->xTaskNotesRelationcol()->Remove(std::to_string(key));
        paper_.RemoveRelation(key);
    }
    void RemoveNote(int note) {
        Tell("remove note", 0, note);
        plan_.app->xNoteCol()->Remove(1, std::to_string(note));
        std::erase(paper_.notes, note);
    }

    Draws draws_;
    Plan plan_;
    NotesOnPaper paper_;
    String told_;
};

TEST(SidesAfterRandomEdits, OfNotesHoldWhatTyingLeft) {
    for (unsigned seed = 1; seed <= Rounds(60); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        NotesScript(seed).Run(60);
        if (::testing::Test::HasFailure()) return;
    }
}

}  // namespace
}  // namespace mrlxmlclass::testing
