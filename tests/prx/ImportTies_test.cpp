#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// An import of that table into a.prx, which check then finds in order.
class Imported : public PlanFolder {
public:
    explicit Imported(const std::string& rows) {
        Write("a.csv", "kind,name,tasks\nphase,A,\n" + rows);
        Output({"import", "a.csv"});
        Output({"check", "a.prx"});
    }
    std::string List(const char* kind) const { return Output({kind, "a.prx", "list"}); }
};

}  // namespace

TEST(Import, TiesTheWorkOfAnObstacle) {
    const Imported plan("obstacle,Rain,Wait\n");
    EXPECT_EQ(plan.List("obstacle"), "Key  Name  Tasks\n  1  Rain  2\n");
    EXPECT_EQ(plan.Read("a.prx").find("<Key/>"), std::string::npos) << "each relation has a key";
}

TEST(Import, TiesTheWorkOfSeveralObstacles) {
    const Imported plan("obstacle,Rain,Wait; Cover\nobstacle,Snow,\nobstacle,Frost,Heat; Wait\n");
    EXPECT_EQ(plan.List("obstacle"), "Key  Name   Tasks\n  1  Rain   2,3\n  2  Snow\n  3  Frost  4,5\n");
}

TEST(Import, TiesTheWorkOfAllKinds) {
    const Imported plan(
        "obstacle,1,Wait; Cover\nobstacle,2,Wait\ngoal,Dry,Wait; Roof\ngoal,Warm,Wait\nperson,Ann,Wait; "
        "Call\nperson,Bob,Call\n");
    EXPECT_EQ(plan.List("person"), "Key  Name  Tasks\n  1  Ann   2,3\n  2  Bob   4\n");
    EXPECT_EQ(plan.List("goal"), "Key  Name  Tasks\n  1  Dry   5,6\n  2  Warm  7\n");
    EXPECT_EQ(plan.List("obstacle"), "Key  Name  Tasks\n  1  1     8,9\n  2  2     10\n") << "by place, not by name";
}

TEST(Import, LeavesAPlanThatGoesOnBeingEdited) {
    const Imported plan("obstacle,Rain,Wait; Cover\n");
    plan.Edit({"assign", "A", "obstacle", "Rain"});
    plan.Edit({"add", "B", "--under", "A"});
    EXPECT_EQ(plan.List("obstacle"), "Key  Name  Tasks\n  1  Rain  2,3,1\n");
    plan.Edit({"obstacle", "remove", "Rain"});
    EXPECT_EQ(plan.Read("a.prx").find("<Key>"), std::string::npos) << "no tie is left";
}

}  // namespace prx_test
