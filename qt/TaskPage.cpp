#include "qt/TaskPage.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>

#include "qt/CheckBox.h"
#include "qt/DateField.h"
#include "qt/DropList.h"
#include "qt/Labels.h"
#include "qt/StepArrows.h"

namespace mrlxmlclass::qt {
namespace {

constexpr int kLabels = 0;
constexpr int kFields = 1;
constexpr int kRest = 2;  ///< takes the room that the fields do not need

/// The percentages to choose from.
class PercentList : public DropList {
public:
    using DropList::DropList;

protected:
    int Standing() const override { return findText(currentText().remove(EditTask::kPercentTail)); }
};

/// A field with its arrows, as one.
QHBoxLayout* WithArrows(QWidget* field, QWidget* arrows) {
    auto* row = new QHBoxLayout;
    row->setSpacing(1);
    row->addWidget(field, 1);
    row->addWidget(arrows);
    return row;
}

/// What it takes, also while it does not show.
int WidthOf(QLayoutItem& item) {
    if (const QWidget* widget = item.widget()) return widget->sizeHint().width();
    const QLayout* row = item.layout();
    if (row == nullptr || row->count() == 0) return 0;
    int width = (row->count() - 1) * row->spacing();
    for (int n = 0; n < row->count(); ++n) width += WidthOf(*row->itemAt(n));
    return width;
}

}  // namespace

TaskPage::TaskPage(EditTask& form, Bindings& bindings) : form_(form) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(NewDatesFrame(bindings));
    column->addWidget(NewProgressFrame(bindings));
    column->addStretch(1);
}

QGridLayout* TaskPage::NewFieldGrid(Frame& frame) {
    auto* grid = frame.Lay(new QGridLayout);
    grid->setColumnStretch(kRest, 1);
    grids_.push_back(grid);
    return grid;
}

/// Labels and fields stand below one another across the frames.
void TaskPage::AlignColumns() {
    for (const int column : {kLabels, kFields}) {
        int widest = 0;
        for (const QGridLayout* grid : grids_) {
            for (int row = 0; row < grid->rowCount(); ++row) {
                QLayoutItem* item = grid->itemAtPosition(row, column);
                if (item != nullptr) widest = std::max(widest, WidthOf(*item));
            }
        }
        for (QGridLayout* grid : grids_) {
            if (grid->columnMinimumWidth(column) == widest) continue;
            grid->setColumnMinimumWidth(column, widest);
            grid->activate();
        }
    }
}

bool TaskPage::event(QEvent* event) {
    const bool resized_below = event->type() == QEvent::LayoutRequest;
    if (resized_below || event->type() == QEvent::Show) AlignColumns();
    return QWidget::event(event);
}

QWidget* TaskPage::NewProgressFrame(Bindings& bindings) {
    auto* frame = new Frame(this);
    bindings.AddCaption(form_.frmTaskPro[0], *frame);
    QGridLayout* grid = NewFieldGrid(*frame);
    AddProgress(*grid, bindings);
    AddCost(*grid, bindings);
    return frame;
}

QWidget* TaskPage::NewDatesFrame(Bindings& bindings) {
    auto* frame = new Frame(this);
    bindings.AddCaption(form_.FrStartDate, *frame);
    QGridLayout* grid = NewFieldGrid(*frame);
    AddDates(*grid, bindings);
    AddDuration(*grid, bindings);
    return frame;
}

void TaskPage::AddProgress(QGridLayout& grid, Bindings& bindings) {
    auto* box = new PercentList(this);
    for (const String& offered : form_.TxtPercentComplet.List()) box->addItem(ToQt(offered));
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);
    box->setFocusPolicy(Qt::StrongFocus);  // not by the wheel
    // Only the list chooses: a typed number that it happens to offer is no choice when the line is left.
    QObject::disconnect(box->lineEdit(), &QLineEdit::editingFinished, box, nullptr);
    QObject::disconnect(box->lineEdit(), &QLineEdit::returnPressed, box, nullptr);
    percent_ = std::make_unique<LineField>(*box->lineEdit(), form_.TxtPercentComplet, EditTask::kPercentTail);
    bindings.Add(form_.TxtPercentComplet, *box, [this] { percent_->Show(); });
    bindings.Show(form_.TxtPercentComplet);  // a box keeps the height that it has in its first font
    connect(box, &DropList::textActivated, this, [this] { form_.TxtPercentComplet_Click(); });

    for (QObject* typed_in : {static_cast<QObject*>(box), static_cast<QObject*>(box->lineEdit())}) {
        typed_in->installEventFilter(this);
    }
    auto* arrows = new StepArrows(
        *box, *box->lineEdit(), [this] { form_.VScrollPercentComplete_UpClick(); },
        [this] { form_.VScrollPercentComplete_DownClick(); });
    bindings.Add(form_.VScrollPercentComplete, *arrows);

    const int row = grid.rowCount();
    grid.addWidget(NewLabel(form_.lblPercentComplet, bindings, box, {arrows}), row, kLabels);
    grid.addLayout(WithArrows(box, arrows), row, kFields);
}

void TaskPage::AddCost(QGridLayout& grid, Bindings& bindings) {
    cost_line_ = new QLineEdit(this);
    cost_ = std::make_unique<LineField>(*cost_line_, form_.Txtcost);
    bindings.Add(form_.Txtcost, *cost_line_, [this] { cost_->Show(); });
    cost_line_->installEventFilter(this);

    const int row = grid.rowCount();
    grid.addWidget(NewLabel(form_.lblcost[0], bindings, cost_line_), row, kLabels);
    grid.addWidget(cost_line_, row, kFields);
}

void TaskPage::AddDates(QGridLayout& grid, Bindings& bindings) {
    const auto add = [&](DateControl& control, const Control& label, std::function<void()> changed) {
        auto* field = new DateField(form_, control, std::move(changed));
        bindings.Add(control, *field, [field] { field->Show(); });
        const int row = grid.rowCount();
        grid.addWidget(NewLabel(label, bindings, field, field->parts()), row, kLabels);
        grid.addWidget(field, row, kFields);
    };
    add(form_.DTPickerStart, form_.LblStartDate, [this] { form_.DTPickerStart_Change(); });
    add(form_.DTPickerEnd, form_.LblEndDate, [this] { form_.DTPickerEnd_Change(); });
}

void TaskPage::AddDuration(QGridLayout& grid, Bindings& bindings) {
    TextControl& control = form_.TxtDurtion[0];
    duration_line_ = new QLineEdit(this);
    duration_ = std::make_unique<LineField>(*duration_line_, control);
    bindings.Add(control, *duration_line_, [this] { duration_->Show(); });
    duration_->on_leave = [this] { form_.TxtDurtion_Validate(0); };
    duration_line_->installEventFilter(this);

    auto* arrows = new StepArrows(
        *duration_line_, *duration_line_, [this] { form_.VScrollDuration_UpClick(0); },
        [this] { form_.VScrollDuration_DownClick(0); });
    bindings.Add(form_.VScrollDuration[0], *arrows);

    int row = grid.rowCount();
    grid.addWidget(NewLabel(form_.LblDuration[0], bindings, duration_line_, {arrows}), row, kLabels);
    grid.addLayout(WithArrows(duration_line_, arrows), row, kFields);

    auto* milestone = new CheckBox(this);
    bindings.AddCaption(form_.chkAsMilistones, *milestone,
                        [this, milestone] { milestone->setChecked(static_cast<bool>(form_.chkAsMilistones.Value())); });
    connect(milestone, &QCheckBox::clicked, this, [this](bool ticked) { form_.chkAsMilistones.Value(ticked); });
    grid.addWidget(milestone, ++row, kFields);
}

bool TaskPage::eventFilter(QObject* watched, QEvent* event) {
    const bool in_percent = watched != duration_line_ && watched != cost_line_;
    if (in_percent) percent_->BeforeTyping(*event);
    if (in_percent || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    auto& key = static_cast<QKeyEvent&>(*event);
    if (watched == duration_line_) return DurationKey(key);
    if (const int ascii = KeyAscii(key); ascii != EditTask::kNoKey) form_.Txtcost_KeyPress(Integer(ascii));
    return false;
}

/// Whether the key goes no further.
bool TaskPage::DurationKey(QKeyEvent& key) {
    Integer ascii = KeyAscii(key);
    if (ascii == EditTask::kNoKey) return false;
    form_.TxtDurtion_KeyPress(0, ascii);
    // What the field does not take, the window may: Enter presses its button.
    if (ascii == EditTask::kNoKey) key.setAccepted(KeyAscii(key) != EditTask::kEnter);
    return ascii == EditTask::kNoKey;
}

}  // namespace mrlxmlclass::qt
