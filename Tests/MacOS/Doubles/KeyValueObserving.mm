#import <Foundation/Foundation.h>

#include <vector>

#include <gtest/gtest.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#import "Doubles/Values.h"
#include "Runtime/Runtime.h"
#include "Support/CallScript.h"
#include "Support/System.h"

using namespace tessel;
using namespace tessel::test;

namespace {

struct Observation {
    NSObject* __weak observer; ///< Nobody keeps it.
    NSString* keyPath;
};

std::vector<Observation>& observations()
{
    static auto* present = new std::vector<Observation>;
    return *present;
}

} // namespace

@implementation NSObject (NSKeyValueObserving)

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context
{
    ADD_FAILURE() << describe(self) << " does not observe " << textOf(keyPath);
}

- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(void*)context
{
    Reply(message(self, "addObserver:", Word{"observer"}, "forKeyPath:", keyPath,
                  "options:", static_cast<NSUInteger>(options),
                  "context:", Word{context == nullptr ? "NULL" : "context"}))
        .nothing();
    CallScript::current().taken("observation of " + textOf(keyPath));
    observations().push_back({observer, keyPath});
}

- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath
{
    Reply(message(self, "removeObserver:", Word{"observer"}, "forKeyPath:", keyPath)).nothing();
    CallScript::current().givenBack("observation of " + textOf(keyPath));
    std::erase_if(observations(),
                  [observer](const Observation& observation) { return observation.observer == observer; });
}

@end

namespace tessel::test {

void changeObservedValue(const std::string& keyPath)
{
    const objc::AutoreleasePool turn;
    for (const Observation& observation : observations()) {
        NSObject* const observer = observation.observer;
        if (observer == nil || textOf(observation.keyPath) != keyPath)
            continue;
        [observer observeValueForKeyPath:observation.keyPath ofObject:nil change:nil context:nullptr];
        return;
    }
    ADD_FAILURE() << "Nobody observes " << keyPath;
}

} // namespace tessel::test
