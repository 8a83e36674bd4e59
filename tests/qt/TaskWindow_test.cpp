#include <gtest/gtest.h>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

TEST(TaskWindow, StoresATypedDurationOnOk) {
    const OffscreenApplication application;
    QtPlan plan;
    plan.Task("Design").From(Monday).Lasting(3);

    EXPECT_EQ(plan.Edit("Design",
                        [](QWidget& window) {
                            Type(Find(window, "TxtDurtion"), "5");
                            Click(Find(window, "CmdOK"));
                        }),
              True);

    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    EXPECT_EQ(plan["Design"].TaskEDate(), Friday);
}

}  // namespace
}  // namespace mrlxmlclass::testing
