#pragma once

#include "mrlxmlclass/platform/ForwardingFiles.h"
#include "mrlxmlclass/platform/Services.h"
#include "prx/Progress.h"
#include "prx/Windows.h"

namespace prx {

/// The files of the system, with this program's own folder in the user's state folder: there the error file and the
/// wizard's state belong, not beside an installed program.
class HostFiles : public mrlxmlclass::ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;
    std::string ProgramFolder() override { return StateFolder() + "/prx"; }
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

/// What this process puts in place of the system's services, for as long as it lives.
class Host {
public:
    Host();
    Progress& progress() { return ui_.progress(); }
    /// The file that failures are recorded in.
    static std::string ErrorFile();

private:
    mrlxmlclass::Services& system_ = mrlxmlclass::SystemServices();
    HostFiles files_{system_.files};
    HostUi ui_;
    HostHelp help_;
    mrlxmlclass::Services services_{
        system_.clock, system_.locale, files_, system_.shell, ui_, mrlxmlclass::NoOldPlans(), Windows(), help_};
    mrlxmlclass::InstalledServices installed_{services_};
};

}  // namespace prx
