#include "tests/prx/PlanFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

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
    EXPECT_EQ(Prx({"check", "a.prx"}).status, 0) << Prx({"check", "a.prx"}).out;
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
}

}  // namespace prx_test
