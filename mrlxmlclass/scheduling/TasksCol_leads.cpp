#include <algorithm>
#include <cstdlib>

#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/Gaps.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
constexpr char kMark = '|';

String FormatPredecessor(const String& key, Integer lead) {
    return key + kMark + Conversions::IntegerToString(lead);
}

std::string_view KeyOfEntry(std::string_view entry) {
    return entry.substr(0, entry.find(kMark));
}

/// Whether an entry is the one towards a predecessor, to the letter.
bool IsTowards(KeyText predecessor, std::string_view entry) {
    const std::string_view key = KeyOfEntry(entry);
    return predecessor.is_number() ? KeyText::CanonicalNumber(key) == predecessor.number() : key == predecessor.text();
}

/// The 0-based place of the entry towards a predecessor, or npos.
std::size_t PlaceOfLead(KeyText predecessor, const Collection::Store& leads) {
    for (std::size_t place = 0; place < leads.size(); ++place) {
        if (IsTowards(predecessor, leads[place].item.As<String>())) return place;
    }
    return Collection::Store::npos;
}

/// The days that an entry tells.
Integer DaysOfEntry(const String& entry) {
    const std::vector<String> parts = Split(entry, String(1, kMark));
    if (parts.size() < 2) Raise(failure::kIndexOutOfRange);
    return Conversions::StringToInteger(parts[1]);
}

/// An entry as the library writes it, read in one go: the key's number, the mark, the days.
struct PlainLead {
    explicit PlainLead(std::string_view entry) {
        std::size_t at = 0;
        const std::int32_t key_number = Digits(entry, at);
        if (key_number < 0 || at == entry.size() || entry[at] != kMark) return;
        const bool negative = ++at < entry.size() && entry[at] == '-';
        if (negative) ++at;
        const std::int32_t size = Digits(entry, at);
        if (size < 0 || size > INT16_MAX || at != entry.size()) return;
        key = key_number;
        days = negative ? -size : size;
    }

    std::int32_t key = -1;  ///< -1: written otherwise
    std::int32_t days = 0;

private:
    /// The number that stands at `at`, and `at` behind it; -1 for none, for a long one and for a needless zero.
    static std::int32_t Digits(std::string_view text, std::size_t& at) {
        const std::size_t first = at;
        const std::size_t end = std::min(text.size(), first + kMostDigits);
        std::int32_t number = 0;
        while (at < end && text[at] >= '0' && text[at] <= '9') number = number * 10 + (text[at++] - '0');
        const bool canonical = at > first && (text[first] != '0' || at == first + 1);
        return canonical ? number : -1;
    }

    static constexpr std::size_t kMostDigits = 9;
};

Integer LeadIn(KeyText predecessor, const Collection::Store& leads) {
    for (const auto& entry : leads) {
        const String& text = entry.item.As<String>();
        const PlainLead lead(text);
        if (lead.key >= 0 ? KeyText(Long(lead.key)) == predecessor : IsTowards(predecessor, text)) {
            return lead.key >= 0 ? Integer(lead.days) : DaysOfEntry(text);
        }
    }
    return 0;
}

void RemoveLead(const String& key, const Ref<Collection>& leads) {
    const std::size_t place = PlaceOfLead(key, leads->Items());
    if (place != Collection::Store::npos) leads->Remove(Long(place + 1));
}

void StoreLead(const Ref<TasksCls>& task, const String& predecessor, Integer lead) {
    const Ref<Collection> leads = task->TaskLeadTime();
    String entry = FormatPredecessor(predecessor, lead);
    RemoveLead(predecessor, leads);
    leads->Add(std::move(entry), predecessor);
}

/// The gap in working days between a predecessor's end and a start: 0 on the next working day, -1 on the end itself.
/// `lag` is the difference in calendar days.
Integer WorkingGap(Date start, Date predecessor_end, Integer lag) {
    lag -= 1;
    if (start > predecessor_end) {
        return lag - PublicDays().CountNonWorking(predecessor_end, std::int64_t{lag});
    }
    const std::int64_t size = std::abs(std::int64_t{lag});
    const Integer gap = -(size - PublicDays().CountNonWorking(start, DaysUpTo(size, start, predecessor_end)));
    return gap == 0 ? Integer(-1) : gap;  // an overlap stays an overlap
}

}  // namespace

String TasksCol::GetPredecessor(const String& thePredecessor) {
    return String(KeyOfEntry(thePredecessor));
}

Boolean TasksCol::AddLeadTime(const String& TaskKey, const String& PredecessorKey, Integer LeadTime) {
    return kTail.Run<Boolean>("AddLeadTime", [&](Boolean& result) {
        StoreLead(Item(TaskKey), PredecessorKey, LeadTime);
        result = True;
    });
}

Boolean TasksCol::RemoveLeadTime(const String& TaskKey, const String& PredecessorKey, Integer /*LeadTime*/) {
    return kTail.Run<Boolean>("RemoveLeadTime", [&](Boolean& result) {
        RemoveLead(PredecessorKey, Item(TaskKey)->TaskLeadTime());
        result = True;
    });
}

Integer TasksCol::GetLeadTime(const String& thePredecessor, const Ref<Collection>& LeadCol) {
    return kTail.Run<Integer>("GetLeadTime",
                              [&](Integer& result) { result = LeadIn(thePredecessor, LeadCol->Items()); });
}

Integer TasksCol::Internal::LeadTowards(const Ref<TasksCls>& task, KeyText predecessor) const {
    return kTail.Run<Integer>("GetLeadTime", [&](Integer& result) {
        const Ref<Collection>& leads = In(task).PeekLeadTime();
        if (leads) result = LeadIn(predecessor, leads->Items());
    });
}

Long TasksCol::GetFirstLeadTime(const String& p_task_key, const String& p_pred_lead, Boolean p_do_no_pred,
                                Integer /*p_adjuster*/) {
    return kTail.Run<Long>("GetFirstLeadTime", [&](Long& result) {
        const Ref<TasksCls> task = Item(p_task_key);
        if (!p_pred_lead.empty() || task->TaskLeadTime()->Count() == 0) return;
        if (p_do_no_pred != False && p_do_no_pred != True) return;
        const Ref<Collection> predecessors = In(task).PeekPredecessor();
        if (p_do_no_pred && (!predecessors || predecessors->Count() == 0)) return;
        result = DaysOfEntry(task->TaskLeadTime()->Item(Long(1)).As<String>());
    });
}

Integer TasksCol::CalcLeadTime(const String& TaskKey) {
    return kTail.Run<Integer>("CalcLeadTime", [&](Integer& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        if (!Module().BVersion) return;
        if (const Ref<TasksCls> task = Item(TaskKey)) result = In(*this).CalcLeadTime(task);
    });
}

Integer TasksCol::Internal::CalcLeadTime(const Ref<TasksCls>& task) {
    return kTail.Run<Integer>("CalcLeadTime", [&](Integer& result) {
        if (!Module().BVersion || !In(task).PeekPredecessor()) return;
        Integer largest;
        Integer lag;
        for (const auto& entry : In(task).PeekPredecessor()->Snapshot()) {
            const KeyText predecessor = entry.item.Key();
            const Date end = Item(predecessor)->TaskEDate();
            if (!task->TaskBDate().set()) {
                result = 0;
                return;
            }
            // Kept: without an end the lag of the predecessor before it goes on.
            if (end.set()) lag = DaysBetween(end, task->TaskBDate());
            lag = WorkingGap(task->TaskBDate(), end, lag);
            if (lag > largest) largest = lag;
            // Kept: every entry is stored anew, so that they come to stand in the order of the links.
            self_.AddLeadTime(KeyText(task->TaskKey()).text(), predecessor.text(), lag);
        }
        result = largest;
    });
}

Boolean TasksCol::DoWeChangeNow(const String& /*TaskKey*/, const String& /*PredKey*/) {
    return True;
}

}  // namespace mrlxmlclass
