#pragma once

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass::testing {

/// The outline by row as both sides tell it: each task below its parent, its own children behind a colon in the order
/// in which they came. "-" is a plain row, which owns no children by its `TaskType`.
///
///     1 House: Roof Door
///     2   -Roof
///     3   -Door
inline String Family(const Plan& plan) {
    std::map<int, String> rows;
    for (const auto& entry : plan.col().NewEnum()) {
        TasksCls& task = *entry.item;
        String& line = rows[task.TaskPosition().value()];
        line = std::to_string(task.TaskPosition().value()) + " ";
        const Integer level = plan.col().GetLevel(KeyText(task.TaskKey()).text());
        line.append(static_cast<std::size_t>(2 * level.value()), ' ');
        line += (task.TaskType() ? "-" : "") + task.TaskName();
        if (In(task).HasChildren()) line += ":";
        for (const auto& child : In(task).Tasks()->Snapshot()) {
            line += " " + plan.col().Item(child.key.value().Key().text())->TaskName();
        }
        line += "\n";
    }
    String drawing;
    for (const auto& [row, line] : rows) drawing += line;
    return drawing;
}

/// Gives tasks the rows from 1 on, as a host does before it moves one.
inline void Number(Plan& plan, std::initializer_list<const char*> names) {
    int row = 0;
    for (const char* name : names) plan[name].TaskPosition(++row);
}

/// Spans and costs of the summaries as their children make them; nothing was heard yet.
inline void Settle(Plan& plan, std::initializer_list<const char*> summaries) {
    for (const char* name : summaries) {
        plan.col().AdjustSummary(plan.Key(name));
        plan.col().AdjustCost(plan.Key(name));
    }
    plan.Heard();
}

/// What is told of a link that is taken off, made, or only asked for again.
inline String Unlinked(int task, int predecessor, const String& successors = {}, const String& predecessors = {}) {
    const String to = std::to_string(task);
    const String from = std::to_string(predecessor);
    return "SucessorChange(" + from + ", " + successors + ")\nPredecessorChange(" + to + ", " + predecessors +
           ")\nPredecessorKeyChange(" + to + ", " + from + ", remove)\n";
}
inline String Linked(int task, int predecessor, const String& predecessors, const String& successors) {
    const String to = std::to_string(task);
    const String from = std::to_string(predecessor);
    return "PredecessorChange(" + to + ", " + predecessors + ")\nPredecessorKeyChange(" + to + ", " + from +
           ", add)\nSucessorChange(" + from + ", " + successors + ")\n";
}

inline String Costs(int key, int cost) {
    return "RoolUpCostChange(" + std::to_string(key) + ", " + std::to_string(cost) + ")\n";
}

/// The lines of events without those that tell which rows a link shows.
inline String WithoutLinkRows(const String& heard) {
    std::istringstream lines(heard);
    String rest;
    for (String line; std::getline(lines, line);) {
        if (!line.starts_with("PredecessorChange(") && !line.starts_with("SucessorChange(")) rest += line + "\n";
    }
    return rest;
}

/// The tasks whose predecessors were told, each with the rows that it shows now; what else was told of one fails.
inline std::set<String> ToldOfPredecessors(Plan& plan, const String& heard) {
    std::istringstream lines(heard);
    std::set<String> names;
    const String event = "PredecessorChange(";
    for (String line; std::getline(lines, line);) {
        if (!line.starts_with(event)) continue;
        const String key = line.substr(event.size(), line.find(',') - event.size());
        EXPECT_EQ(line, event + key + ", " + plan.col().PredessorAsString(key) + ")");
        names.insert(plan.col().Item(key)->TaskName());
    }
    return names;
}

}  // namespace mrlxmlclass::testing
