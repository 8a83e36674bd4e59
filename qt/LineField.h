#pragma once

#include <QLineEdit>

#include "mrlxmlclass/dialog/Controls.h"

namespace mrlxmlclass::qt {

/// A line in which a text control is typed. What the form makes of it comes back while the person is still at it, so
/// the caret stays where it was; where the form fills what the person emptied, the next key replaces that.
class LineField {
public:
    /// The line lives at least as long.
    LineField(QLineEdit& line, TextControl& control) : line_(line), control_(control) {}

    QLineEdit& line() { return line_; }

    void Show();
    /// The person put that text there.
    void Typed(const QString& text);

private:
    QLineEdit& line_;
    TextControl& control_;
    bool echo_ = false;     ///< the form is about to tell what was typed
    bool emptied_ = false;  ///< the form is answering an empty line
};

/// The code of a key that types a character, or is Backspace or Enter, as the form's rules know it; 0 for any other.
int KeyAscii(const QKeyEvent& event);

}  // namespace mrlxmlclass::qt
