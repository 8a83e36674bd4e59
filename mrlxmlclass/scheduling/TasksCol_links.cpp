#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
constexpr char kMark = '|';

String FormatPredecessor(const String& key, Integer lead) {
    return key + kMark + Conversions::IntegerToString(lead);
}

String KeyOfEntry(const String& entry) {
    return entry.substr(0, entry.find(kMark));
}

/// The 1-based place of the entry towards a predecessor; 0 when there is none.
Long PlaceOfLead(const String& key, const Ref<Collection>& leads) {
    Long place;
    for (const auto& entry : leads->Snapshot()) {
        ++place;
        if (KeyOfEntry(entry.item.As<String>()) == key) return place;
    }
    return 0;
}

}  // namespace

Boolean TasksCol::AddLeadTime(const String& TaskKey, const String& PredecessorKey, Integer LeadTime) {
    return kTail.Run<Boolean>("AddLeadTime", [&](Boolean& result) {
        const Ref<Collection> leads = Item(TaskKey)->TaskLeadTime();
        if (const Long place = PlaceOfLead(PredecessorKey, leads); place != 0) leads->Remove(place);
        leads->Add(FormatPredecessor(PredecessorKey, LeadTime), PredecessorKey);
        result = True;
    });
}

Integer TasksCol::GetLeadTime(const String& thePredecessor, const Ref<Collection>& LeadCol) {
    return kTail.Run<Integer>("GetLeadTime", [&](Integer& result) {
        const Long place = PlaceOfLead(thePredecessor, LeadCol);
        if (place == 0) return;
        const std::vector<String> parts = Split(LeadCol->Item(place).As<String>(), String(1, kMark));
        if (parts.size() < 2) Raise(failure::kIndexOutOfRange);
        result = Conversions::StringToInteger(parts[1]);
    });
}

}  // namespace mrlxmlclass
