#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/Bindings.h"
#include "qt/Frame.h"
#include "qt/LineField.h"

class QGridLayout;

namespace mrlxmlclass::qt {

/// The first tab: how far the task has come, what it costs, its dates and its duration.
class TaskPage : public QWidget {
public:
    TaskPage(EditTask& form, Bindings& bindings);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* NewProgressFrame(Bindings& bindings);
    QWidget* NewDatesFrame(Bindings& bindings);
    QGridLayout* NewFieldGrid(Frame& frame);
    void AddProgress(QGridLayout& grid, Bindings& bindings);
    void AddCost(QGridLayout& grid, Bindings& bindings);
    void AddDates(QGridLayout& grid, Bindings& bindings);
    void AddDuration(QGridLayout& grid, Bindings& bindings);
    void AlignColumns();

    bool DurationKey(QKeyEvent& key);

    EditTask& form_;
    std::vector<QGridLayout*> grids_;  ///< one a frame, all with the same columns
    std::unique_ptr<LineField> percent_;
    std::unique_ptr<LineField> cost_;
    std::unique_ptr<LineField> duration_;
    QLineEdit* duration_line_ = nullptr;
    QLineEdit* cost_line_ = nullptr;
};

}  // namespace mrlxmlclass::qt
