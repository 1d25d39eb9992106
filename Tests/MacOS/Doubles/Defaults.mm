#import <Foundation/Foundation.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

@implementation NSUserDefaults

+ (NSUserDefaults*)standardUserDefaults
{
    return Reply(message("NSUserDefaults", "standardUserDefaults")).object(self);
}

- (instancetype)initWithSuiteName:(NSString*)suiteName
{
    return Reply(message("NSUserDefaults", "initWithSuiteName:", suiteName)).initialized([super init]);
}

- (id)objectForKey:(NSString*)key
{
    return Reply(message(self, "objectForKey:", key)).value();
}

- (void)setObject:(id)value forKey:(NSString*)key
{
    Reply(message(self, "setObject:", value, "forKey:", key)).nothing();
}

- (void)setDouble:(double)value forKey:(NSString*)key
{
    Reply(message(self, "setDouble:", value, "forKey:", key)).nothing();
}

@end
