#include "tests/prx/PlanFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

#include "tests/support/Sample.h"

namespace prx_test {
namespace {

std::string Member(const std::string& row, const std::string& name) {
    const std::string start = "\"" + name + "\": ";
    std::size_t at = row.find(start);
    if (at == std::string::npos) return "";
    at += start.size();
    if (row[at] == '"') return row.substr(at + 1, row.find('"', at + 1) - at - 1);
    return row.substr(at, row.find_first_of(",}", at) - at);
}

std::vector<std::string> TaskRows(const std::string& json) {
    std::vector<std::string> rows;
    std::istringstream lines(json);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t at = line.find("{\"position\"");
        if (at != std::string::npos) rows.push_back(line.substr(at));
    }
    return rows;
}

}  // namespace

/// The file stands behind the command's name: every command takes it first.
std::vector<std::string> PlanFolder::WithFile(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin() + 1, "a.prx");
    return arguments;
}

std::string PlanFolder::Edit(std::vector<std::string> arguments) const {
    std::string output = Output(WithFile(std::move(arguments)));
    static unsigned edits = 0;  // a sample of them where there are sanitizers
    if (edits++ % mrlxmlclass::testing::kSample != 0) return output;
    const Result check = Prx({"check", "a.prx"});
    EXPECT_EQ(check.status, 0) << check.out;
    EXPECT_EQ(WrongSummaries(), "");
    return output;
}

std::string PlanFolder::Refused(std::vector<std::string> arguments) const {
    const std::string before = Read("a.prx");
    std::string message = Refusal(WithFile(std::move(arguments)));
    EXPECT_EQ(Read("a.prx"), before);
    return message;
}

std::string PlanFolder::Drawing() const {
    std::string drawing;
    for (const std::string& row : TaskRows(Output({"show", "--json", "a.prx"}))) {
        drawing += Member(row, "position") + " " + std::string(2 * std::stoul(Member(row, "level")), ' ') +
                   Member(row, "name") + "\n";
    }
    return drawing;
}

std::string PlanFolder::Row(const std::string& name) const {
    for (const std::string& row : TaskRows(Output({"show", "--json", "a.prx"}))) {
        if (Member(row, "name") == name) return row;
    }
    ADD_FAILURE() << "there is no task " << name;
    return "";
}

std::string PlanFolder::Days(const std::string& name) const {
    const std::string row = Row(name);
    return Member(row, "start") + " " + Member(row, "end");
}

std::string PlanFolder::Predecessors(const std::string& name) const {
    const std::string row = Row(name);
    const std::string start = "\"predecessors\": [";
    const std::size_t at = row.find(start);
    if (at == std::string::npos) {
        ADD_FAILURE() << "no predecessors are told of " << row;
        return "";
    }
    const std::size_t first = at + start.size();
    const std::string links = row.substr(first, row.find(']', first) - first);
    std::string keys;
    for (std::size_t link = links.find('{'); link != std::string::npos; link = links.find('{', link + 1)) {
        keys += (keys.empty() ? "" : " ") + Member(links.substr(link), "key");
    }
    return keys;
}

std::string PlanFolder::WrongSummaries() const {
    struct Sum {
        std::string start, end;
        double cost = 0;
    };
    std::map<std::string, Sum> below;
    const std::vector<std::string> rows = TaskRows(Output({"show", "--json", "a.prx"}));
    for (const std::string& row : rows) {
        const auto [place, first] = below.try_emplace(Member(row, "parent"));
        Sum& sum = place->second;
        if (first || Member(row, "start") < sum.start) sum.start = Member(row, "start");
        sum.end = std::max(sum.end, Member(row, "end"));
        sum.cost += std::stod(Member(row, "cost"));
    }
    std::string wrong;
    for (const std::string& row : rows) {
        const auto found = below.find(Member(row, "key"));
        if (found == below.end()) continue;
        const auto& [start, end, cost] = found->second;
        constexpr double kNothing = 1e-6;
        if (Member(row, "start") == start && Member(row, "end") == end &&
            std::abs(std::stod(Member(row, "cost")) - cost) < kNothing) {
            continue;
        }
        wrong += row + ", but below it " + start + " to " + end + " for " + std::to_string(cost) + "\n";
    }
    return wrong;
}

int PlanFolder::Count() const {
    return static_cast<int>(TaskRows(Output({"show", "--json", "a.prx"})).size());
}

TEST(PlanFolder, ReadsAPlanAsItStands) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    plan.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
    plan.Output({"add", "a.prx", "Design", "--under", "Phase", "--start", "2026-03-02", "--duration", "5"});

    EXPECT_EQ(plan.Drawing(), "1 Phase\n2   Design\n");
    EXPECT_EQ(plan.Days("Design"), "2026-03-02 2026-03-06");
    EXPECT_EQ(plan.Count(), 2);
    EXPECT_EQ(plan.Predecessors("Phase"), "");
    plan.Output({"add", "a.prx", "Build", "--start", "2026-03-02"});
    plan.Output({"add", "a.prx", "Test", "--start", "2026-03-02"});
    for (const char* predecessor : {"Design", "Build"}) plan.Output({"link", "a.prx", "Test", predecessor});
    EXPECT_EQ(plan.Predecessors("Test"), "2 3");
}

}  // namespace prx_test
