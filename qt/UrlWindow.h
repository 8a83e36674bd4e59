#pragma once

#include "mrlxmlclass/dialog/frmurl.h"
#include "qt/Bindings.h"
#include "qt/HeldKeys.h"
#include "qt/LineField.h"

namespace mrlxmlclass::qt {

/// The window of the form for a web address.
class UrlWindow : public Window {
public:
    UrlWindow(frmurl& form, QWidget* parent);

    void accept() override;
    /// Esc, Cancel, or the window was closed.
    void reject() override;

private:
    frmurl& form_;
    Bindings bindings_;
    LineField address_;
};

}  // namespace mrlxmlclass::qt
