// An X server on a Wayland compositor, where keys reach the clients of that server and nobody else.

#include "UntrustedTest.h"

namespace tessel::desktop {

namespace {

class XwaylandTest : public UntrustedTest {
protected:
    XwaylandTest()
        : UntrustedTest(ServerChoice::xwayland)
    {}
};

TEST_F(XwaylandTest, AnEntryIsOnlyCopiedAndThePromptSaysSo)
{
    expectThatChoosingOnlyCopies();
}

} // namespace

} // namespace tessel::desktop
