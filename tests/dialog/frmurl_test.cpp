#include "mrlxmlclass/dialog/frmurl.h"

#include <gtest/gtest.h>

#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {
namespace {

TEST(frmurl, TakesAnAddressInWhichSomethingIsLeft) {
    TestSession session;
    frmurl form;
    EXPECT_EQ(form.txturl.Text(), "http://www.");
    for (const char* text : {"http://www.example.org", "https://www.", "x", "HTTP"}) {
        form.txturl.Text(text);
        form.CmdOK_Click();
        EXPECT_EQ(Module().g_UrlResult, text);
    }
}

TEST(frmurl, TakesNothingElse) {
    TestSession session;
    frmurl form;
    for (const char* text : {"http://www.", "www.", "http:\\\\www.", "", "///...wwwhttp"}) {
        Module().g_UrlResult = "before";
        form.txturl.Text(text);
        form.CmdOK_Click();
        EXPECT_EQ(Module().g_UrlResult, "") << text;
    }
}

TEST(frmurl, ForgetsWhatItTookWhenItIsCancelled) {
    TestSession session;
    frmurl form;
    Module().g_UrlResult = "before";
    form.txturl.Text("http://www.example.org");
    form.CmdCancel_Click();
    EXPECT_EQ(Module().g_UrlResult, "");
    form.Form_Load();
    EXPECT_EQ(form.txturl.Text(), "http://www.");
}

}  // namespace
}  // namespace mrlxmlclass::testing
