#pragma once

#include <string>
#include <vector>

#ifndef __OBJC__
typedef struct objc_object* id;
#endif

// A small Objective-C runtime, for the tests of the macOS backend on systems that have none: classes,
// messages, automatic reference counting with weak references, and a count of the objects that are alive. It
// knows one thread. It has no `@throw`, `@synchronized`, protocol objects, key-value observing or forwarding:
// a message that an object does not understand ends the process, by design.

namespace tessel::objc {

/// Prints what is wrong and ends the process.
[[noreturn]] void fail(const std::string& complaint);

/// A new object of the class, all zero, owned by the caller.
void* allocate(void* cls);
/// Destroys the instance variables and frees the object, at the end of `-[NSObject dealloc]`.
void deallocate(void* object);

void* classOf(void* object);
/// Null above a root class.
void* superclassOf(void* cls);
const char* className(void* cls);
bool responds(void* object, const char* selector);
const char* selectorName(const void* selector);
/// Sends a message with one argument, for methods without a result.
void send(void* object, const char* selector, void* argument);

bool isBlock(const void* object);

/// A name by which records of calls call the object. Empty: none was given.
void setName(void* object, const std::string& name);
const std::string& nameOf(void* object);

/// The classes of the objects that are alive, each as often as it has objects, with the objects' names.
std::vector<std::string> liveObjects();

/// Objects that are autoreleased while it exists are released when it goes.
class AutoreleasePool {
public:
    AutoreleasePool();
    ~AutoreleasePool();
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    void* pool_;
};

} // namespace tessel::objc

// The entry points that doubles call themselves.
extern "C" {
void* objc_retain(void* object);
void objc_release(void* object);
}
