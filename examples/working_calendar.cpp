// Shows what holidays and exception days do to the end of a task.
#include <cstdio>

#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"

using namespace mrlxmlclass;

namespace {

void PrintEnd(const char* calendar, TasksCls& task) {
    task.TaskDuration(3);  // counted anew: a change of the calendar moves no task by itself
    std::printf("%s: three days from Friday end on %s\n", calendar,
                Conversions::DateToString(task.TaskEDate()).c_str());
}

}  // namespace

int main() {
    const auto app = Make<Application>();
    app->Init();  // Saturday and Sunday are free
    const auto task = app->xTaskCol()->Add();
    task->TaskBDate(Date::Of(2026, 3, 6));
    PrintEnd("The usual week", *task);

    const auto calendar = app->xCalendar();
    calendar->SetADayAsHoliday(Date::Of(2026, 3, 9));
    PrintEnd("A free Monday", *task);

    calendar->SetADayAsExceptionDay(Date::Of(2026, 3, 7));
    PrintEnd("And a worked Saturday", *task);

    constexpr int kSunday = 1;  // to 7, Saturday
    calendar->SetAsWorkingDay(Long(kSunday));
    PrintEnd("And worked Sundays", *task);
    return 0;
}
