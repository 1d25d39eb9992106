// The root class. Compiled without automatic reference counting, which it is a part of.

#import <Foundation/Foundation.h>

#include <cstdlib>

#include "Runtime/Runtime.h"

using namespace tessel;

@implementation NSObject

+ (instancetype)alloc
{
    return static_cast<id>(objc::allocate(self));
}

+ (instancetype)new
{
    return [[self alloc] init];
}

+ (Class)class
{
    return static_cast<Class>(self);
}

- (instancetype)init
{
    return self;
}

- (void)dealloc
{
    objc::deallocate(self);
}

/// What is copied here cannot change.
- (id)copy
{
    objc_retain(self);
    return self;
}

- (Class)class
{
    return static_cast<Class>(objc::classOf(self));
}

- (BOOL)isEqual:(id)object
{
    return self == object;
}

- (BOOL)isKindOfClass:(Class)cls
{
    for (void* own = objc::classOf(self); own != nullptr; own = objc::superclassOf(own)) {
        if (own == static_cast<void*>(cls))
            return YES;
    }
    return NO;
}

@end

extern "C" {

CFTypeRef CFRetain(CFTypeRef object)
{
    return objc_retain(const_cast<void*>(object));
}

void CFRelease(CFTypeRef object)
{
    if (object == nullptr)
        objc::fail("CFRelease(NULL)");
    objc_release(const_cast<void*>(object));
}
}
