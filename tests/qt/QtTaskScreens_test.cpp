#include "qt/QtTaskScreens.h"

#include <gtest/gtest.h>

#include <sys/time.h>

#include <QGuiApplication>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "mrlxmlclass/dialog/EditTask.h"
#include "mrlxmlclass/dialog/EditTaskView.h"
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

TEST_F(QtTaskScreensAlone, CanShowADialogWhileSignalsInterruptTheProcess) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", "offscreen");
    constexpr int kOften = 3'000;  // microseconds
    struct sigaction heard {};
    heard.sa_handler = [](int) {};
    struct sigaction before {};
    sigaction(SIGALRM, &heard, &before);
    const itimerval ticking{{0, kOften}, {0, kOften}};
    setitimer(ITIMER_REAL, &ticking, nullptr);
    for (int round = 0; round < 10; ++round) EXPECT_TRUE(QtTaskScreens::CanShow()) << round;
    const itimerval still{};
    setitimer(ITIMER_REAL, &still, nullptr);
    sigaction(SIGALRM, &before, nullptr);
}

/// What a host without a QApplication prints and reads by the C library, before and after the dialog.
[[noreturn]] void ShowADialogInTheCLocale() {
    std::setlocale(LC_ALL, "C");
    {
        QtTaskScreens screens;
        const auto form = Make<EditTask>();
        const auto view = screens.NewView(*form);
        if (std::setlocale(LC_ALL, nullptr) != std::string("C")) std::exit(1);
    }
    std::exit(std::setlocale(LC_ALL, nullptr) == std::string("C") ? 0 : 2);
}

TEST_F(QtTaskScreensAlone, LeavesTheProcessInItsCLocale) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", "offscreen");
    const ScopedEnvironment locale("LC_ALL", "C.UTF-8");
    ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr);
    EXPECT_STRNE(std::setlocale(LC_ALL, nullptr), "C") << "there is another locale to come to";
    std::setlocale(LC_ALL, "C");
    // Of all applications of a process the first one alone sets it.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ShowADialogInTheCLocale(), ::testing::ExitedWithCode(0), "");
}

TEST_F(QtTaskScreensAlone, EditsATaskInAProgramThatHasNoApplication) {
    const ScopedEnvironment platform("QT_QPA_PLATFORM", "offscreen");
    QtPlan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EXPECT_EQ(plan.Edit("Design",
                        [](QWidget& window) {
                            Type(Find(window, "TxtDurtion"), "5");
                            Click(Find(window, "CmdOK"));
                        }),
              True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    plan.Heard();
}

TEST_F(QtTaskScreensAlone, HasAViewThatBearsAllBeforeItShows) {
    const OffscreenApplication application;
    QtTaskScreens screens;
    const auto form = Make<EditTask>();
    const auto view = screens.NewView(*form);
    view->Refresh(form->TabTask);
    view->SetFocus(form->TabTask);
    view->PopupMenu();
    view->PasteIntoNote();
    view->Close();
    view->ShowModally();
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0) << "it was closed before";
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
