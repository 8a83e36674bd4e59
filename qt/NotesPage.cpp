#include "qt/NotesPage.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/Frame.h"
#include "qt/GridView.h"
#include "qt/HeldKeys.h"
#include "qt/Labels.h"
#include "qt/LineField.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {

namespace {

/// A line break of the note is CR LF for the form, and one character here, as it is for Qt: one that no text has.
constexpr QChar kBreak(0xFFFF);

QString NoteToQt(const String& text) {
    return ToQt(text).replace("\r\n", kBreak);
}
String NoteFromQt(QString text) {
    return FromQt(text.replace(kBreak, "\r\n"));
}

/// Other characters than CR LF break lines too, and show as it does.
bool LooksSame(QChar one, QChar other) {
    const auto breaks = [](QChar character) { return QStringView(u"\n\r\u2028\u2029\uFFFF").contains(character); };
    return one == other || (breaks(one) && breaks(other));
}

}  // namespace

// --- The note --------------------------------------------------------------------------------------------------------

NoteText::NoteText(EditTask& form) : form_(form) {
    setAcceptRichText(false);
    setTabChangesFocus(true);
    connect(this, &QTextEdit::textChanged, this, [this] { form_.txtNote.Text(NoteFromQt(Text())); });
}

// Only what the person changed is new: a line that breaks otherwise goes on to. Not toPlainText(), which turns hard
// spaces into soft ones.
QString NoteText::Text() const {
    const QString before = NoteToQt(form_.txtNote.Text());
    const QString shown = document()->toRawText();
    const qsizetype begin = std::ranges::mismatch(before, shown, LooksSame).in2 - shown.begin();
    const qsizetype most = std::min(before.size(), shown.size()) - begin;
    qsizetype end = 0;
    while (end < most && LooksSame(before[before.size() - 1 - end], shown[shown.size() - 1 - end])) ++end;
    QString changed = shown.sliced(begin, shown.size() - begin - end);
    return before.first(begin) +
           changed.replace(QChar::ParagraphSeparator, kBreak).replace(QChar::LineSeparator, kBreak) + before.last(end);
}

void NoteText::Show() {
    const QString text = LinesToQt(form_.txtNote.Text());
    setReadOnly(static_cast<bool>(form_.txtNote.Locked()));
    if (std::ranges::equal(document()->toRawText(), text, LooksSame)) return;
    const QSignalBlocker quiet(this);
    setPlainText(text);
}

void NoteText::Paste(const QString& text) {
    textCursor().insertText(text);
    ensureCursorVisible();
}

void NoteText::keyPressEvent(QKeyEvent* event) {
    constexpr int kCodes = 256;  // beyond lie keys that have no meaning to the form
    if (event->key() < kCodes) {
        Integer code = Integer(event->key());
        form_.txtNote_KeyDown(code, WithControl(*event) ? EditTask::kControlDown : 0);
        if (code == EditTask::kNoKey) return;
    }
    QTextEdit::keyPressEvent(event);
}

void NoteText::contextMenuEvent(QContextMenuEvent* event) {
    menu_place_ = event->globalPos();
    form_.txtNote_RightButton();
}

void NoteText::OpenMenu() {
    QMenu* menu = createStandardContextMenu();
    menu->setObjectName(ToQt(form_.mnuFile.Name()));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const first = menu->actions().value(0);
    const auto add = [&](const Control& entry, auto press) {
        auto* action = new QAction(ToQt(entry.Caption()), menu);
        action->setObjectName(ToQt(entry.Name()));
        action->setEnabled(static_cast<bool>(entry.Enabled()));
        action->setVisible(static_cast<bool>(entry.Visible()));
        connect(action, &QAction::triggered, this, press);
        menu->insertAction(first, action);
    };
    add(form_.mnuLinkNote, [this] { form_.mnuLinkNote_Click(); });
    add(form_.mnuunattach, [this] { form_.mnuunattach_Click(); });
    menu->insertSeparator(first);
    menu->popup(menu_place_);
}

// --- The page --------------------------------------------------------------------------------------------------------

NotesPage::NotesPage(EditTask& form, Bindings& bindings) : form_(form), note_(new NoteText(form)) {
    constexpr int kNoteShare = 3;
    constexpr int kAttachmentsShare = 2;
    auto* column = new QVBoxLayout(this);
    column->addWidget(NewNoteFrame(bindings), kNoteShare);
    column->addWidget(NewAttachmentsFrame(bindings), kAttachmentsShare);
}

QWidget* NotesPage::NewNoteFrame(Bindings& bindings) {
    auto* frame = new Frame(this);
    bindings.AddCaption(form_.FrNote, *frame);
    bindings.Add(form_.txtNote, *note_, [this] { note_->Show(); });
    frame->Lay(new QVBoxLayout)->addWidget(note_);
    return frame;
}

QWidget* NotesPage::NewAttachmentsFrame(Bindings& bindings) {
    auto* frame = new Frame(this);
    auto* view = new GridView(form_, form_.gridattachement, frame);
    bindings.AddCaption(form_.Frattach, *frame, [this, view] { view->setAccessibleName(Spoken(form_.Frattach)); });
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    view->on_open = [this] { form_.gridattachement_DblClick(); };
    view->on_key = [this](Integer code) { form_.gridattachement_KeyDown(code); };
    bindings.Add(form_.gridattachement, *view, [view] { view->Follow(); });

    auto* buttons = new QVBoxLayout;
    const auto add = [&](const Control& control, auto press) {
        auto* button = new Button(frame);
        bindings.AddCaption(control, *button);
        connect(button, &Button::clicked, this, press);
        buttons->addWidget(button);
    };
    add(form_.Cmdlink, [this] { form_.Cmdlink_Click(); });
    add(form_.CmdAttach, [this] { form_.CmdAttach_Click(); });
    add(form_.CmdRemove, [this] { form_.CmdRemove_Click(); });
    buttons->addStretch(1);

    auto* row = frame->Lay(new QHBoxLayout);
    row->addWidget(view, 1);
    row->addLayout(buttons);
    return frame;
}

}  // namespace mrlxmlclass::qt
