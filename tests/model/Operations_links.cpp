#include "tests/model/Operations.h"
#include "tests/support/DayByDay.h"

namespace mrlxmlclass::model {
namespace {

/// True means that the link is there now, as far as links are stored.
bool Link(const Edit& edit) {
    const bool stored = edit.world.setting.links && (edit.world.setting.auto_link || edit.Is(2));
    const bool done = edit.col()
                          .AddTaskPredecessor(edit.key(), edit.other_key(), /*FirstTime=*/edit.Is(0),
                                              /*setforNonDepend=*/edit.Is(1), /*p_force_linking=*/edit.Is(2))
                          .full();
    if (done && stored && !edit.task->isPredecessor(edit.other_key())) edit.world.Complain("link", "none was made");
    return true;
}
bool Unlink(const Edit& edit) {
    const bool done = edit.col().RemoveTaskPredecessor(edit.key(), edit.other_key()).full();
    if (!done || edit.task->isPredecessor(edit.other_key()) || edit.other->isSucesser(edit.key())) {
        edit.world.Complain("link", "it was not taken off");
    }
    return true;
}
bool FreeSuccessors(const Edit& edit) {
    edit.col().RemoveAllTaskPredecessor(edit.key());
    if (!In(edit.task).SuccessorKeys().empty()) edit.world.Complain("link", "successors are left");
    return true;
}
bool Replace(const Edit& edit) {
    edit.col().ReplacePredecessor(edit.key(), edit.other_key());
    return true;
}
bool DropBackward(const Edit& edit) {
    edit.col().cleanPredcessor(edit.key());
    return true;
}
bool Splice(const Edit& edit) {
    edit.col().SetPredSucByPos(Integer(edit.task->TaskPosition()), edit.Is(0) ? edit.key() : String(),
                               /*p_first_time=*/edit.Is(1));
    return true;
}

/// Rows as a user types them, from the bits of the number; now and then one that is none.
String Typed(int number) {
    String rows;
    for (int row = 1; row <= 8; ++row) {
        if (((number >> (row - 1)) & 1) == 0) continue;
        rows += (rows.empty() ? "" : ", ") + std::to_string(row == 8 ? 99 : row);
    }
    return rows;
}
bool TypePredecessors(const Edit& edit) {
    edit.col().ArrangePred(Typed(edit.number()), edit.key());
    return true;
}
bool TypeSuccessors(const Edit& edit) {
    edit.col().ArrangeSuccessor(Typed(edit.number()), edit.key());
    return true;
}
bool ReadRows(const Edit& edit) {
    edit.col().PredessorAsString(edit.key(), edit.Is(0));
    edit.col().SucessorAsString(edit.key(), edit.Is(0));
    return true;
}

bool SetLead(const Edit& edit) {
    edit.col().AddLeadTime(edit.key(), edit.other_key(), edit.number());
    const Integer stored = edit.col().GetLeadTime(edit.other_key(), edit.task->TaskLeadTime());
    if (stored != edit.number()) edit.world.Complain("lead", "another one is stored");
    return true;
}
bool DropLead(const Edit& edit) {
    edit.col().RemoveLeadTime(edit.key(), edit.other_key(), 0);
    return true;
}
/// As counted day by day; nothing is stored without a start.
bool MeasureLeads(const Edit& edit) {
    std::vector<Date> ends;
    const std::vector<String> predecessors = In(edit.task).PredecessorKeys();
    for (const String& key : predecessors) ends.push_back(edit.col().Item(key)->TaskEDate());
    const auto leads = testing::day_by_day::MeasureLeads(edit.task->TaskBDate(), ends);
    const Integer largest = edit.col().CalcLeadTime(edit.key());
    if (largest != leads.largest) edit.world.Complain("lead", "the largest is another than day by day");
    for (std::size_t place = 0; place < leads.gaps.size(); ++place) {
        if (edit.col().GetLeadTime(predecessors[place], edit.task->TaskLeadTime()) != leads.gaps[place]) {
            edit.world.Complain("lead", "that to " + predecessors[place] + " is another than day by day");
        }
    }
    return true;
}

}  // namespace

std::span<const Operation> LinkOperations() {
    static constexpr Operation kOperations[] = {
        {"Link", 45, About::kTwoTasks, 0, 7, Link},
        {"Unlink", 6, About::kLink, 0, 0, Unlink},
        {"FreeSuccessors", 2, About::kTask, 0, 0, FreeSuccessors},
        {"Replace", 3, About::kTwoTasks, 0, 0, Replace},
        {"DropBackward", 2, About::kTask, 0, 0, DropBackward},
        {"Splice", 4, About::kTask, 0, 3, Splice},
        {"TypePredecessors", 5, About::kTask, 0, 255, TypePredecessors},
        {"TypeSuccessors", 5, About::kTask, 0, 255, TypeSuccessors},
        {"ReadRows", 2, About::kTask, 0, 1, ReadRows},
        {"SetLead", 12, About::kLink, -3, 6, SetLead},
        {"DropLead", 2, About::kLink, 0, 0, DropLead},
        {"MeasureLeads", 4, About::kTask, 0, 0, MeasureLeads},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
