#include "tests/support/Links.h"

#include "mrlxmlclass/tasks/TasksCls_internal.h"

namespace mrlxmlclass::testing {
namespace {

String Shown(const Plan& plan, const String& key) {
    const Ref<TasksCls> task = plan.col().Item(key);
    return task ? task->TaskName() : key;
}

/// "|2", or "" without an entry towards that key.
String Lead(const Ref<Collection>& leads, const String& key) {
    if (!leads || !leads->Has(key)) return {};
    return leads->Item(key).As<String>().substr(key.size());
}

}  // namespace

String Links(const Plan& plan) {
    std::map<std::int64_t, Ref<TasksCls>> by_key;
    for (const auto& entry : plan.col().NewEnum()) by_key.emplace(entry.item->TaskKey(), entry.item);
    String drawing;
    for (const auto& [number, task] : by_key) {
        const auto in = In(task);
        const String name = task->TaskName();
        const auto line = [&](const Ref<Collection>& keys, const char* arrow, const Ref<Collection>& leads) {
            if (!keys || keys->Count() == 0) return;
            drawing += name + " " + arrow;
            for (const auto& link : keys->Snapshot()) {
                const String key = link.item.As<String>();
                drawing += " " + Shown(plan, key) + Lead(leads, key);
            }
            drawing += "\n";
        };
        line(in.PeekPredecessor(), "<-", in.PeekLeadTime());
        line(in.PeekSuccessor(), "->", {});
    }
    return drawing;
}

}  // namespace mrlxmlclass::testing
