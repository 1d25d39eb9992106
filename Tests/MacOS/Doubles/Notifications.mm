#import <Foundation/Foundation.h>

#include <vector>

#include <gtest/gtest.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#include "Runtime/Runtime.h"
#include "Support/System.h"

using namespace tessel;
using namespace tessel::test;

@interface NotificationObserver : NSObject {
@public
    void (^block_)(NSNotification*);
}
@end

@implementation NotificationObserver
@end

@implementation NSNotification
@end

namespace {

/// The centre keeps its observers.
std::vector<NotificationObserver*>& observers()
{
    static auto* registered = new std::vector<NotificationObserver*>;
    return *registered;
}

} // namespace

@implementation NSNotificationCenter

+ (NSNotificationCenter*)defaultCenter
{
    return Reply(message("NSNotificationCenter", "defaultCenter")).object(self);
}

- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block
{
    NotificationObserver* observer =
        Reply(message(self, "addObserverForName:", name, "object:", object, "queue:", static_cast<id>(queue),
                      "usingBlock:", static_cast<id>(block)))
            .object([NotificationObserver class]);
    if (observer == nil)
        return nil;
    observer->block_ = block;
    observers().push_back(observer);
    return observer;
}

- (void)removeObserver:(id)observer
{
    Reply(message(self, "removeObserver:", observer)).nothing();
    std::erase(observers(), observer);
}

@end

namespace tessel::test {

void notify(const std::string& name)
{
    const objc::AutoreleasePool turn;
    const auto registered = observers();
    for (NotificationObserver* observer : registered) {
        if (objc::nameOf((__bridge void*)observer) != name)
            continue;
        observer->block_([NSNotification new]);
        return;
    }
    ADD_FAILURE() << "No observer is called " << name;
}

} // namespace tessel::test
