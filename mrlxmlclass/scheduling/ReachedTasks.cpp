#include "mrlxmlclass/scheduling/ReachedTasks.h"

namespace mrlxmlclass {

ReachedTasks::ReachedTasks(ByRef<Ref<Dictionary>> told) : told_(std::move(told)) {
    if (!*told_) return;
    for (const auto& entry : (*told_)->Snapshot()) {
        if (const KeyText* key = entry.key.text()) Mark(*key);
    }
}

void ReachedTasks::Tell() {
    if (!*told_ && told_.Heard()) *told_ = Make<Dictionary>();
}

void ReachedTasks::Add(KeyText key) {
    if (*told_ && !(*told_)->Exists(key.text())) (*told_)->Add(key.text(), key.text());
    Mark(key);
}

void ReachedTasks::AddParent(Long key) {
    if (*told_ && key != 0 && !(*told_)->Exists(key)) (*told_)->Add(key, key);
}

void ReachedTasks::Mark(KeyText key) {
    if (Small(key)) {
        small_.set(static_cast<std::size_t>(key.number()));
    } else {
        others_.insert(key);
    }
}

}  // namespace mrlxmlclass
