#include <gtest/gtest.h>

#include "tests/session/Formats.h"
#include "tests/support/RandomProject.h"
#include "tests/support/SavedRecords.h"
#include "tests/support/Wiring.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

constexpr unsigned kProjects = 40;
constexpr unsigned kManyProjects = 1000;

/// Loads what was saved, under a format; nothing is recorded by it.
void LoadUnder(RandomProject& project, const char* format, Boolean only_tasks = False, Boolean for_lib = False) {
    project.platform.locale.Use(format);
    ASSERT_EQ(project.app->LoadXML(only_tasks, for_lib), True);
    project.app->endreadonly();
    ASSERT_EQ(project.failures.Taken(), "");
}

/// A drawn project for each seed, under three of the formats; `body` is told the text of its file.
template <class Body>
void ForRandomProjects(unsigned projects, Body&& body) {
    for (unsigned seed = 1; seed <= Rounds(projects); ++seed) {
        const char* format = kFormats[seed % 3];
        SCOPED_TRACE("seed " + std::to_string(seed) + " under " + format);
        RandomProject project(seed, format);
        ASSERT_EQ(project.failures.Taken(), "");
        const String file = project.Saved("first.prx");
        ASSERT_FALSE(file.empty());
        body(project, file, format);
        if (::testing::Test::HasFailure()) return;  // the first seed that shows it
    }
}

TEST(RandomProjects, AreTheSameAfterALoadButForWhatALoadMends) {
    ForRandomProjects(kManyProjects, [](RandomProject& project, const String& file, const char* format) {
        LoadUnder(project, format);
        const SavedRecords again = RecordsIn(project.Saved("second.prx"));
        EXPECT_EQ(Difference(AfterALoad(RecordsIn(file), format, format), again), "");
        EXPECT_EQ(WrongCopies(*project.app, again), "");
    });
}

TEST(RandomProjects, StayAsTheyAreFromTheSecondLoadOn) {
    ForRandomProjects(kProjects, [](RandomProject& project, const String&, const char* format) {
        LoadUnder(project, format);
        const SavedRecords once = RecordsIn(project.Saved("second.prx"));
        LoadUnder(project, format);
        EXPECT_EQ(Difference(once, RecordsIn(project.Saved("third.prx"))), "");
    });
}

/// Takes out the dates that are read by their separators alone.
SavedRecords WithoutCarriedDates(SavedRecords saved) {
    for (const String& task : saved.Of("Tasks")) saved.Drop(task, "TaskModifiedDate");
    for (const char* field : {"ProjectStartLine", "ProjectDeadLine"}) saved.Drop("Project", field);
    return saved;
}

TEST(RandomProjects, KeepEveryTaskDateAndEveryDayOfTheCalendarUnderAnotherFormat) {
    for (unsigned seed = 1; seed <= Rounds(3); ++seed) {
        for (const char* written : kFormats) {
            for (const char* read : kFormats) {
                SCOPED_TRACE("seed " + std::to_string(seed) + ", " + written + " read under " + read);
                RandomProject project(seed, written);
                const SavedRecords file = RecordsIn(project.Saved("first.prx"));
                ASSERT_NO_FATAL_FAILURE(LoadUnder(project, read));
                const SavedRecords again = RecordsIn(project.Saved("second.prx"));
                ASSERT_EQ(Difference(WithoutCarriedDates(AfterALoad(file, written, read)), WithoutCarriedDates(again)),
                          "");
            }
        }
    }
}

TEST(RandomProjects, KeepTheirTasksAloneInALoadOfTheTasks) {
    ForRandomProjects(kProjects, [](RandomProject& project, const String& file, const char* format) {
        LoadUnder(project, format, /*only_tasks=*/True);
        const SavedRecords again = RecordsIn(project.Saved("second.prx"));
        EXPECT_EQ(Difference(AfterALoadOfTasks(RecordsIn(file), format, format), again), "");
    });
}

TEST(RandomProjects, KeepTheReducedRecordsInALoadAsALibrary) {
    ForRandomProjects(kProjects, [](RandomProject& project, const String& file, const char* format) {
        LoadUnder(project, format, False, /*for_lib=*/True);
        const SavedRecords again = RecordsIn(project.Saved("second.prx"));
        EXPECT_EQ(Difference(AfterALoadAsLibrary(RecordsIn(file), format, /*only_tasks=*/false), again), "");
    });
}

TEST(RandomProjects, KeepTheReducedTasksAloneInALoadOfTheTasksAsALibrary) {
    ForRandomProjects(kProjects, [](RandomProject& project, const String& file, const char* format) {
        LoadUnder(project, format, /*only_tasks=*/True, /*for_lib=*/True);
        const SavedRecords again = RecordsIn(project.Saved("second.prx"));
        EXPECT_EQ(Difference(AfterALoadAsLibrary(RecordsIn(file), format, /*only_tasks=*/true), again), "");
    });
}

}  // namespace
}  // namespace mrlxmlclass
