#pragma once

#include "mrlxmlclass/platform/ForwardingFiles.h"
#include "mrlxmlclass/platform/Services.h"
#include "prx/Progress.h"
#include "prx/Windows.h"

namespace prx {

/// The files of the system, but for what this program does in its own way.
class HostFiles : public mrlxmlclass::ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;
    /// In the user's state folder: there the error file and the wizard's state belong, not beside an installed program.
    std::string ProgramFolder() override { return StateFolder() + "/prx"; }
    /// A load takes the lock of a plan for whoever only looks, too. Here a ProjectLock holds it for those who do not.
    mrlxmlclass::Integer Hold(const std::string& /*path*/) override { return NextNumber(); }
    void Release(mrlxmlclass::Integer /*number*/, const std::string& /*path*/) override {}
    std::string Read(const std::string& path) override { return path == kept_path_ ? kept_ : files_.Read(path); }

    /// Reads a file that is read so from then on, whatever becomes of it: what is said of a plan is said of one.
    void Keep(const std::string& path);
    /// Those of the system.
    mrlxmlclass::Files& below() { return files_; }

private:
    std::string kept_path_;
    std::string kept_;
};

/// Messages go to the error output, or in front of a window that stands; the yields of a load move the progress bar.
class HostUi : public mrlxmlclass::Ui {
public:
    void Message(const std::string& text) override;
    Progress& progress() { return progress_; }

protected:
    void DoEvents() override { progress_.Step(); }

private:
    Progress progress_;
    bool told_of_error_file_ = false;
};

/// There are no pages of help; that is said where a window asks for one.
class HostHelp : public mrlxmlclass::HelpSystems {
public:
    mrlxmlclass::Ref<mrlxmlclass::HelpSystem> NewHelpSystem() override;
};

/// What this process puts in place of the services that are there, for as long as it lives.
class Host {
public:
    Host();
    Progress& progress() { return ui_.progress(); }
    HostFiles& files() { return files_; }
    /// The file that failures are recorded in.
    static std::string ErrorFile();
    /// The file that was saved last; "" where none was.
    const std::string& saved() const { return saved_; }
    void saved(const std::string& path) { saved_ = path; }

private:
    mrlxmlclass::Services& system_ = mrlxmlclass::Platform();
    HostFiles files_{system_.files};
    std::string saved_;
    HostUi ui_;
    HostHelp help_;
    mrlxmlclass::Services services_{
        system_.clock, system_.locale, files_, system_.shell, ui_, mrlxmlclass::NoOldPlans(), Windows(), help_};
    mrlxmlclass::InstalledServices installed_{services_};
};

}  // namespace prx
