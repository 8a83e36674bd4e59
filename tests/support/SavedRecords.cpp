#include "tests/support/SavedRecords.h"

#include <algorithm>

#include "mrlxmlclass/dom/Document.h"

namespace mrlxmlclass::testing {
namespace {

using Record = SavedRecords::Record;

/// The sections whose records have a key, and the element of that key.
const std::map<String, const char*> kKeyElements{
    {"Tasks", "TaskKey"},
    {"People", "Personkey"},
    {"TaskAssigmentRelations", "Key"},
    {"TaskGoalRelations", "Key"},
    {"TaskObstaclesRelations", "Key"},
    {"TaskNoteRelations", "Key"},
    {"Goals", "Goalkey"},
    {"Notes", "NoteKey"},
    {"Obstacles", "Obstacleskey"},
};

constexpr int kFirstYear = 2000;
constexpr int kLastYear = 2036;  // ten years on from the year of the tests' clock

std::vector<dom::Node> ElementsIn(dom::Node parent) {
    std::vector<dom::Node> elements;
    for (dom::Node child = parent.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == dom::Node::kElement) elements.push_back(child);
    }
    return elements;
}

void AddFields(dom::Node node, const String& path, Record& record) {
    const std::vector<dom::Node> elements = ElementsIn(node);
    for (const dom::Node& element : elements) {
        AddFields(element, (path.empty() ? "" : path + "/") + String(element.baseName()), record);
    }
    if (elements.empty() && !path.empty()) record.emplace_back(path, node.Text());
}

std::vector<String> SplitAtAny(const String& text, const char* separators) {
    std::vector<String> parts{""};
    for (const char letter : text) {
        if (String(separators).find(letter) != String::npos) {
            parts.emplace_back();
        } else {
            parts.back() += letter;
        }
    }
    return parts;
}

bool Weekend(Date day) {
    const int behind_a_monday = (day.number() - Date::Of(1900, 1, 1).number()) % 7;
    return behind_a_monday >= 5;
}

Date NextWeekday(Date day) {
    while (Weekend(day)) day = day + 1;
    return day;
}

/// The dates of a task as a load mends them: years that are out of measure, and an end before its start. The calendar
/// of the file is not read yet, so that Saturdays and Sundays alone are free.
void MendDates(SavedRecords& saved, const String& task, const char* written, const char* read) {
    const auto date_in = [&](const char* field) {
        const String* text = saved.Find(task, field);
        return text == nullptr ? Date() : ReadAs(written, *text);
    };
    const auto in_year = [](Date day, int year) {
        return NextWeekday(Date::Of(year, day.month(), day.day_of_month()));
    };
    Date start = date_in("TaskBDate");
    if (start.set() && start.year() > kLastYear) start = in_year(start, kLastYear);
    if (start.set() && start.year() < kFirstYear) start = in_year(start, kFirstYear);
    Date end = date_in("TaskEDate");
    if (end.set() && end.year() > kLastYear) end = in_year(end, kLastYear);
    if (end < start) {
        const String* days = saved.Find(task, "TaskDuration");
        end = NextWeekday(start + (days == nullptr ? 0 : std::stoi(*days)));
    }
    if (saved.Find(task, "TaskBDate") != nullptr) saved.Set(task, "TaskBDate", WrittenAs(read, start));
    if (saved.Find(task, "TaskEDate") != nullptr) saved.Set(task, "TaskEDate", WrittenAs(read, end));
}

String DaysRewritten(const String& days, const char* written, const char* read) {
    String text;
    for (const String& pair : SplitAtAny(days, ";")) {
        if (pair.empty()) continue;
        const String day = WrittenAs(read, ReadAs(written, pair.substr(0, pair.find(':'))));
        text += (text.empty() ? "" : ";") + day + ":" + day;
    }
    return text;
}

void ResetCalendar(SavedRecords& saved) {
    saved.Set("Calendar", "CalendarKey", "0");
    saved.Set("Calendar", "NonWorkingDays", "7:7;1:1");
    saved.Set("Calendar", "Holiday", "");
    saved.Set("Calendar", "ExceptionDay", "");
}

void ReadProject(SavedRecords& saved, const char* read) {
    saved.Set("Project", "ProjectCreationDate", WrittenAs(read, Date::Of(1899, 12, 30)));  // written, never read
    saved.Set("Project", "DateFormat", read);
}

void ReadTasks(SavedRecords& saved, const char* written, const char* read) {
    for (const String& task : saved.Of("Tasks")) {
        MendDates(saved, task, written, read);
        for (const char* links : {"TaskSuccessor", "TaskPredecessor"}) {
            const String* text = saved.Find(task, links);
            if (text != nullptr && text->empty()) saved.Drop(task, links);
        }
    }
}

}  // namespace

const String* SavedRecords::Find(const String& record, const String& field) const {
    const auto found = records.find(record);
    if (found == records.end()) return nullptr;
    const auto at = std::ranges::find(found->second, field, &Field::first);
    return at == found->second.end() ? nullptr : &at->second;
}

void SavedRecords::Set(const String& record, const String& field, const String& text) {
    Record& fields = records[record];
    const auto at = std::ranges::find(fields, field, &Field::first);
    if (at == fields.end()) {
        fields.emplace_back(field, text);
    } else {
        at->second = text;
    }
}

void SavedRecords::Drop(const String& record, const String& field) {
    std::erase_if(records[record], [&](const Field& each) {
        return each.first == field || (field.ends_with('/') && (each.first + "/").starts_with(field));
    });
}

void SavedRecords::Clear(const String& section) {
    for (const String& record : Of(section)) records.erase(record);
    order[section].clear();
}

std::vector<String> SavedRecords::Of(const String& section) const {
    std::vector<String> names;
    for (const auto& [name, record] : records) {
        if (name.starts_with(section + " ")) names.push_back(name);
    }
    return names;
}

SavedRecords RecordsIn(const String& file) {
    SavedRecords saved;
    const auto document = Make<dom::Document>();
    if (!document->LoadXML(file)) return saved;
    for (const dom::Node& section : ElementsIn(document->documentElement())) {
        const String name(section.baseName());
        const auto key = kKeyElements.find(name);
        if (key != kKeyElements.end()) {
            String& order = saved.order[name];
            for (const dom::Node& element : ElementsIn(section)) {
                const String text = element.selectSingleNode(key->second).Text();
                order += (order.empty() ? "" : " ") + text;
                AddFields(element, "", saved.records[name + " " + text]);
            }
        } else if (name == "Calendar") {
            AddFields(section, "", saved.records[name]);
        } else {
            saved.records["Project"].emplace_back(name, section.Text());
        }
    }
    return saved;
}

String Difference(const SavedRecords& expected, const SavedRecords& found) {
    String text;
    const auto shown = [](const Record& record) {
        String fields;
        for (const auto& [name, value] : record) fields += " " + name + "=\"" + value + "\"";
        return fields;
    };
    for (const auto& [name, record] : expected.records) {
        const auto other = found.records.find(name);
        if (other == found.records.end()) {
            text += name + " is gone\n";
        } else if (other->second != record) {
            text += name + " should be" + shown(record) + "\n  and is" + shown(other->second) + "\n";
        }
    }
    for (const auto& [name, record] : found.records) {
        if (!expected.records.contains(name)) text += name + " is new\n";
    }
    for (const auto& [section, keys] : expected.order) {
        if (section == "Tasks") continue;  // every save sorts them
        const auto other = found.order.find(section);
        if (other == found.order.end() || other->second != keys) text += section + " has another order\n";
    }
    return text;
}

String WrittenAs(const char* format, Date day) {
    String text;
    for (const char* at = format; *at != '\0';) {
        int length = 1;
        while (at[length] == *at) ++length;
        const int number = *at == 'd' ? day.day_of_month() : *at == 'M' ? day.month() : *at == 'y' ? day.year() : -1;
        if (number < 0) {
            text.append(at, static_cast<std::size_t>(length));
        } else {
            const String digits = std::to_string(number);
            text.append(static_cast<std::size_t>(std::max(0, length - static_cast<int>(digits.size()))), '0');
            text += digits;
        }
        at += length;
    }
    return text;
}

Date ReadAs(const char* format, const String& text) {
    const std::vector<String> letters = SplitAtAny(format, "/.-");
    const std::vector<String> numbers = SplitAtAny(text, "/.-");
    if (letters.size() != 3 || numbers.size() != 3) return {};
    std::map<char, int> parts;
    for (std::size_t i = 0; i < 3; ++i) parts[letters[i].front()] = std::stoi(numbers[i]);
    return Date::Of(parts['y'], parts['M'], parts['d']);
}

SavedRecords AfterALoad(SavedRecords saved, const char* written, const char* read) {
    ReadProject(saved, read);
    ReadTasks(saved, written, read);
    for (const char* days : {"Holiday", "ExceptionDay"}) {
        saved.Set("Calendar", days, DaysRewritten(*saved.Find("Calendar", days), written, read));
    }
    return saved;
}

SavedRecords AfterALoadOfTasks(const SavedRecords& saved, const char* written, const char* read) {
    SavedRecords after = AfterALoad(saved, written, read);
    for (const auto& [section, key] : kKeyElements) {
        if (section != "Tasks") after.Clear(section);
    }
    ResetCalendar(after);
    return after;
}

SavedRecords AfterALoadAsLibrary(SavedRecords saved, const char* read, bool only_tasks) {
    ReadProject(saved, read);
    for (const String& name : saved.Of("Tasks")) {
        Record kept;
        for (const SavedRecords::Field& field : saved.records[name]) {
            constexpr const char* kKept[] = {"ProjectID",     "ParentID", "TaskType", "TaskCondidat",
                                             "TaskMilstones", "TaskKey",  "TaskName", "TaskPosition"};
            if (std::ranges::find(kKept, field.first) != std::end(kKept)) kept.push_back(field);
            // What is written whether it was set or not stands at its default.
            if (field.first == "TaskStatusKey") kept.emplace_back("TaskStatusKey", "0");
            if (field.first == "TaskLeadTime") kept.emplace_back("TaskLeadTime", "");
        }
        saved.records[name] = kept;
    }
    for (const char* section :
         {"TaskAssigmentRelations", "TaskGoalRelations", "TaskObstaclesRelations", "TaskNoteRelations", "Notes"}) {
        saved.Clear(section);
    }
    if (only_tasks) {
        for (const char* section : {"People", "Goals", "Obstacles"}) saved.Clear(section);
    }
    for (const String& person : saved.Of("People")) saved.Drop(person, "PeopleTaskRelationKeys/");
    for (const String& goal : saved.Of("Goals")) {
        for (const char* field : {"GoalLink", "GoalDescription", "GoalTaskRelationKeys/"}) saved.Drop(goal, field);
    }
    for (const String& obstacle : saved.Of("Obstacles")) {
        for (const char* field : {"ObstaclesLink", "ObstaclesDescription", "ObstaclesTaskRelationKeys/"}) {
            saved.Drop(obstacle, field);
        }
    }
    ResetCalendar(saved);
    return saved;
}

}  // namespace mrlxmlclass::testing
