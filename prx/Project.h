#pragma once

#include <string>
#include <vector>

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "prx/Host.h"

namespace prx {

/// A project file that a command works on: opened, perhaps locked, saved when the command says so, and let go of
/// however the command ends.
class Project {
public:
    /// Opens a file to read it.
    static Project ToLook(Host& host, const std::string& file);
    /// Opens a file to change it. Refuses one that somebody else has open and, unless `force`, one that could not be
    /// read whole (saving it would lose the rest for good), that has a task without a key, or whose opening recorded a
    /// failure. With `force` what is lost is told, and keys, ties and links are mended first, and told, too.
    static Project ToEdit(Host& host, const std::string& file, bool force);
    /// Starts a project under a name that no file has yet.
    static Project Fresh(Host& host, const std::string& file);

    /// Refuses a name that a file has already.
    static void RefuseToReplace(const std::string& file);

    Project(Project&&) = default;

    mrlxmlclass::Application& app() const { return *session_.app; }
    mrlxmlclass::Ref<mrlxmlclass::TasksCol> tasks() const { return session_.app->xTaskCol(); }
    /// The whole path.
    const std::string& path() const { return path_; }
    /// Somebody else holds the project.
    bool read_only() const { return read_only_; }

    /// What the library recorded while it read the file, a line each: something did not come over.
    std::vector<std::string> ReadingFailures() const;
    /// What else it recorded while it opened the file.
    std::vector<std::string> OtherFailures() const;
    /// The same for the lock alone: a folder in which nothing can be written is no fault of the project.
    std::vector<std::string> LockFailures() const;
    /// What it recorded since the file was open, but for troubles with the lock.
    std::vector<std::string> FailuresSince() const;

    /// Mends keys, ties and links in memory and tells what was done.
    std::vector<std::string> Mend();

    /// Tells what the library recorded since the file was opened, a message each; the edit is judged by what follows.
    void TellFailures(const char* what);
    /// Refuses when the library recorded a failure since the file was opened, or since they were told.
    void RefuseIfFailed() const;
    /// Replaces the file, or leaves it as it is and refuses: also when the edit did not go through.
    void Save();
    /// Lets go of the file and goes on as a new one, which is saved; an edit that did not go through is, too.
    void SaveAs(const std::string& file);

private:
    /// Lets go of the lock at the end.
    struct Session {
        mrlxmlclass::Ref<mrlxmlclass::Application> app;
        explicit Session(mrlxmlclass::Ref<mrlxmlclass::Application> application) : app(std::move(application)) {}
        Session(Session&&) = default;
        ~Session() {
            if (app) app->endreadonly();
        }
    };

    explicit Project(const std::string& file);
    void Load(Host& host);
    void RefuseUnlessWhole() const;
    void KeepCreationDate();
    void LockNewFile();
    void Write();

    std::string path_;
    Session session_;
    bool read_only_ = false;
    std::size_t failures_at_opening_ = 0;
};

}  // namespace prx
