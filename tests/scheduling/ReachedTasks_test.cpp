#include "mrlxmlclass/scheduling/ReachedTasks.h"

#include <gtest/gtest.h>

#include "tests/support/NumberOf.h"
#include "tests/support/Printing.h"

namespace mrlxmlclass {
namespace {

/// The keys of a dictionary in their order, numbers marked: "1 #1 row".
String KeysOf(const Ref<Dictionary>& told) {
    String list;
    for (const Variant& key : told->Keys()) {
        list += (list.empty() ? "" : " ") + String(key.If<String>() != nullptr ? "" : "#") + key.Key().text();
    }
    return list;
}

TEST(ReachedTasks, HasWhatWasAdded) {
    ReachedTasks reached({});
    for (const KeyText key : {KeyText(0), KeyText(1), KeyText(32767), KeyText(32768), KeyText(INT32_MAX), KeyText(""),
                              KeyText("05"), KeyText("row")}) {
        SCOPED_TRACE(key.text());
        EXPECT_FALSE(reached.Has(key));
        reached.Add(key);
        EXPECT_TRUE(reached.Has(key));
        reached.Add(key);
        EXPECT_TRUE(reached.Has(key));
    }
    EXPECT_FALSE(reached.Has(5)) << "05 is not 5";
    EXPECT_FALSE(reached.Has("32769"));
}

TEST(ReachedTasks, TellsTheDictionaryThatItWasHandedEveryTaskOnce) {
    auto told = Make<Dictionary>();
    ReachedTasks reached(told);
    for (const KeyText key : {KeyText(3), KeyText(1), KeyText("05"), KeyText(3)}) reached.Add(key);
    EXPECT_EQ(KeysOf(told), "3 1 05");
    EXPECT_EQ(told->Item("05"), Variant("05"));
}

TEST(ReachedTasks, TellsADictionaryThatComesAsAValue) {
    const auto told = Make<Dictionary>();
    ReachedTasks reached(Ref<Dictionary>{told});
    reached.Add(3);
    EXPECT_EQ(KeysOf(told), "3");
}

TEST(ReachedTasks, BeginsWithWhatTheDictionaryHolds) {
    auto told = Make<Dictionary>();
    told->Add("2", "anything");
    told->Add("row", Long(0));
    told->Add(Long(4), Long(4));
    ReachedTasks reached(told);
    EXPECT_TRUE(reached.Has(2));
    EXPECT_TRUE(reached.Has("row"));
    EXPECT_FALSE(reached.Has(4)) << "a number is no task";
    reached.Add(2);
    reached.Add(4);
    EXPECT_EQ(KeysOf(told), "2 row #4 4");
    EXPECT_EQ(told->Item("2"), Variant("anything"));
}

TEST(ReachedTasks, ReadsTheDictionaryAtTheStartOnly) {
    auto told = Make<Dictionary>();
    ReachedTasks reached(told);
    told->Add("2", "2");
    EXPECT_FALSE(reached.Has(2));
    reached.Add(2);
    EXPECT_EQ(KeysOf(told), "2");
}

TEST(ReachedTasks, GivesAVariableWithoutADictionaryOneWhenToldTo) {
    Ref<Dictionary> told;
    ReachedTasks reached(told);
    reached.Add(1);
    EXPECT_FALSE(told) << "not before";
    reached.Tell();
    ASSERT_TRUE(told);
    const Ref<Dictionary> made = told;
    reached.Tell();
    EXPECT_EQ(told, made) << "one is enough";
    reached.Add(2);
    EXPECT_EQ(KeysOf(told), "2") << "what came before it was made is not told";
    EXPECT_TRUE(reached.Has(1));
}

TEST(ReachedTasks, MakesNoDictionaryThatNobodyReceives) {
    ReachedTasks left_out({});
    left_out.Tell();
    left_out.Add(1);
    left_out.AddParent(2);
    EXPECT_TRUE(left_out.Has(1));
    EXPECT_FALSE(left_out.Has(2));
}

TEST(ReachedTasks, TellsOfAParentUnderANumberOnly) {
    auto told = Make<Dictionary>();
    ReachedTasks reached(told);
    reached.AddParent(7);
    reached.AddParent(7);
    reached.AddParent(0);
    EXPECT_EQ(KeysOf(told), "#7");
    EXPECT_EQ(told->Item(Long(7)), Variant(Long(7)));
    EXPECT_FALSE(reached.Has(7));
    reached.Add(7);
    EXPECT_EQ(KeysOf(told), "#7 7");
}

TEST(ReachedTasks, GoesOnWithADictionaryThatAnotherWalkBegan) {
    auto told = Make<Dictionary>();
    {
        ReachedTasks first(told);
        first.Add(1);
        first.AddParent(9);
    }
    ReachedTasks second(told);
    EXPECT_TRUE(second.Has(1));
    EXPECT_FALSE(second.Has(9));
}

}  // namespace
}  // namespace mrlxmlclass
