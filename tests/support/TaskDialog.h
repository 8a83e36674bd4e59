#pragma once

#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// All texts of the task dialog: each is "T" and its key.
inline Ref<Collection> DialogTexts() {
    auto texts = Make<Collection>();
    for (const char* key :
         {"10320", "10321", "10322", "10323", "10325", "10326", "10327", "10328", "10329", "10330", "10331", "10332",
          "10333", "10334", "10336", "10337", "10350", "10351", "10619", "10638", "10644", "10652", "10653", "10654",
          "10655", "10656", "10657", "10658", "10659", "10661", "10675", "10676", "10677", "10718"}) {
        texts->Add(String("T") + key, KeyText(key));
    }
    return texts;
}

/// Opens the dialog on a task of the plan; `person(form)` is what the person does while it shows. Events of building
/// the plan are forgotten first.
inline Boolean EditInDialog(Plan& plan, const String& task, const std::function<void(EditTask&)>& person,
                            int from_where = 0) {
    plan.Heard();
    plan.platform.screens.person = person;
    return plan.app->showtaskinfo(plan.Key(task), plan.app->xTaskCol(), from_where, DialogTexts());
}

}  // namespace mrlxmlclass::testing
