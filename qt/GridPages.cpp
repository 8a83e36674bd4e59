#include "qt/GridPages.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include "qt/Frame.h"
#include "qt/GridView.h"
#include "qt/Labels.h"

namespace mrlxmlclass::qt {
namespace {

/// A page of one frame, with one table in it.
GridView* AddGrid(QWidget& page, EditTask& form, const Control& frame_control, GridControl& grid, Bindings& bindings) {
    auto* frame = new Frame(&page);
    auto* view = new GridView(form, grid, frame);
    bindings.AddCaption(frame_control, *frame,
                        [&frame_control, view] { view->setAccessibleName(Spoken(frame_control)); });
    bindings.Add(grid, *view, [view] { view->Follow(); });
    frame->Lay(new QVBoxLayout)->addWidget(view);
    (new QVBoxLayout(&page))->addWidget(frame);
    return view;
}

int Column(const GridControl& grid, const char* key) {
    return static_cast<int>(grid.ColIndex(key).value());
}

}  // namespace

QWidget* NewPredecessorPage(EditTask& form, Bindings& bindings) {
    auto* page = new QWidget;
    GridControl& grid = form.VSFlexGridPredecessor;
    GridView* view = AddGrid(*page, form, form.frpred, grid, bindings);
    view->on_key = [&form](Integer code) { form.VSFlexGridPredecessor_KeyDown(code, 0); };
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (const char* numbers : {"ID", "Lag"}) view->model().AlignRight(Column(grid, numbers));
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view->horizontalHeader()->setSectionResizeMode(Column(grid, "Name"), QHeaderView::Stretch);
    return page;
}

QWidget* NewPeoplePage(EditTask& form, Bindings& bindings) {
    constexpr int kNumber = 0;
    constexpr int kPerson = 1;
    auto* page = new QWidget;
    GridView* view = AddGrid(*page, form, form.FrAssi, form.VSFlexGridResource, bindings);
    view->setSelectionMode(QAbstractItemView::NoSelection);  // selected is who works on the task
    view->on_click = [&form](Long row) { form.VSFlexGridResource_Click(row); };
    view->on_leave = [&form] { form.VSFlexGridResource_LostFocus(); };
    view->horizontalHeader()->setSectionResizeMode(kNumber, QHeaderView::ResizeToContents);
    view->horizontalHeader()->setSectionResizeMode(kPerson, QHeaderView::Stretch);
    return page;
}

}  // namespace mrlxmlclass::qt
