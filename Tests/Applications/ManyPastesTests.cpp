// Pastes among several programs for some minutes.

#include "ManyPastes.h"

#include <iostream>
#include <random>

#include "HoldUpWatch.h"

namespace tessel::desktop {

namespace {

TEST_F(ManyPastesTest, FiveHundredArriveOnceWhereTheUserWas)
{
    TextClient gtk(desktop_, TextClientKind::gtk);
    TextClient gtk4(desktop_, TextClientKind::gtk4);
    TextClient qt(desktop_, TextClientKind::qt);
    TextClient sibling = qt.openSecondWindow();
    const std::uint32_t seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    HoldUpWatch watch(desktop_, program_->process().pid());
    pasteAtRandom({&gtk, &gtk4, &qt, &sibling}, 500, seed);
    const HoldUp holdUp = watch.finish();
    std::cout << "the main thread was held up for " << holdUp.program.count()
              << " us at most, an idle one for " << holdUp.idle.count() << " us" << std::endl;
}

} // namespace

} // namespace tessel::desktop
