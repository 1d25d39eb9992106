#include "X11/StartupNotification.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(StartupNotification, theMessageNamesTheIdentifier)
{
    EXPECT_EQ(completionMessage("launcher/tessel-clipboard/17-0-host_TIME12345"),
              "remove: ID=\"launcher/tessel-clipboard/17-0-host_TIME12345\"");
}

TEST(StartupNotification, quotesAndBackslashesInItAreEscaped)
{
    EXPECT_EQ(completionMessage("a\"b\\c"), "remove: ID=\"a\\\"b\\\\c\"");
}

} // namespace
} // namespace tessel
