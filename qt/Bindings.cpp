#include "qt/Bindings.h"

#include <QApplication>

#include "qt/Frame.h"

namespace mrlxmlclass::qt {
namespace {

/// What all controls have in common.
void ShowState(QWidget& widget, const Control& control) {
    widget.setEnabled(static_cast<bool>(control.Enabled()));
    widget.setHidden(!control.Visible());
    if (!control.Font().Name.empty()) widget.setFont(FontOf(control));
}

}  // namespace

QFont FontOf(const Control& control) {
    QFont font = QApplication::font();
    font.setFamilies({ToQt(control.Font().Name), font.family()});
    if (const double points = ToQt(control.Font().Size).toDouble(); points > 0) font.setPointSizeF(points);
    return font;
}

void Bindings::Add(const Control& control, QWidget& widget, std::function<void()> show) {
    QString name = ToQt(control.Name());
    if (control.Index() > 0) name += "_" + QString::number(control.Index());
    widget.setObjectName(name);
    bindings_[&control] = {&widget, std::move(show)};
}

void Bindings::Show(const Control& control) const {
    const auto found = bindings_.find(&control);
    if (found == bindings_.end()) return;
    const Binding& binding = found->second;
    ShowState(*binding.widget, control);
    if (binding.show) binding.show();
    Frame::ContentChanged(*binding.widget);
}

void Bindings::ShowAll() const {
    for (const auto& [control, binding] : bindings_) Show(*control);
}

QWidget* Bindings::WidgetOf(const Control& control) const {
    const auto found = bindings_.find(&control);
    return found == bindings_.end() ? nullptr : found->second.widget;
}

}  // namespace mrlxmlclass::qt
