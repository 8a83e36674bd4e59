#include "mrlxmlclass/session/ErrorMessage.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

TEST(ErrorMessage, TellsTheMemberTheClassAndTheFile) {
    TestPlatform platform;
    const auto log = Make<ErrorsHandler>();
    const ErrorMessage message(log, "TasksCol");

    log->GetErrors("out of luck", "6", "TasksCol", "Add");

    ASSERT_EQ(platform.ui.messages.size(), 1U);
    EXPECT_EQ(platform.ui.messages[0],
              "Error in: Add of Class: TasksCol see: " + platform.Path("SendToSupport.xml") + " for detail");
}

TEST(ErrorMessage, KeepsQuietAboutOtherClasses) {
    TestPlatform platform;
    const auto log = Make<ErrorsHandler>();
    const ErrorMessage message(log, "TasksCol");

    log->GetErrors("out of luck", "6", "PeopleCol", "Add");

    EXPECT_TRUE(platform.ui.messages.empty());
}

TEST(ErrorMessage, LeavesTheLogWhenItGoes) {
    TestPlatform platform;
    const auto log = Make<ErrorsHandler>();
    std::optional<ErrorMessage> message(std::in_place, log, "TasksCol");
    message.emplace(log, "PeopleCol");  // where the first one was

    log->GetErrors("out of luck", "6", "PeopleCol", "Add");
    EXPECT_EQ(platform.ui.messages.size(), 1U) << "the log knows one of them";

    message.reset();
    log->GetErrors("out of luck", "6", "PeopleCol", "Add");
    EXPECT_EQ(platform.ui.messages.size(), 1U);
}

TEST(ErrorMessage, NeedsNoLog) {
    const ErrorMessage message({}, "TasksCol");
}

}  // namespace
}  // namespace mrlxmlclass::testing
