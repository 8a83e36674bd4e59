#include <gtest/gtest.h>

#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/session/StaticCls.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "tests/support/DayByDay.h"
#include "tests/support/Days.h"
#include "tests/support/RandomCalendars.h"

// Every measure of working days gives what counting day by day gives, whatever the calendar, and whatever happened to
// it since the last question.
namespace mrlxmlclass {
namespace {

using namespace testing;

/// Asks questions of a drawn calendar that changes between them, in many rounds.
template <class Ask>
void OnRandomCalendars(int questions, Ask&& ask) {
    for (unsigned round = 1; round <= Rounds(40); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Draws draws(round);
        RandomCalendar session(draws);
        for (int question = 0; question < questions && !::testing::Test::HasFailure(); ++question) {
            SCOPED_TRACE("question " + std::to_string(question));
            ask(session, draws);
            if (draws.OneIn(2)) session.Change();
        }
    }
}

String TextOf(Date date) {
    return date.set() ? Conversions::DoubleToString(date.days()) + " (" + DayName(date) + ")" : "-";
}

/// With a time of day now and then.
Date Moment(Draws& draws, Date day) {
    return draws.OneIn(6) ? day + kTenOClock : day;
}

TEST(IsNonWorkingDay, AnswersAsTheThreeSetsDo) {
    OnRandomCalendars(60, [](RandomCalendar& session, Draws& draws) {
        const Date date = Moment(draws, session.AnyDay());
        Date asked = date;
        Date counted = date;
        const Boolean answer = Gloabal::IsNonWorkingDay(asked);
        EXPECT_EQ(answer, Boolean(day_by_day::NonWorking(counted))) << TextOf(date);
        EXPECT_EQ(asked, counted);
    });
}

TEST(NumberOFNonWorkingDay, CountsAsDayByDay) {
    OnRandomCalendars(20, [](RandomCalendar& session, Draws& draws) {
        const Date a = Moment(draws, session.AnyDay());
        const Date b = Moment(draws, draws.OneIn(3) ? session.AnyDay() : session.DayNear(a.day()));
        EXPECT_EQ(Gloabal::NumberOFNonWorkingDay(a, b), day_by_day::NumberOfNonWorking(a, b))
            << TextOf(a) << " to " << TextOf(b);
    });
}

TEST(SetNextWorkingDay, SearchesAsDayByDay) {
    OnRandomCalendars(40, [](RandomCalendar& session, Draws& draws) {
        const Date date = draws.OneIn(20) ? Date() : Moment(draws, session.AnyDay());
        const int step = draws.OneIn(2) ? 1 : draws.OneIn(3) ? 2 : -1;
        const int days = draws.OneIn(2) ? 0 : draws.From(-3, 4);
        EXPECT_EQ(Gloabal::SetNextWorkingDay(date, Integer(step), Integer(days)),
                  day_by_day::NextWorkingDay(date, step, days))
            << TextOf(date) << " by " << step << ", at most " << days;
    });
}

// --- Gaps ------------------------------------------------------------------------------------------------------------

TEST(GetLeadTimeNoLink, MeasuresAsDayByDay) {
    OnRandomCalendars(20, [](RandomCalendar& session, Draws& draws) {
        const auto held = Make<TasksCol>();
        TasksCol& col = *held;
        const Date start = Moment(draws, session.AnyDay());
        const Date end = Moment(draws, draws.OneIn(4) ? session.AnyDay() : session.DayNear(start.day() - 5));
        for (const auto& [from, to] : {std::pair{start, end}, {start, Date()}, {Date(), end}}) {
            EXPECT_EQ(col.GetLeadTimeNoLink(from, to), day_by_day::GapBetween(from, to))
                << TextOf(from) << " behind " << TextOf(to);
        }
    });
}

TEST(AdjustDateForSummary, SearchesAsDayByDay) {
    OnRandomCalendars(10, [](RandomCalendar& session, Draws& draws) {
        const auto held = Make<TasksCol>();
        TasksCol& col = *held;
        const Date came_in = session.AnyDay();
        const Date old_preview = session.DayNear(came_in - draws.From(0, 10));
        const Date preview = session.DayNear(old_preview);
        const int given = draws.From(-9, 9);

        Date start = came_in;
        Variant shift = given;
        col.AdjustDateForSummary(start, preview, old_preview, shift);
        Date counted = came_in;
        long left = given;
        day_by_day::KeepGap(counted, preview, old_preview, left);
        const String asked = TextOf(came_in) + " from " + TextOf(old_preview) + " to " + TextOf(preview);
        EXPECT_EQ(TextOf(start), TextOf(counted)) << asked;
        EXPECT_EQ(shift, Variant(static_cast<int>(left))) << asked;
    });
}

TEST(CalcLeadTime, MeasuresAsDayByDay) {
    OnRandomCalendars(10, [](RandomCalendar& session, Draws& draws) {
        Module().BVersion = True;
        const auto held = Make<TasksCol>();
        TasksCol& col = *held;
        col.oPublicStaticCls = Make<StaticCls>();
        std::vector<Date> ends;
        const Ref<TasksCls> task = col.Add("");
        In(task).StoreStart(draws.OneIn(20) ? Date() : session.AnyDay());
        for (int n = draws.From(1, 4); n > 0; --n) {
            ends.push_back(draws.OneIn(10) ? Date() : session.DayNear(session.AnyDay()));
            const Ref<TasksCls> predecessor = col.Add("");
            In(predecessor).StoreEnd(ends.back());
            const String key = KeyText(predecessor->TaskKey()).text();
            task->TaskPredecessor()->Add(key, key);
        }
        const day_by_day::Leads leads = day_by_day::MeasureLeads(task->TaskBDate(), ends);
        String told;
        for (std::size_t i = 0; i < leads.gaps.size(); ++i) {
            told += std::to_string(i + 2) + "|" + std::to_string(leads.gaps[i]) + " ";
        }
        EXPECT_EQ(col.CalcLeadTime("1"), leads.largest) << TextOf(task->TaskBDate());
        String stored;
        for (const auto& entry : task->TaskLeadTime()->Snapshot()) stored += entry.item.As<String>() + " ";
        EXPECT_EQ(stored, told) << TextOf(task->TaskBDate());
    });
}

TEST(AdjustSummary, CountsTheDurationAsDayByDay) {
    OnRandomCalendars(20, [](RandomCalendar& session, Draws& draws) {
        const auto held = Make<TasksCol>();
        TasksCol& col = *held;
        col.oPublicStaticCls = Make<StaticCls>();
        const Ref<TasksCls> row = col.Add("");  // without children the span stays as it is
        const Date start = session.AnyDay();
        const Date end = draws.OneIn(5) ? start - draws.From(1, 9) : session.DayNear(start);
        In(row).StoreStart(start);
        In(row).StoreEnd(end);
        col.AdjustSummary("1");
        EXPECT_EQ(row->TaskDuration(), day_by_day::SummaryDuration(start, end))
            << TextOf(start) << " to " << TextOf(end);
    });
}

// --- Dates and durations of a row ------------------------------------------------------------------------------------

constexpr const char* kUnits[] = {"days", "days", "days", "days", "wks", "mons"};
constexpr double kDurations[] = {0, 0.4, 0.5, 1, 1, 1.5, 2, 2, 2.5, 3, 4, 5, 6.2, 7, 8, 11, 20, 45, 999, 1200};

/// A record, and the same on paper.
struct Twins {
    explicit Twins(Draws& draws) {
        paper.unit = draws.One(kUnits);
        paper.lag = draws.OneIn(2) ? 0 : draws.From(-6, 6);
        paper.milestone = draws.OneIn(6);
        paper.candidate = draws.OneIn(6);
        paper.has_parent = draws.OneIn(2);
        paper.has_children = draws.OneIn(3);
        paper.key = 7;
        record.TaskKey(Long(paper.key));
        record.TaskDurationUnit(paper.unit);
        record.TaskLag(Long(paper.lag));
        record.TaskMilstones(paper.milestone);
        record.TaskCondidat(!paper.candidate);
        if (paper.has_parent) record.ParentID(3);
        if (paper.has_children) In(record).Tasks()->Add("8", "8");
    }

    static day_by_day::Caches StoredCaches() {
        const ModuleState& module = Module();
        return {module.g_MinDate, module.g_MaxDate, long(module.g_MinDateTaskKey.value()),
                long(module.g_MaxDateTaskKey.value())};
    }
    static void SetCaches(const day_by_day::Caches& caches) {
        ModuleState& module = Module();
        module.g_MinDate = caches.min;
        module.g_MaxDate = caches.max;
        module.g_MinDateTaskKey = Long(caches.min_key);
        module.g_MaxDateTaskKey = Long(caches.max_key);
    }
    static String Flags(bool start, bool end, bool duration) {
        return String(start ? "S" : "-") + (end ? "E" : "-") + (duration ? "D" : "-");
    }
    static String CachesText(const day_by_day::Caches& caches) {
        return ", from " + TextOf(caches.min) + " of " + std::to_string(caches.min_key) + " to " + TextOf(caches.max) +
               " of " + std::to_string(caches.max_key);
    }
    String RecordText() {
        return TextOf(record.TaskBDate()) + " " + TextOf(record.TaskEDate()) + " " +
               Conversions::DoubleToString(record.TaskDuration()) + " " +
               Flags(bool(record.TaskBDateValid()), bool(record.TaskEDateValid()), bool(record.TaskDurationValid())) +
               CachesText(StoredCaches());
    }
    String PaperText(const day_by_day::Caches& caches) const {
        return TextOf(paper.start.day()) + " " + TextOf(paper.end.day()) + " " +
               Conversions::DoubleToString(paper.duration) + " " +
               Flags(paper.start_valid, paper.end_valid, paper.duration_valid) + CachesText(caches);
    }

    Ref<TasksCls> held = Make<TasksCls>();
    TasksCls& record = *held;
    day_by_day::Row paper;
};

TEST(SetDateWithoutWeekend, WalksAsDayByDay) {
    OnRandomCalendars(20, [](RandomCalendar& session, Draws& draws) {
        Twins twins(draws);
        twins.record.TaskDurationUnit(twins.paper.unit = "days");
        const Date start = draws.OneIn(20) ? Date() : Moment(draws, session.AnyDay());
        const double duration = draws.One(kDurations);
        EXPECT_EQ(TextOf(twins.record.SetDateWithoutWeekend(start, Double(duration))),
                  TextOf(twins.paper.EndOf(start, duration)))
            << duration << " days from " << TextOf(start);
    });
}

TEST(SetDateWithoutWeekend, StaysOnAWorkingDayInHoursAsHourByHour) {
    OnRandomCalendars(10, [](RandomCalendar& session, Draws& draws) {
        Twins twins(draws);
        twins.record.TaskDurationUnit(twins.paper.unit = draws.OneIn(2) ? "hrs" : "mins");
        const Date start = session.AnyDay();
        if (!Module().g_PublicCalendar || day_by_day::NonWorkingOn(start)) return;
        const double duration = draws.One(kDurations);
        EXPECT_EQ(TextOf(twins.record.SetDateWithoutWeekend(start, Double(duration))),
                  TextOf(twins.paper.EndOf(start, duration)))
            << duration << " " << twins.paper.unit << " from " << TextOf(start);
    });
}

TEST(SetStartDateWithoutWeekend, WalksAsDayByDay) {
    OnRandomCalendars(20, [](RandomCalendar& session, Draws& draws) {
        Twins twins(draws);
        twins.record.TaskDurationUnit(twins.paper.unit = "days");
        const Date end = draws.OneIn(20) ? Date() : Moment(draws, session.AnyDay());
        const double duration = draws.One(kDurations);
        EXPECT_EQ(TextOf(twins.record.SetStartDateWithoutWeekend(end, Double(duration))),
                  TextOf(twins.paper.StartOf(end, duration)))
            << duration << " days to " << TextOf(end);
    });
}

TEST(SetDurationWithoutWeekend, CountsAsDayByDay) {
    OnRandomCalendars(20, [](RandomCalendar& session, Draws& draws) {
        Twins twins(draws);
        twins.record.TaskDurationUnit(twins.paper.unit = "days");
        const Date start = draws.OneIn(20) ? Date() : Moment(draws, session.AnyDay());
        const Date end = Moment(draws, draws.OneIn(3) ? session.AnyDay() : session.DayNear(start.day()));
        EXPECT_EQ(twins.record.SetDurationWithoutWeekend(start, end), twins.paper.DurationBetween(start, end))
            << TextOf(start) << " to " << TextOf(end);
    });
}

/// Dates of the plan, and now and then one on the other side of the years that a plan may have.
Date AnyDate(RandomCalendar& session, Draws& draws) {
    if (draws.OneIn(12)) return Date();
    if (draws.OneIn(12)) return draws.One(std::vector{Date::Of(1999, 12, 28), Date::Of(1981, 5, 3)}) + draws.From(0, 9);
    if (draws.OneIn(12)) return Date::Of(2036, 12, 20) + draws.From(0, 20);
    return session.AnyDay();
}

TEST(TheSettersOfDates, KeepARowAsDayByDay) {
    OnRandomCalendars(12, [](RandomCalendar& session, Draws& draws) {
        Twins twins(draws);
        day_by_day::Caches caches;
        if (draws.OneIn(2)) caches = {session.AnyDay(), session.AnyDay(), draws.From(6, 7), draws.From(6, 7)};
        Twins::SetCaches(caches);
        String done;
        for (int step = 0; step < 6; ++step) {
            switch (draws.From(1, 3)) {
                case 1: {
                    const Date date = AnyDate(session, draws);
                    done += "start " + TextOf(date) + "; ";
                    twins.record.TaskBDate(date);
                    twins.paper.Start(date, caches);
                    break;
                }
                case 2: {
                    const Date date = draws.OneIn(10) ? Date() : Moment(draws, session.AnyDay());
                    done += "end " + TextOf(date) + "; ";
                    twins.record.TaskEDate(date);
                    twins.paper.End(date, caches);
                    break;
                }
                default: {
                    const double duration = draws.One(kDurations);
                    done += "duration " + Conversions::DoubleToString(duration) + "; ";
                    twins.record.TaskDuration(duration);
                    twins.paper.Duration(duration);
                }
            }
            ASSERT_EQ(twins.RecordText(), twins.PaperText(caches))
                << twins.paper.unit << ", lag " << twins.paper.lag << (twins.paper.milestone ? ", milestone" : "")
                << (twins.paper.has_parent ? ", below a parent" : "") << (twins.paper.has_children ? ", parent" : "")
                << ": " << done;
            if (draws.OneIn(4)) session.Change();
        }
    });
}

}  // namespace
}  // namespace mrlxmlclass
