#include "mrlxmlclass/session/ErrorMessage.h"

#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

TEST(ErrorMessage, TellsTheMemberTheClassAndTheFile) {
    TestPlatform platform;
    const auto log = Make<ErrorsHandler>();
    ErrorMessage message(log, "TasksCol");
    log->Events.Add(message);

    log->GetErrors("out of luck", "6", "TasksCol", "Add");

    ASSERT_EQ(platform.ui.messages.size(), 1U);
    EXPECT_EQ(platform.ui.messages[0],
              "Error in: Add of Class: TasksCol see: " + platform.Path("SendToSupport.xml") + " for detail");
}

TEST(ErrorMessage, KeepsQuietAboutOtherClasses) {
    TestPlatform platform;
    const auto log = Make<ErrorsHandler>();
    ErrorMessage message(log, "TasksCol");
    log->Events.Add(message);

    log->GetErrors("out of luck", "6", "PeopleCol", "Add");

    EXPECT_TRUE(platform.ui.messages.empty());
}

}  // namespace
}  // namespace mrlxmlclass::testing
