#pragma once

#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {

/// Opens the dialog on a task that lasts from Monday to Wednesday, and leaves it by Cancel.
inline void InDialog(const std::function<void(EditTask&)>& person) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EditInDialog(plan, "Design", person);
}

/// Shows what the form shows of the dates: start, end and duration.
inline String Dates(EditTask& form) {
    const auto day = [](const DateControl& picker) {
        return picker.Value().is_null() ? String("null") : DayName(picker.Value().As<Date>());
    };
    return day(form.DTPickerStart) + " " + day(form.DTPickerEnd) + " " + form.TxtDurtion[0].Text();
}

}  // namespace mrlxmlclass::testing
