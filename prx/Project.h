#pragma once

#include <memory>
#include <string>
#include <vector>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "prx/Host.h"
#include "prx/LinkChanges.h"
#include "prx/ProjectLock.h"

namespace prx {

/// A project file that a command works on: locked where it is to be changed, opened, saved when the command says so,
/// and let go of however the command ends.
class Project {
public:
    /// Opens a file to read it. Nobody is kept from changing it meanwhile.
    static Project ToLook(Host& host, const std::string& file);
    /// Opens a file to change it. Refuses one that somebody else has open and, unless `force`, one that could not be
    /// read whole (saving it would lose the rest for good), that has a task without a key, whose opening recorded a
    /// failure, or in which a tie or a link leads to nothing (what is new would get it with the key). With `force` what
    /// is lost is told, and keys, ties, links and summaries are mended first, and told, too.
    static Project ToEdit(Host& host, const std::string& file, bool force);
    /// Starts a project under a name that no file has yet.
    static Project Fresh(Host& host, const std::string& file);

    /// Refuses a name that a file has already.
    static void RefuseToReplace(const std::string& file);

    Project(Project&&) = default;

    mrlxmlclass::Application& app() const { return *app_; }
    mrlxmlclass::Ref<mrlxmlclass::TasksCol> tasks() const { return app_->xTaskCol(); }
    /// The whole path.
    const std::string& path() const { return path_; }
    /// The root element of the file as it was opened; null for a new one.
    mrlxmlclass::dom::Node root() const { return document_->documentElement(); }
    /// Somebody else holds the project.
    bool read_only() const { return read_only_; }

    /// What an edit makes of the links; one that changes some because it was asked to says so here.
    LinkChanges& links() const { return *links_; }

    /// What the library recorded while it read the file, a line each: something did not come over.
    std::vector<std::string> ReadingFailures() const;
    /// What else it recorded while it opened the file.
    std::vector<std::string> OtherFailures() const;
    /// What it recorded since the file was open.
    std::vector<std::string> FailuresSince() const;

    /// Mends keys, ties, links and summaries in memory and tells what was done.
    std::vector<std::string> Mend();

    /// Tells what the library recorded since the file was opened, a message each; the edit is judged by what follows.
    void TellFailures(const char* what);
    /// Refuses when the library recorded a failure since the file was opened, or since they were told.
    void RefuseIfFailed() const;
    /// Brings the summaries up to date and replaces the file, or leaves it as it is and refuses: also when the edit did
    /// not go through, or leads beyond the last year. Tells what was lost and mended at the opening, what
    /// became of links beside what was asked for, and that the outline is in disorder, where it is.
    void Save();
    /// Goes on as a new file, to which nobody gets a right that they do not have to this one, and saves it; also an
    /// edit that did not go through.
    void SaveAs(const std::string& file);

private:
    Project(Host& host, const std::string& file);
    void DemandFile() const;
    void Lock();
    void LockNewFile();
    void Load();
    void RefuseUnlessWhole() const;
    void ReadDates();
    std::vector<std::string> MendWhatLeadsNowhere();
    void Write();

    Host* host_;
    std::string path_;
    std::vector<ProjectLock> locks_;  ///< two for a link
    mrlxmlclass::Ref<mrlxmlclass::Application> app_;
    mrlxmlclass::Ref<mrlxmlclass::dom::Document> document_;
    std::unique_ptr<LinkChanges> links_ = std::make_unique<LinkChanges>();
    bool read_only_ = false;
    std::size_t failures_at_opening_ = 0;
    // Not told yet: nothing is saved.
    std::vector<std::string> lost_at_opening_;
    std::vector<std::string> mended_at_opening_;
    bool in_disorder_ = false;  ///< rows or parents
};

}  // namespace prx
