#include "mrlxmlclass/wizard/Steps.h"

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"Steps", FailureTail::Gives::SoFar};
constexpr std::size_t kVisited = 1;
constexpr std::size_t kElements = 2;
constexpr const char* kSequence = "Sequence";
constexpr const char* kLastVisitedStep = "LastVisitedStep";

struct StepNames {
    const char* property;  // also its element in the file
    const char* code;      // in the sequence
};

constexpr std::array kStepNames{
    StepNames{"NameStep", "Na"},    StepNames{"PhaseStep", "Ph"},  StepNames{"GoalStep", "Go"},
    StepNames{"SimilarStep", "Si"}, StepNames{"PeopleStep", "Pe"}, StepNames{"ObstacleStep", "Ob"},
    StepNames{"AssignStep", "As"},  StepNames{"TaskStep", "Ta"},   StepNames{"GantStep", "Ga"},
};

String TextIn(dom::Node parent, const char* name) {
    const dom::Node child = parent.selectSingleNode(name);
    if (!child) Raise(failure::kNothing, "The wizard's state has no " + String(name));
    return child.Text();
}

}  // namespace

std::array<VariantArray, Steps::kSteps> Steps::Unnumbered() {
    std::array<VariantArray, kSteps> steps;
    steps.fill(VariantArray(kElements));
    return steps;
}

void Steps::Let(Step step, const VariantArray& value) {
    kTail.Run(kStepNames[step].property, [&] {
        if (value.size() != kElements) Raise(failure::kIndexOutOfRange);
        steps_[step] = value;
    });
}

void Steps::InitSteps() {
    kTail.Run("InitSteps", [&] {
        for (std::size_t step = 0; step < kSteps; ++step) steps_[step] = {Variant(step), Variant(False)};
        LastVisitedStep_ = 0;
        Sequence_ = '|';
    });
}

Boolean Steps::Visted(Integer VistedStep) {
    return kTail.Run<Boolean>("Visted", [&](Boolean& result) {
        const auto step = static_cast<std::size_t>(VistedStep.value());  // a negative one lies behind the last
        if (step < kSteps) {
            steps_[step][kVisited] = True;
            Sequence_.append(";").append(kStepNames[step].code);
        }
        LastVisitedStep_ = VistedStep;  // Kept: also a number that is no step's.
        result = True;
    });
}

Ref<dom::Document> Steps::PropertiesValues() {
    return kTail.Run<Ref<dom::Document>>("PropertiesValues", [&](Ref<dom::Document>& result) {
        auto document = Make<dom::Document>();
        const dom::Node root = document->AppendRoot("PropertiesValues");
        for (std::size_t step = 0; step < kSteps; ++step) {
            document->AppendText(root, kStepNames[step].property,
                                 Conversions::BooleanToString(StepVisited(steps_[step])));
        }
        document->AppendText(root, kSequence, Sequence_);
        document->AppendText(root, kLastVisitedStep, Conversions::IntegerToString(LastVisitedStep_));
        result = document;
    });
}

Variant Steps::SetPropertiesValues(dom::Node oXMLNode) {
    return kTail.Run<Variant>("SetPropertiesValues", [&](Variant& /*result*/) {
        // Kept: a flag that was read is a text from then on.
        for (std::size_t step = 0; step < kSteps; ++step) {
            steps_[step][kVisited] = TextIn(oXMLNode, kStepNames[step].property);
        }
        // Kept: the mark that the present sequence starts with stays in the history at every reading.
        const String sequence = TextIn(oXMLNode, kSequence);
        if (!sequence.empty()) Sequence_ = sequence + Sequence_;
        LastVisitedStep_ = Conversions::StringToInteger(TextIn(oXMLNode, kLastVisitedStep));
    });
}

Boolean StepVisited(const VariantArray& step) {
    if (step.size() <= kVisited) return False;
    const Variant& flag = step[kVisited];
    if (const auto* visited = flag.If<Boolean>()) return bool(*visited);
    if (const auto* number = flag.If<Long>()) return *number != 0;
    if (const auto* real = flag.If<double>()) return *real != 0;
    if (const auto* text = flag.If<String>()) return EqualsIgnoringCase(*text, "true") || *text == "-1";
    return False;
}

}  // namespace mrlxmlclass
