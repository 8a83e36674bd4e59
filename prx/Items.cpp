#include "prx/Items.h"

#include <fmt/core.h>

#include <unordered_map>

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

/// Unties on every side: the library leaves some of them to its host.
template <class K>
void Untie(Application& app, const Ref<TasksCls>& task, const std::string& item_key) {
    const Ref<typename K::Record> item = Find<K>(app, item_key);
    const std::string task_key = KeyOf(*task);
    for (const std::string& tie : TiesBetween<K>(app, task->TaskKey(), item_key)) {
        if (item) K::Untie(app, *task, *item);
        if (Holds(K::Listed(*task), tie)) K::TakeOffTask(app, task_key, tie, item_key);
        if (item && Holds(K::Listed(*item), tie)) K::Listed(*item)->Remove(tie);
        if (Holds(K::Ties(app), tie)) K::Ties(app)->Remove(tie);
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

std::vector<std::string> NamesOn(TasksCls& task, Kind kind) {
    return With(kind, [&]<class K>(K) {
        std::vector<std::string> names;
        for (const auto& entry : K::Copies(task)) names.push_back(K::NameOf(*entry.item));
        return names;
    });
}

std::string FindItem(const Project& project, Kind kind, const std::string& text) {
    return With(kind, [&]<class K>(K) {
        if (const auto item = Find<K>(project.app(), text)) return K::KeyOf(*item);
        std::string found;
        for (const auto& entry : K::All(project.app())->NewEnum()) {
            if (K::NameOf(*entry.item) != text) continue;
            if (!found.empty()) {
                throw Refusal(fmt::format("there is more than one {}; give its key instead", Named(K::kName, text)));
            }
            found = K::KeyOf(*entry.item);
        }
        if (found.empty()) throw Refusal(fmt::format("there is no {}", Named(K::kName, text)));
        return found;
    });
}

std::string AddItem(const Project& project, Kind kind, const std::string& name,
                    const std::vector<std::string>& fields) {
    return With(kind, [&]<class K>(K) {
        const auto item = K::Add(project.app(), name);
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
        for (const auto& entry : K::Ties(app)->NewEnum()) {
            if (K::ItemOf(*entry.item) != key) continue;
            if (const Ref<TasksCls> task = project.tasks()->Item(entry.item->TaskKey())) {
                Untie<K>(app, task, key);
            } else {
                K::Ties(app)->Remove(entry.item->elementKey());
            }
        }
        K::Remove(app, key);
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
    });
}

void Unassign(const Project& project, const Ref<TasksCls>& task, Kind kind, const std::string& key) {
    With(kind, [&]<class K>(K) {
        if (TiesBetween<K>(project.app(), task->TaskKey(), key).empty()) {
            throw Refusal(fmt::format("{} does not have the {}", Named("task", task->TaskName()),
                                      Named(K::kName, K::NameOf(*Find<K>(project.app(), key)))));
        }
        Untie<K>(project.app(), task, key);
    });
}

void UnassignAll(const Project& project, const Ref<TasksCls>& task) {
    for (const Kind kind : kKinds) {
        With(kind, [&]<class K>(K) {
            for (const auto& entry : K::Ties(project.app())->NewEnum()) {
                if (entry.item->TaskKey() == task->TaskKey()) Untie<K>(project.app(), task, K::ItemOf(*entry.item));
            }
            if (K::Listed(*task)) K::List(*task, Make<typename K::Relations>());  // keys that lead nowhere go, too
        });
    }
}

}  // namespace prx
