#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

struct FullKind {
    const char* kind;
    const char* key;       ///< of the item
    const char* relation;  ///< to a task
};

/// A plan of one task and one item of a kind, in which the last key is taken.
class LastKey : public testing::TestWithParam<FullKind> {
protected:
    LastKey() : kind_(GetParam().kind) {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase"});
        plan_.Output({kind_, "a.prx", "add", "Ann"});
    }
    void Take(const std::string& element) const {
        const auto with = [&](const char* key) { return "<" + element + ">" + key + "</" + element + ">"; };
        plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), with("1"), with("32767")));
        EXPECT_TRUE(Has(plan_.Read("a.prx"), with("32767"))) << element;
    }
    static std::string Full(const std::string& what) {
        return "prx: the plan is full: one " + what + " has the key 32767, the last that there is\n";
    }

    const PlanFolder plan_;
    const std::string kind_;
};

}  // namespace

TEST_P(LastKey, OfAnItemIsToldInPlainWords) {
    Take(GetParam().key);
    plan_.Output({"check", "a.prx"});
    EXPECT_EQ(plan_.Refused({kind_, "add", "Bob"}), Full(kind_));
}

TEST_P(LastKey, OfARelationIsToldInPlainWords) {
    plan_.Output({kind_, "a.prx", "add", "Bob"});
    plan_.Output({"assign", "a.prx", "Phase", kind_, "Ann"});
    Take("Key");
    if (Has(plan_.Read("a.prx"), "<tKey>")) Take("tKey");
    plan_.Output({"check", "a.prx"});
    EXPECT_EQ(plan_.Refused({"assign", "Phase", kind_, "Bob"}), Full(GetParam().relation));
}

INSTANTIATE_TEST_SUITE_P(Kinds, LastKey,
                         testing::Values(FullKind{"person", "Personkey", "assignment"},
                                         FullKind{"goal", "Goalkey", "goal relation"},
                                         FullKind{"obstacle", "Obstacleskey", "obstacle relation"},
                                         FullKind{"note", "NoteKey", "note relation"}),
                         [](const auto& tested) { return std::string(tested.param.kind); });

TEST(LastTaskKey, IsToldInPlainWords) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    plan.Output({"add", "a.prx", "Phase"});
    plan.Write("a.prx", Replaced(plan.Read("a.prx"), "<TaskKey>1</TaskKey>", "<TaskKey>32767</TaskKey>"));
    plan.Output({"check", "a.prx"});
    EXPECT_EQ(plan.Refused({"add", "Later"}),
              "prx: the plan is full: one task has the key 32767, the last that there is\n");
}

}  // namespace prx_test
