#include <gtest/gtest.h>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "qt/QtTaskScreens.h"
#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

TEST(TaskWindow, StoresATypedDurationOnOk) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    QtTaskScreens screens;
    Services services{plan.platform.clock,
                      plan.platform.locale,
                      plan.platform.files,
                      plan.platform.shell,
                      plan.platform.ui,
                      NoOldPlans(),
                      screens};
    const InstalledServices installed(services);
    QTimer::singleShot(0, [] {
        QWidget* window = QApplication::activeModalWidget();
        auto* line = window->findChild<QLineEdit*>("TxtDurtion");
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, "5");
        QTest::mouseClick(window->findChild<QPushButton*>("CmdOK"), Qt::LeftButton);
    });
    EXPECT_EQ(plan.app->showtaskinfo(plan.Key("Design"), plan.app->xTaskCol(), 2, DialogTexts()), True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass::testing

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
