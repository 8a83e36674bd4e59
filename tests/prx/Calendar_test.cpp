#include <gtest/gtest.h>

#include "tests/prx/Prx.h"

namespace prx_test {

TEST(Calendar, ShowsTheUsualWeekOfANewProject) {
    const Folder folder;
    folder.Output({"new", "a.prx"});

    EXPECT_EQ(folder.Output({"calendar", "a.prx"}),
              "Working days: Monday, Tuesday, Wednesday, Thursday, Friday\n"
              "Free days:    Saturday, Sunday\n"
              "Holidays:     none\n"
              "Exceptions:   none\n");
}

TEST(Calendar, KeepsWhatWasChanged) {
    const Folder folder;
    folder.Output({"new", "a.prx"});

    folder.Output({"calendar", "a.prx", "--free", "fri", "--work", "Saturday", "--holiday", "2026-12-24", "--holiday",
                   "2026-05-01", "--exception", "2026-06-21"});
    folder.Output({"calendar", "a.prx", "--no-holiday", "2026-12-24"});

    EXPECT_EQ(folder.Output({"calendar", "a.prx"}),
              "Working days: Monday, Tuesday, Wednesday, Thursday, Saturday\n"
              "Free days:    Friday, Sunday\n"
              "Holidays:     2026-05-01\n"
              "Exceptions:   2026-06-21\n");
    EXPECT_EQ(
        folder.Output({"calendar", "a.prx", "--no-exception", "2026-06-21", "--json"}),
        R"({"working": ["Monday", "Tuesday", "Wednesday", "Thursday", "Saturday"], "free": ["Friday", "Sunday"], )"
        R"("holidays": ["2026-05-01"], "exceptions": []})"
        "\n");
}

TEST(Calendar, DecidesOnWhichDaysATaskCanStart) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"calendar", "a.prx", "--holiday", "2026-03-02"});

    EXPECT_NE(folder.Output({"add", "a.prx", "Task", "--start", "2026-03-02"}).find("DateStartChange(1, 2026-03-03,"),
              std::string::npos);
}

TEST(Calendar, TellsWhichExceptionsGoWithAWeekday) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"calendar", "a.prx", "--exception", "2026-06-20", "--exception", "2026-06-21"});

    const Result result = folder.Prx({"calendar", "a.prx", "--work", "sat"});

    EXPECT_EQ(result.err, "prx: 2026-06-20 is no exception any more: its weekday is worked\n");
    EXPECT_TRUE(result.out.ends_with("Exceptions:   2026-06-21\n")) << result.out;
}

TEST(Calendar, HasNoExceptionOnAHoliday) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"calendar", "a.prx", "--holiday", "2026-06-20"});
    const std::string before = folder.Read("a.prx");

    EXPECT_EQ(folder.Refusal({"calendar", "a.prx", "--exception", "2026-06-20"}),
              "prx: 2026-06-20 is a holiday, and free even as an exception; --no-holiday ends that\n");
    EXPECT_EQ(folder.Refusal({"calendar", "a.prx", "--holiday", "2026-06-27", "--exception", "2026-06-27"}),
              "prx: 2026-06-27 is a holiday, and free even as an exception; --no-holiday ends that\n");
    EXPECT_EQ(folder.Read("a.prx"), before);

    EXPECT_EQ(folder.Refusal({"calendar", "a.prx", "--exception", "2026-06-22"}),
              "prx: 2026-06-22 is worked already: its weekday is not free\n");
    folder.Output({"calendar", "a.prx", "--no-holiday", "2026-06-20", "--exception", "2026-06-20"});
    EXPECT_EQ(folder.Prx({"calendar", "a.prx", "--holiday", "2026-06-20"}).err,
              "prx: 2026-06-20 is an exception, too, and free all the same\n");
}

TEST(Calendar, RefusesWhatIsNoDay) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    const std::string before = folder.Read("a.prx");

    EXPECT_NE(folder.Refusal({"calendar", "a.prx", "--free", "someday"}), "");
    EXPECT_NE(folder.Refusal({"calendar", "a.prx", "--free", "su"}), "");
    EXPECT_NE(folder.Refusal({"calendar", "a.prx", "--holiday", "2026-02-30"}), "");

    EXPECT_EQ(folder.Read("a.prx"), before);
}

TEST(Calendar, MayHaveNoWorkingDayAtAllWithoutHangingAnybody) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Write("a.prx", Replaced(folder.Read("a.prx"), ">7:7;1:1<", ">1:1;2:2;3:3;4:4;5:5;6:6;7:7<"));

    EXPECT_NE(folder.Refusal({"add", "a.prx", "Task", "--start", "2026-03-02"}), "");
    EXPECT_EQ(folder.Prx({"check", "a.prx"}).out, "Still wrong:\n  the calendar has no working weekday\n");
    folder.Output({"calendar", "a.prx", "--work", "mon"});
    folder.Output({"check", "a.prx"});
}

TEST(Calendar, LosesNoLastWorkingDay) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"calendar", "a.prx", "--free", "mon", "--free", "tue", "--free", "wed", "--free", "thu"});
    const std::string before = folder.Read("a.prx");

    const std::string refusal = "prx: no weekday would be worked, and no task could end\n";
    EXPECT_EQ(folder.Refusal({"calendar", "a.prx", "--free", "fri"}), refusal);
    EXPECT_EQ(folder.Refusal({"calendar", "a.prx", "--free", "fri", "--exception", "2026-06-21"}), refusal);
    EXPECT_EQ(folder.Read("a.prx"), before);
}

}  // namespace prx_test
