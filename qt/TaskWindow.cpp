#include "qt/TaskWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QScreen>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>
#include <algorithm>

#include "qt/DateField.h"
#include "qt/GridPages.h"
#include "qt/GridView.h"
#include "qt/Labels.h"
#include "qt/TaskPage.h"

namespace mrlxmlclass::qt {

namespace {

/// What a desktop may put around a window.
QSize FrameOfAnyWindow() {
    const int title = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return {title / 2, title + title / 2};
}

class TabBar : public QTabBar {
public:
    TabBar() {
        // As the one that it stands for.
        setDrawBase(false);
        setObjectName("qt_tabwidget_tabbar");
    }

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) return QTabBar::wheelEvent(event);
        event->ignore();  // whoever scrolls past changes nothing
    }
};

class TabWidget : public QTabWidget {
public:
    explicit TabWidget(QWidget* parent) : QTabWidget(parent) { setTabBar(new TabBar); }
};

}  // namespace

TaskWindow::TaskWindow(EditTask& form) : form_(form) {
    setObjectName("EditTask");
    setWindowTitle(ToQt(form_.Caption));
    setSizeGripEnabled(true);
    auto* column = new QVBoxLayout(this);
    column->addLayout(NewNameRow());
    column->addWidget(NewTabs());
    column->addWidget(NewButtons());
    bindings_.ShowAll();
    const QFontMetrics metrics(font());
    constexpr int kCharacters = 80;
    constexpr int kLines = 26;
    const QSize wanted(kCharacters * metrics.averageCharWidth(), kLines * metrics.lineSpacing());
    resize(wanted.expandedTo(sizeHint()).boundedTo(screen()->availableSize() - FrameOfAnyWindow()));
    focus_ = std::make_unique<FieldFocus>(*this);
}

QLayout* TaskWindow::NewNameRow() {
    auto* line = new NameLine(this);
    name_ = std::make_unique<LineField>(*line, form_.TxtName[0]);
    bindings_.Add(form_.TxtName[0], *line, [this] { name_->Show(); });
    name_->takes_lines = true;
    name_->on_leave = [this] { form_.TxtName_Validate(0); };

    auto* row = new QHBoxLayout;
    row->addWidget(NewLabel(form_.lblName[0], bindings_, line));
    row->addWidget(line, 1);
    return row;
}

QTabWidget* TaskWindow::NewTabs() {
    auto* tabs = new TabWidget(this);
    notes_ = new NotesPage(form_, bindings_);
    QWidget* const pages[] = {new TaskPage(form_, bindings_), NewPredecessorPage(form_, bindings_), notes_,
                              NewPeoplePage(form_, bindings_)};
    for (QWidget* page : pages) {
        bindings_.Add(form_.Picgeneral[tabs->count()], *page);
        auto* tab = new QWidget(tabs);  // whether it shows is the tabs' business
        (new QVBoxLayout(tab))->addWidget(page);
        tab->layout()->setContentsMargins(0, 0, 0, 0);
        tabs->addTab(tab, QString());
    }
    bindings_.Add(form_.TabTask, *tabs, [this, tabs] {
        const QSignalBlocker quiet(tabs);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setTabText(tab, ToQt(form_.TabTask.TabCaption(tab)));
            tabs->setTabEnabled(tab, static_cast<bool>(form_.TabTask.TabEnabled(tab)));
        }
        tabs->setCurrentIndex(static_cast<int>(form_.TabTask.CurrTab().value()));
    });
    tabs->setFocusProxy(tabs->tabBar());
    connect(tabs, &QTabWidget::currentChanged, this, [this](int tab) {
        form_.TabTask.CurrTab(tab);
        form_.TabTask_Click();
    });
    return tabs;
}

QDialogButtonBox* TaskWindow::NewButtons() {
    auto* box = new QDialogButtonBox(this);
    bindings_.Add(form_.Picgen[0], *box);
    const auto add = [&](Control& control, QDialogButtonBox::ButtonRole role, auto press) {
        auto* button = new Button(this);
        bindings_.AddCaption(control, *button);
        box->addButton(button, role);
        connect(button, &Button::clicked, this, press);
        return button;
    };
    ok_ = add(form_.CmdOK[0], QDialogButtonBox::AcceptRole, [this] {
        FinishEditing();
        form_.CmdOK_Click(0);
    });
    auto* cancel = add(form_.CmdCancel[0], QDialogButtonBox::RejectRole, [this] { form_.CmdCancel_Click(0); });
    cancel->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus in the cell, where what is half typed is dropped
    add(form_.CmdHelp[0], QDialogButtonBox::HelpRole, [this] { form_.CmdHelp_Click(0); });
    ok_->setDefault(true);
    return box;
}

// A key that presses the button leaves the focus in the field.
void TaskWindow::FinishEditing() {
    ok_->setFocus();
}

void TaskWindow::DropEdits() {
    for (QTableView* table : findChildren<QTableView*>()) {
        if (auto* grid = dynamic_cast<GridView*>(table)) grid->DropEdit();
    }
    for (QWidget* widget : findChildren<QWidget*>()) {
        if (auto* date = dynamic_cast<DateField*>(widget)) date->DropEdit();
    }
}

void TaskWindow::ClosePopups() {
    for (QWidget* widget : findChildren<QWidget*>()) {
        if (widget->windowType() == Qt::Popup) widget->hide();
    }
}

void TaskWindow::Leave() {
    focus_ = nullptr;  // a window that goes leads the focus from field to field
    DropEdits();
    ClosePopups();
    const QList<QDialog*> in_front = findChildren<QDialog*>();
    std::for_each(in_front.rbegin(), in_front.rend(), [](QDialog* dialog) { dialog->reject(); });
    hide();
}

void TaskWindow::reject() {
    form_.CmdCancel_Click(0);
}

void TaskWindow::closeEvent(QCloseEvent* event) {
    form_.Form_Closed();
    event->setAccepted(isHidden());  // the form may have to stay
}

}  // namespace mrlxmlclass::qt
