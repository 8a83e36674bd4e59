#include "prx/LostRecords.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <unordered_map>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/SafeFile.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Project.h"
#include "prx/Terminal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// A section of the file and what of it is in memory.
struct HeldSection {
    const char* section;
    const char* record;
    const char* key;
    std::int64_t count;
    std::function<void(const Ref<dom::Document>&, dom::Node)> write;
};

template <class Records>
HeldSection Held(const char* section, const char* record, const char* key, const Ref<Records>& records) {
    return {section, record, key, records->Count(),
            [records](const Ref<dom::Document>& document, dom::Node element) { records->ToXmlInt(document, element); }};
}

/// A note without a key cannot be written; what else it holds is told all the same.
void WriteNotes(const Ref<NotesCol>& notes, const Ref<dom::Document>& document, dom::Node element) {
    for (const auto& entry : notes->NewEnum()) {
        const Ref<NotesCls> note = entry.item->Clone();
        if (note->NoteKey().empty()) note->NoteKey("0");
        note->ToXmlInt(document, document->AppendElement(element, "Note"));
    }
}

std::vector<HeldSection> HeldSections(Application& app) {
    const Ref<TasksCol> tasks = app.xTaskCol();
    const Ref<NotesCol> notes = app.xNoteCol();
    return {{"Tasks", "Task", "TaskKey", tasks->Count(/*p_all=*/True),
             [tasks](const Ref<dom::Document>& document, dom::Node element) { tasks->ToXmlInt(document, element); }},
            Held("People", "Person", "Personkey", app.xPeopleCol()),
            Held("TaskAssigmentRelations", "TaskAssigmentRelation", "Key", app.xTaskPeopleRelationcol()),
            Held("TaskGoalRelations", "TaskGoalRelation", "Key", app.xTaskGoalRelationcol()),
            Held("TaskObstaclesRelations", "TaskObstaclesRelation", "Key", app.xTaskObstaclesRelationcol()),
            Held("TaskNoteRelations", "TaskNoteRelation", "Key", app.xTaskNotesRelationcol()),
            Held("Goals", "Goal", "Goalkey", app.xGoalCol()),
            {"Notes", "Note", "NoteKey", notes->Count(),
             [notes](const Ref<dom::Document>& document, dom::Node element) { WriteNotes(notes, document, element); }},
            Held("Obstacles", "Obstacle", "Obstacleskey", app.xObstaclesCol())};
}

/// The names of the elements that a reader takes, in their order, by what a save would write: each that was read is
/// among them.
std::vector<std::string> ReadableIn(dom::Node written) {
    std::vector<std::string> names;
    ForEachElement(written, [&](dom::Node element) { names.emplace_back(element.baseName()); });
    // What says nothing is read and not written.
    const auto before = [&](std::string_view next, const char* name) {
        const auto place = std::ranges::find(names, next);
        if (place != names.end() && std::ranges::find(names, name) == names.end()) names.insert(place, name);
    };
    before("TaskLeadTime", "TaskPredecessor");
    before("TaskPredecessor", "TaskSuccessor");
    if (written.baseName() == "Task") names.emplace_back("PredecessorDirty");
    if (const auto name = std::ranges::find(names, "PersonName"); name != names.end()) {
        names.insert(std::next(name), "PersonFirstName");
    }
    return names;
}

/// Compares one record with what a save would write of it.
class RecordLosses {
public:
    RecordLosses(std::string title, std::vector<std::string>& lines) : title_(std::move(title)), lines_(lines) {}

    void Compare(const std::vector<dom::Node>& elements, dom::Node written) {
        const std::vector<std::string> readable = ReadableIn(written);
        auto next = readable.begin();
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const auto place = std::find(next, readable.end(), elements[i].baseName());
            if (place == readable.end())
                return TellWhereItEnded({elements.begin() + std::ptrdiff_t(i), elements.end()});
            next = std::next(place);
            LookInto(elements[i]);
        }
    }

    /// Nobody reads what stands between the elements.
    void LookBetween(dom::Node parent, const std::string& where = {}) {
        constexpr int kText = 3;
        constexpr int kCharacterData = 4;
        constexpr std::size_t kWidest = 40;
        constexpr const char* kNoBreakSpace = "\xC2\xA0";
        constexpr const char* kBlanks = " \t\r\n";
        for (dom::Node child = parent.firstChild(); child; child = child.nextSibling()) {
            if (child.nodeType() != kText && child.nodeType() != kCharacterData) continue;
            std::string text = Replace(child.Text(), kNoBreakSpace, " ");
            text.erase(0, text.find_first_not_of(kBlanks));
            text.erase(text.find_last_not_of(kBlanks) + 1);
            if (!text.empty()) Tell(fmt::format("the text \"{}\"{}", CutTo(text, kWidest), where));
        }
    }

    void Tell(const std::string& element) {
        lines_.push_back(fmt::format("{}: {} was not read", Plain(title_), Plain(element)));
    }

private:
    void TellWhereItEnded(const std::vector<dom::Node>& unread) {
        constexpr std::size_t kWidest = 60;
        Tell(std::string(unread.front().baseName()));
        if (unread.size() == 1) return;
        std::vector<std::string_view> behind;
        for (std::size_t i = 1; i < unread.size(); ++i) behind.push_back(unread[i].baseName());
        lines_.back() += fmt::format(", nor what stands behind it: {}",
                                     Plain(CutTo(fmt::format("{}", fmt::join(behind, ", ")), kWidest)));
    }

    void LookInto(dom::Node element) {
        if (element.baseName() == "PersonFirstName" && !element.Text().empty()) Tell("PersonFirstName");
        const bool keys = element.baseName().ends_with("Keys");
        if (keys) LookBetween(element, fmt::format(" inside of {}", element.baseName()));
        ForEachElement(element, [&](dom::Node inside) {
            if (keys && (inside.baseName() == "Key" || inside.baseName() == "tKey")) return;
            Tell(fmt::format("{} inside of {}", inside.baseName(), element.baseName()));
        });
    }

    std::string title_;
    std::vector<std::string>& lines_;
};

std::vector<dom::Node> ElementsIn(dom::Node parent) {
    std::vector<dom::Node> elements;
    ForEachElement(parent, [&](dom::Node element) { elements.push_back(element); });
    return elements;
}

/// The number that a reader makes of a task's key; 0 where it makes none.
std::int64_t TaskKeyIn(dom::Node record) {
    return FailureTail("prx").Silent().Run<Long>("TaskKeyIn", [&](Long& result) {
        result = Conversions::StringToLong(record.selectSingleNode("TaskKey").Text());
    });
}

/// What was written of the records of a section, to be found by the records of the file. They were read one behind the
/// other, up to the first that failed; only the tasks are in another order since.
class WrittenRecords {
public:
    explicit WrittenRecords(dom::Node section) : by_place_(ElementsIn(section)) {
        if (section.baseName() != "Tasks") return;
        for (const dom::Node record : by_place_) by_task_.emplace(TaskKeyIn(record), record);
    }

    /// Null for one that was not read; each is given once.
    dom::Node Take(dom::Node record, std::size_t place) {
        if (record.baseName() != "Task") return place < by_place_.size() ? by_place_[place] : dom::Node();
        for (const std::int64_t key : {TaskKeyIn(record), std::int64_t{0}}) {
            if (const auto found = by_task_.extract(key)) return found.mapped();
        }
        return {};
    }

private:
    std::vector<dom::Node> by_place_;
    std::unordered_map<std::int64_t, dom::Node> by_task_;
};

/// The file and what is in memory of it, compared.
class FileLosses {
public:
    FileLosses(Application& app, dom::Node root) : app_(app), root_(root), sections_(HeldSections(app)) {}

    std::vector<std::string> Look() {
        for (const HeldSection& held : sections_) CompareCounts(held);
        written_->LoadXML("<Written/>");
        for (const HeldSection& held : sections_) CompareRecords(held);
        CompareRoot();
        const dom::Node calendar = Written("Calendar");
        app_.xCalendar()->ToXmlInt(written_, calendar);
        CompareRecord("Calendar", root_.selectSingleNode("Calendar"), calendar);
        CompareDays();
        return std::move(lines_);
    }

private:
    dom::Node Written(const char* name) { return written_->AppendElement(written_->documentElement(), name); }

    void CompareCounts(const HeldSection& held) {
        std::int64_t sections = 0;
        std::int64_t in_file = 0;
        ForEachElement(root_, held.section, [&](dom::Node section) {
            ++sections;
            ForEachElement(section, held.record, [&](dom::Node) { ++in_file; });
        });
        if (sections > 1) lines_.push_back(fmt::format("the section {} stands {} times", held.section, sections));
        if (in_file > held.count) {
            lines_.push_back(
                fmt::format("{} of {} records in {} could not be read", in_file - held.count, in_file, held.section));
        }
    }

    void CompareRecords(const HeldSection& held) {
        const dom::Node section = Written(held.section);
        held.write(written_, section);
        WrittenRecords written(section);
        std::size_t place = 0;
        bool ended = false;
        const dom::Node in_file = root_.selectSingleNode(held.section);
        RecordLosses(held.section, lines_).LookBetween(in_file);
        ForEachElement(in_file, [&](dom::Node record) {
            if (record.baseName() != held.record) {
                return RecordLosses(held.section, lines_).Tell(std::string(record.baseName()));
            }
            const dom::Node read = written.Take(record, place++);
            const String key = record.selectSingleNode(held.key).Text();
            const std::string title = fmt::format("{} {}", held.record, Trim(key));
            if (read) return CompareRecord(title, record, read);
            if (!ended)
                lines_.push_back(fmt::format("{}: {} is the first that could not be read", held.section, Plain(title)));
            ended = true;  // the others are counted
        });
    }

    void CompareRecord(std::string title, dom::Node record, dom::Node written) {
        RecordLosses losses(std::move(title), lines_);
        losses.LookBetween(record);
        losses.Compare(ElementsIn(record), written);
    }

    /// A list ends where one of its days cannot be read, and all behind it are lost, whatever list they are in.
    void CompareDays() {
        const CalendarCls& calendar = *app_.xCalendar();
        const std::pair<const char*, Ref<Dictionary>> lists[] = {{"NonWorkingDays", calendar.NonWorkingDay()},
                                                                 {"Holiday", calendar.Holiday()},
                                                                 {"ExceptionDay", calendar.ExceptionDay()}};
        for (const auto& [name, held] : lists) {
            const auto in_file = Split(root_.selectSingleNode("Calendar").selectSingleNode(name).Text(), ";");
            const auto lost = static_cast<std::int64_t>(in_file.size()) - held->Count();
            if (lost > 0) {
                lines_.push_back(fmt::format("{} of {} days in {} could not be read", lost, in_file.size(), name));
            }
            for (const String& day : in_file) {
                constexpr std::size_t kHalves = 2;
                if (Split(day, ":").size() <= kHalves) continue;
                RecordLosses("Calendar", lines_).Tell(fmt::format("the end of \"{}\" in {}", CutTo(day, 60), name));
            }
        }
    }

    /// The project's own fields stand before the sections.
    void CompareRoot() {
        RecordLosses losses("Project", lines_);
        losses.LookBetween(root_);
        const dom::Node project = Written("Project");
        app_.xProject()->ToXmlInt(written_, project);
        std::vector<dom::Node> elements = ElementsIn(root_);
        const auto fields_end = std::ranges::find_if(elements, [&](dom::Node element) { return IsSection(element); });
        losses.Compare({elements.begin(), fields_end}, project);
        for (auto element = fields_end; element != elements.end(); ++element) {
            if (!IsSection(*element)) losses.Tell(std::string(element->baseName()));
        }
    }
    bool IsSection(dom::Node element) const {
        return element.baseName() == "Calendar" || std::ranges::any_of(sections_, [&](const HeldSection& held) {
                   return element.baseName() == held.section;
               });
    }

    Application& app_;
    dom::Node root_;
    std::vector<HeldSection> sections_;
    Ref<dom::Document> written_ = Make<dom::Document>();
    std::vector<std::string> lines_;
};

}  // namespace

std::string PassedBy(const Project& project) {
    constexpr int kInstruction = 7;
    constexpr int kComment = 8;
    std::int64_t comments = 0;
    std::int64_t instructions = 0;
    std::int64_t attributes = 0;
    const dom::Node whole = project.root().parentNode();
    for (dom::Node node = whole.firstChild(); node && node != whole;) {
        comments += node.nodeType() == kComment ? 1 : 0;
        instructions += node.nodeType() == kInstruction && node.baseName() != "xml" ? 1 : 0;
        if (node.nodeType() == dom::Node::kElement) attributes += node.attributeCount();
        dom::Node next = node.firstChild();
        while (!next && node != whole) {
            next = node.nextSibling();
            node = node.parentNode();
        }
        node = next ? next : whole;
    }
    if (project.root().selectSingleNode("Tasks").HasAttribute("scheduler")) attributes -= 1;
    std::vector<std::string> found;
    for (const auto& [count, name] :
         {std::pair(comments, "comment"), std::pair(instructions, "instruction"), std::pair(attributes, "attribute")}) {
        if (count > 0) found.push_back(fmt::format("{} {}{}", count, name, count == 1 ? "" : "s"));
    }
    return fmt::format("{}", fmt::join(found, ", "));
}

std::vector<std::string> LostRecords(const Project& project) {
    std::vector<std::string> lines;
    for (const auto& entry : MissingSections(project.path())->Snapshot()) {
        lines.push_back(fmt::format("the section {} is missing: a save was interrupted, or it was taken out",
                                    entry.item.As<String>()));
    }
    const std::vector<std::string> more = FileLosses(project.app(), project.root()).Look();
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

}  // namespace prx
