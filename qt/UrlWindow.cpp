#include "qt/UrlWindow.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

#include "qt/Labels.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {

UrlWindow::UrlWindow(frmurl& form, QWidget* parent)
    : Window(parent), form_(form), address_(*new QLineEdit(this), form.txturl) {
    setObjectName("frmurl");
    setWindowTitle(ToQt(form.caption));
    QLineEdit& line = address_.line();
    bindings_.Add(form.txturl, line, [this] { address_.Show(); });

    auto* box = new QDialogButtonBox(this);
    auto* ok = new Button(this);
    bindings_.AddCaption(form.CmdOK, *ok);
    box->addButton(ok, QDialogButtonBox::AcceptRole);
    ok->setDefault(true);
    auto* cancel = new Button(this);
    bindings_.AddCaption(form.CmdCancel, *cancel);
    box->addButton(cancel, QDialogButtonBox::RejectRole);
    connect(box, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(box, &QDialogButtonBox::rejected, this, [this] { reject(); });

    constexpr int kCharacters = 50;
    line.setMinimumWidth(kCharacters * fontMetrics().averageCharWidth());
    auto* column = new QVBoxLayout(this);
    column->addWidget(NewLabel(form.lblLabels, bindings_, &line));
    column->addWidget(&line);
    column->addStretch(1);
    column->addWidget(box);
    bindings_.ShowAll();
    line.end(/*mark=*/false);  // behind what every address begins with
}

void UrlWindow::accept() {
    form_.CmdOK_Click();
    Window::accept();
}

void UrlWindow::reject() {
    form_.CmdCancel_Click();
    Window::reject();
}

}  // namespace mrlxmlclass::qt
