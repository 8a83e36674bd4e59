#include "qt/QtUi.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QMessageBox>
#include <QTabWidget>
#include <QTimer>
#include <thread>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// What the next window in front says; the person answers it as told.
struct Answered {
    explicit Answered(std::function<void(QMessageBox&)> answer) {
        QTimer::singleShot(0, &here, [this, answer = std::move(answer)] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            text = box->text();
            title = box->windowTitle();
            buttons = box->buttons().size();
            answer(*box);
        });
    }

    QObject here;
    QString text;
    QString title;
    qsizetype buttons = 0;
};

void PressOk(QMessageBox& box) {
    Click(*box.button(QMessageBox::Ok));
}

TEST(QtUi, SaysItInABoxWithOneButton) {
    const OffscreenApplication application;
    EXPECT_TRUE(QtUi::CanShow());
    const Answered box(PressOk);
    QtUi ui;
    ui.Message("a < b & \xC3\xA4");
    EXPECT_EQ(box.text, QString::fromUtf8("a < b & \xC3\xA4"));
    EXPECT_EQ(box.buttons, 1);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
}

TEST(QtUi, LeavesAHostRunningThatHasNoWindowOfItsOwn) {
    const OffscreenApplication application;
    QTimer::singleShot(0, [] {
        const Answered box(PressOk);
        QtUi().Message("said");
        EXPECT_EQ(box.text, "said");
        QTimer::singleShot(50, [] { QCoreApplication::exit(7); });
    });
    EXPECT_EQ(QCoreApplication::exec(), 7);
}

TEST(QtUi, SaysItWhereTheSystemDoesWithoutAnApplication) {
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    EXPECT_FALSE(QtUi::CanShow());
    ::testing::internal::CaptureStderr();
    QtUi().Message("said");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "said\n");
}

TEST(QtUi, SaysItWhereTheSystemDoesOnAnotherThread) {
    const OffscreenApplication application;
    ::testing::internal::CaptureStderr();
    std::thread([] { QtUi().Message("said"); }).join();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "said\n");
}

/// A dialog whose messages show in boxes.
class QtUiInDialog : public ::testing::Test {
protected:
    /// Opens a file that is gone; gives the result of the dialog.
    Boolean OpenDeadAttachment(const std::function<void(QMessageBox&)>& answer) {
        QtUi boxes;
        plan.Task("Design").From(Monday).Lasting(3);
        AddNote(plan, "Design", "", "/gone/plan.pdf");
        plan.platform.shell.answer = 2;
        return plan.Edit(
            "Design",
            [&](QWidget& window) {
                const Services& plain = Platform();
                Services with_boxes{plain.clock, plain.locale, plain.files, plain.shell, boxes};
                const InstalledServices installed(with_boxes);
                const Answered box(answer);
                auto& table = Find<QTableView>(window, "gridattachement");
                table.setCurrentIndex(table.model()->index(0, 0));
                QTest::keyClick(&table, Qt::Key_Space);
                EXPECT_EQ(box.text, "The attachment could not be opened.");
                EXPECT_EQ(box.title, window.windowTitle());
                if (window.isVisible()) Click(Find(window, "CmdCancel"));
            },
            9);
    }

    OffscreenApplication application;
    QtPlan plan;
};

TEST_F(QtUiInDialog, StandsInFrontOfTheDialog) {
    OpenDeadAttachment(PressOk);
}

TEST_F(QtUiInDialog, GoesWithTheDialogWhenTheHostEndsIt) {
    EXPECT_EQ(OpenDeadAttachment([this](QMessageBox& box) {
                  EXPECT_NE(box.parentWidget(), nullptr);
                  plan.app->unloadtaskinfo();
              }),
              False);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
