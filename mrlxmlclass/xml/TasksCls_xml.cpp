#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"TasksCls"};
constexpr const char* kPosition = "TaskPosition";

/// What goes before a relation's key in the two lists that tell their keys apart from others.
constexpr const char* kKeyPrefix = "t";

Date OnWorkingDay(Date day) {
    return Gloabal::NextWorkingDay(day, 1);
}

/// Reads a date; a year that is too late becomes the last one allowed, on a working day. A date of 0 stays.
void ReadDate(RecordReader& in, Flagged<Date>& field, const DateAdjustment& dates) {
    Conversions::FromText(dates.Adjusted(in.Take()), field.value);
    if (field.value.set() && field.value.year() > MaxYear()) {
        field.value = OnWorkingDay(WithYear(field.value, MaxYear().value()));
    }
    field.valid = True;
}

/// A text list of links: nothing is kept of an empty one.
template <class Links, class Fill>
void ReadLinks(RecordReader& in, Links& links, Fill&& fill) {
    const String text = in.Take();
    if (text.empty()) return;
    fill(text, links.Read([] { return Make<Collection>(); }));
}

/// Steps over what a project with live links wrote, as far as that can be told without it.
// Kept: nothing of it stays, so a save while links are not live drops them for good.
void SkipLinks(RecordReader& in) {
    for (const char* name : {"TaskSuccessor", "TaskPredecessor", "TaskLeadTime"}) in.Skip(name);
    // Kept: a record without a position loses up to two of the elements behind.
    for (int steps = 0; steps < 2 && in.position() && !in.At(kPosition); ++steps) in.Step();
}

}  // namespace

void TasksCls::ToXmlFile(const String& FileName, Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    kTail.Run("ToXmlFile",
              [&] { NewDocument(f_.elementName, includeDocHeader, unicode, BodyOf(*this))->Save(FileName); });
}

String TasksCls::ToXml(Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    return kTail.Run<String>("ToXml", [&](String& result) {
        result = NewDocument(f_.elementName, includeDocHeader, unicode, BodyOf(*this))->xml();
    });
}

void TasksCls::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        RecordWriter out(xmlDoc, xmlElm);
        const auto write_keys = [&](const char* wrapper, const auto& relations, auto... prefix) {
            if (!relations.valid) return;
            const dom::Node list = out.Wrapper(wrapper);
            if (const auto own = relations.cell.Peek()) own->ToXmlInt(xmlDoc, list, True, prefix...);
        };
        out.Write("ProjectID", f_.ProjectID);
        out.Write("ParentID", f_.ParentID);
        out.Write("TaskType", f_.TaskType);
        out.Write("TaskCondidat", f_.TaskCondidat);
        out.Write("TaskMilstones", f_.TaskMilstones);
        out.Write("TaskKey", f_.TaskKey);
        out.Write("TaskName", f_.TaskName);
        if (f_.TaskBDate.valid) out.Write("TaskBDate", TaskBDate());
        if (f_.TaskEDate.valid) out.Write("TaskEDate", TaskEDate());
        out.Write("TaskDuration", f_.TaskDuration);
        out.Write("TaskLag", f_.TaskLag);
        if (EqualsIgnoringCase(f_.TaskDurationUnitValid, "true")) out.Write("TaskDurationUnit", TaskDurationUnit());
        out.Write("TaskColor", f_.TaskColor);
        write_keys("TaskNoteRelationsKeys", f_.TaskNoteRelation);
        out.Write("TaskStatusKey", f_.TaskStatusKey);
        out.Write("TaskPercentDone", f_.TaskPercentDone);
        write_keys("TaskObstaclesRelationKeys", f_.TaskObstaclesRelation);
        write_keys("TaskPeopleRelationKeys", f_.TaskPeopleRelation, kKeyPrefix);
        write_keys("TaskGoalRelationKeys", f_.TaskGoalRelation, kKeyPrefix);
        out.Write("TaskLink", f_.TaskLink);
        out.Write("TaskModifiedDate", f_.TaskModifiedDate);
        out.Write("TaskModified", f_.TaskModified);
        if (Module().BVersion) {
            const auto links = [](const Ref<Collection>& keys) {
                return keys ? Conversions::CreateSucessorString(keys) : String();
            };
            if (f_.TaskSuccessor.valid) out.Write("TaskSuccessor", links(f_.TaskSuccessor.cell.Peek()));
            if (f_.TaskPredecessor.valid) out.Write("TaskPredecessor", links(f_.TaskPredecessor.cell.Peek()));
            out.Write("TaskLeadTime", Conversions::CreateLeadTimeAsString(f_.TaskLeadTime));
        }
        out.Write(kPosition, f_.TaskPosition);
        out.Write("TaskSubPosition", f_.TaskSubPosition);
        out.Write("TaskPositionInItem", f_.TaskPositionInitem);
        out.Write("TaskCost", f_.TaskCost);
        out.Write("TaskCostUp", f_.TaskCostUp);
        if (Module().BVersion && f_.PredecessorDirty.full()) out.Write("PredecessorDirty", f_.PredecessorDirty);
    });
}

Boolean TasksCls::FromXmlFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls) {
    return kTail.Run<Boolean>("FromXmlFile", [&](Boolean& result) {
        const Ref<TasksCls> held(this);  // whoever hears a yield may let go of it
        ReadRoot(DocumentOfFile(FileName),
                 [&](dom::Node root, dom::Node first) { In(*this).FromXmlInt(root, first, oPublicStaticCls); });
        result = True;
    });
}

Boolean TasksCls::FromXml(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib) {
    return kTail.Run<Boolean>("FromXml", [&](Boolean& result) {
        const Ref<TasksCls> held(this);  // whoever hears a yield may let go of it
        ReadRoot(DocumentOfText(xmlIn), [&](dom::Node root, dom::Node first) {
            In(*this).FromXmlInt(root, first, oPublicStaticCls, p_for_lib);
        });
        result = True;
    });
}

dom::Node TasksCls::Internal::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild,
                                         const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib,
                                         const DateAdjustment& dates) {
    Reset();
    f_.elementName = xmlParent.baseName();
    RecordReader in(xmlChild);
    in.Read("ProjectID", f_.ProjectID);
    in.Read("ParentID", f_.ParentID);
    in.Read("TaskType", f_.TaskType);
    if (Boolean candidacy; in.Read("TaskCondidat", candidacy)) TaskCondidat_Int(candidacy);
    in.Read("TaskMilstones", f_.TaskMilstones);
    if (in.Read("TaskKey", f_.TaskKey) && oPublicStaticCls) {
        In(oPublicStaticCls).RaiseTo(StaticCls::Internal::Task, f_.TaskKey);
    }
    in.Read("TaskName", f_.TaskName);
    if (p_for_lib) {
        // Kept: a record without a position fails at its end.
        do {
            in.Step();
            if (!in.position()) Raise(failure::kNothing);
        } while (!in.At(kPosition));
        ReadPosition(in);
        return in.position();
    }
    ReadDates(in, dates);
    in.Read("TaskLag", f_.TaskLag);
    if (in.Read("TaskDurationUnit", f_.TaskDurationUnit)) f_.TaskDurationUnitValid = "True";
    in.Read("TaskColor", f_.TaskColor);
    ReadKeys(in, "TaskNoteRelationsKeys", f_.TaskNoteRelation);
    in.Read("TaskStatusKey", f_.TaskStatusKey);
    in.Read("TaskPercentDone", f_.TaskPercentDone);
    ReadKeys(in, "TaskObstaclesRelationKeys", f_.TaskObstaclesRelation);
    ReadKeys(in, "TaskPeopleRelationKeys", f_.TaskPeopleRelation, kKeyPrefix);
    ReadKeys(in, "TaskGoalRelationKeys", f_.TaskGoalRelation, kKeyPrefix);
    in.Read("TaskLink", f_.TaskLink);
    in.Read("TaskModifiedDate", f_.TaskModifiedDate);
    in.Read("TaskModified", f_.TaskModified);
    if (Module().BVersion) {
        if (in.At("TaskSuccessor")) ReadLinks(in, f_.TaskSuccessor, Conversions::FillSuccessor);
        if (in.At("TaskPredecessor")) ReadLinks(in, f_.TaskPredecessor, Conversions::FillPredecessor);
        if (in.At("TaskLeadTime")) ReadLeadTimes(in);
    } else {
        SkipLinks(in);
    }
    ReadPosition(in);
    in.Read("TaskSubPosition", f_.TaskSubPosition);
    in.Read("TaskPositionInItem", f_.TaskPositionInitem);
    in.Read("TaskCost", f_.TaskCost);
    in.Read("TaskCostUp", f_.TaskCostUp);
    if (Module().BVersion) in.Read("PredecessorDirty", f_.PredecessorDirty);
    return in.position();
}

void TasksCls::Internal::ReadPosition(RecordReader& in) {
    in.Read(kPosition, f_.TaskPosition);
    ++Module().outline_stamp;  // whoever was yielded to may have sorted by the row that was
}

void TasksCls::Internal::Reset() {
    TaskCondidat_Int(True);
    ++Module().outline_stamp;
    f_ = Fields();
}

void TasksCls::Internal::ReadDates(RecordReader& in, const DateAdjustment& dates) {
    if (in.At("TaskBDate")) {
        ReadDate(in, f_.TaskBDate, dates);
        Date& start = f_.TaskBDate.value;
        if (start.set() && start.year() < kMinYear) start = OnWorkingDay(WithYear(start, kMinYear));
    }
    if (in.At("TaskEDate")) ReadDate(in, f_.TaskEDate, dates);  // Kept: an end has no earliest year
    in.Read("TaskDuration", f_.TaskDuration);
    if (f_.TaskEDate.value < f_.TaskBDate.value) {
        f_.TaskEDate.value = OnWorkingDay(DateAdd(Interval::Days, f_.TaskDuration.value, f_.TaskBDate.value));
    }
}

void TasksCls::Internal::ReadLeadTimes(RecordReader& in) {
    const String text = in.Take();
    if (text.empty()) return;
    if (!f_.TaskLeadTime) f_.TaskLeadTime = Make<Collection>();
    Conversions::FillLeadTime(text, f_.TaskLeadTime);
}

template <class Relations, class... Prefix>
void TasksCls::Internal::ReadKeys(RecordReader& in, const char* wrapper, Guarded<Relations>& relations,
                                  Prefix... prefix) {
    if (!in.At(wrapper)) return;
    const Ref<Relations> own = relations.Read([] { return Make<Relations>(); });
    In(own).FromXmlInt(in.position(), in.position().firstChild(), True, prefix...);
    in.Step();
}

}  // namespace mrlxmlclass
