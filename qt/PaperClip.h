#pragma once

#include <QIcon>
#include <QPalette>

namespace mrlxmlclass::qt {

/// The picture of an attachment, sharp at any size, in the palette's colour of text that is selected or not.
QIcon PaperClip(const QPalette& palette);

}  // namespace mrlxmlclass::qt
