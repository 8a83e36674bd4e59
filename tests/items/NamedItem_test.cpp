#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(GoalLink, IsRefusedWhileItsFlagIsDown) {
    Items s;
    const auto goal = Make<GoalsCls>();
    const auto obstacle = Make<ObstaclesCls>();
    EXPECT_EQ(goal->GoalLink(), "");
    EXPECT_EQ(s.failures.LatestWords(), "The Property GoalLink is not valid set m_GoalLinkValid = true");
    EXPECT_EQ(obstacle->ObstaclesLink(), "");
    EXPECT_EQ(s.failures.LatestWords(), "The Property ObstaclesLink is not valid set m_ObstaclesLinkValid = true");
    EXPECT_EQ(s.failures.Taken(), "GoalCls/GoalLink 1\nObstaclesCls/ObstaclesLink 1\n");
    goal->GoalLink("plan.pdf");
    EXPECT_EQ(goal->GoalLinkValid(), True);
    EXPECT_EQ(goal->GoalLink(), "plan.pdf");
    goal->GoalLinkValid(False);
    goal->GoalLinkValid(True);
    EXPECT_EQ(goal->GoalLink(), "");
}

TEST(GoalLink, KeepsTheLabelOfItsClass) {
    Items s;
    (void)Make<GoalsCls>()->GoalLink();
    EXPECT_EQ(s.failures.Taken(), "GoalCls/GoalLink 1\n");
}

constexpr TextRow<GoalsCls> kGoalTexts[] = {
    {"GoalLink", [](GoalsCls& item) { return item.GoalLink(); }, &GoalsCls::GoalLink, &GoalsCls::GoalLinkValid,
     &GoalsCls::GoalLinkValid},
    {"GoalDescription", [](GoalsCls& item) { return item.GoalDescription(); }, &GoalsCls::GoalDescription,
     &GoalsCls::sGoalDescriptionValid, &GoalsCls::sGoalDescriptionValid},
};
constexpr TextRow<ObstaclesCls> kObstacleTexts[] = {
    {"ObstaclesLink", [](ObstaclesCls& item) { return item.ObstaclesLink(); }, &ObstaclesCls::ObstaclesLink,
     &ObstaclesCls::ObstaclesLinkValid, &ObstaclesCls::ObstaclesLinkValid},
    {"ObstaclesDescription", [](ObstaclesCls& item) { return item.ObstaclesDescription(); },
     &ObstaclesCls::ObstaclesDescription, &ObstaclesCls::sObstaclesDescriptionValid,
     &ObstaclesCls::sObstaclesDescriptionValid},
};

TEST(NamedItemText, RaisesItsFlagAndIsEmptiedByAChangeOfIt) {
    Items s;
    ExpectFlagsOfTheirOwn(kGoalTexts);
    ExpectFlagsOfTheirOwn(kObstacleTexts);
    EXPECT_EQ(Make<GoalsCls>()->GoalDescription() + Make<ObstaclesCls>()->ObstaclesDescription(), "") << "unguarded";
}

TEST(NamedItemRelations, AreMadeOnFirstReadAndRaiseTheFlag) {
    Items s;
    ExpectRelationsWithTheirFlag<GoalsCls, TaskGoalRelationCol>(
        &GoalsCls::TaskGoalRelation, &GoalsCls::TaskGoalRelationValid, &GoalsCls::TaskGoalRelationValid);
    ExpectRelationsWithTheirFlag<ObstaclesCls, TaskObstaclesRelationCol>(&ObstaclesCls::TaskObstaclesRelation,
                                                                         &ObstaclesCls::TaskObstaclesRelationValid,
                                                                         &ObstaclesCls::TaskObstaclesRelationValid);
}

TEST(NamedItemClone, SharesRelationsAndTasksEvenWhereThereAreNoneYet) {
    Items s;
    const auto goal = s.Goal("Safe", 4);
    goal->Goalkey(2);
    goal->GoalLink("l");
    const auto clone = goal->Clone();
    EXPECT_EQ(clone->GoalName(), "Safe");
    EXPECT_EQ(clone->GoalPosition(), 4);
    EXPECT_EQ(clone->Goalkey(), 2);
    EXPECT_EQ(clone->GoalLink(), "l");
    EXPECT_EQ(clone->TaskGoalRelationValid(), False);
    EXPECT_EQ(clone->TaskGoalRelation(), goal->TaskGoalRelation());
    EXPECT_EQ(clone->Tasks(), goal->Tasks());
}

TEST(NamedItemXml, WritesLinkDescriptionAndRelationsOnlyWhenTheirFlagsAreUp) {
    Items s;
    const auto goal = s.Goal("Safe", 2);
    goal->Goalkey(7);
    const String bare = goal->ToXml(False);
    EXPECT_EQ(bare, "<Goal><Goalkey>7</Goalkey><GoalPosition>2</GoalPosition><GoalName>Safe</GoalName></Goal>");
    const auto read = Make<GoalsCls>();
    EXPECT_EQ(read->FromXml(bare, s.counters), True);
    EXPECT_EQ(read->GoalLinkValid(), False);
    EXPECT_EQ(read->sGoalDescriptionValid(), False);
    EXPECT_EQ(read->TaskGoalRelationValid(), False);
    EXPECT_EQ(read->ToXml(False), bare);

    goal->GoalLink("");
    goal->GoalDescription("d");
    goal->TaskGoalRelation()->Add("3");
    const String full = goal->ToXml(False);
    EXPECT_NE(
        full.find("<GoalDescription>d</GoalDescription><GoalTaskRelationKeys><Key>3</Key></GoalTaskRelationKeys>"),
        String::npos)
        << full;
    EXPECT_EQ(read->FromXml(full, s.counters), True);
    EXPECT_EQ(read->GoalLinkValid(), True);
    EXPECT_EQ(read->ToXml(False), full);
}

TEST(NamedItemXml, NamesTheChildrenOfAnObstacleAsThatKindDoes) {
    Items s;
    const auto obstacle = Make<ObstaclesCls>();
    obstacle->Obstacleskey(4);
    obstacle->ObstaclesName("Rain");
    obstacle->ObstaclesLink("l");
    obstacle->ObstaclesDescription("d");
    obstacle->TaskObstaclesRelation();
    EXPECT_EQ(obstacle->ToXml(False),
              "<Obstacle><Obstacleskey>4</Obstacleskey><ObstaclesPosition>0</ObstaclesPosition>"
              "<ObstaclesName>Rain</ObstaclesName><ObstaclesLink>l</ObstaclesLink>"
              "<ObstaclesDescription>d</ObstaclesDescription><ObstaclesTaskRelationKeys/></Obstacle>");
}

TEST(NamedItemXml, LeavesTheFlagsOfAnObstacleDownWhoseElementsAreNotThere) {
    Items s;
    const auto obstacle = Make<ObstaclesCls>();
    obstacle->Obstacleskey(4);
    obstacle->ObstaclesName("Rain");
    const String bare = obstacle->ToXml(False);
    EXPECT_EQ(bare,
              "<Obstacle><Obstacleskey>4</Obstacleskey><ObstaclesPosition>0</ObstaclesPosition>"
              "<ObstaclesName>Rain</ObstaclesName></Obstacle>");
    const auto read = Make<ObstaclesCls>();
    EXPECT_EQ(read->FromXml(bare, s.counters), True);
    EXPECT_EQ(read->ObstaclesLinkValid(), False);
    EXPECT_EQ(read->sObstaclesDescriptionValid(), False);
    EXPECT_EQ(read->TaskObstaclesRelationValid(), False);
    EXPECT_EQ(read->ToXml(False), bare);
}

TEST(NamedItemXml, GivesTheCountersToTheRelationsOfAGoalOnly) {
    Items s;
    const auto goal = Make<GoalsCls>();
    const auto obstacle = Make<ObstaclesCls>();
    goal->FromXml("<Goal><GoalTaskRelationKeys><Key>3</Key></GoalTaskRelationKeys></Goal>", s.counters);
    obstacle->FromXml("<Obstacle><ObstaclesTaskRelationKeys><Key>3</Key></ObstaclesTaskRelationKeys></Obstacle>",
                      s.counters);
    EXPECT_EQ(goal->TaskGoalRelation()->oPublicStaticCls, s.counters);
    EXPECT_FALSE(obstacle->TaskObstaclesRelation()->oPublicStaticCls);
    EXPECT_EQ(KeysOf(obstacle->TaskObstaclesRelation()), "3");
    EXPECT_EQ(s.counters->GoalTaskRelationKeyValue(), 0);  // bare keys raise no counter
}

TEST(NamedItemXml, ReadForALibraryKeepsOnlyKeyPositionAndName) {
    Items s;
    const auto goal = Make<GoalsCls>();
    EXPECT_EQ(goal->FromXml("<Goal><Goalkey>9</Goalkey><GoalName>n</GoalName><GoalLink>l</GoalLink>"
                            "<GoalTaskRelationKeys><Key>3</Key></GoalTaskRelationKeys></Goal>",
                            s.counters, True),
              True);
    EXPECT_EQ(goal->GoalName(), "n");
    EXPECT_EQ(goal->GoalLinkValid(), False);
    EXPECT_EQ(goal->TaskGoalRelationValid(), False);
    EXPECT_EQ(s.counters->GoalKeyValue(), 9);
}

TEST(NamedItemXml, ReadForALibraryLeavesADescriptionWithoutALinkAlone) {
    Items s;
    const auto goal = Make<GoalsCls>();
    EXPECT_EQ(goal->FromXml("<Goal><Goalkey>9</Goalkey><GoalName>n</GoalName>"
                            "<GoalDescription>d</GoalDescription></Goal>",
                            s.counters, True),
              True);
    EXPECT_EQ(goal->sGoalDescriptionValid(), False);
    EXPECT_EQ(goal->TaskGoalRelationValid(), False);
}

}  // namespace
}  // namespace mrlxmlclass::testing
