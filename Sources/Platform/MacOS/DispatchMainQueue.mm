#import "DispatchMainQueue.h"

#include <cmath>
#include <memory>
#include <utility>

#import <Foundation/Foundation.h>
#include <dispatch/dispatch.h>

namespace tessel {

void DispatchMainQueue::async(std::function<void()> work)
{
    dispatch_async(dispatch_get_main_queue(), ^{
      work();
    });
}

void DispatchMainQueue::asyncAfter(double seconds, std::function<void()> work)
{
    const auto nanoseconds = std::llround(seconds * static_cast<double>(NSEC_PER_SEC));
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, nanoseconds), dispatch_get_main_queue(), ^{
      work();
    });
}

Token DispatchMainQueue::repeat(double seconds, std::function<void()> work)
{
    const auto shared = std::make_shared<std::function<void()>>(std::move(work));
    NSTimer* const timer = [NSTimer scheduledTimerWithTimeInterval:seconds
                                                           repeats:YES
                                                             block:^(NSTimer*) {
                                                               // The work may drop the token, which frees
                                                               // this block.
                                                               const auto running = shared;
                                                               (*running)();
                                                             }];
    return Token([timer] { [timer invalidate]; });
}

} // namespace tessel
