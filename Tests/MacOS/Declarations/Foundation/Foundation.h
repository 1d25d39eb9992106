#pragma once

#include <math.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include <CoreFoundation/CoreFoundation.h>

#ifdef TESSEL_BOOL_IS_CHAR // As on x86_64.
typedef signed char BOOL;
#else // As on arm64.
typedef bool BOOL;
#endif
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
#define NS_ENUM(type, name)                                                                                  \
    enum name : type name;                                                                                   \
    enum name : type
#define NS_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum : type
#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define API_AVAILABLE_MACOS(version) __attribute__((availability(macos, introduced = version)))
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define FOUNDATION_EXPORT extern "C"
#if __has_feature(objc_arc)
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))
#else
#define NS_RETURNS_INNER_POINTER
#endif

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double CGFloat;
typedef double NSTimeInterval;

struct CGPoint {
    CGFloat x, y;
};
struct CGSize {
    CGFloat width, height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;

NS_ASSUME_NONNULL_BEGIN

@protocol NSObject
- (BOOL)isEqual:(nullable id)object;
- (BOOL)isKindOfClass:(Class)cls;
@end

@protocol NSCopying
- (id)copy;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    void* isa_;
}
+ (instancetype)alloc;
+ (instancetype)new;
+ (Class)class;
- (instancetype)init NS_DESIGNATED_INITIALIZER;
- (void)dealloc;
- (id)copy;
- (Class)class;
@end

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@class NSData;

@interface NSString : NSObject <NSCopying>
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)length
                              encoding:(NSStringEncoding)encoding;
- (nullable NSData*)dataUsingEncoding:(NSStringEncoding)encoding allowLossyConversion:(BOOL)lossy;
@end

/// What the compiler makes of `@"text"`.
@interface NSConstantString : NSString {
    const char* bytes_;
    unsigned length_;
}
@end

@interface NSNumber : NSObject <NSCopying>
+ (NSNumber*)numberWithBool:(BOOL)value;
+ (NSNumber*)numberWithDouble:(double)value;
@property(readonly) double doubleValue;
@end

typedef struct {
    unsigned long state;
    __unsafe_unretained id _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(__unsafe_unretained id _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)count;
@end

@interface NSArray<__covariant Element> : NSObject <NSFastEnumeration>
@property(readonly) NSUInteger count;
+ (instancetype)arrayWithObjects:(const Element _Nonnull[_Nullable])objects count:(NSUInteger)count;
@end

@interface NSDictionary<__covariant Key, __covariant Value> : NSObject
+ (instancetype)dictionaryWithObjects:(const Value _Nonnull[_Nullable])objects
                              forKeys:(const Key<NSCopying> _Nonnull[_Nullable])keys
                                count:(NSUInteger)count;
@end

@interface NSData : NSObject
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes NS_RETURNS_INNER_POINTER;
@end

typedef NSString* NSAttributedStringKey;

@interface NSAttributedString : NSObject <NSCopying>
- (instancetype)initWithString:(NSString*)string
                    attributes:(nullable NSDictionary<NSAttributedStringKey, id>*)attributes;
@end

@interface NSMutableAttributedString : NSAttributedString
- (void)appendAttributedString:(NSAttributedString*)string;
@end

@interface NSURL : NSObject
+ (nullable instancetype)URLWithString:(NSString*)address;
@end

@interface NSDate : NSObject
+ (instancetype)date;
@property(readonly) NSTimeInterval timeIntervalSince1970;
@end

@class NSError;

typedef NSString* NSKeyValueChangeKey;
typedef NS_OPTIONS(NSUInteger, NSKeyValueObservingOptions) { NSKeyValueObservingOptionNew = 0x01 };

@interface NSObject (NSKeyValueObserving)
- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context;
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(nullable void*)context;
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath;
@end

@interface NSTimer : NSObject
+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)interval
                                   repeats:(BOOL)repeats
                                     block:(void (^)(NSTimer* timer))block API_AVAILABLE_MACOS(10.12);
- (void)invalidate;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (nullable instancetype)initWithSuiteName:(nullable NSString*)suiteName;
- (nullable id)objectForKey:(NSString*)key;
- (void)setObject:(nullable id)value forKey:(NSString*)key;
- (void)setDouble:(double)value forKey:(NSString*)key;
@end

@interface NSNotification : NSObject
@end

typedef NSString* NSNotificationName;

@class NSOperationQueue;

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)object
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
@end

NS_ASSUME_NONNULL_END
