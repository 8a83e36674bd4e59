#include "mrlxmlclass/session/ErrorsHandler.h"
#include "tests/session/LettingGo.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Hears what the application tells.
class MinDateLog : public ApplicationEvents {
public:
    void MinDateChange(Date date) override { heard += DayName(date) + "\n"; }
    String heard;
};

TEST(MinDate, GivesTheTasksFirstDayWhateverWasSet) {
    Plan plan;
    plan.Task("A").From(Tuesday).Lasting(2);
    plan.app->MinDate(Monday - 300);
    EXPECT_EQ(plan.app->MinDate(), Tuesday);
}

TEST(MinDate, KeepsTheCachedDayWhenItIsSet) {
    Plan plan;
    plan.Task("A").From(Tuesday).Lasting(2);
    Module().g_MinDate = Monday;
    plan.app->MinDate(Friday);
    EXPECT_EQ(DayName(Module().g_MinDate), DayName(Monday));
    EXPECT_EQ(DayName(plan.app->MinDate()), DayName(Monday)) << "not counted anew";
}

TEST(MinDate, TellsTheHostWhenItIsSetUnlessItIsSilenced) {
    Plan plan;
    MinDateLog log;
    plan.app->Events.Add(log);
    plan.app->MinDate(Friday);
    EXPECT_EQ(log.heard, "2026-03-06\n");
    plan.app->Init(False, /*p_source_prima=*/True);
    plan.app->MinDate(Monday);
    EXPECT_EQ(log.heard, "2026-03-06\n");
    plan.app->Events.Remove(log);
}

TEST(MinDate, OutlivesAListenerThatLetsGoOfTheSession) {
    struct Listener : ApplicationEvents {
        explicit Listener(Ref<Application>& held) : session(held) { session->Events.Add(*this); }
        void MinDateChange(Date) override {
            session = {};
            alive = SessionLives();
        }
        Ref<Application>& session;
        bool alive = false;
    };
    const Plan plan;
    auto other = Make<Application>();
    const Listener listener(other);
    other->MinDate(Friday);
    EXPECT_TRUE(listener.alive);
    EXPECT_FALSE(SessionLives()) << "it went when its listeners were told";
}

TEST(MaxDate, KeepsNothingOfWhatItWasSetToButCountsAnew) {
    Plan plan;
    plan.Task("A").From(Tuesday).Lasting(2);
    Module().g_MaxDate = Friday;
    EXPECT_EQ(plan.app->MaxDate(), Friday) << "the cached day";
    plan.app->MaxDate(Monday);
    EXPECT_EQ(Module().g_MaxDate, Date());
    EXPECT_EQ(plan.app->MaxDate(), Wednesday);
}

}  // namespace
}  // namespace mrlxmlclass
