#import <ServiceManagement/ServiceManagement.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

namespace {

Word describeError(NSError* __autoreleasing* error)
{
    return {error == nullptr ? "NULL" : "&error"};
}

} // namespace

@implementation SMAppService

+ (SMAppService*)mainAppService
{
    return Reply(message("SMAppService", "mainAppService")).object(self);
}

- (SMAppServiceStatus)status
{
    return static_cast<SMAppServiceStatus>(Reply(message(self, "status")).integer());
}

- (BOOL)registerAndReturnError:(NSError**)error
{
    return Reply(message(self, "registerAndReturnError:", describeError(error))).boolean();
}

- (BOOL)unregisterAndReturnError:(NSError**)error
{
    return Reply(message(self, "unregisterAndReturnError:", describeError(error))).boolean();
}

@end
