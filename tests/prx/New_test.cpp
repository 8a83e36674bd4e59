#include <gtest/gtest.h>

#include "tests/prx/Prx.h"

namespace prx_test {

TEST(New, StartsAnEmptyProjectWithItsName) {
    const Folder folder;

    EXPECT_EQ(folder.Output({"new", "a.prx", "--name", "Trial & \"error\"", "--start", "2026-03-02"}),
              folder.Path("a.prx") + "\n");

    EXPECT_EQ(folder.Output({"show", "a.prx"}), "Trial & \"error\": 0 tasks\n");
    EXPECT_NE(folder.Output({"show", "--json", "a.prx"}).find("\"start\": \"2026-03-02\""), std::string::npos);
}

TEST(New, LeavesAFileThatIsThereAlone) {
    const Folder folder;
    folder.Write("a.prx", "precious");

    EXPECT_EQ(folder.Refusal({"new", "a.prx"}), "prx: " + folder.Path("a.prx") + ": there is such a file already\n");

    EXPECT_EQ(folder.Read("a.prx"), "precious");
}

TEST(New, WritesNothingWhenADateIsWrong) {
    const Folder folder;

    for (const char* date : {"2026-02-29", "2026-3-2", "02.03.2026", "tomorrow", "0026-01-01", "2026-03-02x"}) {
        EXPECT_NE(folder.Refusal({"new", "a.prx", "--start", date}).find(date), std::string::npos);
    }

    EXPECT_FALSE(folder.Has("a.prx"));
    EXPECT_FALSE(folder.Has("~a.prxl"));
}

TEST(New, RefusesADeadlineBeforeTheStart) {
    const Folder folder;
    EXPECT_EQ(folder.Refusal({"new", "a.prx", "--start", "2026-03-02", "--deadline", "2026-02-01"}),
              "prx: the deadline 2026-02-01 lies before the start 2026-03-02\n");
    EXPECT_FALSE(folder.Has("a.prx"));
}

TEST(New, RefusesTheDayThatStandsForNone) {
    const Folder folder;
    EXPECT_EQ(folder.Refusal({"new", "a.prx", "--start", "1899-12-30"}),
              "prx: \"1899-12-30\" is not a day that a plan can hold: in a file it stands for no day\n");
    EXPECT_FALSE(folder.Has("a.prx"));
}

TEST(New, RefusesAFolderThatIsNotThere) {
    const Folder folder;
    EXPECT_NE(folder.Refusal({"new", "nowhere/a.prx"}), "");
}

}  // namespace prx_test
