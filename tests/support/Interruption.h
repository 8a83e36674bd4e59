#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// A host that comes back in from a handler: does something once, when it hears the event of that name for that task.
///
///     const Interruption host(plan, "DateStartChange", 1, [&] { plan.col().ResetStartDate(1); });
class Interruption : public TasksColEvents {
public:
    Interruption(Plan& plan, std::string_view event, Long key, std::function<void()> act)
        : plan_(plan), event_(event), key_(key), act_(std::move(act)) {
        plan_.col().Events.Add(*this);
    }
    ~Interruption() override { plan_.col().Events.Remove(*this); }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    void DateStartChange(Long key, Date, Boolean, Boolean) override { Heard("DateStartChange", key); }
    void TaskDurationChange(Long key, Double, const String&, Boolean, Boolean) override {
        Heard("TaskDurationChange", key);
    }
    void RoolUpCostChange(Long key, const Variant&) override { Heard("RoolUpCostChange", key); }
    void AssigmentChange(Long key, const String&) override { Heard("AssigmentChange", key); }
    void PredecessorChange(Long key, const String&) override { Heard("PredecessorChange", key); }
    void SucessorChange(Long key, const String&) override { Heard("SucessorChange", key); }
    void PredecessorKeyChange(Long key, const String&, const String&) override { Heard("PredecessorKeyChange", key); }
    void IamASummary(Long key, Boolean) override { Heard("IamASummary", key); }

private:
    void Heard(std::string_view event, Long key) {
        if (event == event_ && key == key_ && act_) std::exchange(act_, nullptr)();
    }

    Plan& plan_;
    std::string_view event_;
    Long key_;
    std::function<void()> act_;
};

}  // namespace mrlxmlclass::testing
