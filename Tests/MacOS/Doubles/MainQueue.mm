#import <Foundation/Foundation.h>
#include <dispatch/dispatch.h>

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#include "Runtime/Runtime.h"
#include "Support/System.h"

using namespace tessel;
using namespace tessel::test;

struct dispatch_queue_s {};
dispatch_queue_s _dispatch_main_q;

namespace {

struct WaitingBlock {
    dispatch_time_t when; ///< 0: on the next turn.
    dispatch_block_t block;
};

std::vector<WaitingBlock>& queue()
{
    static auto* blocks = new std::vector<WaitingBlock>;
    return *blocks;
}

/// Takes the block out whose turn comes first; of several, the oldest.
dispatch_block_t takeNextBlock()
{
    const auto next = std::min_element(
        queue().begin(), queue().end(),
        [](const WaitingBlock& one, const WaitingBlock& other) { return one.when < other.when; });
    const dispatch_block_t block = next->block;
    queue().erase(next);
    return block;
}

/// The run loop keeps a timer that is scheduled.
std::vector<NSTimer*>& timers()
{
    static auto* scheduled = new std::vector<NSTimer*>;
    return *scheduled;
}

Word describeQueue(dispatch_queue_t queue)
{
    return {queue == &_dispatch_main_q ? "main queue" : "another queue"};
}

} // namespace

extern "C" {

void dispatch_async(dispatch_queue_t target, dispatch_block_t block)
{
    Reply(call("dispatch_async", describeQueue(target), static_cast<id>(block))).nothing();
    queue().push_back({0, block});
}

dispatch_time_t dispatch_time(dispatch_time_t when, int64_t nanoseconds)
{
    return static_cast<dispatch_time_t>(Reply(call("dispatch_time", when, nanoseconds)).integer());
}

void dispatch_after(dispatch_time_t when, dispatch_queue_t target, dispatch_block_t block)
{
    Reply(call("dispatch_after", when, describeQueue(target), static_cast<id>(block))).nothing();
    queue().push_back({when, block});
}
}

@interface NSTimer () {
@public
    void (^block_)(NSTimer*);
}
@end

@implementation NSTimer

+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)interval
                                   repeats:(BOOL)repeats
                                     block:(void (^)(NSTimer*))block
{
    NSTimer* timer = Reply(message("NSTimer", "scheduledTimerWithTimeInterval:", interval,
                                   "repeats:", repeats, "block:", static_cast<id>(block)))
                         .object(self);
    if (timer == nil)
        return nil;
    timer->block_ = block;
    timers().push_back(timer);
    return timer;
}

/// The system lets go of the block at once, even while it runs.
- (void)invalidate
{
    Reply(message(self, "invalidate")).nothing();
    block_ = nil;
    std::erase(timers(), self);
}

@end

namespace tessel::test {

void runNextBlock()
{
    const objc::AutoreleasePool turn;
    if (queue().empty()) {
        ADD_FAILURE() << "No block waits on the main queue";
        return;
    }
    takeNextBlock()();
}

std::size_t waitingBlocks()
{
    return queue().size();
}

void fireTimer(const std::string& name)
{
    const objc::AutoreleasePool turn;
    for (NSTimer* timer : timers()) {
        if (objc::nameOf((__bridge void*)timer) != name)
            continue;
        __unsafe_unretained void (^const block)(NSTimer*) = timer->block_;
        block(timer);
        return;
    }
    ADD_FAILURE() << "No timer is scheduled that is called " << name;
}

} // namespace tessel::test
