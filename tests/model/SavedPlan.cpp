#include "tests/model/SavedPlan.h"

#include <algorithm>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass::model {
namespace {

using Record = SavedPlan::Record;

constexpr int kFirstYear = 2000;

/// Every element that has no elements in it, under the names that lead to it.
void AddFields(dom::Node node, const String& path, Record& record) {
    bool has_elements = false;
    for (dom::Node child = node.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() != dom::Node::kElement) continue;
        has_elements = true;
        AddFields(child, path + "/" + String(child.baseName()), record);
    }
    if (!has_elements) record.emplace_back(path, node.Text());
}

Date DateIn(const Record& record, std::string_view name) {
    const auto found = std::ranges::find(record, name, &SavedPlan::Field::first);
    return found == record.end() ? Date() : Conversions::StringToDate(found->second);
}

/// The record as it reads after a load.
Record Mended(Record record, const Record& loaded) {
    const Date start = DateIn(record, "/TaskBDate");
    const Date end = DateIn(record, "/TaskEDate");
    const auto beyond = [](Date date) { return date.set() && date.year() > MaxYear(); };
    const bool start_mended = beyond(start) || (start.set() && start.year() < kFirstYear);
    for (auto& [name, text] : record) {
        const bool mended = (name == "/TaskBDate" && start_mended) ||
                            (name == "/TaskEDate" && (start_mended || beyond(end) || end < start));
        if (!mended) continue;
        const auto found = std::ranges::find(loaded, name, &SavedPlan::Field::first);
        if (found != loaded.end()) text = found->second;
    }
    std::erase_if(record, [](const SavedPlan::Field& field) {
        return field.second.empty() && (field.first == "/TaskSuccessor" || field.first == "/TaskPredecessor");
    });
    return record;
}

/// The fields that a task has, as the file writes them.
Record Held(TasksCls& task) {
    using namespace Conversions;
    const auto in = In(task);
    Record held{{"/TaskName", task.TaskName()},
                {"/TaskType", BooleanToString(task.TaskType())},
                {"/TaskCondidat", BooleanToString(task.TaskCondidat())},
                {"/TaskMilstones", BooleanToString(task.TaskMilstones())}};
    const auto add = [&](bool has, const char* name, const String& text) {
        if (has) held.emplace_back(name, text);
    };
    add(task.ParentID() != 0, "/ParentID", LongToString(task.ParentID()));
    add(bool(task.TaskBDateValid()), "/TaskBDate", DateToString(task.TaskBDate()));
    add(bool(task.TaskEDateValid()), "/TaskEDate", DateToString(task.TaskEDate()));
    add(bool(task.TaskDurationValid()), "/TaskDuration", DoubleToString(task.TaskDuration()));
    add(task.TaskLag() != 0, "/TaskLag", LongToString(task.TaskLag()));
    add(task.TaskPercentDone() != 0, "/TaskPercentDone", LongToString(task.TaskPercentDone()));
    add(task.TaskPosition() != 0, "/TaskPosition", LongToString(task.TaskPosition()));
    add(task.TaskCost() != Currency(0), "/TaskCost", CurrencyToString(task.TaskCost()));
    add(task.TaskCostUp() != Currency(0), "/TaskCostUp", CurrencyToString(task.TaskCostUp()));
    if (!Module().BVersion) return held;
    const auto add_links = [&](const char* name, const Ref<Collection>& keys) {
        if (keys) add(keys->Count() > 0, name, CreateSucessorString(keys));
    };
    add_links("/TaskSuccessor", in.PeekSuccessor());
    add_links("/TaskPredecessor", in.PeekPredecessor());
    add(true, "/TaskLeadTime", CreateLeadTimeAsString(in.PeekLeadTime()));
    return held;
}

String Shown(const Record& record) {
    String text;
    for (const auto& [name, value] : record) text += name + "=" + value + " ";
    return text;
}

}  // namespace

SavedPlan ReadSaved(const String& file) {
    SavedPlan plan;
    const auto document = Make<dom::Document>();
    if (!document->LoadXML(file)) return plan;
    for (dom::Node section = document->documentElement().firstChild(); section; section = section.nextSibling()) {
        const String name(section.baseName());
        if (section.selectSingleNode("Task")) {
            for (dom::Node task = section.firstChild(); task; task = task.nextSibling()) {
                AddFields(task, "", plan.records["Task " + task.selectSingleNode("TaskKey").Text()]);
            }
        } else {
            AddFields(section, "", plan.records[name]);
        }
    }
    return plan;
}

String Untold(const SavedPlan& plan, TasksCls& task) {
    const String key = "Task " + KeyText(task.TaskKey()).text();
    const auto record = plan.records.find(key);
    if (record == plan.records.end()) return key;
    for (const SavedPlan::Field& field : Held(task)) {
        if (std::ranges::find(record->second, field) == record->second.end()) return key + field.first;
    }
    return {};
}

String Difference(const SavedPlan& first, const SavedPlan& second) {
    if (first.records.empty()) return "the file could not be read";
    for (const auto& [key, record] : first.records) {
        const auto found = second.records.find(key);
        if (found == second.records.end()) return key + " is gone";
        const Record expected = key.starts_with("Task ") ? Mended(record, found->second) : record;
        if (found->second != expected) return key + " was " + Shown(expected) + "\n  and is " + Shown(found->second);
    }
    for (const auto& [key, record] : second.records) {
        if (!first.records.contains(key)) return key + " is new";
    }
    return {};
}

}  // namespace mrlxmlclass::model
