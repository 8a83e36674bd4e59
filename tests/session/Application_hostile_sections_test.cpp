#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/runtime/Text.h"
#include "tests/session/HostileFile.h"
#include "tests/support/SavedRecords.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A whole project whose sections each hold two records, the second of them the one that is damaged.
String WholeFile() {
    WholeProject plan;
    const auto& app = plan.app;
    app->xPeopleCol()->Add()->PersonName("Bob");
    app->xPeopleCol()->AssignePerson("2", 4, app->xTaskCol(), app->xTaskPeopleRelationcol());
    app->xGoalCol()->Add()->GoalName("Warm");
    app->xGoalCol()->AssigneGoal("2", 3, app->xTaskCol(), app->xTaskGoalRelationcol());
    app->xObstaclesCol()->Add()->ObstaclesName("Rain");
    app->xObstaclesCol()->AssigneObstacles("2", 3, app->xTaskCol(), app->xTaskObstaclesRelationcol());
    auto note = Make<NotesCls>();
    note->NoteDescription("Second");
    app->xNoteCol()->AddItem(note);
    const auto relation = app->xTaskNotesRelationcol()->Add();
    relation->TaskKey(3);
    relation->NoteKey("2");
    EXPECT_EQ(plan.SaveAs("whole.prx"), True);
    return plan.platform.Read("whole.prx");
}

/// A section, the element of its records, the class that reads it, and the elements whose text is a number; then what
/// is recorded when keys of the second record, or of both, lead nowhere.
struct SectionRow {
    const char* section;
    const char* element;
    const char* label;
    const char* key;
    std::vector<const char*> numbers;
    const char* second_missed = "";
    const char* both_missed = "";
};
const std::vector<SectionRow>& Sections() {
    static const std::vector<SectionRow> rows{
        {"People", "Person", "PeopleCol", "Personkey", {"Personkey", "PersonPosition"}},
        {"TaskAssigmentRelations",
         "TaskAssigmentRelation",
         "TaskAssigmentRelationCol",
         "Key",
         {"Key", "TaskKey", "PersonKey"}},
        {"TaskGoalRelations",
         "TaskGoalRelation",
         "TaskGoalRelationCol",
         "Key",
         {"TaskKey", "GoalKey", "Key"},
         "TaskGoalRelationCol/Item 5\n",
         "TaskGoalRelationCol/Item 5\nTasksCls/SetGoalCollection 91\n"
         "TaskGoalRelationCol/Item 5\nTaskGoalRelationCol/Item 5\n"},
        {"TaskObstaclesRelations",
         "TaskObstaclesRelation",
         "TaskObstaclesRelationCol",
         "Key",
         {"TaskKey", "ObstacleKey", "Key"},
         "TaskObstaclesRelationCol/Item 5\nobstaclesCls/SetTasksCollection 91\n",
         "TaskObstaclesRelationCol/Item 5\nTasksCls/SetObstaclesCollection 91\n"
         "TaskObstaclesRelationCol/Item 5\nobstaclesCls/SetTasksCollection 91\n"
         "TaskObstaclesRelationCol/Item 5\nobstaclesCls/SetTasksCollection 91\n"},
        {"TaskNoteRelations", "TaskNoteRelation", "TaskNoteRelationCol", "Key", {"TaskKey", "Key"}},
        {"Goals",
         "Goal",
         "GoalsCol",
         "Goalkey",
         {"Goalkey", "GoalPosition"},
         "",
         "GoalsCol/Item 5\nTasksCls/SetGoalCollection 91\n"},
        {"Notes", "Note", "NotesCol", "NoteKey", {"NoteKey"}, "", "NotesCol/Item 5\nTaskNotes/AddItem 91\n"},
        {"Obstacles",
         "Obstacle",
         "obstaclesCol",
         "Obstacleskey",
         {"Obstacleskey", "ObstaclesPosition"},
         "",
         "obstaclesCol/Item 5\nTasksCls/SetObstaclesCollection 91\n"},
    };
    return rows;
}
/// What is recorded when the second record of a section cannot be read.
String RecordedOf(const SectionRow& row, const char* number) {
    return String(row.label) + "/FromXmlInt " + number + "\n" + row.second_missed;
}

std::size_t PlaceOf(const String& file, const String& what, std::size_t from) {
    const std::size_t at = file.find(what, from);
    EXPECT_NE(at, String::npos) << what;
    return at;
}
/// Where the second record of a section starts.
std::size_t SecondRecord(const String& file, const SectionRow& row) {
    const String open = "<" + String(row.element) + ">";
    return PlaceOf(file, open, PlaceOf(file, open, PlaceOf(file, "<" + String(row.section) + ">", 0)) + 1);
}
/// The file with another text in the second record's element of that name.
String WithText(const String& file, const SectionRow& row, const String& element, const String& text) {
    const String open = "<" + element + ">";
    const std::size_t start = PlaceOf(file, open, SecondRecord(file, row)) + open.size();
    return file.substr(0, start) + text + file.substr(PlaceOf(file, "</" + element + ">", start));
}

/// What was read: the file that the session would save now.
SavedRecords Read(HostileFiles& files) {
    Plan& host = files.host();
    EXPECT_EQ(host.app->LoadXML(), True);
    host.app->endreadonly();
    host.app->xFileName(host.platform.Path("read.prx"));
    EXPECT_EQ(host.app->SaveXml(), True);
    host.failures.Taken();
    return RecordsIn(host.platform.Read("read.prx"));
}
SavedRecords ReadOf(HostileFiles& files, const String& file) {
    files.host().platform.Write("evil.prx", file);
    files.host().app->xFileName(files.host().platform.Path("evil.prx"));
    return Read(files);
}

/// Opens a damaged file: the section alone is what is expected of it, and all others are as they were.
class DamagedSections {
public:
    DamagedSections() : whole_(WholeFile()), before_(ReadOf(files_, whole_)) {}

    const String& whole() const { return whole_; }
    HostileFiles& files() { return files_; }

    /// Gives what the load recorded.
    String Open(const String& file, const SectionRow& row, const char* keys_left) {
        const Outcome outcome = files_.Open(file, row.section);
        EXPECT_EQ(outcome.loaded, True);
        const SavedRecords read = ReadOf(files_, file);
        SavedRecords expected = before_;
        for (const String& record : expected.Of(row.section)) {
            const String key = " " + record.substr(record.find(' ') + 1) + " ";
            if ((" " + String(keys_left) + " ").find(key) == String::npos) expected.records.erase(record);
        }
        expected.order[row.section] = keys_left;
        EXPECT_EQ(Difference(expected, read), "");
        return outcome.recorded;
    }

private:
    String whole_;  // first: its plan is over before the session starts
    HostileFiles files_;
    SavedRecords before_;
};

TEST(LoadDamagedSection, WithABadNumberKeepsTheRecordsBeforeIt) {
    DamagedSections damaged;
    for (const SectionRow& row : Sections()) {
        for (const char* element : row.numbers) {
            SCOPED_TRACE(String(row.section) + ", " + element);
            for (const char* text : {"x", "", "9999999999"}) {
                SCOPED_TRACE(text);
                const bool too_large = String(text).starts_with("9");
                const String bad = WithText(damaged.whole(), row, element, text);
                EXPECT_EQ(damaged.Open(bad, row, "1"), RecordedOf(row, too_large ? "6" : "13"));
            }
        }
    }
}

TEST(LoadDamagedSection, WithAKeyThatNoCounterFollowsKeepsTheRecordsBeforeIt) {
    DamagedSections damaged;
    for (const SectionRow& row : Sections()) {
        SCOPED_TRACE(row.section);
        const String bad = WithText(damaged.whole(), row, row.key, "32768");
        EXPECT_EQ(damaged.Open(bad, row, "1"), RecordedOf(row, "6"));
    }
}

TEST(LoadDamagedSection, WithADuplicateKeyKeepsTheFirst) {
    DamagedSections damaged;
    for (const SectionRow& row : Sections()) {
        SCOPED_TRACE(row.section);
        const String bad = WithText(damaged.whole(), row, row.key, "1");
        EXPECT_EQ(damaged.Open(bad, row, "1"), RecordedOf(row, "457"));
    }
}

TEST(LoadDamagedSection, WithARecordOfAnotherNameStopsThereWithoutAWord) {
    DamagedSections damaged;
    for (const SectionRow& row : Sections()) {
        SCOPED_TRACE(row.section);
        String bad = damaged.whole();
        bad.insert(SecondRecord(bad, row), "<Other/>");
        EXPECT_EQ(damaged.Open(bad, row, "1"), row.second_missed);
    }
}

TEST(LoadDamagedSection, WithoutItsElementIsEmptyWithoutAWord) {
    DamagedSections damaged;
    for (const SectionRow& row : Sections()) {
        SCOPED_TRACE(row.section);
        String bad = damaged.whole();
        for (const String& tag : {"<" + String(row.section) + ">", "</" + String(row.section) + ">"}) {
            bad.replace(PlaceOf(bad, tag, 0), tag.size(), tag.starts_with("</") ? "</Lost>" : "<Lost>");
        }
        EXPECT_EQ(damaged.Open(bad, row, ""), row.both_missed);
    }
}

TEST(LoadDamagedSection, OfTheCalendarKeepsWhatStandsBeforeABadEntry) {
    DamagedSections damaged;
    const std::pair<const char*, const char*> rows[] = {
        {"<Holiday>5/1/2026</Holiday>", "CalendarCls/FromXmlInt 9\n"},
        {"<Holiday>5/1/2026:5/1/2026;5/1/2026:5/1/2026</Holiday>", "CalendarCls/FromXmlInt 457\n"}};
    for (const auto& [bad, recorded] : rows) {
        SCOPED_TRACE(bad);
        String file = damaged.whole();
        const std::size_t at = PlaceOf(file, "<Holiday>", 0);
        const std::size_t end = PlaceOf(file, "</Holiday>", at) + 10;
        file.replace(at, end - at, bad);
        const Outcome outcome = damaged.files().Open(file, bad);
        EXPECT_EQ(outcome.loaded, True);
        EXPECT_EQ(outcome.recorded, recorded);
        SavedRecords read = ReadOf(damaged.files(), file);
        EXPECT_EQ(*read.Find("Calendar", "NonWorkingDays"), "7:7;1:1");
        EXPECT_EQ(*read.Find("Calendar", "ExceptionDay"), "");
        EXPECT_EQ(read.Of("People").size(), 2U);
        EXPECT_EQ(read.Of("TaskGoalRelations").size(), 2U);
    }
}

// --- Lists of keys ---------------------------------------------------------------------------------------------------

/// One list of keys, with the prefix that it should have and the other.
struct ListRow {
    const char* wrapper;
    const char* element;
    const char* wrong;
    const char* record;
};
constexpr ListRow kLists[] = {
    {"TaskNoteRelationsKeys", "Key", "tKey", "Tasks 6"},
    {"TaskObstaclesRelationKeys", "Key", "tKey", "Tasks 4"},
    {"TaskPeopleRelationKeys", "tKey", "Key", "Tasks 3"},
    {"TaskGoalRelationKeys", "tKey", "Key", "Tasks 4"},
    {"PeopleTaskRelationKeys", "Key", "tKey", "People 1"},
    {"GoalTaskRelationKeys", "Key", "tKey", "Goals 1"},
    {"ObstaclesTaskRelationKeys", "Key", "tKey", "Obstacles 1"},
};

/// The file with another list of keys in the first element of that name.
String WithKeys(String file, const ListRow& row, const String& keys) {
    const String open = "<" + String(row.wrapper) + ">";
    const std::size_t start = PlaceOf(file, open, 0) + open.size();
    const std::size_t end = PlaceOf(file, "</" + String(row.wrapper) + ">", start);
    return file.replace(start, end - start, keys);
}
String KeyElement(const char* element, const String& key) {
    return "<" + String(element) + ">" + key + "</" + element + ">";
}

TEST(LoadDamagedKeyList, WithTheWrongPrefixIsReadToItsFirstElementAlone) {
    const String whole = WholeFile();
    for (const ListRow& row : kLists) {
        SCOPED_TRACE(row.wrapper);
        HostileFiles files;
        const SavedRecords before = ReadOf(files, whole);
        const String path = String(row.wrapper) + "/" + row.element;
        ASSERT_NE(before.Find(row.record, path), nullptr);
        const String bad = WithKeys(whole, row, KeyElement(row.wrong, "1") + KeyElement(row.element, "1"));
        EXPECT_EQ(files.Open(bad, row.wrapper).recorded, "");
        SavedRecords expected = before;
        for (auto& field : expected.records[row.record]) {
            if (field.first == path) field = {row.wrapper, ""};
        }
        EXPECT_EQ(Difference(expected, ReadOf(files, bad)), "");
    }
}

TEST(LoadDamagedKeyList, ThatNamesAKeyTwiceKeepsTheFirstAndTheFieldsBehindIt) {
    const String whole = WholeFile();
    for (const ListRow& row : kLists) {
        SCOPED_TRACE(row.wrapper);
        HostileFiles files;
        const SavedRecords before = ReadOf(files, whole);
        const String key = KeyElement(row.element, "1");
        const String bad = WithKeys(whole, row, key + key + KeyElement(row.element, "2"));
        const String recorded = files.Open(bad, row.wrapper).recorded;
        EXPECT_NE(recorded.find("Col/FromXmlInt 457\n"), String::npos) << recorded;
        EXPECT_EQ(Difference(before, ReadOf(files, bad)), "");
    }
}

TEST(LoadDamagedKeyList, ThatPointsNowhereKeepsItsKeysAndRecordsWhatItsKindDoes) {
    const String whole = WholeFile();
    const std::map<String, String> recorded_by{
        {"TaskNoteRelationsKeys", ""},  // passed by
        {"TaskObstaclesRelationKeys", "TaskObstaclesRelationCol/Item 5\nTasksCls/SetObstaclesCollection 91\n"},
        {"TaskPeopleRelationKeys", ""},
        {"TaskGoalRelationKeys", "TaskGoalRelationCol/Item 5\nTasksCls/SetGoalCollection 91\n"},
        {"PeopleTaskRelationKeys", ""},
        {"GoalTaskRelationKeys", "TaskGoalRelationCol/Item 5\n"},
        {"ObstaclesTaskRelationKeys", "TaskObstaclesRelationCol/Item 5\nobstaclesCls/SetTasksCollection 91\n"},
    };
    for (const ListRow& row : kLists) {
        for (const char* key : {"77", "x", "", "-1", "99999999999"}) {
            SCOPED_TRACE(String(row.wrapper) + " \"" + key + "\"");
            HostileFiles files;
            SavedRecords expected = ReadOf(files, whole);
            expected.Set(row.record, String(row.wrapper) + "/" + row.element, key);
            const String bad = WithKeys(whole, row, KeyElement(row.element, key));
            EXPECT_EQ(files.Open(bad, row.wrapper).recorded, recorded_by.at(row.wrapper));
            EXPECT_EQ(Difference(expected, ReadOf(files, bad)), "");
        }
    }
}

TEST(LoadDamagedKeyList, WithoutItsElementEndsItsRecordThereWithoutAWord) {
    const String whole = WholeFile();
    for (const ListRow& row : kLists) {
        SCOPED_TRACE(row.wrapper);
        HostileFiles files;
        const SavedRecords::Record before = ReadOf(files, whole).records[row.record];
        String bad = whole;
        for (const String& tag : {"<" + String(row.wrapper) + ">", "</" + String(row.wrapper) + ">"}) {
            bad.erase(PlaceOf(bad, tag, 0), tag.size());
        }
        EXPECT_EQ(files.Open(bad, row.wrapper).recorded, "");
        const SavedRecords::Record after = ReadOf(files, bad).records[row.record];
        for (std::size_t i = 0; !before[i].first.starts_with(row.wrapper); ++i) {
            ASSERT_LT(i, after.size());
            EXPECT_EQ(after[i], before[i]);
        }
        for (const auto& [field, text] : after) EXPECT_FALSE(field.starts_with(row.wrapper)) << field;
    }
}

/// The list of a task, a section of items and one of relations, # where the key stands.
struct TiesRow {
    const char* behind;  ///< the list stands before this field of the task
    const char* list;
    const char* key;
    const char* items;
    const char* item;
    const char* relations;
    const char* relation;
    int first;
};
constexpr int kLateKey = 32001;
constexpr TiesRow kTies[] = {
    {"<TaskStatusKey>", "TaskNoteRelationsKeys", "<Key>#</Key>", "Notes", "<Note><NoteKey>#</NoteKey></Note>",
     "TaskNoteRelations", "<TaskNoteRelation><TaskKey>1</TaskKey><NoteKey>#</NoteKey><Key>#</Key></TaskNoteRelation>",
     kLateKey},
    {"<TaskPosition>", "TaskObstaclesRelationKeys", "<Key>#</Key>", "Obstacles",
     "<Obstacle><Obstacleskey>#</Obstacleskey><ObstaclesTaskRelationKeys><Key>#</Key></ObstaclesTaskRelationKeys>"
     "</Obstacle>",
     "TaskObstaclesRelations",
     "<TaskObstaclesRelation><TaskKey>1</TaskKey><ObstacleKey>#</ObstacleKey><Key>#</Key></TaskObstaclesRelation>",
     kLateKey},
    {"<TaskPosition>", "TaskPeopleRelationKeys", "<tKey>#</tKey>", "People",
     "<Person><Personkey>#</Personkey><PeopleTaskRelationKeys><Key>#</Key></PeopleTaskRelationKeys></Person>",
     "TaskAssigmentRelations",
     "<TaskAssigmentRelation><Key>#</Key><TaskKey>1</TaskKey><PersonKey>#</PersonKey></TaskAssigmentRelation>", 1},
    {"<TaskPosition>", "TaskGoalRelationKeys", "<tKey>#</tKey>", "Goals",
     "<Goal><Goalkey>#</Goalkey><GoalTaskRelationKeys><Key>#</Key></GoalTaskRelationKeys></Goal>", "TaskGoalRelations",
     "<TaskGoalRelation><TaskKey>1</TaskKey><GoalKey>#</GoalKey><Key>#</Key></TaskGoalRelation>", kLateKey},
};

TEST(LoadHostileFile, WithAHundredThousandRelationsOnOneTaskReadsAsManyAsTheirCounterFollows) {
    constexpr int kRelations = 100000;
    constexpr int kLastKey = 32767;
    constexpr int kLateItems = kLastKey - kLateKey + 1;
    String task = TaskText("1", "0", "1");
    String sections;
    for (const TiesRow& row : kTies) {
        String list, items, relations;
        for (int number = row.first; number < row.first + kRelations; ++number) {
            const String key = std::to_string(number);
            list += Replace(row.key, "#", key);
            relations += Replace(row.relation, "#", key);
            if (number <= kLastKey) items += Replace(row.item, "#", key);
        }
        task.insert(task.find(row.behind), KeyElement(row.list, list));
        sections += KeyElement(row.items, items) + KeyElement(row.relations, relations);
    }
    String bytes = FileOfTasks(task);
    bytes.insert(bytes.rfind("</Project>"), sections);
    HostileFiles files;
    const Outcome outcome = files.Open(bytes, "a hundred thousand relations");
    EXPECT_EQ(outcome.recorded,
              "TaskAssigmentRelationCol/FromXmlInt 6\nTaskGoalRelationCol/FromXmlInt 6\n"
              "TaskObstaclesRelationCol/FromXmlInt 6\nTaskNoteRelationCol/FromXmlInt 6\n"
              "TaskGoalRelationCol/Item 5\nTasksCls/SetGoalCollection 91\n"
              "TaskObstaclesRelationCol/Item 5\nTasksCls/SetObstaclesCollection 91\n");
    const Ref<TasksCls> read = files.tasks().Item("1");
    const auto& app = files.host().app;
    EXPECT_EQ(read->TaskPosition(), 1) << "what stands behind the lists";
    EXPECT_EQ(read->TaskPeopleRelation()->Count(), kRelations);
    EXPECT_EQ(read->TaskGoalRelation()->Count(), kRelations);
    EXPECT_EQ(read->TaskObstaclesRelation()->Count(), kRelations);
    EXPECT_EQ(read->TaskNoteRelation()->Count(), kRelations);
    EXPECT_EQ(read->TasksPeople()->Count(), kLastKey);
    EXPECT_EQ(read->TasksGoals()->Count(), kLateItems);
    EXPECT_EQ(read->TaskObstacles()->Count(), kLateItems);
    EXPECT_EQ(read->TaskNotes()->Count(), kLateItems);
    EXPECT_EQ(read->isAssigned(kLastKey), True);
    EXPECT_EQ(app->xPeopleCol()->Item(kLastKey)->Tasks()->Count(), 1);
    EXPECT_EQ(app->xGoalCol()->Item(kLastKey)->Tasks()->Count(), 1);
    EXPECT_EQ(app->xObstaclesCol()->Item(kLastKey)->Tasks()->Count(), 1);
}

}  // namespace
}  // namespace mrlxmlclass
