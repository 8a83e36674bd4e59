#pragma once

#include "mrlxmlclass/platform/Services.h"
#include "prx/Progress.h"

namespace prx {

/// The files of the system, with this program's own folder in the user's state folder: there the error file and the
/// wizard's state belong, not beside an installed program.
class HostFiles : public mrlxmlclass::Files {
public:
    explicit HostFiles(mrlxmlclass::Files& system) : system_(system) {}

    mrlxmlclass::FileFacts Facts(const std::string& path) override { return system_.Facts(path); }
    std::string Read(const std::string& path) override { return system_.Read(path); }
    std::unique_ptr<mrlxmlclass::OutputFile> Create(const std::string& path) override { return system_.Create(path); }
    std::unique_ptr<mrlxmlclass::OutputFile> Open(const std::string& path) override { return system_.Open(path); }
    void Rename(const std::string& from, const std::string& to) override { system_.Rename(from, to); }
    void Delete(const std::string& path) override { system_.Delete(path); }
    void SetMode(const std::string& path, std::uint32_t mode) override { system_.SetMode(path, mode); }
    void SyncFolder(const std::string& folder) override { system_.SyncFolder(folder); }
    std::string Resolve(const std::string& path) override { return system_.Resolve(path); }
    mrlxmlclass::Integer Attributes(const std::string& path) override { return system_.Attributes(path); }
    void SetAttributes(const std::string& path, mrlxmlclass::Integer value) override {
        system_.SetAttributes(path, value);
    }
    mrlxmlclass::FileUse Use(const std::string& path) override { return system_.Use(path); }
    mrlxmlclass::Integer Hold(const std::string& path) override { return system_.Hold(path); }
    void Release(mrlxmlclass::Integer number, const std::string& path_to_delete) override {
        system_.Release(number, path_to_delete);
    }
    std::string ProgramFolder() override { return system_.StateFolder() + "/prx"; }
    std::string StateFolder() override { return system_.StateFolder(); }
    std::string SpecialFolder(mrlxmlclass::Long number) override { return system_.SpecialFolder(number); }

private:
    mrlxmlclass::Files& system_;
};

/// Messages go to the error output; the yields of a load move the progress bar.
class HostUi : public mrlxmlclass::Ui {
public:
    void Message(const std::string& text) override;
    Progress& progress() { return progress_; }

protected:
    void DoEvents() override { progress_.Step(); }

private:
    Progress progress_;
};

/// What this process puts in place of the system's services, for as long as it lives.
class Host {
public:
    Host();
    Progress& progress() { return ui_.progress(); }
    /// The file that failures are recorded in.
    std::string ErrorFile() { return files_.ProgramFolder() + "/SendToSupport.xml"; }

private:
    mrlxmlclass::Services& system_ = mrlxmlclass::SystemServices();
    HostFiles files_{system_.files};
    HostUi ui_;
    mrlxmlclass::Services services_{system_.clock, system_.locale, files_, system_.shell, ui_};
    mrlxmlclass::InstalledServices installed_{services_};
};

}  // namespace prx
