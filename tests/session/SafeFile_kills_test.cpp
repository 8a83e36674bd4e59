#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <iostream>
#include <random>

#include "mrlxmlclass/session/SafeFile.h"
#include "tests/session/SavedProject.h"

namespace mrlxmlclass {
namespace {

using testing::Listed;
using testing::SavedProject;
using Clock = std::chrono::steady_clock;

/// A child process that saves the project as it stands here.
class SavingChild {
public:
    /// `prepare` runs in the child before it saves. Returns when the child is about to start.
    template <class Prepare>
    SavingChild(SavedProject& project, Prepare&& prepare) {
        int ready[2];
        if (pipe(ready) != 0) std::abort();
        child_ = fork();
        if (child_ == 0) {
            prepare();
            [[maybe_unused]] const ssize_t told = write(ready[1], "!", 1);
            _exit(SaveSafely(project.app).empty() ? 0 : 1);
        }
        char sign = 0;
        [[maybe_unused]] const ssize_t heard = read(ready[0], &sign, 1);
        close(ready[0]);
        close(ready[1]);
    }
    explicit SavingChild(SavedProject& project) : SavingChild(project, [] {}) {}
    SavingChild(const SavingChild&) = delete;
    SavingChild& operator=(const SavingChild&) = delete;

    void Kill() const { kill(child_, SIGKILL); }
    /// Whether it came to its end and had saved.
    bool Saved() const {
        int status = 0;
        waitpid(child_, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    pid_t child_ = 0;
};

/// A project on the disk, and the other file that a save of its present state makes.
struct Change {
    explicit Change(SavedProject& project) {
        EXPECT_EQ(SaveSafely(project.app), "");
        before = project.Read("house.prx");
        project.Rename("Roof", "A roof of thatch");
        const auto start = Clock::now();
        EXPECT_TRUE(SavingChild(project).Saved());
        duration = Clock::now() - start;
        after = project.Read("house.prx");
        EXPECT_NE(before, after);
    }

    String before;
    String after;
    Clock::duration duration{};
};

TEST(SaveSafely, LeavesAWholeFileWheneverItIsKilled) {
    constexpr int kTasks = 1000;
    constexpr int kKills = 200;
    constexpr int kSavesBetween = 40;
    SavedProject project;
    while (project.col().Count() < kTasks) project.AddTask("Task " + std::to_string(project.col().Count() + 1));
    const Change change(project);
    const unsigned seed = std::random_device()();
    std::cout << "seed " << seed << ", a save takes "
              << std::chrono::duration_cast<std::chrono::microseconds>(change.duration).count() << " us\n";
    std::mt19937 random(seed);
    std::uniform_int_distribution<std::int64_t> moments(0, change.duration.count());

    int old = 0;
    int left_behind = 0;
    for (int killed = 0; killed < kKills; ++killed) {
        SCOPED_TRACE("kill " + std::to_string(killed));
        project.Write("house.prx", change.before);
        const SavingChild child(project);
        const auto moment = Clock::now() + Clock::duration(moments(random));
        while (Clock::now() < moment) usleep(50);
        child.Kill();
        child.Saved();

        const String found = project.Read("house.prx");
        ASSERT_TRUE(found == change.before || found == change.after);
        old += found == change.before ? 1 : 0;
        const String there = project.FilesThere();
        ASSERT_LE(std::ranges::count(there, ' '), 1) << there << ": no save leaves what one before it left";
        left_behind += there == "house.prx" ? 0 : 1;
        if (killed % kSavesBetween != 0) continue;
        EXPECT_TRUE(SavingChild(project).Saved());
        EXPECT_EQ(project.FilesThere(), "house.prx");
        EXPECT_EQ(project.Read("house.prx"), change.after);
    }
    EXPECT_TRUE(SavingChild(project).Saved());
    EXPECT_EQ(project.FilesThere(), "house.prx");
    EXPECT_GT(old, 0);
    EXPECT_GT(left_behind, 0);  // some came in the middle
}

/// Ends the process instead of the n-th call that changes something on the disk, or halfway through it.
class DeadlyFiles : public ForwardingFiles {
public:
    DeadlyFiles(testing::TestPlatform& platform, int nth)
        : ForwardingFiles(platform.files),
          left_(nth),
          services_{platform.clock, platform.locale, *this, platform.shell, platform.ui} {}

    std::unique_ptr<OutputFile> Create(const String& path) override {
        Pass();
        return std::make_unique<Output>(*this, ForwardingFiles::Create(path));
    }
    std::unique_ptr<OutputFile> Open(const String& path) override {
        return std::make_unique<Output>(*this, ForwardingFiles::Open(path));
    }
    void Rename(const String& from, const String& to) override {
        Pass();
        ForwardingFiles::Rename(from, to);
    }
    void Delete(const String& path) override {
        Pass();
        ForwardingFiles::Delete(path);
    }
    void SetMode(const String& path, std::uint32_t mode) override {
        Pass();
        ForwardingFiles::SetMode(path, mode);
    }
    void SyncFolder(const String& folder) override {
        Pass();
        ForwardingFiles::SyncFolder(folder);
    }
    void SetAttributes(const String& path, Integer value) override {
        Pass();
        ForwardingFiles::SetAttributes(path, value);
    }

private:
    class Output : public OutputFile {
    public:
        Output(DeadlyFiles& files, std::unique_ptr<OutputFile> file) : files_(files), file_(std::move(file)) {}
        void WriteAt(std::uint64_t offset, std::string_view bytes) override {
            const std::size_t half = bytes.size() / 2;
            file_->WriteAt(offset, bytes.substr(0, half));
            files_.Pass();
            file_->WriteAt(offset + half, bytes.substr(half));
        }
        void Cut(std::uint64_t length) override { file_->Cut(length); }
        void Sync() override {
            files_.Pass();
            file_->Sync();
        }
        FileFacts Facts() override { return file_->Facts(); }
        void Close() override {
            files_.Pass();
            file_->Close();
        }

    private:
        DeadlyFiles& files_;
        std::unique_ptr<OutputFile> file_;
    };

    void Pass() {
        if (--left_ == 0) kill(getpid(), SIGKILL);
    }

    int left_;
    Services services_;
    InstalledServices installed_{services_};
};

TEST(SaveSafely, LeavesAWholeFileAtWhicheverCallItIsKilled) {
    SavedProject project;
    const Change change(project);
    int saved_anew = 0;
    int nth = 1;
    for (bool finished = false; !finished; ++nth) {
        SCOPED_TRACE("call " + std::to_string(nth));
        project.Write("house.prx", change.before);
        std::unique_ptr<DeadlyFiles> files;
        const SavingChild child(project, [&] { files = std::make_unique<DeadlyFiles>(project.platform, nth); });
        finished = child.Saved();

        const String found = project.Read("house.prx");
        EXPECT_TRUE(found == change.before || found == change.after);
        saved_anew += found == change.after ? 1 : 0;
        EXPECT_TRUE(SavingChild(project).Saved());
        EXPECT_EQ(project.FilesThere(), "house.prx");
    }
    EXPECT_GT(nth, 30);
    EXPECT_GT(saved_anew, 1);  // killed behind the rename
}

/// No file of this process grows beyond a size: a write that would is refused by the system.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limited = before_;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST(SaveSafely, KeepsTheOldFileWhenTheSystemRefusesToLetTheNewOneGrow) {
    SavedProject project;
    ASSERT_EQ(SaveSafely(project.app, False), "");
    const String before = project.Read("house.prx");
    while (project.col().Count() < 100) project.AddTask("Task " + std::to_string(project.col().Count() + 1));
    const String refused = project.Path("house.prx") + " was not saved: the new copy beside it could not be written (";
    // The error log stays below the limit.
    for (const rlim_t bytes : {rlim_t{8192}, rlim_t{16384}}) {
        const FileSizeLimit limit(bytes);

        EXPECT_TRUE(SaveSafely(project.app, False).starts_with(refused));

        EXPECT_EQ(project.Read("house.prx"), before);
        EXPECT_EQ(project.FilesThere(), "house.prx");
        EXPECT_EQ(project.failures.Taken(), "TasksCol/ToXmlFile 57\nApplication/Save 91\nSafeFile/SaveSafely 57\n");
    }
    EXPECT_EQ(SaveSafely(project.app, False), "");
    EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), "");
}

/// Puts a disk of that many bytes on a folder, for this process alone.
bool MountSmallDisk(const String& folder, std::size_t bytes) {
    if (unshare(CLONE_NEWNS) != 0) return false;
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
    const String size = "size=" + std::to_string(bytes);
    return mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

void SaveOnASmallDisk() {
    SavedProject project;
    const String disk = project.platform.Path("plans");
    // Without the right to mount, the files of this process are kept small instead.
    std::unique_ptr<FileSizeLimit> limit;
    if (!MountSmallDisk(disk, 65536)) limit = std::make_unique<FileSizeLimit>(32768);
    ASSERT_EQ(SaveSafely(project.app, False), "");
    const String before = project.Read("house.prx");
    while (project.col().Count() < 300) project.AddTask("Task " + std::to_string(project.col().Count() + 1));

    const String trouble = SaveSafely(project.app, False);

    EXPECT_TRUE(trouble.starts_with(project.Path("house.prx") + " was not saved: ")) << trouble;
    EXPECT_EQ(project.Read("house.prx"), before);
    EXPECT_EQ(project.FilesThere(), "house.prx");
    EXPECT_NE(project.failures.Taken(), "");
    while (project.col().Count() > 3) {
        project.col().RemoveForLib(project.Key("Task " + std::to_string(project.col().Count())));
    }
    EXPECT_EQ(SaveSafely(project.app, False), "");
    EXPECT_EQ(project.Read("house.prx"), before);
}

// In a process of its own, which takes the disk with it when it ends.
TEST(SaveSafely, KeepsTheOldFileOnADiskThatIsFull) {
    std::cout << std::flush;
    const pid_t child = fork();
    if (child == 0) {
        SaveOnASmallDisk();
        std::cout << std::flush;
        _exit(HasFailure() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace mrlxmlclass
