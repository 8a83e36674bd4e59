#pragma once

#include <algorithm>
#include <utility>

#include "mrlxmlclass/dialog/EditTask.h"
#include "mrlxmlclass/runtime/Tail.h"

/// What the files of EditTask share.
namespace mrlxmlclass::dialog {

inline constexpr FailureTail kEditTaskTail{"EditTask"};

/// Durations beyond it show whole, and are not typed.
inline constexpr int kMostShortDuration = 999;
inline constexpr int kNameCharacters = 160;

/// What the key of a person carries as the data of a row.
inline constexpr const char* kPersonMark = "p";

/// Columns of the predecessors' table.
inline constexpr int kPosition = 0;
inline constexpr int kName = 1;
inline constexpr int kType = 2;
inline constexpr int kLag = 3;
/// Columns of the people's table.
inline constexpr int kNumber = 0;
inline constexpr int kPerson = 1;

/// Sets a flag until it goes out of scope.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

/// The two parts of an attachment's data; the first "|" parts them.
struct Attachment {
    String link;
    String note_key;  ///< "" = not yet saved
};
inline Attachment AttachmentIn(const String& row_data) {
    const std::size_t bar = row_data.find('|');
    if (bar == String::npos) return {row_data, {}};
    return {row_data.substr(0, bar), row_data.substr(bar + 1)};
}

/// Notes what was taken off a table; the list is made at the first need.
inline void NoteRemoved(Ref<Collection>& removed, const String& key) {
    if (!removed) removed = Make<Collection>();
    removed->Add(key);
}

}  // namespace mrlxmlclass::dialog

namespace mrlxmlclass {

template <class Rules>
void EditTask::Answer(const Control& field, const char* label, Rules&& rules) {
    if (loading_ || std::find(answered_.begin(), answered_.end(), &field) != answered_.end()) return;
    answered_.push_back(&field);
    dialog::kEditTaskTail.Run(label, std::forward<Rules>(rules));
    std::erase(answered_, &field);
}

}  // namespace mrlxmlclass
