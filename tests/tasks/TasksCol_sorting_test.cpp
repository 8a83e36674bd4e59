#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Three tasks and a candidate, the rows and the places within the item in opposite orders.
class Shuffled : public Plan {
public:
    Shuffled() {
        Task("C").Task("A").Task("Aside").Candidate().Task("B");
        Number("C", 3, 1);
        Number("A", 1, 3);
        Number("B", 2, 2);
    }

private:
    void Number(const String& name, Long row, Long in_item) {
        (*this)[name].TaskPosition(row);
        (*this)[name].TaskPositionInitem(in_item);
    }
};

TEST(SortMe, GivesTheOutlineByRowAndPutsCandidatesFirst) {
    Shuffled plan;
    EXPECT_EQ(Listed(plan.col().SortMe(True)), "A B C");
    EXPECT_EQ(Walked(plan.col()), "Aside A B C");
    EXPECT_EQ(plan.col().GetTaskKeyByPosition(1), plan.Key("A"));
    EXPECT_TRUE(plan.col().Item(plan.Key("C")));
}

TEST(SortMe, SortsByThePlaceInTheItemUnlessToldByRow) {
    Shuffled plan;
    EXPECT_EQ(Listed(plan.col().SortMe(False)), "C B A");
    EXPECT_EQ(Walked(plan.col()), "Aside C B A");
    plan.col().SortMe(True);
    EXPECT_EQ(Listed(plan.col().SortMe()), "C B A") << "left out, it counts as False";
    plan.col().SortMe(False);
    EXPECT_EQ(Listed(plan.col().SortMe(1)), "A B C");
}

TEST(SortMe, GivesTheTasksThemselvesUnderTheirKeys) {
    Shuffled plan;
    const Ref<Collection> sorted = plan.col().SortMe(True);
    EXPECT_EQ(sorted->Item(plan.Key("B")).Object<TasksCls>(), plan.col().Item(plan.Key("B")));
    EXPECT_EQ(sorted->Count(), 3);
}

TEST(SortMe, KeepsBothOfTwoTasksOnTheSameRow) {
    Plan plan;
    plan.Task("A").Task("B");
    plan["A"].TaskPosition(1);
    plan["B"].TaskPosition(1);
    EXPECT_EQ(Listed(plan.col().SortMe(True)), "B A") << "the heap's order";
    EXPECT_EQ(Listed(plan.col().SortMe(True)), "A B") << "and again";
}

TEST(SortMe, KeepsTurningTasksWithoutAPlaceInTheItem) {
    Plan plan;
    plan.Task("1").Task("2").Task("3").Task("4").Task("5");
    plan.col().SortMe(False);
    EXPECT_EQ(Walked(plan.col()), "2 3 4 5 1");
    plan.col().SortMe(False);
    EXPECT_EQ(Walked(plan.col()), "3 4 5 1 2");
}

TEST(SortMe, GivesAnEmptyCollectionForAnEmptyPlan) {
    Plan plan;
    EXPECT_EQ(plan.col().SortMe(True)->Count(), 0);
}

TEST(SortMe, FilesATaskUnderItsOwnKey) {
    Plan plan;
    const Ref<TasksCls> task = plan.col().Add("abc");
    task->TaskKey(12);
    EXPECT_FALSE(plan.col().Item(12));
    plan.col().SortMe(True);
    EXPECT_EQ(plan.col().Item(12), task);
    EXPECT_FALSE(plan.col().Item("abc"));
}

TEST(SortMe, LeavesTheTasksAloneWhenTwoHaveTheSameKey) {
    Plan plan;
    plan.Task("B").Task("A");
    plan["A"].TaskPosition(0);
    plan["A"].TaskKey(1);
    EXPECT_FALSE(plan.col().SortMe(True));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SortMe 457\n");
    EXPECT_EQ(Walked(plan.col()), "B A");
}

TEST(SortTasks, LeavesTheWalkingOrderAlone) {
    Shuffled plan;
    EXPECT_EQ(Listed(plan.col().Sort(True)), "Aside A B C");
    EXPECT_EQ(Listed(plan.col().Sort()), "Aside C B A");
    EXPECT_EQ(Walked(plan.col()), "C A Aside B");
}

TEST(BuildArray, TakesTheKeysInTheirOrder) {
    Plan plan;
    auto dictionary = Make<Dictionary>();
    dictionary->Add("b", "x");
    dictionary->Add(Long(7), "y");
    Variant array;
    plan.col().BuildArray(dictionary, array);
    EXPECT_EQ(array, Variant(VariantArray{"b", Long(7)}));
}

TEST(BuildArray, RecordsWhatIsNoDictionary) {
    Plan plan;
    Variant array = "as it was";
    plan.col().BuildArray("text", array);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/BuildArray 13\n");
    plan.col().BuildArray(Variant(), array);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/BuildArray 91\n");
    EXPECT_EQ(array, Variant("as it was"));
}

TEST(SortArray, SortsTextsUnitByUnit) {
    Plan plan;
    Variant array = VariantArray{"b", "B", "10", "9", "", "\xC3\xA9", "b"};
    plan.col().SortArray(array);
    EXPECT_EQ(array, Variant(VariantArray{"", "10", "9", "B", "b", "b", "\xC3\xA9"}));
}

TEST(SortArray, PutsUnitsAboveTheSurrogatesLast) {
    Plan plan;
    Variant array = VariantArray{"\xEF\xBF\xBD", "\xF0\x9F\x98\x80"};  // U+FFFD, and a pair from U+D83D
    plan.col().SortArray(array);
    EXPECT_EQ(array, Variant(VariantArray{"\xF0\x9F\x98\x80", "\xEF\xBF\xBD"}));
}

TEST(SortArray, SortsWhateverHasATextByIt) {
    Plan plan;
    const auto dictionary = Make<Dictionary>();
    for (const Variant& key : {Variant(Date::Of(2026, 3, 2)), Variant("a"), Variant(2.5), Variant(True), Variant(10)}) {
        dictionary->Add(key, key);
    }
    Variant array;
    plan.col().BuildArray(dictionary, array);
    plan.col().SortArray(array);
    EXPECT_EQ(array, Variant(VariantArray{10, 2.5, Date::Of(2026, 3, 2), True, "a"}));
}

TEST(SortArray, LeavesAnArrayAloneThatHoldsWhatHasNoText) {
    Plan plan;
    const VariantArray mixed{"b", "a", Variant::Null{}};
    Variant array = mixed;
    plan.col().SortArray(array);
    EXPECT_EQ(array, Variant(mixed));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SortArray 13\n");
    Variant text = "no array";
    plan.col().SortArray(text);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SortArray 13\n");
}

TEST(SortMe, TakesItsArgumentAsATruthValueOfAnyKind) {
    Plan plan;
    plan.Task("A").Task("B");
    plan["A"].TaskPosition(2);
    plan["B"].TaskPosition(1);
    for (const Variant& yes : {Variant(True), Variant(-1), Variant(1.5), Variant("True")}) {
        EXPECT_EQ(plan.col().SortMe(yes)->Item(1).Object<TasksCls>()->TaskName(), "B");
    }
    EXPECT_FALSE(plan.col().SortMe("up"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SortMe 1\n");
}

}  // namespace
}  // namespace mrlxmlclass
