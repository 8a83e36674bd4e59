#pragma once

#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "mrlxmlclass/platform/Services.h"
#include "tests/support/FakeTaskScreens.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/NumberOf.h"
#include "tests/support/Printing.h"

namespace mrlxmlclass::testing {

/// Stands still until it is set: Monday 2 March 2026, 09:00.
class FixedClock : public Clock {
public:
    Date Now() override { return now; }

    Date now = Date::Of(2026, 3, 2) + 9.0 / 24;
};

/// Month first and a decimal point, until told otherwise.
class SettableLocale : public Locale {
public:
    const LocaleSettings& Settings() override { return settings_; }

    void Use(const String& short_date, const String& decimal = ".", const String& group = "") {
        settings_ = {short_date, decimal, group};
        Changed();
    }

private:
    LocaleSettings settings_;
};

class RecordingUi : public Ui {
public:
    void Message(const String& text) override { messages.push_back(text); }

    std::vector<String> messages;
    int yields = 0;
    std::function<void()> on_yield;

protected:
    void DoEvents() override {
        ++yields;
        if (on_yield) on_yield();
    }
};

class RecordingShell : public Shell {
public:
    Long Open(const String& target) override {
        targets.push_back(target);
        return answer;
    }

    std::vector<String> targets;
    Long answer = 42;
};

/// The system's files under folders of the test's own. A special folder that is not set is the system's.
class TestFiles : public ForwardingFiles {
public:
    TestFiles(Files& files, const String& folder)
        : ForwardingFiles(files), program_folder(folder), state_folder(folder) {}

    String ProgramFolder() override { return program_folder; }
    String StateFolder() override { return state_folder; }
    String SpecialFolder(Long number) override {
        const auto found = special_folders.find(number.value());
        return found == special_folders.end() ? ForwardingFiles::SpecialFolder(number) : found->second;
    }

    String program_folder;
    String state_folder;
    std::map<int, String> special_folders;
};

/// A new folder, removed with all that is in it.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Without a "/" at its end.
    const String& path() const { return path_; }
    String Path(const String& name) const { return path_ + "/" + name; }

private:
    String path_;
};

/// A platform of the test's own for as long as it stands: nothing of the machine shows, and every file lies in a
/// folder that goes with it. What the test itself reads and writes is neither counted nor made to fail.
class TestPlatform {
public:
    String Path(const String& name) const { return folder.Path(name); }
    void Write(const String& name, std::string_view bytes) { WriteWhole(files, Path(name), bytes); }
    String Read(const String& name) { return files.Read(Path(name)); }
    bool Exists(const String& name) { return files.Facts(Path(name)).exists; }

    TempFolder folder;
    FixedClock clock;
    SettableLocale locale;
    RecordingUi ui;
    RecordingShell shell;
    FakeTaskScreens screens;
    RecordingHelp help;
    TestFiles files{SystemServices().files, folder.path()};
    FaultyFiles faults{files};

private:
    Services services_{clock, locale, faults, shell, ui, NoOldPlans(), screens, help};
    InstalledServices installed_{services_};
};

/// An environment variable set, or taken away by nullptr, until it goes out of scope.
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* name, const char* value);
    ScopedEnvironment(const char* name, const String& value) : ScopedEnvironment(name, value.c_str()) {}
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    String name_;
    std::optional<String> before_;
};

}  // namespace mrlxmlclass::testing
