#include "qt/CellDelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <utility>

#include "qt/GridModel.h"
#include "qt/LineField.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {
namespace {

/// A list that is open from the start, and tells once when it closes: with the place of the choice, or -1.
class CellList : public QComboBox {
public:
    explicit CellList(QWidget* parent) : QComboBox(parent) {
        connect(this, &QComboBox::activated, this, [this](int choice) { Close(choice); });
        QTimer::singleShot(0, this, [this] { showPopup(); });
    }

    void hidePopup() override {
        QComboBox::hidePopup();
        // A choice comes right behind.
        QTimer::singleShot(0, this, [this] { Close(-1); });
    }

    std::function<void(int choice)> closed;

private:
    void Close(int choice) {
        if (const auto tell = std::exchange(closed, nullptr)) tell(choice);
    }
};

/// Tells that the cell offers a list.
void DrawArrow(QPainter& painter, const QStyleOptionViewItem& cell) {
    constexpr double kFaint = 0.5;
    const int side = cell.rect.height() / 2;
    QStyleOption arrow;
    arrow.palette = cell.palette;
    arrow.state = QStyle::State_Enabled;
    arrow.rect = QRect(cell.rect.right() - side - side / 2, cell.rect.center().y() - side / 2, side, side);
    painter.save();
    painter.setOpacity(kFaint);
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, cell.widget);
    painter.restore();
}

/// Some styles draw a check box in hardly another colour than a dark table's.
void DrawOutline(QPainter& painter, const QRect& box, const QStyleOptionViewItem& cell) {
    constexpr double kFaint = 0.4;
    painter.save();
    painter.setOpacity(kFaint);
    painter.setPen(cell.palette.color(QPalette::Text));
    painter.drawRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}

}  // namespace

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    if (!form_.BeginEdit(grid_, model_.GridRow(index), index.column())) return nullptr;
    if (!grid_.ComboList().empty()) return NewList(parent);
    auto* line = new QLineEdit(parent);
    line->setFrame(false);
    if (grid_.EditMaxLength() > 0) line->setMaxLength(static_cast<int>(grid_.EditMaxLength().value()));
    return line;
}

QWidget* CellDelegate::NewList(QWidget* parent) const {
    const std::vector<ComboEntry> entries = ComboEntries(grid_.ComboList());
    auto* list = new CellList(parent);
    for (const ComboEntry& entry : entries) list->addItem(ToQt(entry.text));
    const auto current = std::ranges::find(entries, grid_.RowData(grid_.Row()), &ComboEntry::data);
    list->setCurrentIndex(current == entries.end() ? -1 : static_cast<int>(current - entries.begin()));
    // Making an editor is const, closing one is not.
    list->closed = [self = const_cast<CellDelegate*>(this), list, entries](int choice) {
        Q_EMIT self->closeEditor(list);  // first: the row may go with the choice
        if (choice >= 0) self->form_.EndEdit(self->grid_, entries[static_cast<std::size_t>(choice)]);
    };
    return list;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line != nullptr) line->setText(ToQt(grid_.TextMatrix(model_.GridRow(index), index.column())));
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const {
    const auto* line = qobject_cast<const QLineEdit*>(editor);
    if (line != nullptr) form_.EndEdit(grid_, FromQt(line->text()));
}

void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

bool CellDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* line = qobject_cast<QLineEdit*>(watched);
    if (line != nullptr && event->type() == QEvent::KeyPress) {
        if (LineKey(*line, static_cast<const QKeyEvent&>(*event))) return true;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

/// Whether the key goes no further.
bool CellDelegate::LineKey(QLineEdit& line, const QKeyEvent& key) {
    const bool leaves = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    const int ascii = leaves ? EditTask::kEnter : KeyAscii(key);
    if (ascii == EditTask::kNoKey) return false;
    const Integer passed = leaves ? Integer(ascii) : form_.EditKey(grid_, FromQt(line.text()), Integer(ascii));
    if (passed == EditTask::kEnter) {
        Q_EMIT commitData(&line);
        Q_EMIT closeEditor(&line);
    }
    return passed == EditTask::kEnter || passed == EditTask::kNoKey;
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (std::ranges::find(list_columns_, index.column()) != list_columns_.end()) DrawArrow(*painter, option);
    if (index.data(Qt::CheckStateRole).isValid()) {
        QStyleOptionViewItem box = option;
        initStyleOption(&box, index);
        const QStyle& style = *(option.widget != nullptr ? option.widget->style() : QApplication::style());
        DrawOutline(*painter, style.subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &box, option.widget), option);
    }
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int air = option.fontMetrics.height() / 4;
    const int arrow =
        std::ranges::find(list_columns_, index.column()) == list_columns_.end() ? 0 : option.fontMetrics.height();
    return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * air + arrow, 2 * air);
}

}  // namespace mrlxmlclass::qt
