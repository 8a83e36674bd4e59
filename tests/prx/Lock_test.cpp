#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <utility>

#include "mrlxmlclass/platform/ForwardingFiles.h"
#include "mrlxmlclass/platform/Services.h"
#include "prx/Edit.h"
#include "prx/Host.h"
#include "prx/Inspection.h"
#include "prx/Project.h"
#include "prx/Refusal.h"
#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

using mrlxmlclass::Files;
using mrlxmlclass::SystemServices;

/// The files of the system, and somebody else who does something at the worst moment.
class BusyFiles : public mrlxmlclass::ForwardingFiles {
public:
    explicit BusyFiles(const Folder& folder) : ForwardingFiles(SystemServices().files), folder_(folder) {}

    std::function<void()> after_first_reading;  ///< of the plan a.prx
    std::function<void(const std::string& lock)> before_holding;

    std::string Read(const std::string& path) override {
        std::string content = ForwardingFiles::Read(path);
        if (path == folder_.Path("a.prx") && after_first_reading) std::exchange(after_first_reading, nullptr)();
        return content;
    }
    mrlxmlclass::Integer Hold(const std::string& path) override {
        if (before_holding) before_holding(path);
        return ForwardingFiles::Hold(path);
    }
    std::string StateFolder() override { return folder_.Path("state"); }

private:
    const Folder& folder_;
};

/// The host of the commands in this process, with such files in place of the system's.
class Busy : public testing::Test {
protected:
    Busy() { folder_.CopyExample("house.prx", "a.prx"); }

    prx::Project ToEdit() { return prx::Project::ToEdit(host_, folder_.Path("a.prx"), /*force=*/false); }
    std::string WhyNot(const std::function<void()>& work) const {
        try {
            work();
        } catch (const prx::Refusal& refusal) {
            return refusal.what();
        }
        ADD_FAILURE() << "was not refused";
        return {};
    }
    /// Takes the lock as another program does.
    void HoldLock() const { SystemServices().files.Hold(folder_.Path("~a.prxl")); }

    static constexpr const char* kInUse = "somebody else has this project open; try again later";
    const Folder folder_;
    BusyFiles files_{folder_};

private:
    mrlxmlclass::Services services_{SystemServices().clock, SystemServices().locale, files_, SystemServices().shell,
                                    SystemServices().ui};
    mrlxmlclass::InstalledServices installed_{services_};

protected:
    prx::Host host_;
};

using Lock = Busy;

}  // namespace

TEST_F(Lock, IsHeldBeforeAPlanIsReadThatIsToBeChanged) {
    Result others;
    files_.after_first_reading = [&] { others = folder_.Prx({"rename", "a.prx", "2", "Another name"}); };
    {
        prx::Project project = ToEdit();
        prx::FindTask(project, "3")->TaskName("A name of ours");
        project.Save();
    }

    EXPECT_EQ(others.status, 2);
    EXPECT_TRUE(Has(others.err, kInUse)) << others.err;
    EXPECT_FALSE(Has(folder_.Read("a.prx"), "Another name"));
    EXPECT_TRUE(Has(folder_.Read("a.prx"), "A name of ours"));
    EXPECT_FALSE(folder_.Has("~a.prxl"));
}

TEST_F(Lock, ThatSomebodyTakesFirstIsARefusal) {
    files_.before_holding = [&](const std::string&) { HoldLock(); };

    EXPECT_TRUE(Has(WhyNot([&] { ToEdit(); }), kInUse));
}

TEST_F(Lock, ThatCannotBeHadIsARefusal) {
    files_.before_holding = [](const std::string&) { mrlxmlclass::Raise(mrlxmlclass::failure::kPermissionDenied); };

    EXPECT_EQ(WhyNot([&] { ToEdit(); }),
              folder_.Path("a.prx") + ": the lock beside it cannot be taken: Permission denied");
}

TEST_F(Lock, ThatIsLeftOverAndSomebodyElsesIsNamed) {
    folder_.Write("~a.prxl", "");
    files_.before_holding = [](const std::string&) { mrlxmlclass::Raise(mrlxmlclass::failure::kPermissionDenied); };

    EXPECT_EQ(WhyNot([&] { ToEdit(); }), folder_.Path("a.prx") +
                                             ": the lock beside it cannot be taken: Permission denied; nobody holds " +
                                             folder_.Path("~a.prxl") + ", so it may be deleted");
}

TEST_F(Lock, ThatIsALinkIsNotFollowed) {
    std::filesystem::create_symlink("nowhere", folder_.Path("~a.prxl"));

    EXPECT_TRUE(Has(folder_.Refusal({"rename", "a.prx", "2", "Another name"}), "is a file of another kind"));

    EXPECT_FALSE(folder_.Has("nowhere"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("~a.prxl")));
}

TEST_F(Lock, OfALinkIsNotMissedWhereItMayNotBeMade) {
    std::filesystem::create_symlink("a.prx", folder_.Path("b.prx"));
    files_.before_holding = [&](const std::string& lock) {
        if (lock == folder_.Path("~b.prxl")) mrlxmlclass::Raise(mrlxmlclass::failure::kPermissionDenied);
    };

    const prx::Project project = prx::Project::ToEdit(host_, folder_.Path("b.prx"), /*force=*/false);

    EXPECT_TRUE(folder_.Has("~a.prxl"));
}

TEST_F(Lock, ThatSomebodyLetsGoOfIsTaken) {
    files_.before_holding = [&](const std::string&) {
        files_.before_holding = nullptr;
        mrlxmlclass::Raise(mrlxmlclass::failure::kPermissionDenied);
    };

    ToEdit();
}

TEST_F(Lock, IsHeldBeforeANewPlanCounts) {
    const std::string plan = folder_.Read("a.prx");
    files_.before_holding = [&](const std::string&) { folder_.Write("b.prx", plan); };

    EXPECT_TRUE(
        Has(WhyNot([&] { prx::Project::Fresh(host_, folder_.Path("b.prx")); }), "there is such a file already"));
}

TEST_F(Lock, IsNotTakenByALook) {
    const prx::Project look = prx::Project::ToLook(host_, folder_.Path("a.prx"));

    folder_.Output({"rename", "a.prx", "2", "Another name"});
    const Result check = folder_.Prx({"check", "a.prx"});

    EXPECT_EQ(check.err, "");
}

TEST_F(Lock, OfAPlanIsTakenByBothNamesWhereOneIsALink) {
    std::filesystem::create_symlink("a.prx", folder_.Path("b.prx"));
    for (const char* lock : {"~a.prxl", "~b.prxl"}) {
        const mrlxmlclass::Integer held = SystemServices().files.Hold(folder_.Path(lock));
        EXPECT_TRUE(Has(folder_.Refusal({"rename", "b.prx", "2", "Another name"}), kInUse)) << lock;
        SystemServices().files.Release(held, folder_.Path(lock));
    }

    folder_.Output({"rename", "b.prx", "2", "Another name"});
    EXPECT_FALSE(folder_.Has("~a.prxl"));
    EXPECT_FALSE(folder_.Has("~b.prxl"));
}

TEST_F(Lock, IsNotMadeOfAFileThatHoldsSomething) {
    folder_.Write("~a.prxl", "a plan of that name");

    folder_.Output({"show", "a.prx"});
    EXPECT_EQ(folder_.Refusal({"rename", "a.prx", "2", "Another name"}),
              "prx: " + folder_.Path("a.prx") + ": the lock beside it cannot be taken: " + folder_.Path("~a.prxl") +
                  " is a file of another kind\n");

    EXPECT_EQ(folder_.Read("~a.prxl"), "a plan of that name");
}

TEST_F(Lock, ThatADeadProcessLeftIsTaken) {
    folder_.Write("~a.prxl", "");

    folder_.Output({"rename", "a.prx", "2", "Another name"});

    EXPECT_FALSE(folder_.Has("~a.prxl"));
}

TEST_F(Lock, OfSomebodyElseDoesNotChangeWhatALookSees) {
    files_.after_first_reading = [&] { folder_.Output({"add", "a.prx", "One task more"}); };

    const prx::Project look = prx::Project::ToLook(host_, folder_.Path("a.prx"));

    EXPECT_EQ(prx::Unread(look), std::vector<std::string>());
}

}  // namespace prx_test
