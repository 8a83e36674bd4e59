#include <gtest/gtest.h>

#include "mrlxmlclass/xml/ProjectsCls.h"
#include "tests/session/Formats.h"
#include "tests/support/WholeProject.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

const Date kFifthOfMarch = Date::Of(2026, 3, 5);
const Date kThirdOfMay = Date::Of(2026, 5, 3);
const Date kLastDayOfTheYear = Date::Of(2026, 12, 31);

/// One task whose dates mean another day when day and month change places, and one whose dates cannot be mistaken.
void FillDates(Plan& plan) {
    plan.WithoutWeekends();
    plan.Task("Mistakable").From(kFifthOfMarch).To(Date::Of(2026, 4, 6));
    plan.Task("Clear").From(kLastDayOfTheYear).To(kLastDayOfTheYear + 1);
    plan.calendar().SetADayAsHoliday(kFifthOfMarch);
    plan.calendar().SetADayAsHoliday(kLastDayOfTheYear);
    plan.calendar().SetADayAsExceptionDay(kThirdOfMay);
    plan.app->xFileName(plan.platform.Path("p.prx"));
}

/// Every pair of a format to write in and one to read under.
template <class Body>
void ForAllPairs(Body&& body) {
    for (const char* written : kFormats) {
        for (const char* read : kFormats) {
            SCOPED_TRACE(String(written) + " read under " + read);
            Plan plan;
            plan.platform.locale.Use(written);
            FillDates(plan);
            body(plan, written, read);
        }
    }
}

void SaveAndLoadUnder(Plan& plan, const char* read) {
    ASSERT_EQ(plan.app->SaveXml(), True);
    plan.platform.locale.Use(read);
    ASSERT_EQ(plan.app->LoadXML(), True);
    plan.app->endreadonly();
}

TEST(LoadXMLUnderAnotherFormat, KeepsTheMeaningOfEveryTaskDate) {
    ForAllPairs([](Plan& plan, const char*, const char* read) {
        SaveAndLoadUnder(plan, read);
        EXPECT_EQ(plan["Mistakable"].TaskBDate(), kFifthOfMarch);
        EXPECT_EQ(plan["Mistakable"].TaskEDate(), Date::Of(2026, 4, 6));
        EXPECT_EQ(plan["Clear"].TaskBDate(), kLastDayOfTheYear);
        EXPECT_EQ(plan["Clear"].TaskEDate(), kLastDayOfTheYear + 1);
    });
}

TEST(LoadXMLUnderAnotherFormat, FindsTheHolidaysAndExceptionDaysAgain) {
    ForAllPairs([](Plan& plan, const char*, const char* read) {
        SaveAndLoadUnder(plan, read);
        EXPECT_EQ(plan.calendar().Holiday()->Count(), 2);
        EXPECT_EQ(plan.calendar().isHoliday(kFifthOfMarch), True);
        EXPECT_EQ(plan.calendar().isHoliday(kLastDayOfTheYear), True);
        EXPECT_EQ(plan.calendar().isHoliday(kThirdOfMay), False);
        EXPECT_EQ(plan.calendar().isExceptionDay(kThirdOfMay), True);
    });
}

TEST(LoadXMLUnderAnotherFormat, KeepsTheFilesFormatUntilTheNextSaveWritesTheSystems) {
    ForAllPairs([](Plan& plan, const char* written, const char* read) {
        SaveAndLoadUnder(plan, read);
        EXPECT_EQ(plan.app->xProject()->DateFormat(), written);
        EXPECT_EQ(plan.app->Dirty(), False);
        ASSERT_EQ(plan.app->SaveXml(), True);
        EXPECT_NE(plan.platform.Read("p.prx").find("<DateFormat>" + String(read) + "</DateFormat>"), String::npos);
        SaveAndLoadUnder(plan, written);
        EXPECT_EQ(plan["Mistakable"].TaskBDate(), kFifthOfMarch) << "and back again";
    });
}

TEST(LoadXMLUnderAnotherFormat, KeepsReadingTheDatesThatAreOnlyCarriedByTheirSeparatorsAlone) {
    Plan plan;
    FillDates(plan);
    plan["Mistakable"].TaskModifiedDate(kFifthOfMarch);
    plan["Clear"].TaskModifiedDate(kLastDayOfTheYear);
    plan.app->xProject()->ProjectStartLine(kFifthOfMarch);
    plan.app->xProject()->ProjectDeadLine(kLastDayOfTheYear);
    SaveAndLoadUnder(plan, "d.M.yyyy");
    EXPECT_EQ(plan["Mistakable"].TaskModifiedDate(), kThirdOfMay) << "day and month change places";
    EXPECT_EQ(plan["Clear"].TaskModifiedDate(), kLastDayOfTheYear) << "unless that makes no month";
    EXPECT_EQ(plan.app->xProject()->ProjectStartLine(), kThirdOfMay);
    EXPECT_EQ(plan.app->xProject()->ProjectDeadLine(), kLastDayOfTheYear);
}

TEST(LoadXMLUnderAnotherFormat, LeavesTheDatesAloneWhenTheFormatsAreEqual) {
    Plan plan;
    FillDates(plan);
    plan["Mistakable"].TaskModifiedDate(kFifthOfMarch);
    SaveAndLoadUnder(plan, "M/d/yyyy");
    EXPECT_EQ(plan["Mistakable"].TaskModifiedDate(), kFifthOfMarch);
    EXPECT_EQ(plan.app->xProject()->DateFormat(), "M/d/yyyy");
}

TEST(LoadXMLUnderAnotherFormat, AdjustsNothingInALibrary) {
    Plan plan;
    FillDates(plan);
    ASSERT_EQ(plan.app->SaveXml(), True);
    plan.platform.locale.Use("dd/MM/yyyy");
    const auto library = Make<Application>();
    library->xFileName(plan.app->xFileName());
    EXPECT_EQ(library->LoadXML(False, True), True);
    EXPECT_EQ(Module().g_FileDateSeparator, "");
    EXPECT_EQ(library->xProject()->DateFormat(), "M/d/yyyy");
}

TEST(LoadXMLUnderAnotherFormat, KeepsNumbersInTheFormOfTheMachineThatWroteThem) {
    Plan plan;
    plan.Task("A").From(Monday).Lasting(2);
    plan["A"].TaskCost(Currency(1234.5));
    plan.app->xFileName(plan.platform.Path("p.prx"));
    plan.platform.locale.Use("d.M.yyyy", ",", ".");
    ASSERT_EQ(plan.app->SaveXml(), True);
    EXPECT_NE(plan.platform.Read("p.prx").find("<TaskCost>1234,5</TaskCost>"), String::npos);
    plan.platform.locale.Use("M/d/yyyy", ".", ",");
    ASSERT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan["A"].TaskCost(), Currency(12345)) << "the comma groups here";
    plan.app->endreadonly();
}

}  // namespace
}  // namespace mrlxmlclass
