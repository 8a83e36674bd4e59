#pragma once

#include <QIcon>

namespace mrlxmlclass::qt {

/// The picture of an attachment, sharp at any size, in the desktop's colour of text.
QIcon PaperClip();

}  // namespace mrlxmlclass::qt
