#import <Foundation/Foundation.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

@implementation NSURL

+ (instancetype)URLWithString:(NSString*)address
{
    return Reply(message("NSURL", "URLWithString:", address)).object(self);
}

@end

@implementation NSDate

+ (instancetype)date
{
    return Reply(message("NSDate", "date")).object(self);
}

- (NSTimeInterval)timeIntervalSince1970
{
    return Reply(message(self, "timeIntervalSince1970")).number();
}

@end
