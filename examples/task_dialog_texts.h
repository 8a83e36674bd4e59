#pragma once

#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/runtime/Ref.h"

/// The English texts of the task dialog, for `Application.showtaskinfo`. The library has none of its own: a host gives
/// them in its user's language, under these keys. "&" marks the letter that leads to a control.
inline mrlxmlclass::Ref<mrlxmlclass::Collection> EnglishTaskDialogTexts() {
    struct Text {
        const char* key;
        const char* text;
    };
    static constexpr Text kTexts[] = {
        // The window, its buttons and what stands on every tab.
        {"10350", "Task information"},
        {"10336", "OK"},
        {"10337", "Cancel"},
        {"10638", "&Help"},
        {"10321", "&Name:"},
        {"10657", "Progress and cost"},
        // The tabs.
        {"10320", "General"},
        {"10328", "Predecessors"},
        {"10619", "Notes and attachments"},
        {"10334", "People"},
        // General.
        {"10323", "Percent &complete:"},
        {"10644", "C&ost:"},
        {"10652", "Schedule"},
        {"10325", "&Start:"},
        {"10326", "&Finish:"},
        {"10322", "&Duration:"},
        {"10327", "&Milestone"},
        // Predecessors.
        {"10718", "The task waits for"},
        {"10329", "Row"},
        {"10330", "Task"},
        {"10331", "Type"},
        {"10332", "Lag (days)"},
        // Notes and attachments.
        {"10654", "Note"},
        {"10655", "Attachments"},
        {"10656", "Add &file..."},
        {"10675", "Add &web address..."},
        {"10661", "&Remove"},
        {"10659", "Choose a file to attach"},
        {"10351", "The attachment could not be opened."},
        {"10676", "Web address"},
        {"10677", "&Address:"},
        // People.
        {"10653", "Who works on the task"},
        {"10333", "Name"},
        {"10658", "New person..."},
    };
    auto texts = mrlxmlclass::Make<mrlxmlclass::Collection>();
    for (const auto& [key, text] : kTexts) texts->Add(text, mrlxmlclass::KeyText(mrlxmlclass::String(key)));
    return texts;
}
