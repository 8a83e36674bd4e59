#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

struct ItemElements {
    const char* kind;
    const char* key;      ///< of the item
    const char* tie_key;  ///< in what ties it
};

/// A plan with two items, the second of which has lost its key.
class KeylessItem : public testing::TestWithParam<ItemElements> {
protected:
    KeylessItem() : kind_(GetParam().kind) {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase"});
        for (const char* name : {"Ann", "Bob"}) plan_.Output({kind_, "a.prx", "add", name});
    }
    void Replace(const std::string& element, const std::string& from, const std::string& to) const {
        const std::string whole = plan_.Read("a.prx");
        const std::string text = "<" + element + ">" + from + "</" + element + ">";
        plan_.Write("a.prx", Replaced(whole, text, to.empty() ? "" : "<" + element + ">" + to + "</" + element + ">"));
        ASSERT_NE(plan_.Read("a.prx"), whole) << text;
    }
    void LoseKey() const { Replace(GetParam().key, "2", ""); }
    std::string Fault() const { return kind_ + " \"Bob\" has no key"; }
    /// Every command can work on the item.
    void ExpectInOrder(const std::string& file) const {
        plan_.Output({"check", file});
        plan_.Output({"assign", file, "Phase", kind_, "Bob"});
        plan_.Output({kind_, file, "add", "Cleo"});
        plan_.Output({"check", file});
        const std::string list = plan_.Output({kind_, file, "list"});
        EXPECT_TRUE(Has(list, "  2  Bob   1\n")) << list;
        EXPECT_TRUE(Has(list, "  3  Cleo\n")) << list;
        plan_.Output({"unassign", file, "Phase", kind_, "Bob"});
        plan_.Output({kind_, file, "remove", "Bob"});
        plan_.Output({"check", file});
    }

    const PlanFolder plan_;
    const std::string kind_;
};

}  // namespace

TEST_P(KeylessItem, IsFoundAndRepaired) {
    LoseKey();

    const Result found = plan_.Prx({"check", "a.prx"});
    EXPECT_EQ(found.status, 1);
    EXPECT_EQ(found.out, "Tied wrongly; --repair mends it in a new file:\n  " + Fault() + "\n");
    EXPECT_EQ(plan_.Output({"check", "a.prx", "--repair", "b.prx"}),
              "Mended:\n  " + Fault() + ": filed under a key of its own\n" + plan_.Path("b.prx") + ": written\n");
    ExpectInOrder("b.prx");
}

TEST_P(KeylessItem, IsMendedBeforeAForcedEdit) {
    LoseKey();

    const Result result = plan_.Prx({"rename", "a.prx", "Phase", "Phase", "--force"});

    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(Has(result.err, "prx: was mended: " + Fault() + ": filed under a key of its own\n")) << result.err;
    ExpectInOrder("a.prx");
}

TEST_P(KeylessItem, CanBeAssignedInTheForcedEditItself) {
    LoseKey();
    plan_.Output({"assign", "a.prx", "Phase", kind_, "Bob", "--force"});
    plan_.Output({"check", "a.prx"});
    EXPECT_TRUE(Has(plan_.Output({kind_, "a.prx", "list"}), "  2  Bob   1\n"));
}

TEST_P(KeylessItem, KeepsItsTie) {
    plan_.Output({"assign", "a.prx", "Phase", kind_, "Bob"});
    Replace(GetParam().tie_key, "2", kind_ == "note" ? " " : "0");
    if (kind_ == "note") plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<NoteKey> </NoteKey>", "<NoteKey/>"));
    if (kind_ != "note") LoseKey();
    if (kind_ == "note") plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<Note><NoteKey/>", "<Note>"));

    const std::string told = plan_.Output({"check", "a.prx", "--repair", "b.prx"});

    EXPECT_TRUE(Has(told, Fault() + ": filed under a key of its own\n")) << told;
    EXPECT_FALSE(Has(told, "taken out")) << told;
    plan_.Output({"check", "b.prx"});
    EXPECT_TRUE(Has(plan_.Output({kind_, "b.prx", "list"}), "  2  Bob   1\n"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, KeylessItem,
                         testing::Values(ItemElements{"person", "Personkey", "PersonKey"},
                                         ItemElements{"goal", "Goalkey", "GoalKey"},
                                         ItemElements{"obstacle", "Obstacleskey", "ObstacleKey"},
                                         ItemElements{"note", "NoteKey", "NoteKey"}),
                         [](const auto& tested) { return std::string(tested.param.kind); });

}  // namespace prx_test
