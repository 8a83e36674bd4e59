#include <fmt/core.h>

#include "mrlxmlclass/scheduling/PlanShift.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "prx/Command.h"
#include "prx/EventLog.h"
#include "prx/Inspection.h"
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
            "All tasks that have dates move, in whatever unit, and each moves once. Where the day is free, a task "
            "starts on the next working day that way. A task that waits for others keeps its lead times, in working "
            "days. Work beside the outline stays, and so do the calendar and the project's own start and deadline.");
    }

    int Run(Host& host) override {
        const Long days = ReadWhole(text_.substr(Signed() ? 1 : 0), -kMostDays, kMostDays);
        if (days == 0) throw Refusal("a shift needs at least one day");
        Project project = Project::ToEdit(host, file(), force());
        const EventLog events(project.tasks());
        PlanShift shift(project.tasks(), days);
        RefuseBeyondRange(shift);
        shift.Run();
        project.Save();
        TellStayed(shift);
        events.Print();
        return kDone;
    }

private:
    static constexpr int kMostDays = 10'000;

    bool Signed() const { return text_.starts_with('+') && !text_.starts_with("+-"); }

    /// The library would squeeze the plan together at the end of its range.
    static void RefuseBeyondRange(const PlanShift& shift) {
        const Date first = shift.first();
        const Date last = shift.last();
        if (!first.set() || (first.year() >= kMinYear && last.year() <= MaxYear())) return;
        throw Refusal(fmt::format("the plan would stretch from {} to {}; it must stay within the years {} to {}",
                                  Text(first), Text(last), kMinYear, MaxYear().value()));
    }

    /// The calendar may leave a short shift no other day.
    static void TellStayed(const PlanShift& shift) {
        std::vector<std::string> lines;
        for (const auto& task : shift.Stayed()) lines.push_back(TitleOf(*task) + " did not move");
        for (const std::string& line : Shortened(std::move(lines))) Note(line);
    }

    std::string text_;
};

}  // namespace

std::unique_ptr<Command> MakeShift(CLI::App& app) {
    return std::make_unique<Shift>(app);
}

}  // namespace prx
