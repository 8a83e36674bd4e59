#pragma once

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

class Control;
class frmurl;

/// The screen side of the task dialog. It shows what the form's controls say, and hands the form, one method a control
/// event, what the person does; it decides nothing. The form owns it.
///
/// What the person types goes into the control (`form.TxtDurtion[0].Text(...)`), whose rules then run by themselves;
/// what a control event is told for, the view calls. Whatever the form answers comes back through Refresh, and tells
/// the view nothing that it should hand on again. `TxtName_Validate` and `TxtDurtion_Validate` come when the person
/// leaves the field, and before `CmdOK_Click`, however it was pressed: a name is taken by then only.
class EditTaskView {
public:
    virtual ~EditTaskView() = default;

    /// Shows the form, calls `Form_Activate` once it stands there, and returns when the person or the program has
    /// closed it. The host's own windows go on living meanwhile.
    virtual void ShowModally() = 0;
    /// Ends ShowModally, and whatever was opened from there. May come from anywhere, also while nothing shows.
    virtual void Close() = 0;

    /// A control shows something else than before.
    virtual void Refresh(const Control& control) = 0;
    virtual void SetFocus(const Control& control) = 0;
    virtual void ResetMousePointer() = 0;
    /// Opens `mnuFile` where the mouse is.
    virtual void PopupMenu() = 0;

    virtual bool ClipboardHasText() = 0;
    /// Puts the clipboard's text in place of what is selected in the note.
    virtual void PasteIntoNote() = 0;
    /// Lets the person choose a file that exists. `folder` is where to begin, "" anywhere; `filter` is a name and a
    /// pattern, parted by "|". Gives "" when none was chosen.
    virtual String ChooseFile(const String& title, const String& folder, const String& filter) = 0;
    /// Shows the form for a web address; returns when it was closed by one of its buttons. A window that is closed
    /// counts as `CmdCancel_Click`.
    virtual void ShowModally(frmurl& form) = 0;
};

}  // namespace mrlxmlclass
