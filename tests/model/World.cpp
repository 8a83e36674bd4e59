#include "tests/model/World.h"

#include <algorithm>

#include "tests/model/Invariants.h"
#include "tests/model/Listener.h"
#include "tests/model/Span.h"

namespace mrlxmlclass::model {

World::World(const Setting& started_as) : setting(started_as), listener_(std::make_unique<Listener>(*this)) {
    if (setting.links) WithLinks();
    if (setting.silent) Silenced();
    Listen();
}

World::~World() {
    col().Events.Remove(*listener_);
    app->endreadonly();
}

void World::Listen() {
    col().AutoLink(setting.auto_link);
    col().Events.Add(*listener_);
}

Ref<TasksCls> World::Numbered(int number) const {
    const auto found = keys_.find(number);
    return found == keys_.end() ? Ref<TasksCls>() : col().Item(found->second);
}

std::vector<int> World::Numbers(Boolean in_outline) const {
    std::vector<int> numbers;
    for (const auto& [number, key] : keys_) {
        if (const Ref<TasksCls> task = col().Item(key); task && task->TaskCondidat() == in_outline) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

void World::ForgetGone() {
    std::erase_if(keys_, [&](const auto& entry) { return !col().Item(entry.second); });
}

std::vector<Ref<TasksCls>> World::Rows() const {
    std::vector<Ref<TasksCls>> rows;
    for (const auto& entry : col().NewEnum()) {
        if (entry.item->TaskCondidat()) rows.push_back(entry.item);
    }
    std::ranges::stable_sort(rows, {}, [](const auto& task) { return task->TaskPosition().value(); });
    return rows;
}

std::vector<Ref<TasksCls>> World::Block(const TasksCls& task) const {
    std::vector<Ref<TasksCls>> block;
    std::set<std::int64_t> keys{task.TaskKey()};
    for (const Ref<TasksCls>& row : Rows()) {
        if (row->TaskKey() != task.TaskKey() && !keys.contains(row->ParentID())) continue;
        keys.insert(row->TaskKey());
        block.push_back(row);
    }
    return block;
}

std::vector<Ref<TasksCls>> World::Siblings(const TasksCls& task) const {
    std::vector<Ref<TasksCls>> siblings = Rows();
    std::erase_if(siblings, [&](const auto& row) { return row->ParentID() != task.ParentID(); });
    return siblings;
}

Ref<TasksCls> World::Neighbour(const TasksCls& task, int places) const {
    const std::vector<Ref<TasksCls>> siblings = Siblings(task);
    const auto self = std::ranges::find(siblings, task.TaskKey(), [](const auto& row) { return row->TaskKey(); });
    const auto place = self - siblings.begin() + places;
    const bool there = place >= 0 && place < std::ssize(siblings);
    return there ? siblings[static_cast<std::size_t>(place)] : Ref<TasksCls>();
}

void World::PutRowsBehind(const TasksCls& task, const TasksCls& other) {
    const std::vector<Ref<TasksCls>> moved = Block(task);
    const auto moves = [&](const Ref<TasksCls>& row) { return std::ranges::find(moved, row) != moved.end(); };
    std::vector<Ref<TasksCls>> passed = Block(other);
    std::erase_if(passed, moves);  // it may be one of the children
    std::vector<Ref<TasksCls>> rows = Rows();
    std::erase_if(rows, moves);
    rows.insert(std::next(std::ranges::find(rows, passed.back())), moved.begin(), moved.end());
    Long place = 0;
    for (const Ref<TasksCls>& row : rows) row->TaskPosition(place += 1);
}

void World::Complain(std::string_view check, const String& text) {
    if (!complaint_) complaint_ = Complaint{check, text};
}

SavedPlan World::Saved() {
    // A file of its own each time: writing over one waits for the disk.
    const String name = "plan" + std::to_string(++files_) + ".prx";
    app->xFileName(platform.Path(name));
    if (!app->SaveXml()) Complain("save", "the plan was not saved");
    SavedPlan saved = ReadSaved(platform.Read(name));
    for (const auto& entry : col().NewEnum()) {
        const String untold = Untold(saved, *entry.item);
        if (!untold.empty()) Complain("save", "the file does not tell " + untold);
    }
    return saved;
}

void World::SaveLoadSave() {
    const SavedPlan first = Saved();
    col().Events.Remove(*listener_);
    const Boolean loaded = app->LoadXML();
    app->endreadonly();
    Listen();
    if (!loaded) return Complain("load", "what was saved does not load");
    if (!AnyUndated(*this) && col().Count(False) != 0 &&
        (Module().g_MinDate != FirstDay(*this) || Module().g_MaxDate != LastDay(*this))) {
        Complain("span", "a load finds another");
    }
    const String difference = Difference(first, Saved());
    if (!difference.empty()) Complain("save-load-save", difference);
}

}  // namespace mrlxmlclass::model
