#include <fmt/core.h>

#include "prx/Command.h"
#include "prx/Gantt.h"
#include "prx/Inspection.h"
#include "prx/Outline.h"
#include "prx/Project.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Show : public Command {
public:
    explicit Show(CLI::App& app) : Command(app, "show", "Print the outline") {
        auto* json = options().add_flag("--json", json_,
                                        "Print the project, its calendar and the outline as JSON, for programs");
        auto* gantt = options().add_flag("--gantt", gantt_, "Draw it as bars over a time line")->excludes(json);
        options()
            .add_flag("--people", people_, "Show who works on what, instead of durations and costs")
            ->excludes(json)
            ->excludes(gantt);
        options().add_flag("--notes", notes_, "Show the notes of the tasks")->excludes(json)->excludes(gantt);
        from_.AddTo(options(), "--from", "First day of the bars, yyyy-mm-dd")->needs(gantt);
        to_.AddTo(options(), "--to", "Last day of the bars, yyyy-mm-dd")->needs(gantt);
        width_.AddTo(options(), "--width", "Columns of the drawing; 80 unless the terminal is wider")->needs(gantt);
    }

    int Run(Host& host) override {
        const GanttView view = View();
        const Project project = Project::ToLook(host, file());
        fmt::print("{}", gantt_  ? AsGantt(project, view)
                         : json_ ? AsJson(project.app())
                                 : AsTable(project.app(), {people_, notes_, OutputWidth()}));
        if (!Losses(project).empty()) {
            Note(fmt::format("{}: this is not all of it; see \"prx check\"", Plain(project.path())));
        }
        return kDone;
    }

private:
    GanttView View() const {
        constexpr int kMostColumns = 1000;
        GanttView view;
        if (from_) view.from = ReadDate(*from_);
        if (to_) view.to = ReadDate(*to_);
        view.width = width_ ? static_cast<std::size_t>(ReadWhole(*width_, 0, kMostColumns).value()) : OutputWidth();
        return view;
    }

    bool json_ = false;
    bool gantt_ = false;
    bool people_ = false;
    bool notes_ = false;
    OptionalText from_;
    OptionalText to_;
    OptionalText width_;
};

}  // namespace

std::unique_ptr<Command> MakeShow(CLI::App& app) {
    return std::make_unique<Show>(app);
}

}  // namespace prx
