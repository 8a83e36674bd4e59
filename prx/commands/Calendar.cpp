#include "prx/Calendar.h"

#include <fmt/core.h>

#include <algorithm>

#include "prx/Command.h"
#include "prx/Project.h"
#include "prx/Refusal.h"
#include "prx/Values.h"

namespace prx {
namespace {

using namespace mrlxmlclass;

class Calendar : public EditCommand {
public:
    explicit Calendar(CLI::App& app)
        : EditCommand(app, "calendar", "Print the calendar, or change and print it; tasks stay where they are") {
        options().add_option("--work", work_, "A weekday that is worked");
        options().add_option("--free", free_, "A weekday that is free");
        options().add_option("--holiday", holidays_, "A day that is free, yyyy-mm-dd");
        options().add_option("--no-holiday", no_holidays_, "A day that is no holiday any more");
        options().add_option("--exception", exceptions_, "A day that is worked although its weekday is free");
        options().add_option("--no-exception", no_exceptions_, "A day that is no exception any more");
        options().add_flag("--json", json_, "Print it as JSON, for programs");
        options().footer(
            "In one call weekdays come first, worked ones before free ones, then holidays, then exceptions, and of "
            "either those taken off before those put on. A weekday that becomes worked takes its exceptions along, "
            "which is told. A holiday is free whatever else the day is.");
    }

    int Run(Host& host) override {
        if (!Changes()) {
            const Project project = Project::ToLook(host, file());
            return Print(project);
        }
        Project project = Project::ToEdit(host, file(), force());
        const Texts notes = Change(*project.app().xCalendar());
        project.app().SetPublicCalendar();
        project.Save();
        for (const std::string& note : notes) Note(note);
        return Print(project);
    }

private:
    using Texts = std::vector<std::string>;

    bool Changes() const {
        return !work_.empty() || !free_.empty() || !holidays_.empty() || !no_holidays_.empty() ||
               !exceptions_.empty() || !no_exceptions_.empty();
    }

    /// What is to be told of it.
    Texts Change(CalendarCls& calendar) const {
        Texts notes;
        const Texts exceptions = ExceptionsOf(calendar);
        for (const std::string& day : work_) calendar.SetAsWorkingDay(ReadWeekday(day));
        for (const std::string& day : exceptions) {
            if (std::ranges::count(ExceptionsOf(calendar), day) > 0) continue;
            notes.push_back(fmt::format("{} is no exception any more: its weekday is worked", day));
        }
        for (const std::string& day : free_) calendar.SetAsNonWorkingDay(ReadWeekday(day));
        for (const std::string& day : no_holidays_) calendar.SetADayAsNormalDay(ReadDate(day));
        for (const std::string& day : holidays_) calendar.SetADayAsHoliday(ReadDate(day));
        for (const std::string& day : no_exceptions_) calendar.SetAsNonException(ReadDate(day));
        for (const std::string& day : exceptions_) {
            if (calendar.isHoliday(ReadDate(day))) {
                throw Refusal(
                    fmt::format("{} is a holiday, and free even as an exception; --no-holiday ends that", day));
            }
            if (!calendar.IsNonWorkingDay(Long(ReadDate(day).weekday()))) {
                throw Refusal(fmt::format("{} is worked already: its weekday is not free", day));
            }
            calendar.SetADayAsExceptionDay(ReadDate(day));
        }
        for (const std::string& day : holidays_) {
            if (!calendar.isExceptionDay(ReadDate(day))) continue;
            notes.push_back(fmt::format("{} is an exception, too, and free all the same", day));
        }
        if (!HasWorkingWeekday(calendar)) throw Refusal("no weekday would be worked, and no task could end");
        return notes;
    }

    int Print(const Project& project) const {
        const CalendarCls& calendar = *project.app().xCalendar();
        fmt::print("{}", json_ ? CalendarAsJson(calendar) + "\n" : CalendarAsText(calendar));
        return kDone;
    }

    Texts work_;
    Texts free_;
    Texts holidays_;
    Texts no_holidays_;
    Texts exceptions_;
    Texts no_exceptions_;
    bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeCalendar(CLI::App& app) {
    return std::make_unique<Calendar>(app);
}

}  // namespace prx
