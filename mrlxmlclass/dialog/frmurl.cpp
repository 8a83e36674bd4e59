#include "mrlxmlclass/dialog/frmurl.h"

#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass {

frmurl::frmurl()
    : txturl(*this, "txturl"), lblLabels(*this, "lblLabels"), CmdOK(*this, "CmdOK"), CmdCancel(*this, "CmdCancel") {
    Form_Load();
}

void frmurl::Form_Load() {
    txturl.Text("http://www.");
}

void frmurl::CmdOK_Click() {
    String rest = txturl.Text();
    for (const char* usual : {"http", ":", "/", "\\", "w", "."}) rest = Replace(rest, usual, "");
    Module().g_UrlResult = rest.empty() ? String() : txturl.Text();
}

void frmurl::CmdCancel_Click() {
    Module().g_UrlResult = "";
}

}  // namespace mrlxmlclass
