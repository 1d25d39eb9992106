#pragma once

#include <stdint.h>

typedef const void* CFTypeRef;
typedef const struct __attribute__((objc_bridge(NSString))) __CFString* CFStringRef;
typedef const struct __attribute__((objc_bridge(NSDictionary))) __CFDictionary* CFDictionaryRef;

extern "C" {
CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
}
