#include "mrlxmlclass/scheduling/ReachedTasks.h"

namespace mrlxmlclass {

ReachedTasks::ReachedTasks(ByRef<Ref<Dictionary>> told) : told_(std::move(told)) {
    if (!*told_) return;
    for (const auto& entry : (*told_)->Snapshot()) {
        if (const KeyText* key = entry.key.text()) Mark(*key);
    }
}

void ReachedTasks::TellOf(KeyText key) {
    if (!(*told_)->Exists(key.text())) (*told_)->Add(key.text(), key.text());
}

void ReachedTasks::TellOfParent(Long key) {
    if (!(*told_)->Exists(key)) (*told_)->Add(key, key);
}

}  // namespace mrlxmlclass
