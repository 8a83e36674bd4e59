#pragma once

#include <QApplication>

#include <memory>

namespace mrlxmlclass::qt {

/// Whether this thread can show widgets, now or with an application of its own.
bool CanShowWidgets();

/// Sees to it that there is a QApplication: the host's, or one of our own that goes with this.
class Desktop {
public:
    Desktop();

private:
    std::unique_ptr<QApplication> own_;
};

}  // namespace mrlxmlclass::qt
