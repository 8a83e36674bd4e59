#include "qt/LineField.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyleOptionFrame>
#include <algorithm>
#include <utility>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/FieldFocus.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {
namespace {

bool Types(const QEvent& event) {
    if (event.type() == QEvent::KeyPress) return KeyAscii(static_cast<const QKeyEvent&>(event)) != EditTask::kNoKey;
    if (event.type() != QEvent::InputMethod) return false;
    const auto& typed = static_cast<const QInputMethodEvent&>(event);
    return !typed.preeditString().isEmpty() || !typed.commitString().isEmpty();
}

}  // namespace

void NameLine::initStyleOption(QStyleOptionFrame* option) const {
    QLineEdit::initStyleOption(option);
    if (isReadOnly()) option->palette.setBrush(QPalette::Base, option->palette.window());
}

LineField::LineField(QLineEdit& line, TextControl& control, QString tail)
    : line_(line), control_(control), tail_(std::move(tail)) {
    line.installEventFilter(this);
    // Who does not type, such as a program that writes what the person speaks, edits no text, but changes it.
    connect(&line, &QLineEdit::textChanged, this, [this] {
        if (!writing_) Typed();
    });
}

bool LineField::eventFilter(QObject* watched, QEvent* event) {
    if (on_leave && LeavesField(*event)) on_leave();
    return QObject::eventFilter(watched, event);
}

void LineField::MendPasted() {
    const QString pasted = line_.text();
    const qsizetype behind_caret = pasted.size() - line_.cursorPosition();
    QString text = takes_lines ? QString(pasted).replace("\r\n", "\n") : OneLine(pasted);
    qsizetype caret = text.size() - behind_caret;
    if (caret > 0 && text[caret - 1].isHighSurrogate()) text.remove(--caret, 1);
    if (text == pasted) return;
    const QScopedValueRollback writing(writing_, true);
    line_.setText(text);
    line_.setCursorPosition(static_cast<int>(caret));
}

void LineField::Typed() {
    MendPasted();
    echo_ = true;
    emptied_ = EndOfTyped(line_.text()) == 0;
    control_.Text(LinesFromQt(line_.text()));
    echo_ = emptied_ = false;
    if (on_leave && line_.window()->focusWidget() != &line_) on_leave();  // nobody will leave where text was dropped
}

void LineField::Show() {
    constexpr int kMostOfAnyLine = 32767;
    const QString text = LinesToQt(control_.Text());
    const QScopedValueRollback writing(writing_, true);
    const bool echo = std::exchange(echo_, false);
    const int most = static_cast<int>(control_.MaxLength().value());
    line_.setReadOnly(static_cast<bool>(control_.Locked()));
    // What the program put there may be longer than what may be typed. Another length, be it the same, takes the caret
    // and what can be undone away.
    const int caret = line_.cursorPosition();
    const int length = most == 0 ? kMostOfAnyLine : std::max(most, static_cast<int>(text.size()));
    if (line_.maxLength() != length) line_.setMaxLength(length);
    if (line_.text() != text) {
        line_.setText(text);
        line_.setCursorPosition(std::min(caret, static_cast<int>(EndOfTyped(text))));
        if (emptied_) line_.selectAll();
    } else if (!echo) {
        line_.setCursorPosition(static_cast<int>(control_.SelStart().value()));
    }
}

void LineField::BeforeTyping(const QEvent& event) {
    if (line_.hasSelectedText() || !Types(event)) return;
    const int end = static_cast<int>(EndOfTyped(line_.text()));
    // Not where it is right: what an input method has begun would end.
    if (line_.cursorPosition() > end) line_.setCursorPosition(end);
}

qsizetype LineField::EndOfTyped(const QString& text) const {
    qsizetype end = text.size();
    while (end > 0 && tail_.contains(text[end - 1])) --end;
    return end;
}

bool WithControl(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
}

bool LeadsToAnotherPage(const QKeyEvent& event) {
    return WithControl(event) && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab);
}

int KeyAscii(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Backspace:
            return EditTask::kBackspace;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return EditTask::kEnter;
        default:
            break;
    }
    if (WithControl(event) || event.text().isEmpty() || !event.text().front().isPrint()) return EditTask::kNoKey;
    constexpr int kCodes = 256;
    const int code = event.text().front().unicode();
    return code < kCodes ? code : '?';
}

}  // namespace mrlxmlclass::qt
