#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// The house with one text of its file replaced.
class LossyFile : public testing::Test {
protected:
    void Damage(const std::string& from, const std::string& to) const {
        plan_.CopyExample("house.prx", "a.prx");
        const std::string whole = plan_.Read("a.prx");
        plan_.Write("a.prx", Replaced(whole, from, to));
        ASSERT_NE(plan_.Read("a.prx"), whole) << from;
    }
    Result Repair(std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments = {"check", "a.prx", "--repair", "b.prx"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return plan_.Prx(arguments);
    }
    void ExpectRefused(const std::string& why) const {
        const Result result = Repair();
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(Has(result.err, "could not be read whole, and the new file would lack the rest:\n")) << result.err;
        EXPECT_TRUE(Has(result.err, why)) << result.err;
        EXPECT_TRUE(Has(result.err, "--force")) << result.err;
        EXPECT_FALSE(plan_.Has("b.prx"));
        EXPECT_FALSE(plan_.Has("~b.prxl"));
        EXPECT_FALSE(plan_.Has("~a.prxl"));
    }
    void ExpectForced(const std::string& told) const {
        const Result result = Repair({"--force"});
        EXPECT_EQ(result.status, 1) << "a file that lacks something is never right";
        EXPECT_TRUE(Has(result.out, "Not read, and so not in the new file:\n")) << result.out;
        EXPECT_TRUE(Has(result.out, told)) << result.out;
        EXPECT_TRUE(plan_.Has("b.prx"));
    }
    const PlanFolder plan_;
};

}  // namespace

TEST_F(LossyFile, OfAHolidayIsNotRepairedWithoutIt) {
    Damage("<Holiday>", "<Holiday>soon;");
    ExpectRefused("in CalendarCls.FromXmlInt)");
    ExpectForced("in CalendarCls.FromXmlInt)");
}

TEST_F(LossyFile, OfARecordIsNotRepairedWithoutIt) {
    Damage("<Goals><Goal>", "<Goals><Other/><Goal>");
    ExpectRefused("records in Goals could not be read");
    ExpectForced("records in Goals could not be read");
}

TEST_F(LossyFile, OfASectionIsNotRepairedWithoutIt) {
    Damage("Goals>", "Plans>");
    ExpectRefused("the section Goals is missing");
    ExpectForced("the section Goals is missing");
}

TEST_F(LossyFile, IsForcedOnlyInARepair) {
    Damage("Goals>", "Plans>");
    EXPECT_NE(plan_.Refusal({"check", "a.prx", "--force"}), "");
}

TEST_F(LossyFile, WithoutANameForTheNewOneIsNotOnlyLookedAt) {
    Damage("Goals>", "Plans>");
    EXPECT_EQ(plan_.Refusal({"check", "a.prx", "--repair", ""}), "prx: the file needs a name\n");
}

TEST_F(LossyFile, OfAKeyThatStandsTwiceIsToldAndRepaired) {
    plan_.Output({"new", "a.prx"});
    plan_.Output({"add", "a.prx", "Phase"});
    plan_.Output({"person", "a.prx", "add", "Ann"});
    plan_.Output({"assign", "a.prx", "Phase", "person", "Ann"});
    plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<tKey>1</tKey>", "<tKey>1</tKey><tKey>1</tKey>"));

    const Result result = Repair();

    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(Has(result.out, "Recorded on the way:\n")) << result.out;
    EXPECT_TRUE(Has(result.out, "(457 in TaskAssigmentRelationCol.FromXmlInt)")) << result.out;
    plan_.Output({"check", "b.prx"});
}

TEST_F(LossyFile, IsToldOnlyWhenTheNewOneIsWritten) {
    plan_.Output({"new", "a.prx"});
    plan_.Output({"add", "a.prx", "Task"});
    plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<TaskPosition>1<", "<TaskPosition>7<"));

    EXPECT_TRUE(Has(plan_.Refusal({"check", "a.prx", "--repair", "nowhere/b.prx"}), "The folder was not found"));
}

TEST_F(LossyFile, GivesNobodyARightToTheNewOneThatTheyDoNotHaveToIt) {
    plan_.Output({"new", "a.prx"});
    plan_.Output({"add", "a.prx", "Task"});
    plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<TaskPosition>1<", "<TaskPosition>7<"));
    using std::filesystem::perms;
    for (const auto& [old_rights, new_rights] :
         {std::pair(perms(0600), perms(0600)), {perms(0640), perms(0600)}, {perms(0644), perms(0644)}}) {
        std::filesystem::permissions(plan_.Path("a.prx"), old_rights);

        plan_.Output({"check", "a.prx", "--repair", "b.prx"});

        EXPECT_EQ(std::filesystem::status(plan_.Path("b.prx")).permissions(), new_rights);
        std::filesystem::remove(plan_.Path("b.prx"));
    }
}

/// A tie whose record has a key that no list keeps as it is.
class KeylessTie : public testing::TestWithParam<std::tuple<std::pair<const char*, const char*>, const char*>> {
protected:
    KeylessTie() : kind_(std::get<0>(GetParam()).first) {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase"});
        plan_.Output({kind_, "a.prx", "add", "Ann"});
        plan_.Output({"assign", "a.prx", "Phase", kind_, "Ann"});
        const std::string whole = plan_.Read("a.prx");
        const std::size_t record = whole.find(std::string("<") + std::get<0>(GetParam()).second + ">");
        std::string tail = whole.substr(record);
        const std::string key = "<Key>1</Key>";
        plan_.Write("a.prx",
                    whole.substr(0, record) + tail.replace(tail.find(key), key.size(), std::get<1>(GetParam())));
    }
    void ExpectTied(const std::string& file) const {
        plan_.Output({"check", file});
        EXPECT_TRUE(Has(plan_.Output({kind_, file, "list"}), "Ann   1\n"));
        plan_.Output({"unassign", file, "Phase", kind_, "Ann"});
        plan_.Output({"assign", file, "Phase", kind_, "Ann"});
        plan_.Output({"check", file});
    }
    const PlanFolder plan_;
    const std::string kind_;
};

TEST_P(KeylessTie, IsRepaired) {
    EXPECT_TRUE(Has(plan_.Prx({"check", "a.prx"}).out, " has a key that counts as none\n"));
    const std::string told = plan_.Output({"check", "a.prx", "--repair", "b.prx"});
    EXPECT_TRUE(Has(told, " has a key that counts as none: filed under a key of its own\n")) << told;
    EXPECT_TRUE(Has(told, "\" has a key")) << told;
    ExpectTied("b.prx");
}

TEST_P(KeylessTie, IsMendedBeforeAForcedEdit) {
    const Result result = plan_.Prx({"rename", "a.prx", "Phase", "Phase", "--force"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(Has(result.err, "prx: was mended: ")) << result.err;
    EXPECT_TRUE(Has(result.err, " has a key that counts as none: filed under a key of its own\n")) << result.err;
    ExpectTied("a.prx");
}

INSTANTIATE_TEST_SUITE_P(Kinds, KeylessTie,
                         testing::Combine(testing::Values(std::pair("person", "TaskAssigmentRelation"),
                                                          std::pair("goal", "TaskGoalRelation"),
                                                          std::pair("obstacle", "TaskObstaclesRelation"),
                                                          std::pair("note", "TaskNoteRelation")),
                                          testing::Values("", "<Key>0</Key>", "<Key>01</Key>", "<Key> 2 </Key>",
                                                          "<Key>1.5</Key>", "<Key>0.4</Key>", "<Key>-1</Key>")));

TEST_F(LossyFile, LeadsNothingBackToWhatAWholeRelationTies) {
    for (const auto& [from, to, told] :
         {std::tuple{"<TaskKey>8</TaskKey><NoteKey>1</NoteKey>", "<NoteKey>2</NoteKey>", "note relation 1"},
          {"<TaskKey>4</TaskKey><PersonKey>2</PersonKey></TaskAssigmentRelation>",
           "<PersonKey>2</PersonKey></TaskAssigmentRelation><TaskAssigmentRelation><Key>99</Key><TaskKey>4</TaskKey>"
           "<PersonKey>2</PersonKey></TaskAssigmentRelation>",
           "assignment 1"}}) {
        SCOPED_TRACE(told);
        Damage(from, to);
        const std::string mended = plan_.Output({"check", "a.prx", "--repair", "b.prx"});
        EXPECT_TRUE(Has(mended, "  " + std::string(told) + " leads to no task: taken out\n")) << mended;
        EXPECT_FALSE(Has(mended, "tied to that")) << mended;
        EXPECT_FALSE(Has(mended, "a second time")) << mended;
        EXPECT_FALSE(Has(mended, "which task 8 has")) << mended;
        plan_.Output({"check", "b.prx"});
        std::filesystem::remove(plan_.Path("b.prx"));
    }
}

}  // namespace prx_test
