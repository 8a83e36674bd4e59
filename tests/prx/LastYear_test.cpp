#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Late, close to the end of the last year that a plan can have, and 2 Next, which waits for it.
class LastYear : public testing::Test {
protected:
    LastYear() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Late", "--start", "2026-03-02"});
        const std::string range = plan_.Refusal({"shift", "a.prx", "9999"});
        const std::size_t year = range.find("the years 2000 to ");
        year_ = range.substr(year + 18, 4);
        plan_.Output({"set", "a.prx", "Late", "start=" + year_ + "-06-19"});
    }
    void ExpectRefused(std::vector<std::string> arguments) const {
        const std::string message = plan_.Refused(std::move(arguments));
        EXPECT_TRUE(Has(message, "a plan must stay within the years 2000 to " + year_) ||
                    Has(message, "was not taken: the year is out of range"))
            << message;
    }
    std::string year_;
    const PlanFolder plan_;
};

}  // namespace

TEST_F(LastYear, TakesNoLengthThatGoesBeyond) {
    for (const char* field : {"duration=9mons", "duration=60wks", "duration=300"}) {
        SCOPED_TRACE(field);
        ExpectRefused({"set", "Late", field});
    }
    plan_.Edit({"set", "Late", "duration=20"});
    ExpectRefused({"set", "Late", "unit=mons"});
    ExpectRefused({"add", "X", "--start", year_ + "-11-03", "--duration", "300days"});
}

TEST_F(LastYear, TakesNoneFromWhatWaits) {
    plan_.Edit({"add", "Next", "--start", year_ + "-06-23", "--duration", "100"});
    plan_.Edit({"link", "Next", "Late"});
    ExpectRefused({"set", "Late", "duration=90"});
}

TEST_F(LastYear, NamesTheTaskAndNotTheSummariesAboveIt) {
    plan_.CopyExample("house.prx", "a.prx");
    const std::string message = plan_.Refused({"set", "3", "duration=999mons"});
    EXPECT_TRUE(message.starts_with("prx: \"Soil investigation\" would run from ")) << message;
}

}  // namespace prx_test
