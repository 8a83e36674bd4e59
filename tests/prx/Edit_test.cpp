#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// An environment variable as a test needs it; prx inherits it.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        value == nullptr ? unsetenv(name) : setenv(name, value, 1);
    }
    ~Variable() { unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
};

class EditInWindow : public ::testing::Test {
protected:
    EditInWindow() { folder.CopyExample("house.prx", "a.prx"); }

    Variable display{"DISPLAY", nullptr};
    Variable wayland{"WAYLAND_DISPLAY", nullptr};
    PlanFolder folder;
};

TEST_F(EditInWindow, SaysWhyThereIsNoWindow) {
    const Variable platform("QT_QPA_PLATFORM", nullptr);
    const std::string reason = folder.Refused({"edit", "Kitchen"});
#ifdef PRX_WITH_WINDOWS
    EXPECT_EQ(reason, "prx: there is no display to show a window on\n");
#else
    EXPECT_EQ(reason, "prx: this prx was built without windows; build it where Qt 6 Widgets is installed\n");
#endif
}

TEST_F(EditInWindow, SaysThatItsWindowsAreMissingOrDoNotStart) {
    const std::string lonely = folder.Path("prx");
    std::filesystem::copy_file(PRX_PROGRAM, lonely);
    const std::string edit = lonely + " edit " + folder.Path("a.prx") + " Kitchen 2>" + folder.Path("told");
    EXPECT_EQ(std::system(edit.c_str()) >> 8, 2);
    EXPECT_EQ(folder.Read("told"),
              "prx: this prx was built without windows; build it where Qt 6 Widgets is installed\n");

    folder.Write("prx-windows", "#!/bin/sh\necho The loader misses a library >&2; exit 127\n");
    std::filesystem::permissions(folder.Path("prx-windows"), std::filesystem::perms::owner_all);
    EXPECT_EQ(std::system(edit.c_str()) >> 8, 2);
    EXPECT_EQ(folder.Read("told"), "The loader misses a library\nprx: the program of its windows does not start\n");
}

#ifdef PRX_WITH_WINDOWS

TEST_F(EditInWindow, RefusesATaskThatIsNotThere) {
    const Variable platform("QT_QPA_PLATFORM", "offscreen");
    EXPECT_EQ(folder.Refused({"edit", "Castle"}), "prx: there is no task \"Castle\"\n");
}

TEST_F(EditInWindow, RefusesAPlanThatCannotBeReplacedBeforeItOpensTheWindow) {
    const Variable platform("QT_QPA_PLATFORM", "offscreen");
    std::filesystem::permissions(folder.Path("a.prx"), std::filesystem::perms::owner_read);
    const std::string reason = folder.Refused({"edit", "Kitchen"});
    EXPECT_EQ(reason, "prx: " + folder.Path("a.prx") + " cannot be replaced (Permission denied).\n");
}

TEST_F(EditInWindow, StartsWhereTheEndsOfChildrenAreIgnored) {
    const Variable platform("QT_QPA_PLATFORM", "offscreen");
    const std::string edit =
        "env --ignore-signal=CHLD " PRX_PROGRAM " edit " + folder.Path("a.prx") + " Castle 2>" + folder.Path("told");
    EXPECT_EQ(std::system(edit.c_str()) >> 8, 2);
    EXPECT_EQ(folder.Read("told"), "prx: there is no task \"Castle\"\n");
}

TEST_F(EditInWindow, LosesNothingWhenItIsKilled) {
    const Variable platform("QT_QPA_PLATFORM", "offscreen");
    const std::string before = folder.Read("a.prx");
    const std::string killed = "timeout --foreground -s KILL 1 " PRX_PROGRAM " edit " + folder.Path("a.prx") +
                               " Kitchen 2>" + folder.Path("killed.err");
    EXPECT_EQ(std::system(killed.c_str()) >> 8, 128 + 9) << folder.Read("killed.err");
    EXPECT_TRUE(folder.Read("a.prx") == before);
    folder.Edit({"rename", "Kitchen", "Kitchen and bath"});
}

#endif

#ifdef PRX_PERSON

/// Somebody who is at the dialog as soon as it shows.
class PersonAtTheWindow : public EditInWindow {
protected:
    Variable platform{"QT_QPA_PLATFORM", "offscreen"};
    Variable loaded{"LD_PRELOAD", PRX_PERSON};
};

TEST_F(PersonAtTheWindow, SavesAnotherDurationAndMovesWhatWaits) {
    const std::string waiting = folder.Days("Final inspection");
    {
        const Variable types("PERSON_TYPES", "25");
        const Variable presses("PERSON_PRESSES", "CmdOK");
        const std::string events = folder.Edit({"edit", "Kitchen"});
        EXPECT_NE(events.find("DurationChange("), std::string::npos) << events;
    }
    EXPECT_NE(folder.Row("Kitchen").find("\"duration\": 25"), std::string::npos) << folder.Row("Kitchen");
    EXPECT_NE(folder.Days("Final inspection"), waiting);
}

TEST_F(PersonAtTheWindow, SavesSomebodyWhoIsNew) {
    const Variable knows("PERSON_KNOWS", "Eve");
    const Variable presses("PERSON_PRESSES", "CmdOK");
    folder.Edit({"edit", "Kitchen"});
    EXPECT_NE(folder.Read("a.prx").find("Eve"), std::string::npos);
}

TEST_F(PersonAtTheWindow, SavesNothingOnCancelNotEvenSomebodyWhoIsNew) {
    const std::string before = folder.Read("a.prx");
    const Variable types("PERSON_TYPES", "25");
    const Variable knows("PERSON_KNOWS", "Eve");
    const Variable presses("PERSON_PRESSES", "CmdCancel");
    const Result result = folder.Prx({"edit", "a.prx", "Kitchen"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("prx: left without OK, so nothing was saved\n"), std::string::npos) << result.err;
    EXPECT_TRUE(folder.Read("a.prx") == before);
}

TEST_F(PersonAtTheWindow, ReadsInABoxThatAnAttachmentIsGone) {
    {
        folder.Output({"note", "a.prx", "add", "The plan", "--link", "/gone/plan.pdf"});
        folder.Output({"assign", "a.prx", "Kitchen", "note", "The plan"});
    }
    const Variable opens("PERSON_OPENS", "1");
    const Variable presses("PERSON_PRESSES", "CmdCancel");
    const Result result = folder.Prx({"edit", "a.prx", "Kitchen"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "box: The attachment could not be opened.\n");
    EXPECT_EQ(result.err.find("could not be opened"), std::string::npos) << result.err;
}

TEST_F(PersonAtTheWindow, SavesThoughSomethingFailedOnTheWay) {
    const Variable knows("PERSON_KNOWS", "Eve");
    const Variable lags("PERSON_LAGS", "2");
    const Variable presses("PERSON_PRESSES", "CmdOK");
    const Result result = folder.Prx({"edit", "a.prx", "Kitchen"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.err.find("prx: in the window: The value is not of the type that is needed (13 in EditTask."),
              std::string::npos)
        << result.err;
    EXPECT_NE(folder.Read("a.prx").find("Eve"), std::string::npos);
    EXPECT_EQ(folder.Row("Kitchen").find("\"lag\": 2"), std::string::npos) << folder.Row("Kitchen");
}

TEST_F(PersonAtTheWindow, ReadsThatThereIsNoHelp) {
    const Variable presses("PERSON_PRESSES", "CmdHelp CmdCancel");
    const Result result = folder.Prx({"edit", "a.prx", "Kitchen"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "box: There are no pages of help on this window.\n");
    EXPECT_NE(result.err.find("prx: left without OK, so nothing was saved\n"), std::string::npos) << result.err;
}

TEST_F(PersonAtTheWindow, SavesNothingWhenOkIsPressedAtOnce) {
    const std::string before = folder.Read("a.prx");
    const Variable presses("PERSON_PRESSES", "CmdOK");
    const Result result = folder.Prx({"edit", "a.prx", "Kitchen"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(folder.Read("a.prx") == before);
}

#endif

}  // namespace
}  // namespace prx_test
