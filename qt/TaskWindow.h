#pragma once

#include <memory>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/Bindings.h"
#include "qt/FieldFocus.h"
#include "qt/HeldKeys.h"
#include "qt/LineField.h"
#include "qt/NotesPage.h"

class QDialogButtonBox;
class QTabWidget;

namespace mrlxmlclass::qt {

/// The window of the dialog. The name and the buttons, of which the form has one set a tab, stand once, around the
/// tabs, as element 0: the form gives the names of all tabs the same text, and the buttons of all do the same.
class TaskWindow : public Window {
public:
    explicit TaskWindow(EditTask& form);

    const Bindings& bindings() const { return bindings_; }
    NoteText& note() { return notes_->note(); }

    /// What is being typed counts as typed.
    void FinishEditing();
    /// Goes, with all windows, lists and menus in front of it. What is half typed in a cell is thrown away.
    void Leave();
    /// Esc.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QLayout* NewNameRow();
    QTabWidget* NewTabs();
    QDialogButtonBox* NewButtons();
    void DropEdits();
    void ClosePopups();

    EditTask& form_;
    Bindings bindings_;
    std::unique_ptr<LineField> name_;
    NotesPage* notes_ = nullptr;
    Button* ok_ = nullptr;
    std::unique_ptr<FieldFocus> focus_;
};

}  // namespace mrlxmlclass::qt
