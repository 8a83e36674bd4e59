#include <fmt/core.h>

#include "mrlxmlclass/session/ModuleState.h"
#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/EventLog.h"
#include "prx/OneDayEach.h"
#include "prx/Outline.h"
#include "prx/Project.h"
#include "prx/Refusal.h"
#include "prx/Values.h"

namespace prx {
namespace {

using namespace mrlxmlclass;

class Shift : public EditCommand {
public:
    explicit Shift(CLI::App& app) : EditCommand(app, "shift", "Move the whole plan by calendar days") {
        options().add_option("DAYS", text_, "How far: 14 is later, -14 earlier")->required();
        options().footer(
            "The phases move one after the other, each with all that waits for its tasks. A task that is linked across "
            "phases so moves with both, and its place towards what it waits for changes; that is told.");
    }

    int Run(Host& host) override {
        const Long days = ReadWhole(text_.substr(Signed() ? 1 : 0), -kMostDays, kMostDays);
        if (days == 0) throw Refusal("a shift needs at least one day");
        Project project = Project::ToEdit(host, file(), force());
        RefuseBeyondRange(project.app(), days);
        const EventLog events(project.tasks());
        const std::vector<Date> before = Starts(project);
        {
            const OneDayEach aside(project);
            project.tasks()->ResetStartDate(Double(days.value()));
        }
        project.Save();
        TellWhatStayed(before, Starts(project));
        events.Print();
        return kDone;
    }

private:
    static constexpr int kMostDays = 10'000;

    bool Signed() const { return text_.starts_with('+') && !text_.starts_with("+-"); }

    /// The library would squeeze the plan together at the end of its range.
    static void RefuseBeyondRange(Application& app, Long days) {
        if (app.xTaskCol()->Count() == 0) return;
        const Date first(app.MinDate().days() + Double(days.value()));
        const Date last(app.MaxDate().days() + Double(days.value()));
        if (first.year() >= kMinYear && last.year() <= MaxYear()) return;
        throw Refusal(fmt::format("the plan would stretch from {} to {}; it must stay within the years {} to {}",
                                  Text(first), Text(last), kMinYear, MaxYear().value()));
    }

    /// Of the tasks without children; no task comes or goes in a shift.
    static std::vector<Date> Starts(const Project& project) {
        std::vector<Date> starts;
        for (const OutlineRow& row : Outline(project.tasks())) {
            if (!project.tasks()->isParent(KeyOf(*row.task))) starts.push_back(row.task->TaskBDate());
        }
        return starts;
    }
    /// Tasks in weeks or months take no start from the library's walk, nor do tasks in a circle of links.
    static void TellWhatStayed(const std::vector<Date>& before, const std::vector<Date>& after) {
        std::size_t stayed = 0;
        for (std::size_t i = 0; i < before.size(); ++i) stayed += before[i].set() && before[i] == after[i] ? 1 : 0;
        if (stayed > 0) Note(fmt::format("{} of {} tasks did not move", stayed, before.size()));
    }

    std::string text_;
};

}  // namespace

std::unique_ptr<Command> MakeShift(CLI::App& app) {
    return std::make_unique<Shift>(app);
}

}  // namespace prx
