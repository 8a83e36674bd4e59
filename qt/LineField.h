#pragma once

#include <QLineEdit>
#include <functional>

#include "mrlxmlclass/dialog/Controls.h"

namespace mrlxmlclass::qt {

/// A line that does not look like a field while it takes no text.
class NameLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void initStyleOption(QStyleOptionFrame* option) const override;
};

/// A line in which a text control is typed. What the form makes of it comes back while the person is still at it, so
/// the caret stays where it was; where the form fills what the person emptied, the next key replaces that.
class LineField : public QObject {
public:
    /// The line lives at least as long. `tail` is what the form puts behind whatever is typed: no key gets behind it.
    LineField(QLineEdit& line, TextControl& control, QString tail = {});

    QLineEdit& line() { return line_; }

    void Show();
    /// To be called before the line gets the key, or what an input method types.
    void BeforeTyping(const QEvent& event);

    bool takes_lines = false;        ///< of pasted text; otherwise it is put into one
    std::function<void()> on_leave;  ///< the person goes on to another field; left empty, nothing follows

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The person changed the text of the line.
    void Typed();
    /// What was pasted is put right: its line breaks, and the end, where the longest length cut a character in two.
    void MendPasted();
    /// Where the tail begins, or what is left of it.
    qsizetype EndOfTyped(const QString& text) const;

    QLineEdit& line_;
    TextControl& control_;
    QString tail_;
    bool writing_ = false;  ///< the program changes the text of the line
    bool echo_ = false;     ///< the form is about to tell what was typed
    bool emptied_ = false;  ///< the form is answering an empty line
};

/// Whether Control is held, and not with Alt, which together type characters on some keyboards.
bool WithControl(const QKeyEvent& event);
bool LeadsToAnotherPage(const QKeyEvent& event);

/// The code of a key that types a character, or is Backspace or Enter, as the form's rules know it; 0 for any other.
int KeyAscii(const QKeyEvent& event);

}  // namespace mrlxmlclass::qt
