#include "tests/qt/QtDialog.h"

#include <QTimer>

#include "examples/task_dialog_texts.h"

namespace mrlxmlclass::testing {

OffscreenApplication::OffscreenApplication()
    : application_((qunsetenv("QT_STYLE_OVERRIDE"), std::make_unique<QApplication>(count_, arguments_))) {
    QApplication::setStyle("fusion");
}

Boolean QtPlan::Edit(const String& task, const std::function<void(QWidget&)>& person, int from_where,
                     const String& date_format) {
    Heard();
    QTimer::singleShot(0, [&person] {
        QWidget* window = QApplication::activeModalWidget();
        if (window == nullptr) return ADD_FAILURE() << "no dialog shows", void();
        person(*window);
        if (QApplication::activeModalWidget() != window) return;
        ADD_FAILURE() << "the dialog was left open";
        window->close();
    });
    return app->showtaskinfo(Key(task), app->xTaskCol(), from_where, EnglishTaskDialogTexts(), date_format);
}

void Type(QWidget& field, const char* keys) {
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, keys);
}

void Click(QWidget& button) {
    QTest::mouseClick(&button, Qt::LeftButton);
}

void Settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

}  // namespace mrlxmlclass::testing
