#include "mrlxmlclass/platform/Services.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

TEST(Platform, IsTheSystemsUntilOthersAreInstalled) {
    ASSERT_EQ(&Platform(), &SystemServices());
    {
        FixedClock clock;
        const Services& system = SystemServices();
        Services outer{clock, system.locale, system.files, system.shell, system.ui};
        const InstalledServices installed(outer);
        EXPECT_EQ(&Platform(), &outer);
        {
            Services inner = outer;
            const InstalledServices inside(inner);
            EXPECT_EQ(&Platform(), &inner);
        }
        EXPECT_EQ(&Platform(), &outer);
        EXPECT_EQ(Platform().clock.Today(), Date::Of(2026, 3, 2));
    }
    EXPECT_EQ(&Platform(), &SystemServices());
}

TEST(Platform, IsEachThreadsOwn) {
    const TestPlatform plat;
    const Services* seen = nullptr;
    std::thread([&] { seen = &Platform(); }).join();
    EXPECT_EQ(seen, &SystemServices());
    EXPECT_NE(&Platform(), &SystemServices());
}

struct Ending {
    String* log;
    char letter;
    std::thread::id* thread = nullptr;
};

void End(void* object) {
    auto* ending = static_cast<Ending*>(object);
    *ending->log += ending->letter;
    if (ending->thread != nullptr) *ending->thread = std::this_thread::get_id();
}

TEST(KeepForThread, EndsEveryObjectWithItsThreadTheLastOneFirst) {
    String log;
    std::thread::id ended_on;
    Ending a{&log, 'a', &ended_on};
    Ending b{&log, 'b'};
    Ending c{&log, 'c'};
    String at_work;
    std::thread worker([&] {
        KeepForThread(&a, End);
        KeepForThread(&b, End);
        KeepForThread(&c, End);
        at_work = log;
    });
    const std::thread::id worked_on = worker.get_id();
    worker.join();
    EXPECT_EQ(at_work, "");
    EXPECT_EQ(log, "cba");
    EXPECT_EQ(ended_on, worked_on);
}

TEST(KeepForThread, EndsTheObjectsOfOneThreadOnly) {
    String log;
    Ending first{&log, '1'};
    Ending second{&log, '2'};
    std::thread outer([&] {
        KeepForThread(&first, End);
        std::thread([&] { KeepForThread(&second, End); }).join();
        EXPECT_EQ(log, "2");
    });
    outer.join();
    EXPECT_EQ(log, "21");
}

TEST(KeepForThread, EndsWhatAnEndKeepsAnew) {
    static String log;  // the ends below have no other way to it
    static Ending late{&log, 'b'};
    log.clear();
    int first = 0;
    std::thread([&] {
        KeepForThread(&first, [](void*) {
            log += 'a';
            KeepForThread(&late, End);
        });
    }).join();
    EXPECT_EQ(log, "ab");
}

}  // namespace
}  // namespace mrlxmlclass::testing
