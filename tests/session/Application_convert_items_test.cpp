#include <gtest/gtest.h>

#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "tests/support/OldPlan.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A session on which an old plan is converted: how the bar is told, and what becomes of obstacles.
class ConvertedItems : public ::testing::Test {
protected:
    Boolean Convert(const String& to = {}) { return plan.app->Convert3to4("/plans/a.prj", {}, to); }
    /// The steps of the bar and the rows whose lists were read, in their order.
    String Heard() const {
        String heard;
        for (const String& entry : old.log) {
            if (!heard.empty()) heard += " ";
            heard += entry.substr(0, entry.find(' '));
        }
        return heard;
    }

    /// The relations of obstacles: key and task.
    String Keys() {
        String keys;
        for (const auto& entry : plan.app->xTaskObstaclesRelationcol()->NewEnum()) {
            keys += "'" + entry.key.text() + "' task " + KeyText(entry.item->TaskKey()).text() + "\n";
        }
        return keys;
    }

    Plan plan;
    OldPlan old;
};

TEST_F(ConvertedItems, FileNameStaysWithANewNameToo) {
    plan.app->xFileName("/plans/mine.prx");
    EXPECT_EQ(Convert("/plans/new.prx"), True);
    EXPECT_EQ(plan.app->xFileName(), "/plans/mine.prx");
}

TEST_F(ConvertedItems, BarMovesBehindEachItem) {
    old.people = {OldRow("Ann"), OldRow("Bob")};
    old.phases = {OldRow("A").With({OldRow("A1")}), OldRow("B")};
    old.goals = {OldRow("Goal")};
    old.obstacles = {OldRow("Rain")};
    old.on_tasks = [this](const String& row) { old.log.push_back(row); };
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Heard(),
              "Show Location Load Update Update A A1 Update B Update Ann Update Bob Update Goal Update Rain Update "
              "Update gone");
}

TEST_F(ConvertedItems, KeepsTheFirstRelationOfAnObstacleAndACandidateUnderNoKey) {
    old.obstacles = {OldRow("Rain").With({OldRow("Wait")})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Keys(), "'' task 1\n'1' task 1\n");
}

TEST_F(ConvertedItems, KeepsOneSuchRelationAloneAndGoesOn) {
    old.obstacles = {OldRow("Rain").With({OldRow("Wait"), OldRow("Cover")}), OldRow("Snow").With({OldRow("Heat")})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Keys(), "'' task 1\n'1' task 1\n'2' task 2\n'3' task 3\n");
    EXPECT_EQ(plan.failures.Taken(), "TaskObstaclesRelationCol/AddItem 457\nTaskObstaclesRelationCol/AddItem 457\n");
}

TEST_F(ConvertedItems, RelationUnderNoKeyDoesNotComeBackFromTheFile) {
    old.obstacles = {OldRow("Rain").With({OldRow("Wait")})};
    plan.app->xFileName(plan.platform.Path("a.prx"));
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(plan.app->SaveXml(False), True);
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(Keys(), "");
    EXPECT_NE(plan.failures.Taken().find("TaskObstaclesRelationCol/FromXmlInt 13\n"), String::npos);
    plan.app->endreadonly();
}

}  // namespace
}  // namespace mrlxmlclass
