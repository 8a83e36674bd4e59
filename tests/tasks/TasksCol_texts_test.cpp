#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>

#include "tests/support/Links.h"
#include "tests/tasks/Family.h"

/// Hosts that write, in a handler, to the very variables with which they called: an operation goes on with what it was
/// called with.
namespace mrlxmlclass {
namespace {

using namespace testing;

/// 1 House
/// 2   Walls, on Monday
/// 3   Roof, on Tuesday behind the walls
/// 4 Garden, on Wednesday behind the roof
/// 5 Shed
/// 6 Fence, on Thursday behind the garden
/// 7 Gate, on Friday
class Estate : public LinkingPlan {
public:
    explicit Estate(bool links) {
        Task("House").Task("Walls").Under("House").From(Monday);
        Task("Roof").Under("House").From(Tuesday).After("Walls").Task("Garden").From(Wednesday).After("Roof");
        Task("Shed").From(Monday).Task("Fence").From(Thursday).After("Garden").Task("Gate").From(Friday);
        Settle(*this, {"House"});
        Module().BVersion = links;
    }
};

/// The texts with which a host calls.
using Texts = std::vector<String>;

/// Writes another task's key into all of them at each event.
class Writer : public TasksColEvents {
public:
    Writer(Plan& plan, Texts& texts) : plan_(plan), texts_(texts) { plan.col().Events.Add(*this); }
    ~Writer() override { plan_.col().Events.Remove(*this); }
    void DateStartChange(Long, Date, Boolean, Boolean) override { Write(); }
    void TaskDurationChange(Long, Double, const String&, Boolean, Boolean) override { Write(); }
    void RoolUpCostChange(Long, const Variant&) override { Write(); }
    void PredecessorChange(Long, const String&) override { Write(); }
    void SucessorChange(Long, const String&) override { Write(); }
    void IamASummary(Long, Boolean) override { Write(); }
    void TaskInserted(Long, const String&, Long) override { Write(); }
    void TaskNameChanged(Long, const String&) override { Write(); }

private:
    void Write() { std::fill(texts_.begin(), texts_.end(), "7"); }

    Plan& plan_;
    Texts& texts_;
};

struct TextOperation {
    const char* name;
    Texts texts;
    std::function<void(TasksCol& col, const Texts& texts)> call;
    bool links = true;
};
void PrintTo(const TextOperation& operation, std::ostream* out) {
    *out << operation.name;
}

class OwnTexts : public ::testing::TestWithParam<TextOperation> {
protected:
    /// All that an operation does and tells.
    static String Done(bool under_a_writer) {
        Estate plan(GetParam().links);
        Texts texts = GetParam().texts;
        std::optional<Writer> writer;
        if (under_a_writer) writer.emplace(plan, texts);
        GetParam().call(plan.col(), texts);
        const String heard = plan.Heard();
        return heard + plan.failures.Taken() + plan.Drawn() + Family(plan) + Links(plan);
    }
};

INSTANTIATE_TEST_SUITE_P(
    TasksCol, OwnTexts,
    ::testing::Values(
        TextOperation{
            "delete_row", {"4"}, [](TasksCol& col, const Texts& in) { col.ArrangePositionAfterDelete(in[0]); }},
        TextOperation{"indent",
                      {"5", "1", "", "indent", "grid"},
                      [](TasksCol& col, const Texts& in) {
                          col.ChangeTaskParent(in[0], String("4"), in[1], "", in[2], True, in[3], in[4]);
                      }},
        TextOperation{"indent_beside",
                      {"4", "0", "5", "indent", "grid"},
                      [](TasksCol& col, const Texts& in) {
                          col.ChangeTaskParent(in[0], String("6"), in[1], "", in[2], True, in[3], in[4]);
                      }},
        TextOperation{"outdent",
                      {"3", "0", "1", "4", "2", "grid"},
                      [](TasksCol& col, const Texts& in) {
                          col.ChangeRemoveTaskParent(in[0], in[1], in[2], in[3], in[4], in[5]);
                      }},
        TextOperation{
            "down",
            {"4", "1", "0", "grid"},
            [](TasksCol& col, const Texts& in) { col.MoveTaskUpOrDown(in[0], False, in[1], in[2], True, in[3]); }},
        TextOperation{
            "down_without_links",
            {"4", "1", "0", "grid"},
            [](TasksCol& col, const Texts& in) { col.MoveTaskUpOrDown(in[0], False, in[1], in[2], True, in[3]); },
            false},
        TextOperation{"name", {"5", "Hut"}, [](TasksCol& col, const Texts& in) { col.ChangeName(in[0], in[1], True); }},
        TextOperation{"new_row", {"2"}, [](TasksCol& col, const Texts& in) { col.SetNewCondidat(1, in[0]); }},
        TextOperation{
            "link", {"5", "6"}, [](TasksCol& col, const Texts& in) { col.AddTaskPredecessor(in[0], in[1], True); }},
        TextOperation{
            "unlink", {"4", "3"}, [](TasksCol& col, const Texts& in) { col.RemoveTaskPredecessor(in[0], in[1]); }},
        TextOperation{"free_successors",
                      {"4"},
                      [](TasksCol& col, const Texts& in) {
                          col.Item(4)->TaskSuccessor()->Add("5", "5");
                          col.RemoveAllTaskPredecessor(in[0]);
                      }},
        TextOperation{"replace",
                      {"4", "2"},
                      [](TasksCol& col, const Texts& in) {
                          col.Item(4)->TaskSuccessor()->Add("5", "5");
                          col.ReplacePredecessor(in[0], in[1]);
                      }},
        TextOperation{"splice", {"5"}, [](TasksCol& col, const Texts& in) { col.SetPredSucByPos(5, in[0], True); }},
        TextOperation{"predecessors",
                      {"2, 5", "4"},
                      [](TasksCol& col, const Texts& in) {
                          col.Item(4)->TaskPredecessor()->Add("77", "77");
                          col.ArrangePred(in[0], in[1]);
                      }},
        TextOperation{
            "successors", {"5,7", "4"}, [](TasksCol& col, const Texts& in) { col.ArrangeSuccessor(in[0], in[1]); }},
        TextOperation{"clean", {"1"}, [](TasksCol& col, const Texts& in) { col.cleanPredcessor(in[0]); }},
        TextOperation{"cost", {"2"}, [](TasksCol& col, const Texts& in) { col.AdjustCost(in[0]); }},
        TextOperation{"span", {"2"}, [](TasksCol& col, const Texts& in) { col.AdjustSummary(in[0]); }}),
    [](const auto& operation) { return operation.param.name; });

TEST_P(OwnTexts, AreGoneOnWithWhateverTheCallerWritesToItsVariables) {
    EXPECT_EQ(Done(true), Done(false));
}

TEST(DurationChanged, WidensTheParentsOfTheTaskItWasCalledWith) {
    String done[2];
    for (const bool writes : {false, true}) {
        Estate plan(true);
        Variant key = "2";
        class Rekeyed : public TasksColEvents {
        public:
            explicit Rekeyed(Variant& key) : key_(key) {}
            void TaskDurationChange(Long, Double, const String&, Boolean, Boolean) override { key_ = "7"; }

        private:
            Variant& key_;
        } writer(key);
        if (writes) plan.col().Events.Add(writer);
        plan.col().DurationChanged(key, 3.0);
        plan.col().Events.Remove(writer);
        done[writes] = plan.Heard() + plan.Drawn();
    }
    EXPECT_EQ(done[1], done[0]);
}

}  // namespace
}  // namespace mrlxmlclass
