#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design, 3 Build), each with Ann, Quiet and Rain, Build with a note; one text of the file replaced.
class Ties : public testing::Test {
protected:
    Ties() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        for (const char* name : {"Design", "Build"}) {
            plan_.Output({"add", "a.prx", name, "--under", "Phase", "--start", "2026-03-02", "--duration", "3"});
        }
        plan_.Output({"link", "a.prx", "Build", "Design"});
        plan_.Output({"person", "a.prx", "add", "Ann"});
        plan_.Output({"person", "a.prx", "add", "Bob"});
        plan_.Output({"goal", "a.prx", "add", "Quiet"});
        plan_.Output({"obstacle", "a.prx", "add", "Rain"});
        plan_.Output({"note", "a.prx", "add", "Ask"});
        for (const char* task : {"Design", "Build"}) {
            plan_.Output({"assign", "a.prx", task, "person", "Ann"});
            plan_.Output({"assign", "a.prx", task, "goal", "Quiet"});
            plan_.Output({"assign", "a.prx", task, "obstacle", "Rain"});
        }
        plan_.Output({"assign", "a.prx", "Build", "note", "Ask"});
    }

    void Damage(const std::string& from, const std::string& to) const {
        const std::string whole = plan_.Read("a.prx");
        plan_.Write("a.prx", Replaced(whole, from, to));
        EXPECT_NE(plan_.Read("a.prx"), whole) << from;
    }
    std::string Faults() const {
        const Result result = plan_.Prx({"check", "a.prx"});
        EXPECT_EQ(result.status, 1) << result.out << result.err;
        return result.out;
    }
    /// What a repair tells; the new file is in order, and the old one as it was.
    std::string Repaired() const {
        const std::string before = plan_.Read("a.prx");
        std::string told = plan_.Output({"check", "a.prx", "--repair", "b.prx"});
        EXPECT_EQ(plan_.Read("a.prx"), before);
        plan_.Output({"check", "b.prx"});
        EXPECT_FALSE(plan_.Has("~a.prxl"));
        EXPECT_FALSE(plan_.Has("~b.prxl"));
        return told;
    }
    std::string Mended(const std::string& lines) const {
        return "Mended:\n" + lines + plan_.Path("b.prx") + ": written\n";
    }
    static constexpr const char* kTold = "Tied wrongly; --repair mends it in a new file:\n";
    const PlanFolder plan_;
};

using Repair = Ties;

}  // namespace

TEST_F(Ties, AreInOrderInWhatPrxWrites) {
    plan_.Output({"check", "a.prx"});
}

TEST_F(Ties, ToAPersonThatIsGone) {
    Damage("<Key>2</Key><TaskKey>3</TaskKey><PersonKey>1<", "<Key>2</Key><TaskKey>3</TaskKey><PersonKey>9<");

    EXPECT_EQ(Faults(), std::string(kTold) + "  assignment 2 leads to person 9, which is not there\n");
    EXPECT_EQ(Repaired(), Mended("  assignment 2 leads to person 9, which is not there: taken out\n"));
    EXPECT_EQ(plan_.Output({"person", "b.prx", "list"}), "Key  Name  Tasks\n  1  Ann   2\n  2  Bob\n");
}

TEST_F(Ties, ToNoTaskThoughOneListsThem) {
    Damage("<TaskNoteRelation><TaskKey>3</TaskKey>", "<TaskNoteRelation>");
    Damage("<TaskAssigmentRelation><Key>2</Key><TaskKey>3</TaskKey>", "<TaskAssigmentRelation><Key>2</Key>");

    const std::string assignment = "  assignment 2 leads to no task, though task 3 \"Build\" lists it";
    const std::string note = "  note relation 1 leads to no task, though task 3 \"Build\" lists it";
    EXPECT_EQ(Faults(), kTold + assignment + "\n" + note + "\n");
    EXPECT_EQ(
        Repaired(),
        Mended(assignment + ": tied to that\n  task 3 \"Build\" shows the people \"\" instead of \"Ann\": read anew\n" +
               note + ": tied to that\n"));
    EXPECT_EQ(plan_.Output({"person", "b.prx", "list"}), "Key  Name  Tasks\n  1  Ann   2,3\n  2  Bob\n");
    EXPECT_NE(plan_.Output({"show", "--notes", "b.prx"}).find("Ask"), std::string::npos);
}

TEST_F(Ties, ToNoTaskAndNobody) {
    Damage("<Key>2</Key><TaskKey>3</TaskKey><PersonKey>1<", "<Key>2</Key><PersonKey>9<");
    EXPECT_EQ(Faults(), std::string(kTold) + "  assignment 2 leads to no task\n");
    EXPECT_EQ(Repaired(), Mended("  assignment 2 leads to no task: taken out\n"));
}

TEST_F(Ties, ToATaskThatIsGone) {
    Damage("<TaskGoalRelation><TaskKey>3<", "<TaskGoalRelation><TaskKey>99<");

    const std::string faults = Faults();
    EXPECT_NE(faults.find("  goal relation 2 leads to task 99, which is not there\n"), std::string::npos) << faults;
    Repaired();
    EXPECT_EQ(plan_.Output({"goal", "b.prx", "list"}), "Key  Name   Tasks\n  1  Quiet  2\n");
}

TEST_F(Ties, ThatOnlyTheProjectKnows) {
    Damage("<TaskPeopleRelationKeys><tKey>2</tKey></TaskPeopleRelationKeys>", "");

    EXPECT_EQ(Faults(), std::string(kTold) +
                            "  task 3 \"Build\" does not list assignment 2, which ties it to person 1 \"Ann\"\n");
    Repaired();
    EXPECT_NE(plan_.Output({"show", "--json", "b.prx"}).find("Ann"), std::string::npos);
    EXPECT_EQ(plan_.Output({"person", "b.prx", "list"}), "Key  Name  Tasks\n  1  Ann   2,3\n  2  Bob\n");
}

TEST_F(Ties, ThatTheItemDoesNotList) {
    Damage("<ObstaclesTaskRelationKeys><Key>1</Key>", "<ObstaclesTaskRelationKeys>");

    EXPECT_EQ(Repaired(), Mended("  obstacle 1 \"Rain\" does not list obstacle relation 1, which ties it to task 2 "
                                 "\"Design\": put on\n"));
}

TEST_F(Ties, ThatAreStaleOnThePersonsSide) {
    Damage("<PeopleTaskRelationKeys><Key>1</Key>", "<PeopleTaskRelationKeys><Key>1</Key><Key>17</Key>");

    EXPECT_EQ(Faults(), std::string(kTold) + "  person 1 \"Ann\" lists assignment 17, which is not there\n");
    EXPECT_EQ(Repaired(), Mended("  person 1 \"Ann\" lists assignment 17, which is not there: taken off\n"));
}

TEST_F(Ties, OfAnotherPersonUnderAKeyThatWasUsedAgain) {
    Damage("<PersonName>Bob</PersonName>",
           "<PersonName>Bob</PersonName><PeopleTaskRelationKeys><Key>2</Key></PeopleTaskRelationKeys>");

    EXPECT_EQ(Faults(), std::string(kTold) + "  person 2 \"Bob\" lists assignment 2, which ties others\n");
    Repaired();
}

TEST_F(Ties, OfTheSamePairTwice) {
    Damage("</TaskObstaclesRelations>",
           "<TaskObstaclesRelation><TaskKey>3</TaskKey><ObstacleKey>1</ObstacleKey><Description/><Key>8</Key>"
           "</TaskObstaclesRelation></TaskObstaclesRelations>");

    EXPECT_EQ(Faults(), std::string(kTold) + "  obstacle relation 8 ties task 3 to obstacle 1 a second time\n");
    Repaired();
}

TEST_F(Ties, OfNotes) {
    Damage("<TaskNoteRelationsKeys><Key>1<", "<TaskNoteRelationsKeys><Key>5<");

    EXPECT_EQ(Faults(), std::string(kTold) +
                            "  task 3 \"Build\" lists note relation 5, which is not there\n"
                            "  task 3 \"Build\" does not list note relation 1, which ties it to note 1 \"Ask\"\n");
    Repaired();
    EXPECT_EQ(plan_.Output({"note", "b.prx", "list"}), "Key  Text  Tasks\n  1  Ask   3\n");
}

TEST_F(Ties, OfANoteToASecondTask) {
    Damage("</TaskNoteRelations>",
           "<TaskNoteRelation><TaskKey>2</TaskKey><NoteKey>1</NoteKey><Key>2</Key></TaskNoteRelation></"
           "TaskNoteRelations>");
    Damage("<TaskStatusKey>0</TaskStatusKey><TaskObstaclesRelationKeys><Key>1<",
           "<TaskNoteRelationsKeys><Key>2</Key></TaskNoteRelationsKeys><TaskStatusKey>0</TaskStatusKey>"
           "<TaskObstaclesRelationKeys><Key>1<");

    const std::string fault = "  note relation 2 ties task 2 to note 1 \"Ask\", which task 3 has";
    EXPECT_EQ(Faults(), std::string(kTold) + fault + "\n");
    EXPECT_EQ(Repaired(), Mended(fault + ": taken out\n"));
    EXPECT_EQ(plan_.Output({"note", "b.prx", "list"}), "Key  Text  Tasks\n  1  Ask   3\n");
}

// A key that leads nowhere ends the reading of the goals behind it.
TEST_F(Ties, WhoseItemsATaskDoesNotShow) {
    plan_.Output({"goal", "a.prx", "add", "Cheap"});
    plan_.Output({"assign", "a.prx", "Build", "goal", "Cheap"});
    Damage("<tKey>2</tKey><tKey>3</tKey></TaskGoalRelationKeys>",
           "<tKey>9</tKey><tKey>2</tKey><tKey>3</tKey></TaskGoalRelationKeys>");

    EXPECT_NE(Faults().find("task 3 \"Build\" lists goal relation 9, which is not there"), std::string::npos);
    EXPECT_NE(plan_.Prx({"show", "--json", "a.prx"}).out.find("\"name\": \"Build\""), std::string::npos);
    Repaired();
    EXPECT_NE(plan_.Output({"show", "--json", "b.prx"})
                  .find(R"("goals": [{"key": 1, "name": "Quiet"}, {"key": 2, "name": "Cheap"}])"),
              std::string::npos);
}

TEST_F(Repair, KeepsTheRestOfThePlan) {
    const std::string before = plan_.Output({"show", "--json", "a.prx"});
    Damage("<PeopleTaskRelationKeys><Key>1</Key>", "<PeopleTaskRelationKeys>");

    Repaired();

    EXPECT_EQ(plan_.Output({"show", "--json", "b.prx"}), before);
}

TEST_F(Repair, WritesNoFileWhereNothingIsWrong) {
    const Result result = plan_.Prx({"check", "a.prx", "--repair", "b.prx"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, plan_.Path("a.prx") + ": nothing is wrong, 3 tasks\n");
    EXPECT_EQ(result.err, "prx: there is nothing to repair: b.prx was not written\n");
    EXPECT_FALSE(plan_.Has("b.prx"));
}

TEST_F(Repair, NeverReplacesAFile) {
    Damage("<PeopleTaskRelationKeys><Key>1</Key>", "<PeopleTaskRelationKeys>");
    const std::string before = plan_.Read("a.prx");
    plan_.Write("b.prx", "mine");

    for (const char* name : {"a.prx", "b.prx", "./a.prx"}) {
        EXPECT_NE(plan_.Refusal({"check", "a.prx", "--repair", name}).find("there is such a file already"),
                  std::string::npos);
    }

    EXPECT_EQ(plan_.Read("a.prx"), before);
    EXPECT_EQ(plan_.Read("b.prx"), "mine");
}

TEST_F(Repair, TellsWhatNoRepairBringsBack) {
    Damage("<Notes><Note>", "<Notes><Other/><Note>");

    const Result result = plan_.Prx({"check", "a.prx", "--repair", "b.prx", "--force"});

    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("Not read, and so not in the new file:\n  1 of 1 records in Notes could not be read\n"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("note relation 1 leads to note 1, which is not there: taken out"), std::string::npos);
    plan_.Output({"check", "b.prx"});
}

TEST_F(Repair, OfDamagedSectionsEndsInOrder) {
    const std::string whole = plan_.Read("a.prx");
    std::vector<std::pair<std::string, std::string>> damages;
    for (const char* key :
         {"GoalKey", "Personkey", "PersonKey", "tKey", "Obstacleskey", "ObstacleKey", "NoteKey", "Key"}) {
        for (const char* value : {"0", "-1", "99999", "", "x", "2"}) {
            damages.emplace_back(std::string("<") + key + ">1<", std::string("<") + key + ">" + value + "<");
        }
    }
    for (const char* element : {"Goals", "Goal", "TaskAssigmentRelation", "PeopleTaskRelationKeys", "tKey"}) {
        damages.emplace_back(std::string(element) + ">", "Other>");
    }
    for (const auto& [text, instead] : damages) {
        SCOPED_TRACE(text + " " + instead);
        const std::string damaged = Replaced(whole, text, instead);
        ASSERT_NE(damaged, whole);
        plan_.Write("c.prx", damaged);
        const int looked = plan_.Prx({"check", "c.prx"}).status;
        const Result result = plan_.Prx({"check", "c.prx", "--repair", "d.prx"});
        EXPECT_EQ(plan_.Read("c.prx"), damaged);
        EXPECT_EQ(plan_.Has("d.prx"), looked == 1 && result.status != 2);
        std::remove(plan_.Path("d.prx").c_str());

        const Result forced = plan_.Prx({"check", "c.prx", "--repair", "d.prx", "--force"});
        EXPECT_EQ(forced.status, result.status == 0 ? 0 : 1) << forced.out << forced.err;
        if (looked == 1) {
            EXPECT_EQ(plan_.Prx({"check", "d.prx"}).status, 0) << forced.out;
        }
        std::remove(plan_.Path("d.prx").c_str());
    }
}

}  // namespace prx_test
