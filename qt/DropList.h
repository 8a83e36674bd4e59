#pragma once

#include <QComboBox>

namespace mrlxmlclass::qt {

/// A list to choose from, which opens on the entry that stands in the field, or on none: then nothing is chosen before
/// the person goes to an entry. While it is closed, no key chooses.
class DropList : public QComboBox {
public:
    using QComboBox::QComboBox;

    void showPopup() override;

protected:
    /// The place of the entry that stands in the field; -1 when none does.
    virtual int Standing() const { return currentIndex(); }
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// Whether the key opens what a field drops down.
bool DropsDown(const QKeyEvent& key);

}  // namespace mrlxmlclass::qt
