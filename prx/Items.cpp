#include "prx/Items.h"

#include <fmt/core.h>

#include <unordered_map>
#include <unordered_set>

#include "mrlxmlclass/runtime/Text.h"
#include "prx/Edit.h"
#include "prx/Kinds.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

template <class K>
Ref<typename K::Record> Find(Application& app, const std::string& key) {
    for (const auto& entry : K::All(app)->NewEnum()) {
        if (K::KeyOf(*entry.item) == key) return entry.item;
    }
    return {};
}

/// The keys of the relations between a task and an item; there should be one at most.
template <class K>
std::vector<std::string> TiesBetween(Application& app, Long task, const std::string& item) {
    std::vector<std::string> keys;
    for (const auto& entry : K::Ties(app)->NewEnum()) {
        if (entry.item->TaskKey() == task && K::ItemOf(*entry.item) == item) keys.push_back(entry.item->elementKey());
    }
    return keys;
}

/// Takes one tie off on every side: the library leaves some of them to its host.
template <class K>
void Untie(Application& app, const Ref<TasksCls>& task, const std::string& item_key, const std::string& tie) {
    const Ref<typename K::Record> item = Find<K>(app, item_key);
    if (item) K::Untie(app, *task, *item);
    if (Holds(K::Listed(*task), tie)) K::TakeOffTask(app, KeyOf(*task), tie, item_key);
    if (item && Holds(K::Listed(*item), tie)) K::Listed(*item)->Remove(tie);
    if (Holds(K::Ties(app), tie)) K::Ties(app)->Remove(tie);
}

/// Work beside the outline goes with the last thing that it is tied to: nothing else shows it.
void RemoveWhatNothingLists(const Project& project, const std::vector<Ref<TasksCls>>& untied) {
    std::vector<Ref<TasksCls>> beside;
    for (const Ref<TasksCls>& task : untied) {
        if (!task->TaskCondidat() && !project.tasks()->isParent(KeyOf(*task))) beside.push_back(task);
    }
    if (beside.empty()) return;
    std::unordered_set<std::int64_t> tied;
    for (const Kind kind : kKinds) {
        With(kind, [&]<class K>(K) {
            for (const auto& entry : K::Ties(project.app())->NewEnum()) tied.insert(entry.item->TaskKey());
        });
    }
    for (const Ref<TasksCls>& task : beside) {
        if (!tied.contains(task->TaskKey())) RemoveTask(project, task);
    }
}

/// A note stands at one task.
template <class K>
void RefuseSecondTask(Application& app, const std::string& item_key) {
    if constexpr (K::kKind == Kind::kNote) {
        for (const auto& entry : K::Ties(app)->NewEnum()) {
            if (K::ItemOf(*entry.item) != item_key) continue;
            throw Refusal(fmt::format("task {} has that note; unassign it there first", entry.item->TaskKey().value()));
        }
    }
}

/// Of keys that were wanted and not given: refuses in plain words where the last one of their kind is taken.
template <class Records, class KeyOfRecord>
void RefuseWhenFull(const Project& project, const Ref<Records>& records, const char* kind, KeyOfRecord&& key_of) {
    if (project.FailuresSince().empty()) return;
    constexpr int kLastKey = 32767;
    for (const auto& entry : records->NewEnum()) {
        if (KeyNumber(key_of(*entry.item)) != kLastKey) continue;
        throw Refusal(fmt::format("the plan is full: one {} has the key {}, the last that there is", kind, kLastKey));
    }
}

std::string Named(const std::string& kind, const std::string& name) {
    constexpr std::size_t kWidest = 60;
    return fmt::format("{} \"{}\"", kind, Plain(CutTo(name, kWidest)));
}

}  // namespace

std::string NameOf(Kind kind) {
    return With(kind, [](auto k) { return std::string(k.kName); });
}

std::string PluralOf(Kind kind) {
    return With(kind, [](auto k) { return std::string(k.kPlural); });
}

Kind ReadKind(std::string_view text) {
    for (const Kind kind : kKinds) {
        if (text == NameOf(kind)) return kind;
    }
    throw Refusal(fmt::format("\"{}\" is no kind of item; there are person, goal, obstacle and note", Plain(text)));
}

std::vector<ItemField> FieldsOf(Kind kind) {
    return With(kind, [](auto k) {
        std::vector<ItemField> fields;
        for (const auto& field : k.kFields) fields.push_back(field.shown);
        return fields;
    });
}

std::vector<ItemRow> ItemsOf(const Project& project, Kind kind) {
    return With(kind, [&]<class K>(K) {
        std::vector<ItemRow> rows;
        for (const auto& entry : K::All(project.app())->NewEnum()) {
            ItemRow row{K::KeyOf(*entry.item), K::NameOf(*entry.item), {}, {}};
            for (const auto& field : K::kFields) row.fields.push_back(field.get(*entry.item));
            rows.push_back(std::move(row));
        }
        std::unordered_map<std::string, ItemRow*> by_key;
        for (ItemRow& row : rows) by_key.emplace(row.key, &row);
        for (const auto& entry : K::Ties(project.app())->NewEnum()) {
            const auto row = by_key.find(K::ItemOf(*entry.item));
            if (row != by_key.end()) row->second->tasks.push_back(entry.item->TaskKey());
        }
        return rows;
    });
}

std::vector<ItemOn> ItemsOn(TasksCls& task, Kind kind) {
    return With(kind, [&]<class K>(K) {
        std::vector<ItemOn> items;
        for (const auto& entry : K::Copies(task)->NewEnum()) {
            items.push_back({K::KeyOf(*entry.item), K::NameOf(*entry.item)});
        }
        return items;
    });
}

std::string FindItem(const Project& project, Kind kind, const std::string& text, const Ref<TasksCls>& of) {
    if (text.empty())
        throw Refusal(fmt::format("name a {} by its key or {}", NameOf(kind), kind == Kind::kNote ? "text" : "name"));
    return With(kind, [&]<class K>(K) {
        if (const auto item = Find<K>(project.app(), text)) return K::KeyOf(*item);
        std::vector<std::string> named;
        std::vector<std::string> of_task;
        for (const auto& entry : K::All(project.app())->NewEnum()) {
            if (K::NameOf(*entry.item) != text) continue;
            named.push_back(K::KeyOf(*entry.item));
            if (of && !TiesBetween<K>(project.app(), of->TaskKey(), named.back()).empty()) {
                of_task.push_back(named.back());
            }
        }
        const std::vector<std::string>& found = of_task.empty() ? named : of_task;
        if (found.empty()) throw Refusal(fmt::format("there is no {}", Named(K::kName, text)));
        if (found.size() > 1) {
            throw Refusal(fmt::format("there is more than one {}; give its key instead", Named(K::kName, text)));
        }
        return found.front();
    });
}

std::string AddItem(const Project& project, Kind kind, const std::string& name,
                    const std::vector<std::string>& fields) {
    return With(kind, [&]<class K>(K) {
        const auto item = K::Add(project.app(), name);
        RefuseWhenFull(project, K::All(project.app()), K::kName, K::KeyOf);
        if (!item) throw Refusal(fmt::format("the library could not make a new {}", K::kName));
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (!fields[i].empty()) K::kFields[i].set(*item, fields[i]);
        }
        return K::KeyOf(*item);
    });
}

void RemoveItem(const Project& project, Kind kind, const std::string& key) {
    With(kind, [&]<class K>(K) {
        Application& app = project.app();
        std::vector<Ref<TasksCls>> untied;
        for (const auto& entry : K::Ties(app)->NewEnum()) {
            if (K::ItemOf(*entry.item) != key) continue;
            if (const Ref<TasksCls> task = project.tasks()->Item(entry.item->TaskKey())) {
                Untie<K>(app, task, key, entry.item->elementKey());
                untied.push_back(task);
            } else {
                K::Ties(app)->Remove(entry.item->elementKey());
            }
        }
        K::Remove(app, key);
        RemoveWhatNothingLists(project, untied);
    });
}

void Assign(const Project& project, const Ref<TasksCls>& task, Kind kind, const std::string& key) {
    With(kind, [&]<class K>(K) {
        Application& app = project.app();
        const auto item = Find<K>(app, key);
        if (!TiesBetween<K>(app, task->TaskKey(), key).empty()) {
            throw Refusal(fmt::format("{} has the {} already", Named("task", task->TaskName()),
                                      Named(K::kName, K::NameOf(*item))));
        }
        RefuseSecondTask<K>(app, key);
        K::Tie(app, *task, *item);
        RefuseWhenFull(project, K::Ties(app), K::kRelation, [](const auto& tie) { return tie.elementKey(); });
    });
}

void Unassign(const Project& project, const Ref<TasksCls>& task, Kind kind, const std::string& key) {
    With(kind, [&]<class K>(K) {
        const std::vector<std::string> ties = TiesBetween<K>(project.app(), task->TaskKey(), key);
        if (ties.empty()) {
            throw Refusal(fmt::format("{} does not have the {}", Named("task", task->TaskName()),
                                      Named(K::kName, K::NameOf(*Find<K>(project.app(), key)))));
        }
        for (const std::string& tie : ties) Untie<K>(project.app(), task, key, tie);
    });
    RemoveWhatNothingLists(project, {task});
}

void UnassignAll(const Project& project, const std::vector<Ref<TasksCls>>& tasks) {
    std::unordered_map<std::int64_t, Ref<TasksCls>> by_key;
    for (const Ref<TasksCls>& task : tasks) by_key.emplace(task->TaskKey(), task);
    for (const Kind kind : kKinds) {
        With(kind, [&]<class K>(K) {
            for (const auto& entry : K::Ties(project.app())->NewEnum()) {
                const auto task = by_key.find(entry.item->TaskKey());
                if (task == by_key.end()) continue;
                Untie<K>(project.app(), task->second, K::ItemOf(*entry.item), entry.item->elementKey());
            }
            for (const Ref<TasksCls>& task : tasks) {  // keys that lead nowhere go, too
                if (K::Listed(*task)) K::List(*task, Make<typename K::Relations>());
            }
        });
    }
}

}  // namespace prx
