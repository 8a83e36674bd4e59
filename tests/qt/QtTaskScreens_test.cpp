#include "qt/QtTaskScreens.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <thread>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// Programs that have no QApplication.
class QtTaskScreensAlone : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(QCoreApplication::instance(), nullptr); }

    ScopedEnvironment display_{"DISPLAY", nullptr};
    ScopedEnvironment wayland_{"WAYLAND_DISPLAY", nullptr};
};

TEST_F(QtTaskScreensAlone, CannotShowADialogWithoutADisplay) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", nullptr);
    EXPECT_FALSE(QtTaskScreens::CanShow());

    QtPlan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EXPECT_EQ(plan.Edit("Design", {}), False);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/GetTaskInfo 429\n");
}

TEST_F(QtTaskScreensAlone, CannotShowADialogOnADisplayThatDoesNotAnswer) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", nullptr);
    const ScopedEnvironment display("DISPLAY", ":3999");
    EXPECT_FALSE(QtTaskScreens::CanShow());
}

TEST_F(QtTaskScreensAlone, CannotShowADialogOnAPlatformThatIsNotThere) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", "no_such_platform");
    EXPECT_FALSE(QtTaskScreens::CanShow());
}

TEST_F(QtTaskScreensAlone, HasAnApplicationForAsLongAsADialogStands) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", "offscreen");
    EXPECT_TRUE(QtTaskScreens::CanShow());
    QtPlan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    for (int round = 0; round < 3; ++round) {
        const auto form = Make<EditTask>();
        QtTaskScreens screens;
        const auto view = screens.NewView(*form);
        EXPECT_NE(qobject_cast<QApplication*>(QCoreApplication::instance()), nullptr);
    }
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST_F(QtTaskScreensAlone, CannotShowADialogInAProgramWithoutWidgets) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "qt_tests";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);
    EXPECT_FALSE(QtTaskScreens::CanShow());
}

TEST_F(QtTaskScreensAlone, CannotShowADialogOnAnotherThreadThanTheApplications) {
    const OffscreenApplication application;
    EXPECT_TRUE(QtTaskScreens::CanShow());
    bool elsewhere = true;
    std::thread([&elsewhere] { elsewhere = QtTaskScreens::CanShow(); }).join();
    EXPECT_FALSE(elsewhere);
}

}  // namespace
}  // namespace mrlxmlclass::testing
