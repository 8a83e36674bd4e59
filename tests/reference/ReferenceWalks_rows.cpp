#include <algorithm>

#include "tests/reference/ReferenceWalks.h"

namespace mrlxmlclass::reference {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Digits, commas, and a blank right behind a comma.
bool IsListOfRows(const String& text) {
    char last_other = 0;
    for (const char c : text) {
        if (IsDigit(c)) continue;
        if (c != ',' && !(c == ' ' && last_other == ',')) return false;
        last_other = c;
    }
    return true;
}

/// The rows that a list names, and whether it has parts that are none.
struct ListedRows {
    explicit ListedRows(const String& list) {
        if (list.empty()) return;
        std::size_t from = 0;
        for (std::size_t comma = 0; comma != String::npos; from = comma + 1) {
            comma = list.find(',', from);
            Add(list.substr(from, comma - from));
        }
    }
    void Add(String part) {
        part.erase(0, part.find_first_not_of(' '));
        part.erase(part.find_last_not_of(' ') + 1);
        const bool is_row = !part.empty() && std::ranges::all_of(part, IsDigit);
        is_row ? rows.push_back(std::stoi(part)) : void(has_others = true);
    }
    bool Has(Long row) const { return std::ranges::count(rows, row.value()) > 0; }

    std::vector<int> rows;
    bool has_others = false;
};

}  // namespace

String ReferenceWalks::PredessorAsString(const String& key, Boolean Name) {
    return kTasksColTail.Run<String>("PredessorAsString", [&](String& result) {
        if (key.empty()) return;
        std::vector<String> stale;
        bool any = false;
        for (const String& predecessor_key : Predecessors(Task(key))) {
            const Ref<TasksCls> predecessor = Task(predecessor_key);
            if (!predecessor || !predecessor->TaskCondidat()) {
                stale.push_back(predecessor_key);
                continue;
            }
            if (any) result += ", ";
            any = true;
            result += Name ? predecessor->TaskName() : KeyText(predecessor->TaskPosition()).text();
        }
        for (const String& predecessor_key : stale) RemoveTaskPredecessor(key, predecessor_key);
    });
}

String ReferenceWalks::SucessorAsString(const String& key, Boolean Name) {
    return kTasksColTail.Run<String>("SucessorAsString", [&](String& result) {
        if (key.empty()) return;
        const Ref<TasksCls> task = Task(key);
        bool any = false;
        for (const String& successor_key : Successors(task)) {
            const Ref<TasksCls> successor = Task(successor_key);
            if (!successor) {
                task->TaskSuccessor()->Remove(successor_key);
                continue;
            }
            if (any) result += ", ";
            any = true;
            result += Name ? successor->TaskName() : KeyText(successor->TaskPosition()).text();
        }
    });
}

Boolean ReferenceWalks::ValidPredecessor(const String& key, const String& predecessor_key) {
    const Ref<TasksCls> predecessor = Task(predecessor_key);
    if (IsParent(predecessor_key) || key == predecessor_key) return False;
    return !predecessor || (predecessor->ParentID() != KeyNumber(key) && !WaitsFor(predecessor, key));
}

Boolean ReferenceWalks::ValidPredecessors(const String& key, const String& rows, Boolean l_succ) {
    if (!IsListOfRows(rows)) return False;
    const ListedRows listed(rows);
    if (listed.has_others) return False;
    return std::ranges::all_of(listed.rows, [&](int row) {
        const String other = col_.GetTaskKeyByPosition(row);
        return !other.empty() && (l_succ ? ValidPredecessor(other, key) : ValidPredecessor(key, other));
    });
}

Boolean ReferenceWalks::ArrangePred(const String& rows, const String& key) {
    return kTasksColTail.Run<Boolean>("ArrangePred", [&](Boolean&) { Arrange(rows, key, /*successors=*/false); });
}

Boolean ReferenceWalks::ArrangeSuccessor(const String& rows, const String& key) {
    return kTasksColTail.Run<Boolean>("ArrangeSuccessor", [&](Boolean&) { Arrange(rows, key, /*successors=*/true); });
}

void ReferenceWalks::Arrange(const String& rows, const String& key, bool successors) {
    if (!IsListOfRows(rows)) return;
    successors ? SucessorAsString(key) : PredessorAsString(key);
    const ListedRows listed(rows);
    for (const int row : listed.rows) {
        const String other = col_.GetTaskKeyByPosition(row);
        if (other.empty()) continue;
        if (successors && !IsFollowedBy(Task(key), other)) AddTaskPredecessor(other, key);
        if (!successors && !WaitsFor(Task(key), other)) {
            AddTaskPredecessor(key, other);
            col_.AddLeadTime(key, other, 0);
        }
    }
    if (listed.rows.empty()) return;
    for (const String& other : successors ? Successors(Task(key)) : Predecessors(Task(key))) {
        if (listed.Has(Task(other)->TaskPosition())) continue;
        successors ? RemoveTaskPredecessor(other, key) : RemoveTaskPredecessor(key, other);
    }
}

}  // namespace mrlxmlclass::reference
