// Finding the method for a message.

#include <string>

#include "Runtime/ClassTable.h"
#include "Runtime/Runtime.h"

namespace tessel::objc {

namespace {

id answerOfNil(id, Selector*, ...)
{
    return nullptr;
}

[[noreturn]] void failUnrecognized(void* object, const char* selector)
{
    const auto* cls = *static_cast<Class**>(object);
    fail(std::string(isMetaclass(cls) ? "+[" : "-[") + cls->name + " " + selector + "] is not implemented");
}

} // namespace

void* classOf(void* object)
{
    if (isBlock(object))
        fail("a block was sent a message");
    auto* cls = *static_cast<Class**>(object);
    // An object of a metaclass is a class.
    resolve(isMetaclass(cls) ? static_cast<Class*>(object) : cls);
    return cls;
}

void* superclassOf(void* cls)
{
    resolve(static_cast<Class*>(cls));
    return static_cast<Class*>(cls)->superclass;
}

const char* className(void* cls)
{
    return static_cast<Class*>(cls)->name;
}

const char* selectorName(const void* selector)
{
    return static_cast<const Selector*>(selector)->name;
}

bool responds(void* object, const char* selector)
{
    return findMethod(static_cast<Class*>(classOf(object)), uniqueSelector(selector)) != nullptr;
}

void send(void* object, const char* selector, void* argument)
{
    Selector sent = {uniqueSelector(selector), nullptr};
    const Implementation found = findMethod(static_cast<Class*>(classOf(object)), sent.name);
    if (found == nullptr)
        failUnrecognized(object, selector);
    reinterpret_cast<void (*)(void*, Selector*, void*)>(found)(object, &sent, argument);
}

} // namespace tessel::objc

extern "C" {

using namespace tessel::objc;

Implementation objc_msg_lookup(id object, Selector* selector)
{
    if (object == nullptr)
        return answerOfNil;
    const Implementation found = findMethod(static_cast<Class*>(classOf(object)), selector->name);
    if (found == nullptr)
        failUnrecognized(object, selector->name);
    return found;
}

Implementation objc_msg_lookup_stret(id object, Selector* selector)
{
    // Nil's answer would be whatever the memory holds.
    if (object == nullptr)
        fail(std::string("nil was asked for a structure: ") + selector->name);
    return objc_msg_lookup(object, selector);
}

/// `enclosingClass` is the superclass already.
Implementation objc_msg_lookup_super(SuperReceiver* receiver, Selector* selector)
{
    Class* cls = receiver->enclosingClass;
    resolve(isMetaclass(cls) ? findClass(cls->name) : cls);
    const Implementation found = findMethod(cls, selector->name);
    if (found == nullptr)
        failUnrecognized(receiver->self, selector->name);
    return found;
}

Implementation objc_msg_lookup_super_stret(SuperReceiver* receiver, Selector* selector)
{
    return objc_msg_lookup_super(receiver, selector);
}

void objc_enumerationMutation(id)
{
    fail("a collection was changed while it was enumerated");
}

void __gxx_personality_v0();

/// C++ exceptions unwind through Objective-C frames.
__attribute__((naked)) void __gnu_objc_personality_v0()
{
#if defined(__x86_64__)
    __asm__("jmp __gxx_personality_v0@PLT");
#else
    __asm__("b __gxx_personality_v0");
#endif
}
}
