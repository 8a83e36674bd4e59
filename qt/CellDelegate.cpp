#include "qt/CellDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <utility>

#include "qt/CheckBox.h"
#include "qt/Colours.h"
#include "qt/DropList.h"
#include "qt/FieldFocus.h"
#include "qt/GridModel.h"
#include "qt/LineField.h"
#include "qt/PaperClip.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {
namespace {

/// A list that is open from the start, and tells once when it closes: with the place of the choice, or -1. What is
/// typed is looked for in it, and chosen only by Enter or a click.
class CellList : public DropList {
public:
    explicit CellList(QWidget* parent) : DropList(parent) {
        connect(this, &DropList::activated, this, [this](int choice) { Close(choice); });
        QTimer::singleShot(0, this, [this] {
            if (window()->focusWidget() != this) return;  // the edit is over
            showPopup();
            view()->viewport()->installEventFilter(this);
            open_.start();
            if (!typed_.isEmpty()) view()->keyboardSearch(typed_);
        });
    }

    void hidePopup() override {
        DropList::hidePopup();
        // A choice comes right behind. The table may have put the editor away by itself.
        QTimer::singleShot(0, this, [this] {
            if (!isHidden()) Close(-1);
        });
    }

    std::function<void(int choice)> closed;

protected:
    // The list itself has the keys once it is open.
    void keyPressEvent(QKeyEvent* event) override {
        if (KeyAscii(*event) >= ' ') typed_ += event->text();
    }
    void wheelEvent(QWheelEvent*) override {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        return (watched == view()->viewport() && EndsDoubleClick(*event)) || DropList::eventFilter(watched, event);
    }

private:
    /// The second click of a double click on the cell lands in the list that the first one opened, and chooses nothing.
    bool EndsDoubleClick(const QEvent& event) {
        switch (event.type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                pressed_ = open_.hasExpired(QApplication::doubleClickInterval());
                return !pressed_;
            case QEvent::MouseButtonRelease:
                return !pressed_;
            default:
                return false;
        }
    }

    void Close(int choice) {
        if (const auto tell = std::exchange(closed, nullptr)) tell(choice);
    }

    QString typed_;  ///< before it was open
    QElapsedTimer open_;
    bool pressed_ = false;  ///< an entry of it
};

const QStyle& StyleOf(const QStyleOptionViewItem& cell) {
    return *(cell.widget != nullptr ? cell.widget->style() : QApplication::style());
}

/// On that side of the text of a cell, for something that wide and as high.
void KeepRoom(QStyleOptionViewItem& cell, QStyleOptionViewItem::Position where, int side) {
    cell.features |= QStyleOptionViewItem::HasDecoration;
    cell.decorationPosition = where;
    cell.decorationSize = QSize(side, side);
}

/// Where the style puts what stands behind the text of a cell.
QRect PlaceBehindText(const QStyleOptionViewItem& cell) {
    return StyleOf(cell).subElementRect(QStyle::SE_ItemViewItemDecoration, &cell, cell.widget);
}

/// Without what the next key replaces.
QString TextThatStays(const QLineEdit& line) {
    return line.hasSelectedText() ? line.text().remove(line.selectionStart(), line.selectionLength()) : line.text();
}

void DrawArrow(QPainter& painter, const QStyleOptionViewItem& cell) {
    constexpr double kFaint = 0.5;
    const bool selected = cell.state.testFlag(QStyle::State_Selected);
    QStyleOption arrow;
    arrow.palette = cell.palette;
    const QColor text = cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        arrow.palette.setColor(role, text);
    }
    arrow.state = QStyle::State_Enabled;
    arrow.rect = PlaceBehindText(cell);
    painter.save();
    painter.setOpacity(selected ? 1 : kFaint);
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, cell.widget);
    painter.restore();
}

void DrawFrame(QPainter& painter, const QRect& cell, const QColor& colour) {
    painter.save();
    painter.setPen(colour);
    painter.drawRect(QRectF(cell).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}

QColor HighlightOnPaper(const QPalette& palette) {
    return ReadableOnPaper(palette.color(QPalette::Highlight));
}

/// Some styles frame the cell that has the focus in the colour of the window, hardly to be seen on a dark desktop, or
/// in nearly that of a selected row.
void DrawFocus(QPainter& painter, const QStyleOptionViewItem& cell) {
    const bool selected = cell.state.testFlag(QStyle::State_Selected);
    DrawFrame(painter, cell.rect,
              selected ? cell.palette.color(QPalette::HighlightedText) : HighlightOnPaper(cell.palette));
}

/// A line that fills a cell.
class CellLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void paintEvent(QPaintEvent* event) override {
        QLineEdit::paintEvent(event);
        QPainter painter(this);
        DrawFrame(painter, rect(), HighlightOnPaper(palette()));
    }
};

}  // namespace

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    if (!form_.BeginEdit(grid_, model_.GridRow(index), index.column())) return nullptr;
    QWidget* editor = grid_.ComboList().empty() ? NewLine(parent, option, index) : NewList(parent);
    editor->setAccessibleName(model_.headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    return editor;
}

QWidget* CellDelegate::NewLine(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    auto* line = new CellLine(parent);
    line->setFrame(false);
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    line->setAlignment(QStyle::visualAlignment(parent->layoutDirection(), cell.displayAlignment));
    const QRect text = StyleOf(cell).subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget);
    line->setTextMargins(text.left() - cell.rect.left(), 0, cell.rect.right() - text.right(), 0);
    if (grid_.EditMaxLength() > 0) line->setMaxLength(static_cast<int>(grid_.EditMaxLength().value()));
    return line;
}

QWidget* CellDelegate::NewList(QWidget* parent) const {
    const std::vector<ComboEntry> entries = ComboEntries(grid_.ComboList());
    auto* list = new CellList(parent);
    for (const ComboEntry& entry : entries) list->addItem(ToQt(entry.text));
    const auto current = std::ranges::find(entries, grid_.RowData(grid_.Row()), &ComboEntry::data);
    list->setCurrentIndex(current == entries.end() ? -1 : static_cast<int>(current - entries.begin()));
    list->closed = [this, list, entries](int choice) {
        close_(list);  // first: the row may go with the choice
        if (choice >= 0) form_.EndEdit(grid_, entries[static_cast<std::size_t>(choice)]);
    };
    return list;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line != nullptr) line->setText(ToQt(grid_.TextMatrix(model_.GridRow(index), index.column())));
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const {
    const auto* line = qobject_cast<const QLineEdit*>(editor);
    if (line != nullptr) form_.EndEdit(grid_, FromQt(OneLine(line->text())));
}

void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

bool CellDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* line = qobject_cast<QLineEdit*>(watched);
    if (line != nullptr && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (LeadsToAnotherPage(key)) return false;
        if (LineKey(*line, key)) return true;
    }
    if (event->type() != QEvent::FocusOut) return QStyledItemDelegate::eventFilter(watched, event);
    if (LeavesField(*event)) {
        QStyledItemDelegate::eventFilter(watched, event);  // ends the edit
        on_leave();
    }
    return false;
}

/// Whether the key goes no further.
bool CellDelegate::LineKey(QLineEdit& line, const QKeyEvent& key) {
    const bool leaves = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    const int ascii = leaves ? EditTask::kEnter : KeyAscii(key);
    if (ascii == EditTask::kNoKey) return false;
    const Integer passed = leaves ? Integer(ascii) : form_.EditKey(grid_, FromQt(TextThatStays(line)), Integer(ascii));
    if (passed == EditTask::kEnter) {
        Q_EMIT commitData(&line);
        Q_EMIT closeEditor(&line);
    }
    return passed == EditTask::kEnter || passed == EditTask::kNoKey;
}

bool CellDelegate::OffersList(const QModelIndex& index) const {
    return static_cast<bool>(form_.OffersList(grid_, index.column()));
}

/// Behind the text of a cell that offers a list, room is kept for the arrow, and before one that has no tick, where
/// others have one, for that. A picture before a text is as high as that.
void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    const QPalette palette = option->palette;  // the text of a link has a colour of its own
    QStyledItemDelegate::initStyleOption(option, index);
    const bool mirrored = option->direction == Qt::RightToLeft;
    if (mirrored && model_.ReadsLeftToRight(index)) option->text = LeftToRight(option->text);
    const int height = option->fontMetrics.height();
    if (OffersList(index)) {
        KeepRoom(*option, QStyleOptionViewItem::Right, height / 2);
    } else if (model_.HasTicks(index.column()) && !option->features.testFlag(QStyleOptionViewItem::HasCheckIndicator)) {
        KeepRoom(*option, QStyleOptionViewItem::Left,
                 StyleOf(*option).pixelMetric(QStyle::PM_IndicatorWidth, option, option->widget));
    } else if (!option->icon.isNull()) {
        option->icon = PaperClip(palette);
        option->decorationSize = QSize(height, height);
    }
}

QRect CellDelegate::ArrowIn(const QAbstractItemView& view, const QModelIndex& index) const {
    if (!OffersList(index)) return {};
    QStyleOptionViewItem cell;
    cell.initFrom(&view);
    cell.widget = &view;
    cell.rect = view.visualRect(index);
    initStyleOption(&cell, index);
    const QRect arrow = PlaceBehindText(cell);
    return {arrow.left(), cell.rect.top(), arrow.width(), cell.rect.height()};  // easily hit
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    const bool framed = option.state.testFlag(QStyle::State_HasFocus);
    if (framed) cell.state.setFlag(QStyle::State_HasFocus, false);
    QStyledItemDelegate::paint(painter, cell, index);
    if (framed) DrawFocus(*painter, cell);
    initStyleOption(&cell, index);
    if (OffersList(index)) DrawArrow(*painter, cell);
    if (index.data(Qt::CheckStateRole).isValid()) {
        DrawOutline(*painter, StyleOf(cell).subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &cell, option.widget),
                    option.palette);
    }
}

bool CellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    const bool tells = index.isValid() && (index.data(Qt::DecorationRole).isValid() ||
                                           QStyledItemDelegate::sizeHint(option, index).width() > option.rect.width());
    return QStyledItemDelegate::helpEvent(event, view, option, tells ? index : QModelIndex());
}

// The table ticks by itself, and moves to the person before it does.
bool CellDelegate::editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&, const QModelIndex&) {
    return false;
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int air = option.fontMetrics.height() / 4;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * air, 2 * air);
}

}  // namespace mrlxmlclass::qt
