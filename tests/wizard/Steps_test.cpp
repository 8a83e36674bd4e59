#include "mrlxmlclass/wizard/Steps.h"

#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {
namespace {

constexpr const char* kNames[] = {"NameStep",     "PhaseStep",  "GoalStep", "SimilarStep", "PeopleStep",
                                  "ObstacleStep", "AssignStep", "TaskStep", "GantStep"};

std::vector<VariantArray> All(const Ref<Steps>& steps) {
    return {steps->NameStep(),     steps->PhaseStep(),  steps->GoalStep(), steps->SimilarStep(), steps->PeopleStep(),
            steps->ObstacleStep(), steps->AssignStep(), steps->TaskStep(), steps->GantStep()};
}

/// A drawing of the visits: "x" for each step that was visited, "." for the others.
String Visits(const Ref<Steps>& steps) {
    String drawn;
    for (const VariantArray& step : All(steps)) drawn += StepVisited(step) ? 'x' : '.';
    return drawn;
}

class StepsTest : public ::testing::Test {
protected:
    StepsTest() { steps->InitSteps(); }

    /// Reads a state with these flags, in the file's order, and the rest as given.
    void Read(const std::vector<String>& flags, const String& sequence = "", const String& last = "0") {
        auto document = Make<dom::Document>();
        const dom::Node root = document->AppendRoot("PropertiesValues");
        for (std::size_t step = 0; step < flags.size(); ++step) document->AppendText(root, kNames[step], flags[step]);
        document->AppendText(root, "Sequence", sequence);
        document->AppendText(root, "LastVisitedStep", last);
        steps->SetPropertiesValues(root);
    }

    TestSession session;
    Ref<Steps> steps = Make<Steps>();
    const std::vector<String> none = std::vector<String>(9, "false");
};

using StepProperties = StepsTest;
using InitSteps = StepsTest;
using Visted = StepsTest;
using PropertiesValues = StepsTest;
using SetPropertiesValues = StepsTest;
using StepVisitedTest = StepsTest;

TEST_F(StepProperties, AreEmptyPairsBeforeTheStart) {
    const auto fresh = Make<Steps>();
    for (const VariantArray& step : All(fresh)) EXPECT_EQ(step, VariantArray(2));
    EXPECT_EQ(fresh->Name(), "Steps");
    EXPECT_EQ(fresh->Sequence(), "");
    EXPECT_EQ(fresh->LastVisitedStep(), 0);
}

TEST_F(StepProperties, HandOverTheWholePairBothWays) {
    steps->NameStep({10, True});
    steps->PhaseStep({11, True});
    steps->GoalStep({12, True});
    steps->SimilarStep({13, True});
    steps->PeopleStep({14, True});
    steps->ObstacleStep({15, True});
    steps->AssignStep({16, True});
    steps->TaskStep({17, True});
    steps->GantStep({18, True});

    int number = 10;
    for (const VariantArray& step : All(steps)) EXPECT_EQ(step, (VariantArray{number++, True}));
}

TEST_F(StepProperties, RefuseAnythingButAPairAndRecordIt) {
    steps->TaskStep({7});
    steps->GantStep({});
    steps->NameStep({0, True, 2});

    EXPECT_EQ(steps->TaskStep(), (VariantArray{7, False}));
    EXPECT_EQ(steps->NameStep(), (VariantArray{0, False}));
    EXPECT_EQ(session.failures.Taken(), "Steps/TaskStep 9\nSteps/GantStep 9\nSteps/NameStep 9\n");
}

TEST_F(StepProperties, HandOutACopy) {
    steps->NameStep()[1] = True;
    EXPECT_EQ(Visits(steps), ".........");
}

TEST_F(InitSteps, NumbersTheStepsAndTakesEveryVisitBack) {
    steps->Visted(3);
    steps->InitSteps();

    int number = 0;
    for (const VariantArray& step : All(steps)) EXPECT_EQ(step, (VariantArray{number++, False}));
    EXPECT_EQ(steps->Sequence(), "|");
    EXPECT_EQ(steps->LastVisitedStep(), 0);
}

TEST_F(Visted, MarksTheStepAndAppendsItsCode) {
    for (int step = 8; step >= 0; --step) EXPECT_EQ(steps->Visted(step), True);
    EXPECT_EQ(Visits(steps), "xxxxxxxxx");
    EXPECT_EQ(steps->Sequence(), "|;Ga;Ta;As;Ob;Pe;Si;Go;Ph;Na");
    EXPECT_EQ(steps->LastVisitedStep(), 0);
}

TEST_F(Visted, MarksNoOtherStep) {
    steps->Visted(5);
    EXPECT_EQ(Visits(steps), ".....x...");
    EXPECT_EQ(steps->ObstacleStep(), (VariantArray{5, True}));
    EXPECT_EQ(steps->LastVisitedStep(), 5);
}

TEST_F(Visted, NamesAStepTwiceThatWasVisitedTwice) {
    steps->Visted(0);
    steps->Visted(0);
    EXPECT_EQ(steps->Sequence(), "|;Na;Na");
}

TEST_F(Visted, KeepsANumberThatIsNoStepsAsTheLastVisitedOneAlone) {
    for (const int number : {9, -1, 32767, -32768}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(steps->Visted(number), True);
        EXPECT_EQ(steps->LastVisitedStep(), number);
        EXPECT_EQ(Visits(steps), ".........");
        EXPECT_EQ(steps->Sequence(), "|");
    }
}

TEST_F(Visted, WorksBeforeTheStartToo) {
    const auto fresh = Make<Steps>();
    fresh->Visted(1);
    EXPECT_EQ(fresh->PhaseStep(), (VariantArray{Variant(), True}));
    EXPECT_EQ(fresh->Sequence(), ";Ph");
}

TEST_F(PropertiesValues, ListsTheFlagsTheSequenceAndTheLastStepInTheFilesOrder) {
    steps->Visted(2);
    steps->Visted(8);
    EXPECT_EQ(steps->PropertiesValues()->xml(),
              "<PropertiesValues><NameStep>false</NameStep><PhaseStep>false</PhaseStep><GoalStep>true</GoalStep>"
              "<SimilarStep>false</SimilarStep><PeopleStep>false</PeopleStep><ObstacleStep>false</ObstacleStep>"
              "<AssignStep>false</AssignStep><TaskStep>false</TaskStep><GantStep>true</GantStep>"
              "<Sequence>|;Go;Ga</Sequence><LastVisitedStep>8</LastVisitedStep></PropertiesValues>");
}

TEST_F(PropertiesValues, StandsInADocumentOfItsOwnAtEachCall) {
    const auto first = steps->PropertiesValues();
    steps->Visted(0);
    EXPECT_EQ(first->documentElement().selectSingleNode("NameStep").Text(), "false");
    EXPECT_EQ(steps->PropertiesValues()->documentElement().selectSingleNode("NameStep").Text(), "true");
}

TEST_F(PropertiesValues, ComesBackWhole) {
    steps->Visted(1);
    steps->Visted(6);
    steps->Visted(9);
    const auto again = Make<Steps>();
    again->SetPropertiesValues(steps->PropertiesValues()->documentElement());
    EXPECT_EQ(Visits(again), Visits(steps));
    EXPECT_EQ(again->Sequence(), "|;Ph;As");
    EXPECT_EQ(again->LastVisitedStep(), 9);
}

TEST_F(SetPropertiesValues, KeepsAFlagThatWasReadAsText) {
    Read({"true", "false", "-1", "0", "", "TRUE", "yes", "True", " true"});
    EXPECT_EQ(steps->NameStep(), (VariantArray{0, "true"}));
    EXPECT_EQ(steps->PhaseStep(), (VariantArray{1, "false"}));
    EXPECT_EQ(steps->GoalStep(), (VariantArray{2, "-1"}));
    EXPECT_EQ(steps->PeopleStep(), (VariantArray{4, ""}));
    EXPECT_EQ(Visits(steps), "x.x..x.x.");
}

TEST_F(SetPropertiesValues, WritesWhicheverTextItReadInTheUsualForm) {
    Read({"True", "-1", "0", "", "nonsense", "FALSE", "false", "false", "true"});
    const auto values = steps->PropertiesValues();
    String written;
    for (const char* name : kNames) written += values->documentElement().selectSingleNode(name).Text() + " ";
    EXPECT_EQ(written, "true true false false false false false false true ");
}

TEST_F(SetPropertiesValues, GivesEmpty) {
    EXPECT_TRUE(steps->SetPropertiesValues(steps->PropertiesValues()->documentElement()).is_empty());
}

TEST_F(SetPropertiesValues, KeepsABarInTheHistoryAtEveryReading) {
    steps->Visted(0);
    steps->Visted(1);
    const auto first_day = steps->PropertiesValues();

    const auto second_day = Make<Steps>();
    second_day->InitSteps();
    second_day->SetPropertiesValues(first_day->documentElement());
    second_day->Visted(2);
    EXPECT_EQ(second_day->Sequence(), "|;Na;Ph|;Go");
}

TEST_F(SetPropertiesValues, LeavesThePresentSequenceAloneWhenTheStoredOneIsEmpty) {
    steps->Visted(3);
    Read(none, "");
    EXPECT_EQ(steps->Sequence(), "|;Si");
}

TEST_F(SetPropertiesValues, FindsItsChildrenByNameInAnyOrderAmongOthers) {
    auto document = Make<dom::Document>();
    ASSERT_TRUE(document->LoadXML(
        "<PropertiesValues>\n<!-- by hand --><LastVisitedStep>4</LastVisitedStep><Sequence>|;Pe</Sequence><Other/>"
        "<GantStep/><TaskStep/><AssignStep/><ObstacleStep/><PeopleStep>true</PeopleStep><SimilarStep/><GoalStep/>"
        "<PhaseStep/><NameStep/></PropertiesValues>"));
    steps->SetPropertiesValues(document->documentElement());
    EXPECT_EQ(Visits(steps), "....x....");
    EXPECT_EQ(steps->Sequence(), "|;Pe|");
    EXPECT_EQ(steps->LastVisitedStep(), 4);
}

TEST_F(SetPropertiesValues, RecordsEachMissingChildAndKeepsWhatWasReadBefore) {
    std::vector<String> children(std::begin(kNames), std::end(kNames));
    children.insert(children.end(), {"Sequence", "LastVisitedStep"});
    for (std::size_t missing = 0; missing < children.size(); ++missing) {
        SCOPED_TRACE(children[missing]);
        auto document = Make<dom::Document>();
        const dom::Node root = document->AppendRoot("PropertiesValues");
        for (const String& child : children) {
            if (child != children[missing])
                document->AppendText(root, child, child == "LastVisitedStep" ? "7" : "true");
        }
        steps->InitSteps();
        steps->SetPropertiesValues(root);

        EXPECT_EQ(session.failures.Taken(), "Steps/SetPropertiesValues 91\n");
        const std::size_t read = std::min<std::size_t>(missing, 9);
        EXPECT_EQ(Visits(steps), String(read, 'x') + String(9 - read, '.'));
        EXPECT_EQ(steps->Sequence(), missing == 10 ? "true|" : "|");
        EXPECT_EQ(steps->LastVisitedStep(), 0);
    }
}

TEST_F(SetPropertiesValues, RecordsANodeThatIsNotThere) {
    steps->SetPropertiesValues(dom::Node());
    EXPECT_EQ(session.failures.Taken(), "Steps/SetPropertiesValues 91\n");
    EXPECT_EQ(Visits(steps), ".........");
}

TEST_F(SetPropertiesValues, RecordsALastStepThatIsNoInteger) {
    struct Row {
        const char* text;
        const char* number;
    };
    for (const Row& row : {Row{"", "13"}, Row{"abc", "13"}, Row{"99999", "6"}, Row{"-32769", "6"}}) {
        SCOPED_TRACE(row.text);
        steps->LastVisitedStep(3);
        Read(none, "|;Na", row.text);
        EXPECT_EQ(session.failures.Taken(), String("Steps/SetPropertiesValues ") + row.number + "\n");
        EXPECT_EQ(steps->LastVisitedStep(), 3);
        EXPECT_TRUE(steps->Sequence().starts_with("|;Na"));
    }
}

TEST_F(StepVisitedTest, UnderstandsEveryFormOfAFlag) {
    struct Row {
        Variant flag;
        Boolean visited;
    };
    const Row rows[] = {
        {True, True},
        {False, False},
        {Boolean::Raw(1), True},
        {-1, True},
        {0, False},
        {1, True},
        {0.5, True},
        {0.0, False},
        {"true", True},
        {"True", True},
        {"TRUE", True},
        {"-1", True},
        {"false", False},
        {"False", False},
        {"0", False},
        {"", False},
        {"maybe", False},
        {Variant(), False},
        {Variant::Null(), False},
        {VariantArray{True}, False},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.flag));
        EXPECT_EQ(StepVisited({0, row.flag}), row.visited);
    }
}

TEST_F(StepVisitedTest, IsFalseForAnArrayWithoutAFlag) {
    EXPECT_EQ(StepVisited({}), False);
    EXPECT_EQ(StepVisited({1}), False);
}

}  // namespace
}  // namespace mrlxmlclass::testing
