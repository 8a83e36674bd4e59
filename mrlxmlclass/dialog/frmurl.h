#pragma once

#include "mrlxmlclass/dialog/Controls.h"

namespace mrlxmlclass {

/// The small form for a web address. Its result is the module value `g_UrlResult`; "" = none.
class frmurl final : private ControlWatcher {
public:
    frmurl();

    /// As it stands whenever it is opened anew.
    void Form_Load();
    /// Takes the address, unless nothing is left of it beside what every address has.
    void CmdOK_Click();
    void CmdCancel_Click();

    String caption;
    TextControl txturl;
    PlainControl lblLabels;
    PlainControl CmdOK;
    PlainControl CmdCancel;

private:
    // It is filled before it shows, and nothing in it follows from anything else.
    void Refresh(const Control&) override {}
    void Changed(Control&) override {}
};

}  // namespace mrlxmlclass
