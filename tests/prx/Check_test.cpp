#include <gtest/gtest.h>

#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

/// A copy of a plan with one text of its file replaced.
class Damaged : public Folder {
public:
    Damaged(const std::string& from, const std::string& to) {
        CopyExample("house.prx", "a.prx");
        const std::string whole = Read("a.prx");
        Write("a.prx", Replaced(whole, from, to));
        EXPECT_NE(Read("a.prx"), whole) << from;
    }
    /// What check finds; it must find something.
    std::string Faults() const {
        const Result result = Prx({"check", "a.prx"});
        EXPECT_EQ(result.status, 1) << result.out << result.err;
        return result.out;
    }
};

void ExpectIn(const std::string& text, const std::string& part) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nis not in\n" << text;
}

}  // namespace

TEST(Check, FindsNothingWrongInTheExamples) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    EXPECT_EQ(folder.Output({"check", "a.prx"}), folder.Path("a.prx") + ": nothing is wrong, 63 tasks\n");
    for (const char* example : {"festival.prx", "orchard.prx"}) {
        folder.CopyExample(example, "a.prx");
        folder.Output({"check", "a.prx"});
    }
}

TEST(Check, NamesTheSectionsThatAreMissing) {
    const Damaged folder("Goals>", "Plans>");
    ExpectIn(folder.Faults(), "the section Goals is missing");
}

TEST(Check, NamesASectionThatStandsTwice) {
    const Damaged folder("</Goals>", "</Goals><Goals/>");
    ExpectIn(folder.Faults(), "the section Goals stands 2 times");
}

TEST(Check, TellsTheRowsThatWereRepaired) {
    const Damaged folder("<TaskPosition>63</TaskPosition>", "<TaskPosition>70</TaskPosition>");
    EXPECT_EQ(folder.Faults(),
              "Repaired in memory, not in the file:\n  task 63 \"Moving in\" was moved from row 70 to row 63\n");
}

TEST(Check, TellsARowThatTwoTasksHave) {
    const Damaged folder("<TaskPosition>10</TaskPosition>", "<TaskPosition>11</TaskPosition>");
    ExpectIn(folder.Faults(), "was moved from row 11 to row");
}

TEST(Check, TellsTheDatesThatTheLoadMoved) {
    const Damaged folder("<TaskName>Excavate</TaskName><TaskBDate>5/13/2026",
                         "<TaskName>Excavate</TaskName><TaskBDate>5/13/1990");
    const std::string faults = folder.Faults();
    ExpectIn(faults, "Repaired in memory, not in the file:\n  the start of task ");
    ExpectIn(faults, " \"Excavate\" was moved from 1990-05-13 to 2000-05-1");
    folder.Output({"check", "a.prx", "--repair", "b.prx"});
    folder.Output({"check", "b.prx"});
}

TEST(Check, TellsAnEndThatTheLoadCountedAnew) {
    const Damaged folder("<TaskName>Excavate</TaskName><TaskBDate>5/13/2026</TaskBDate><TaskEDate>5/",
                         "<TaskName>Excavate</TaskName><TaskBDate>5/13/2026</TaskBDate><TaskEDate>4/");
    ExpectIn(folder.Faults(), "the end of task ");
    ExpectIn(folder.Faults(), " \"Excavate\" was moved from 2026-04-");
}

TEST(Check, TellsAUnitThatCountsAsDays) {
    const Damaged folder("<TaskDurationUnit>days<", "<TaskDurationUnit>moons<");
    ExpectIn(folder.Faults(), " counts in days, not in \"moons\"\n");
}

TEST(Check, TellsWhatCouldNotBeRead) {
    const Damaged folder("<TaskName>Excavate</TaskName><TaskBDate>5/13/2026",
                         "<TaskName>Excavate</TaskName><TaskBDate>soon");
    const std::string faults = folder.Faults();
    ExpectIn(faults, "could not be read");
    ExpectIn(faults, "TasksCol.FromXmlInt)");
}

TEST(Check, FindsAKeyThatTwoTasksHave) {
    const Damaged folder("<TaskKey>20</TaskKey>", "<TaskKey>19</TaskKey>");
    ExpectIn(folder.Faults(), "records in Tasks could not be read");
}

TEST(Check, FindsATaskWhoseParentIsGone) {
    const Damaged folder("<ParentID>16</ParentID>", "<ParentID>999</ParentID>");
    ExpectIn(folder.Faults(), "belongs to task 999, which is not in the outline");
}

TEST(Check, FindsATaskThatIsItsOwnParent) {
    const Damaged folder(
        "<ParentID>1</ParentID><TaskType>true</TaskType><TaskCondidat>true</TaskCondidat>"
        "<TaskMilstones>false</TaskMilstones><TaskKey>2</TaskKey>",
        "<ParentID>2</ParentID><TaskType>true</TaskType><TaskCondidat>true</TaskCondidat>"
        "<TaskMilstones>false</TaskMilstones><TaskKey>2</TaskKey>");
    ExpectIn(folder.Faults(), "task 2 \"Site survey\" does not stand below its parent, task 2");
}

TEST(Check, RefusesWhatIsNoProject) {
    const Folder folder;
    folder.Write("a.prx", "");
    EXPECT_NE(folder.Refusal({"check", "a.prx"}).find("cannot be read as a project"), std::string::npos);
}

TEST(Check, ChangesNothing) {
    const Damaged folder("<TaskPosition>63</TaskPosition>", "<TaskPosition>70</TaskPosition>");
    const std::string before = folder.Read("a.prx");
    folder.Faults();
    EXPECT_EQ(folder.Read("a.prx"), before);
}

TEST(Check, TellsWhatNoEditKeepsOfASoundFile) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    EXPECT_EQ(folder.Prx({"check", "a.prx"}).err, "");
    std::string text = Replaced(folder.Read("a.prx"), "<Project>", "<!-- ours --><Project owner=\"Ann\"><?stamp 1?>");
    folder.Write("a.prx", Replaced(text, "</TaskName>", "<!-- checked --></TaskName>"));

    const Result result = folder.Prx({"check", "a.prx"});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "prx: no edit and no repair keeps what belongs to no record: 64 comments, 1 instruction, 1 attribute\n");
}

}  // namespace prx_test
