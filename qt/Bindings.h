#pragma once

#include <QWidget>

#include <functional>
#include <unordered_map>

#include "mrlxmlclass/dialog/Controls.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {

/// The font that a control asks for; where the system has none of that name, the desktop's own in that size.
QFont FontOf(const Control& control);

/// Which widget stands for which control of the form, and how it is brought up to date.
class Bindings {
public:
    /// The widget takes the control's name. `show()` follows what this very control has beside ShowState; it tells the
    /// form nothing.
    void Add(const Control& control, QWidget& widget, std::function<void()> show = {});
    /// The same for a button, a label or a box: `show()` and its caption.
    template <class Captioned>
    void AddCaption(const Control& control, Captioned& widget, std::function<void()> show = {}) {
        Add(control, widget, [&control, &widget, show = std::move(show)] {
            const QString caption = ToQt(control.Caption());
            if constexpr (requires { widget.setTitle(caption); }) {
                widget.setTitle(caption);
            } else {
                widget.setText(caption);
            }
            if (show) show();
        });
    }

    void Show(const Control& control) const;
    void ShowAll() const;
    /// nullptr when nothing stands for it.
    QWidget* WidgetOf(const Control& control) const;

private:
    struct Binding {
        QWidget* widget;
        std::function<void()> show;
    };
    std::unordered_map<const Control*, Binding> bindings_;
};

}  // namespace mrlxmlclass::qt
