#include "Support/MacOSTest.h"

#include <utility>

#include "Support/System.h"

namespace tessel::test {

MacOSTest::MacOSTest()
{
    pool_.emplace();
}

/// The members of the test's own class are gone when it runs.
MacOSTest::~MacOSTest()
{
    pool_.reset();
    script_.expectAllReceived();
    script_.expectAllGivenBack();
    EXPECT_EQ(waitingBlocks(), 0U);
    for (const std::string& object : objc::liveObjects())
        ADD_FAILURE() << "Still alive: " << object;
}

void MacOSTest::expectCall(std::string call, Answer answer)
{
    script_.announce(std::move(call), std::move(answer));
}

} // namespace tessel::test
