#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/tasks/TasksCls.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// The texts of a collection, a blank between them.
inline String Listed(const Ref<Collection>& texts) {
    String list;
    for (const auto& entry : texts->Snapshot()) {
        if (!list.empty()) list += " ";
        list += entry.item.As<String>();
    }
    return list;
}

/// The file of the session that is saved beside a project.
inline constexpr const char* kSideFile = "program/steps.xml";

/// The sections of a whole project file in the order in which they are written.
inline constexpr std::array<std::string_view, 10> kSections{
    "Tasks",
    "People",
    "TaskAssigmentRelations",
    "TaskGoalRelations",
    "TaskObstaclesRelations",
    "TaskNoteRelations",
    "Goals",
    "Notes",
    "Obstacles",
    "Calendar",
};

/// Their names from one on, a blank between them.
inline String SectionsFrom(std::size_t first) {
    String list;
    for (std::size_t place = first; place < kSections.size(); ++place) {
        if (!list.empty()) list += " ";
        list += kSections.at(place);
    }
    return list;
}

/// A plan of three tasks whose file is the only one in a folder of its own, "house.prx".
class SavedProject : public Plan {
public:
    SavedProject() {
        for (const char* name : {"plans", "program"}) std::filesystem::create_directory(platform.Path(name));
        platform.files.program_folder = platform.Path("program");
        app->xFileName(Path("house.prx"));
        AddTask("Ground");
        AddTask("Walls");
        AddTask("Roof");
    }

    /// Saves keep the order of the tasks, so that equal plans give equal files.
    void AddTask(const String& name) {
        Task(name).From(Monday).Lasting(2);
        (*this)[name].TaskPositionInitem(col().Count());
    }
    void Rename(const String& task, const String& name) { (*this)[task].TaskName(name); }

    static String InFolder(const String& name) { return "plans/" + name; }
    String Path(const String& name) const { return platform.Path(InFolder(name)); }
    String Read(const String& name) { return platform.Read(InFolder(name)); }
    void Write(const String& name, std::string_view bytes) { platform.Write(InFolder(name), bytes); }
    Integer Attributes(const String& name) { return platform.files.Attributes(Path(name)); }
    std::uint32_t Mode(const String& name) { return platform.files.Facts(Path(name)).mode; }

    /// What lies in the project's folder, in alphabetical order, a blank between the names.
    String FilesThere() const { return FilesIn(platform.Path("plans")); }
    static String FilesIn(const String& folder) {
        std::vector<String> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
        std::ranges::sort(names);
        String list;
        for (const String& name : names) list += (list.empty() ? "" : " ") + name;
        return list;
    }
};

}  // namespace mrlxmlclass::testing
