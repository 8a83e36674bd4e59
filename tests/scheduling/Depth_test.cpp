#include <gtest/gtest.h>

#include "tests/dom/SmallStack.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

constexpr int kMostTasks = 32767;
constexpr int kLevels = 1000;

String Text(Long key) {
    return KeyText(key).text();
}

/// A plan as deep as plans can be, on a stack of 1 MiB.
class DeepPlan {
public:
    DeepPlan() { app->Init(/*BVersion=*/True); }
    ~DeepPlan() { Module() = ModuleState(); }
    DeepPlan(const DeepPlan&) = delete;
    DeepPlan& operator=(const DeepPlan&) = delete;

    Long Add(Long parent = 0) {
        const Ref<TasksCls> task = col().Add("");
        task->TaskPosition(++rows_);
        if (parent != 0) {
            task->ParentID(parent);
            task->TaskType(True);
            col().AddParentTask(parent, task->TaskKey());
            col().Item(parent)->TaskType(False);
        }
        task->TaskEDate(Monday);
        task->TaskBDate(Monday);
        task->TaskDuration(1);
        task->TaskCost(1);
        return task->TaskKey();
    }
    void Link(Long predecessor, Long successor) {
        col().Item(successor)->TaskPredecessor()->Add(Text(predecessor), predecessor);
        col().Item(predecessor)->TaskSuccessor()->Add(Text(successor), successor);
        col().AddLeadTime(Text(successor), Text(predecessor), -1);  // all on one day: years end in time
    }
    Long Chain(int tasks, Long before = 0) {
        for (int i = 0; i < tasks; ++i) {
            const Long key = Add();
            if (before != 0) Link(before, key);
            before = key;
        }
        return before;
    }
    /// A line of summaries, each the only child of the one above but for a leaf at the bottom; gives the leaf.
    Long Outline(int levels) {
        Long key = Add();
        top = key;
        for (int level = 1; level < levels; ++level) key = Add(key);
        return key;
    }
    Ref<TasksCls> operator[](Long key) const { return col().Item(key); }
    TasksCol& col() const { return *app->xTaskCol(); }

    TestPlatform platform;
    Ref<Application> app = Make<Application>();
    Failures failures;
    Long top;

private:
    int rows_ = 0;
};

void OnSmallStack(const std::function<void(DeepPlan&)>& body) {
    dom::OnSmallStack([&] {
        DeepPlan deep;
        body(deep);
        EXPECT_EQ(deep.failures.Taken(), "");
    });
}

void ExpectToRollUpFrom(Long leaf, DeepPlan& deep) {
    TasksCol& col = deep.col();
    col.AdjustSummary(Text(leaf));
    col.AdjustCost(Text(leaf));
    EXPECT_EQ(deep[deep.top]->TaskCost(), Currency(1));
    col.RollUpCostChanged(leaf, Currency(5));
    EXPECT_EQ(deep[deep.top]->TaskCost(), Currency(6));
}

}  // namespace

TEST(Depth, AChainOfAllTasksMovesByItsStart) {
    OnSmallStack([](DeepPlan& deep) {
        const Long last = deep.Chain(kMostTasks);
        EXPECT_TRUE(deep.col().DependsDateChanged(Long(1), Wednesday, 1));
        EXPECT_EQ(deep[last]->TaskBDate(), Wednesday);
    });
}

TEST(Depth, AChainOfAllTasksMovesByADuration) {
    OnSmallStack([](DeepPlan& deep) {
        const Long last = deep.Chain(kMostTasks);
        EXPECT_TRUE(deep.col().DurationChanged(Long(1), Double(3)));
        EXPECT_EQ(deep[last]->TaskBDate(), Wednesday);
    });
}

TEST(Depth, AChainOfAllTasksShifts) {
    OnSmallStack([](DeepPlan& deep) {
        const Long last = deep.Chain(kMostTasks);
        deep.col().ResetStartDate(1);
        EXPECT_EQ(deep[last]->TaskBDate(), Tuesday);
    });
}

TEST(Depth, AnOutlineOfAThousandLevelsMovesAndRollsUp) {
    OnSmallStack([](DeepPlan& deep) {
        const Long leaf = deep.Outline(kLevels);
        TasksCol& col = deep.col();
        const String top = Text(deep.top);

        EXPECT_TRUE(col.SummaryTaskDateChanged2(top, Wednesday, Wednesday));
        EXPECT_EQ(deep[leaf]->TaskBDate(), Wednesday);
        EXPECT_EQ(deep[deep.top]->TaskBDate(), Wednesday);

        EXPECT_TRUE(col.DurationChanged(leaf, Double(3)));
        EXPECT_EQ(deep[deep.top]->TaskEDate(), Friday);

        ExpectToRollUpFrom(leaf, deep);

        col.ResetStartDate(7);
        EXPECT_EQ(deep[leaf]->TaskBDate(), Wednesday + 7);
        EXPECT_EQ(deep[deep.top]->TaskBDate(), Wednesday + 7);

        Ref<Collection> below;
        EXPECT_TRUE(col.GetALLRelatedTask(top, below));
        EXPECT_EQ(below->Count(), kLevels - 1);
    });
}

TEST(Depth, AChainRunsIntoADeepOutlineAndOutAgain) {
    OnSmallStack([](DeepPlan& deep) {
        const Long before = deep.Chain(kMostTasks - kLevels - 10'000);
        const Long leaf = deep.Outline(kLevels);
        deep.Link(before, deep.top);
        const Long behind = deep.Add();
        deep.Link(leaf, behind);
        const Long last = deep.Chain(9'999, behind);

        TasksCol& col = deep.col();
        const auto all_from_the_outline_on_start = [&](Date day) {
            EXPECT_EQ(deep[leaf]->TaskBDate(), day);
            EXPECT_EQ(deep[deep.top]->TaskBDate(), day);
            EXPECT_EQ(deep[last]->TaskBDate(), day);
        };

        EXPECT_TRUE(col.DependsDateChanged(Long(1), Tuesday, 1));
        EXPECT_EQ(deep[before]->TaskBDate(), Tuesday);
        all_from_the_outline_on_start(Tuesday);

        EXPECT_TRUE(col.DurationChanged(Long(1), Double(2)));
        EXPECT_EQ(deep[before]->TaskBDate(), Wednesday);
        all_from_the_outline_on_start(Wednesday);

        EXPECT_TRUE(col.SummaryTaskDateChanged2(Text(deep.top), Thursday, Thursday));
        EXPECT_EQ(deep[before]->TaskBDate(), Wednesday);
        all_from_the_outline_on_start(Thursday);

        ExpectToRollUpFrom(leaf, deep);

        col.ResetStartDate(7);
        EXPECT_EQ(deep[before]->TaskBDate(), Wednesday + 7);
        all_from_the_outline_on_start(Thursday + 7);
    });
}

TEST(Depth, SavesAndLoadsWhatIsDeep) {
    OnSmallStack([](DeepPlan& deep) {
        const Long before = deep.Chain(kMostTasks - kLevels);
        const Long leaf = deep.Outline(kLevels);
        deep.Link(before, leaf);
        const String path = deep.platform.Path("deep.prx");
        deep.app->xFileName(path);
        ASSERT_TRUE(deep.app->SaveXml(False));

        const auto other = Make<Application>();
        other->Init(/*BVersion=*/True);
        other->xFileName(path);
        EXPECT_TRUE(other->LoadXML());
        EXPECT_EQ(other->xTaskCol()->Count(), kMostTasks);
        EXPECT_EQ(other->xTaskCol()->Item(leaf)->TaskBDate(), Monday);
        EXPECT_TRUE(other->xTaskCol()->Item(leaf)->isPredecessor(before));
    });
}

}  // namespace mrlxmlclass::testing
