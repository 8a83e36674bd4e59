#pragma once

#include <QApplication>

#include <memory>
#include <string>

namespace mrlxmlclass::qt {

/// Whether this thread can show widgets, now or with an application of its own.
bool CanShowWidgets();

/// Sees to it that there is a QApplication: the host's, or one of our own that goes with this. Ours would put the
/// process into the user's C locale; it is left in the one it was in.
class Desktop {
public:
    Desktop();
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

private:
    void PutLocaleBack() const;

    std::string c_locale_;
    std::unique_ptr<QApplication> own_;
};

}  // namespace mrlxmlclass::qt
