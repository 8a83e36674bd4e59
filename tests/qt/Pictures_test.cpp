#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QTabWidget>
#include <QTextEdit>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

QPalette DarkPalette() {
    const QColor paper(35, 38, 41);
    const QColor window(49, 54, 59);
    const QColor text(239, 240, 241);
    QPalette dark(text, window, window.lighter(140), window.darker(160), window.darker(), text, Qt::white, paper,
                  window);
    dark.setColor(QPalette::Button, window.lighter(110));
    dark.setColor(QPalette::AlternateBase, paper.lighter(120));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::Link, QColor(41, 128, 185).lighter(150));
    dark.setColor(QPalette::ToolTipBase, paper);
    dark.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(140, 144, 148));
    }
    return dark;
}

/// A task with something on every tab.
void Furnish(QtPlan& plan) {
    plan.WithLinks();
    plan.Task("House").Task("Drawings").Under("House").From(Monday).Lasting(3);
    plan.Task("Permit").Under("House").From(Monday).Lasting(5);
    plan.Task("Foundation").Under("House").From(Monday + 7).Lasting(8).Costing(Currency(12400));
    plan.After("Drawings").After("Permit", 2);
    plan.Task("Walls").Under("House").From(Monday + 21).Lasting(10);
    for (const char* name : {"Ann Becker", "Carlos Duarte", "Eve Falk", "Gino Hart", "Sun & Sons"})
        AddPerson(plan, name);
    Assign(plan, "2", "Foundation");
    Assign(plan, "5", "Foundation");
    AddNote(plan, "Foundation",
            "The ground is soft towards the road: ask for a second opinion before the pour.\n"
            "Concrete C25/30, delivery by 7 in the morning.");
    plan.platform.Write("soil report.pdf", "");
    AddNote(plan, "Foundation", "", plan.platform.Path("soil report.pdf"));
    AddNote(plan, "Foundation", "", "http://www.concrete.example/delivery?site=12");
    plan["Foundation"].TaskPercentDone(25);
    plan.Heard();
}

/// Every caption that shows has the room that it needs.
void ExpectWholeCaptions(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool captioned = qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget);
        if (!captioned || !widget->isVisible() || widget->objectName().isEmpty()) continue;
        EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->sizeHint().height()) << widget->objectName().toStdString();
    }
}

/// Saves a picture of each tab; the name tells its looks.
void TakePictures(const QString& looks, int from_where = 2) {
    const OffscreenApplication application;
    const QDir folder(MRLXMLCLASS_PICTURES);
    ASSERT_TRUE(folder.mkpath("."));
    if (looks == "dark") QApplication::setPalette(DarkPalette());
    const QString scale = QString::number(qRound(100 * qApp->devicePixelRatio()));

    QtPlan plan;
    Furnish(plan);
    plan.Edit(
        "Foundation",
        [&](QWidget& window) {
            auto& tabs = Find<QTabWidget>(window, "TabTask");
            for (int tab = 0; tab < tabs.count(); ++tab) {
                if (!tabs.isTabEnabled(tab)) continue;
                tabs.setCurrentIndex(tab);
                Settle();
                ExpectWholeCaptions(window);
                const QString name = QString("%1-%2-%3.png").arg(looks, scale).arg(tab);
                EXPECT_TRUE(window.grab().save(folder.filePath(name))) << name.toStdString();
            }
            Click(Find(window, "CmdCancel"));
        },
        from_where, "dd/MM/yyyy");
}

TEST(Pictures, AreTakenOfEveryTabOnALightDesktop) {
    TakePictures("light");
}

TEST(Pictures, AreTakenOfEveryTabOnADarkDesktop) {
    TakePictures("dark");
}

TEST(Pictures, AreTakenOfTheScreenThatShowsNamesOnly) {
    TakePictures("names", 1);
}

}  // namespace
}  // namespace mrlxmlclass::testing
