#pragma once

#include <QTextEdit>
#include <QWidget>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/Bindings.h"

namespace mrlxmlclass::qt {

/// The note's text: plain text, in and out.
class NoteText : public QTextEdit {
public:
    explicit NoteText(EditTask& form);

    void Show();
    void Paste(const QString& text);
    /// The form's menu, and below it what any text offers.
    void OpenMenu();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// What the person made of the form's text.
    QString Text() const;

    EditTask& form_;
    QPoint menu_place_;
};

/// The third tab: the task's note, and what is attached to it.
class NotesPage : public QWidget {
public:
    NotesPage(EditTask& form, Bindings& bindings);
    NoteText& note() { return *note_; }

private:
    QWidget* NewNoteFrame(Bindings& bindings);
    QWidget* NewAttachmentsFrame(Bindings& bindings);

    EditTask& form_;
    NoteText* note_;
};

}  // namespace mrlxmlclass::qt
