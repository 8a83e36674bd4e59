#pragma once

#include <array>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {

/// Which steps of the planning wizard were visited for one project, in which order, and which came last.
///
/// A step hands over two elements: [0] its number, 0 to 8, and [1] its visited flag (hosts that count array elements
/// from 1 know them as 1 and 2). The flag is a Boolean, and a text once the state was read back: ask `StepVisited`.
/// Handing in any other count of elements fails (9), is recorded and leaves the step as it was.
class Steps : public Counted {
public:
    VariantArray NameStep() const { return steps_[kName]; }
    void NameStep(const VariantArray& step) { Let(kName, step); }
    VariantArray PhaseStep() const { return steps_[kPhase]; }
    void PhaseStep(const VariantArray& step) { Let(kPhase, step); }
    VariantArray GoalStep() const { return steps_[kGoal]; }
    void GoalStep(const VariantArray& step) { Let(kGoal, step); }
    VariantArray SimilarStep() const { return steps_[kSimilar]; }
    void SimilarStep(const VariantArray& step) { Let(kSimilar, step); }
    VariantArray PeopleStep() const { return steps_[kPeople]; }
    void PeopleStep(const VariantArray& step) { Let(kPeople, step); }
    VariantArray ObstacleStep() const { return steps_[kObstacle]; }
    void ObstacleStep(const VariantArray& step) { Let(kObstacle, step); }
    VariantArray AssignStep() const { return steps_[kAssign]; }
    void AssignStep(const VariantArray& step) { Let(kAssign, step); }
    VariantArray TaskStep() const { return steps_[kTask]; }
    void TaskStep(const VariantArray& step) { Let(kTask, step); }
    VariantArray GantStep() const { return steps_[kGant]; }
    void GantStep(const VariantArray& step) { Let(kGant, step); }

    /// The element under which the side file keeps the states of all projects.
    String Name() const { return Name_; }
    void Name(const String& name) { Name_ = name; }
    /// "|" where the state was started or read back, and ";" with a two-letter code for each visit: "|;Na;Ph|;Go".
    String Sequence() const { return Sequence_; }
    void Sequence(const String& sequence) { Sequence_ = sequence; }
    Integer LastVisitedStep() const { return LastVisitedStep_; }
    void LastVisitedStep(Integer step) { LastVisitedStep_ = step; }

    /// Numbers the steps and takes every visit back.
    void InitSteps();

    /// Notes a visit. A number that is no step's only becomes the `LastVisitedStep`. Always True.
    Boolean Visted(Integer VistedStep);

    /// The state as an element `PropertiesValues`, the root of a document of its own.
    Ref<dom::Document> PropertiesValues();

    /// Takes the state from such an element; the numbers of the steps stay. The `Sequence` that was read comes before
    /// the present one. A missing child (91) or a `LastVisitedStep` that is no number (13) ends the reading there and
    /// is recorded; what was read stays. The result is always Empty.
    Variant SetPropertiesValues(dom::Node oXMLNode);

private:
    enum Step : std::size_t { kName, kPhase, kGoal, kSimilar, kPeople, kObstacle, kAssign, kTask, kGant, kSteps };

    static std::array<VariantArray, kSteps> Unnumbered();
    void Let(Step step, const VariantArray& value);

    std::array<VariantArray, kSteps> steps_ = Unnumbered();

    String Name_ = "Steps";
    String Sequence_;
    Integer LastVisitedStep_;
};

/// What the flag of a step says, whichever form it has: a Boolean or a number other than 0, or the text "true", in any
/// letter case, or "-1". Anything else is no visit.
Boolean StepVisited(const VariantArray& step);

}  // namespace mrlxmlclass
