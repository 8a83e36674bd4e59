#pragma once

#include <map>
#include <utility>
#include <vector>

#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass::testing {

/// The records of a project file, each under its section and its key: "Tasks 3", "People 1", "Project".
struct SavedRecords {
    /// The names that lead to an element that holds no others, and its text.
    using Field = std::pair<String, String>;
    using Record = std::vector<Field>;

    std::map<String, Record> records;
    /// The keys of a section's records in the order of the file, blanks between.
    std::map<String, String> order;

    /// The text of a field; nothing when the record does not have it.
    const String* Find(const String& record, const String& field) const;
    void Set(const String& record, const String& field, const String& text);
    /// Takes a field out, and with `field` ending in "/" all that stand in an element of that name.
    void Drop(const String& record, const String& field);
    /// Takes out all records of a section.
    void Clear(const String& section);
    /// The names of the records of a section.
    std::vector<String> Of(const String& section) const;
};

/// Empty when the text is not well-formed.
SavedRecords RecordsIn(const String& file);

/// Where the second file differs from what is expected of it; empty when it does not. Tasks have no order.
String Difference(const SavedRecords& expected, const SavedRecords& found);

/// A date as a short date format writes it, and back, by nothing but the letters of the format.
String WrittenAs(const char* format, Date day);
Date ReadAs(const char* format, const String& text);

/// What the file of a plan holds once it was loaded under a format, and saved again.
SavedRecords AfterALoad(SavedRecords saved, const char* written, const char* read);
/// The same for a load of the tasks only.
SavedRecords AfterALoadOfTasks(const SavedRecords& saved, const char* written, const char* read);
/// The same for a load as a library; with `only_tasks` of the tasks alone.
SavedRecords AfterALoadAsLibrary(SavedRecords saved, const char* read, bool only_tasks);

}  // namespace mrlxmlclass::testing
