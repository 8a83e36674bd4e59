#include "mrlxmlclass/platform/Shell.h"

#include <gtest/gtest.h>

#include "tests/support/Printing.h"

namespace mrlxmlclass {
namespace {

TEST(HasScheme, TellsAddressesFromPaths) {
    for (const char* address : {"http://x.org", "ftp://x", "mailto:x", "file:x", "a+b-c.1:x", "HTTPS:"}) {
        EXPECT_TRUE(HasScheme(address)) << address;
    }
    for (const char* none : {"", ":", "www.x.org", "C:/x", "c:", "/a:b", "1a:x", "-a:x", "a b:x", "plan.prx"}) {
        EXPECT_FALSE(HasScheme(none)) << none;
    }
}

}  // namespace
}  // namespace mrlxmlclass
