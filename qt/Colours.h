#pragma once

#include <QColor>

namespace mrlxmlclass::qt {

/// A colour in which something stands on the paper of the desktop's fields. Where it is as dark, or as light, as the
/// paper, half way to the colour of texts: one that was chosen for a light desktop can hardly be seen on a dark one.
QColor ReadableOnPaper(const QColor& colour);

}  // namespace mrlxmlclass::qt
