#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef int32_t OSStatus;
typedef uint32_t OSType;
typedef uint32_t UInt32;
typedef uint32_t OptionBits;
typedef uint32_t EventParamName;
typedef uint32_t EventParamType;
typedef unsigned long ByteCount;
typedef unsigned long ItemCount;
typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct OpaqueEventHotKeyRef* EventHotKeyRef;

struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};
struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};

typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef, EventRef, void*);
typedef EventHandlerProcPtr EventHandlerUPP;

enum { noErr = 0 };
enum { kEventClassKeyboard = 'keyb' };
enum { kEventHotKeyPressed = 5, kEventHotKeyReleased = 6 };
enum { kEventParamDirectObject = '----' };
enum { typeEventHotKeyID = 'hkid' };

extern "C" {
EventTargetRef GetApplicationEventTarget(void);
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* handlerRef);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID identifier,
                             EventTargetRef target, OptionBits options, EventHotKeyRef* hotKeyRef);
OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey);
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType* actualType, ByteCount bufferSize, ByteCount* actualSize,
                           void* data);
}
