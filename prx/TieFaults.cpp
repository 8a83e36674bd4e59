#include "prx/TieFaults.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <map>
#include <set>
#include <unordered_map>

#include "prx/Findings.h"
#include "prx/Kinds.h"
#include "prx/Outline.h"
#include "prx/Terminal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

std::string Shown(const std::string& name) {
    constexpr std::size_t kWidestName = 60;
    return Plain(CutTo(name, kWidestName));
}

/// A key that lists and files keep as it is: the plain text of a number from 1 on.
bool IsPlainKey(const std::string& key) {
    return KeyText::CanonicalNumber(key) >= 1;
}

/// One kind of items, looked at or mended.
template <class K>
class Ties {
public:
    Ties(Application& app, Findings& found) : app_(app), found_(found) {}

    void Look() {
        const std::size_t told_before = found_.count();
        LookAtItems();
        LookAtRelations();
        for (const auto& entry : app_.xTaskCol()->NewEnum()) {
            if (entry.item->TaskKey() == 0) continue;  // nothing can tie it
            const std::string key = KeyText(entry.item->TaskKey()).text();
            if (LookAtList(*entry.item, TitleOf(*entry.item), of_task_[key])) LookAtCopies(*entry.item, of_task_[key]);
        }
        if constexpr (K::kKind != Kind::kNote) {
            for (const auto& [key, item] : items_) LookAtList(*item, ItemName(key), of_item_[key]);
        }
        if (found_.mends() && found_.count() > told_before) CopyAnew();
    }

private:
    using Relation = typename K::Relation;
    using Relations = typename K::Relations;
    using Own = std::vector<Ref<Relation>>;

    /// No list takes an item without a key, and no save a note without one.
    void LookAtItems() {
        for (const auto& entry : K::All(app_)->NewEnum()) {
            const std::string key = K::KeyOf(*entry.item);
            if (KeyNumber(key) != 0) {
                items_.emplace(key, entry.item);
                continue;
            }
            found_.Tell(fmt::format("{} \"{}\" has no key", K::kName, Shown(K::NameOf(*entry.item))),
                        "filed under a key of its own");
            items_.emplace(found_.mends() ? FileAnew(entry.item, entry.key.text()) : std::pair(key, entry.item));
        }
    }

    std::pair<std::string, Ref<typename K::Record>> FileAnew(const Ref<typename K::Record>& item,
                                                             const std::string& key) {
        K::Remove(app_, key);
        if constexpr (K::kKind == Kind::kNote) {
            item->NoteKey("");
        } else {
            K::All(app_)->IamNotAvailable(key);  // or it would come back
        }
        const Ref<typename K::Record> filed = K::All(app_)->AddItem(item);
        for (const auto& entry : K::Ties(app_)->NewEnum()) {
            if (K::ItemOf(*entry.item) == key) K::LeadTo(*entry.item, *filed);
        }
        return {K::KeyOf(*filed), filed};
    }

    void LookAtRelations() {
        std::set<std::pair<std::string, std::string>> pairs;
        FileWithoutKeyAnew();
        LeadBackToTasks();
        for (const auto& entry : K::Ties(app_)->NewEnum()) {
            const Relation& relation = *entry.item;
            if (relation.TaskKey() == 0 && wrong_.contains(relation.elementKey())) continue;  // told already
            const std::string task = KeyText(relation.TaskKey()).text();
            const std::string item = K::ItemOf(relation);
            const bool to_task = static_cast<bool>(app_.xTaskCol()->Item(relation.TaskKey()));
            const bool nowhere = !to_task || !items_.contains(item);
            std::string fault;
            if (!to_task) {
                fault = relation.TaskKey() == 0 ? "leads to no task"
                                                : fmt::format("leads to task {}, which is not there", task);
            } else if (nowhere) {
                fault = fmt::format("leads to {} {}, which is not there", K::kName, Plain(item));
            } else if (!pairs.emplace(task, item).second) {
                fault = fmt::format("ties task {} to {} {} a second time", task, K::kName, item);
            } else if (K::kKind == Kind::kNote && !of_item_[item].empty()) {
                fault = fmt::format("ties task {} to {}, which task {} has", task, ItemName(item),
                                    of_item_[item].front()->TaskKey().value());
            } else {
                of_task_[task].push_back(entry.item);
                of_item_[item].push_back(entry.item);
                continue;
            }
            wrong_.insert(relation.elementKey());
            found_.Tell(fmt::format("{} {}", RelationName(relation.elementKey()), fault), "taken out", nowhere);
            if (found_.mends()) K::Ties(app_)->Remove(entry.key.text());
        }
    }

    /// A list gives a relation whose key counts as none another one, and some keep the number in place of its text, so
    /// that they never agree with the project's.
    void FileWithoutKeyAnew() {
        for (const auto& entry : K::Ties(app_)->NewEnum()) {
            const std::string key = entry.item->elementKey();
            if (IsPlainKey(key)) continue;
            wrong_.insert(key);
            found_.Tell(fmt::format("{} has a key that counts as none", RelationName(key)),
                        "filed under a key of its own");
            if (!found_.mends()) continue;
            K::Ties(app_)->Remove(entry.key.text());
            if constexpr (K::kKind == Kind::kPerson) K::Ties(app_)->IamNotAvailable(key);  // or it would come back
            entry.item->elementKey(K::kListsIssueKeys ? "" : IssuedKey());
            K::Ties(app_)->AddItem(entry.item);
        }
    }

    /// A relation that has lost its task is the one's that lists it, unless a whole one ties that already.
    void LeadBackToTasks() {
        std::unordered_multimap<std::string, Ref<TasksCls>> listed;
        for (const auto& entry : app_.xTaskCol()->NewEnum()) {
            const Ref<Relations> relations = K::Listed(*entry.item);
            if (!relations || entry.item->TaskKey() == 0) continue;
            for (const auto& relation : relations->NewEnum()) listed.emplace(relation.item->elementKey(), entry.item);
        }
        std::set<std::pair<std::int64_t, std::string>> tied;
        const auto tie = [&](Long task, const Relation& relation) {
            const bool once = K::kKind == Kind::kNote;  // whatever the task is
            return tied.emplace(once ? 0 : task.value(), K::ItemOf(relation)).second;
        };
        for (const auto& entry : K::Ties(app_)->NewEnum()) {
            const Long task = entry.item->TaskKey();
            if (task != 0 && app_.xTaskCol()->Item(task)) tie(task, *entry.item);
        }
        for (const auto& entry : K::Ties(app_)->NewEnum()) {
            const std::string key = entry.item->elementKey();
            if (entry.item->TaskKey() != 0 || listed.count(key) != 1) continue;
            if (!items_.contains(K::ItemOf(*entry.item))) continue;
            const TasksCls& task = *listed.find(key)->second;
            if (!tie(task.TaskKey(), *entry.item)) continue;
            wrong_.insert(key);
            found_.Tell(fmt::format("{} leads to no task, though {} lists it", RelationName(key), TitleOf(task)),
                        "tied to that", /*nowhere=*/true);
            if (found_.mends()) entry.item->TaskKey(task.TaskKey());
        }
    }

    /// Where a list issues one only for a new relation.
    std::string IssuedKey() {
        const Ref<Relation> stand_in = K::Ties(app_)->Add();
        K::Ties(app_)->Remove(stand_in->elementKey());
        return stand_in->elementKey();
    }

    /// The keys that a task or an item lists; true when they are its own.
    template <class Owner>
    bool LookAtList(Owner& owner, const std::string& name, const Own& own) {
        std::unordered_map<std::string, Ref<Relation>> missing;
        for (const Ref<Relation>& relation : own) missing.emplace(relation->elementKey(), relation);
        const auto mended = Make<Relations>();
        mended->oPublicStaticCls = K::Ties(app_)->oPublicStaticCls;
        bool right = true;
        if (const Ref<Relations> listed = K::Listed(owner)) {
            for (const auto& entry : listed->NewEnum()) {
                const std::string key = entry.item->elementKey();
                if (missing.erase(key) == 1) {
                    mended->AddItem(entry.item);
                    continue;
                }
                right = false;
                if (wrong_.contains(key)) continue;  // told already
                const bool there = Holds(K::Ties(app_), key);
                found_.Tell(fmt::format("{} lists {}, {}", name, RelationName(key),
                                        there ? "which ties others" : "which is not there"),
                            "taken off", !there);
            }
        }
        for (const Ref<Relation>& relation : own) {
            if (!missing.contains(relation->elementKey())) continue;
            right = false;
            found_.Tell(fmt::format("{} does not list {}, which ties it to {}", name,
                                    RelationName(relation->elementKey()), OtherSide(owner, *relation)),
                        "put on");
            mended->AddItem(relation);
        }
        if constexpr (requires { K::List(owner, mended); }) {
            if (found_.mends() && !right) K::List(owner, mended);
        }
        return right;
    }

    /// The items that a task shows are those that its relations lead to, by their present names.
    void LookAtCopies(TasksCls& task, const Own& own) {
        std::multiset<std::string> expected;
        for (const Ref<Relation>& relation : own) expected.insert(K::NameOf(*items_.at(K::ItemOf(*relation))));
        std::multiset<std::string> shown;
        for (const auto& entry : K::Copies(task)->NewEnum()) shown.insert(K::NameOf(*entry.item));
        if (shown == expected) return;
        const auto list = [](const std::multiset<std::string>& names) {
            return Shown(fmt::format("{}", fmt::join(names, ", ")));
        };
        found_.Tell(fmt::format("{} shows the {} \"{}\" instead of \"{}\"", TitleOf(task), K::kPlural, list(shown),
                                list(expected)),
                    "read anew");
    }

    /// What a load makes of the ties.
    void CopyAnew() {
        for (const auto& entry : app_.xTaskCol()->NewEnum()) {
            const auto copies = Make<std::remove_reference_t<decltype(*K::Copies(*entry.item))>>();
            for (const Ref<Relation>& relation : of_task_[KeyText(entry.item->TaskKey()).text()]) {
                copies->AddItem(items_.at(K::ItemOf(*relation)));
            }
            K::Copies(*entry.item, copies);
        }
        if constexpr (K::kKind != Kind::kNote) K::All(app_)->SetTasksCollection(K::Ties(app_), app_.xTaskCol());
    }

    static std::string RelationName(const std::string& key) {
        return IsPlainKey(key) ? fmt::format("{} {}", K::kRelation, key)
                               : fmt::format("{} \"{}\"", K::kRelation, Plain(key));
    }
    std::string ItemName(const std::string& key) const {
        return fmt::format("{} {} \"{}\"", K::kName, key, Shown(K::NameOf(*items_.at(key))));
    }
    std::string OtherSide(const TasksCls& /*owner*/, const Relation& relation) const {
        return ItemName(K::ItemOf(relation));
    }
    std::string OtherSide(const typename K::Record& /*owner*/, const Relation& relation) const {
        return TitleOf(*app_.xTaskCol()->Item(relation.TaskKey()));
    }

    Application& app_;
    Findings& found_;
    std::map<std::string, Ref<typename K::Record>> items_;
    std::set<std::string> wrong_;  ///< relations that are told of
    std::unordered_map<std::string, Own> of_task_;
    std::unordered_map<std::string, Own> of_item_;
};

std::vector<std::string> LookAt(const Project& project, Findings::Purpose purpose) {
    Findings found(purpose);
    for (const Kind kind : kKinds) {
        With(kind, [&]<class K>(K) { Ties<K>(project.app(), found).Look(); });
    }
    return found.Take();
}

}  // namespace

std::vector<std::string> TieFaults(const Project& project) {
    return LookAt(project, Findings::Purpose::kTell);
}

std::vector<std::string> TiesToNowhere(const Project& project) {
    return LookAt(project, Findings::Purpose::kTellWhatLeadsNowhere);
}

std::vector<std::string> MendTies(const Project& project) {
    return LookAt(project, Findings::Purpose::kMend);
}

}  // namespace prx
